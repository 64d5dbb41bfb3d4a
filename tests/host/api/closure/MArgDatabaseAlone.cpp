#include <maya/MArgDatabase.h>

MString DatabaseAlone(const MSyntax& syntax, const MArgList& words)
{
    MStatus status;
    const MArgDatabase arguments(syntax, words, &status);
    CHECK_MSTATUS(status);
    const MArgParser& parser = arguments;
    return parser.flagArgumentString("x", 0);
}
