#include <maya/MSimple.h>

DeclareSimpleCommand(simpleGreeting, "A. N. Author", "1.0");

MStatus simpleGreeting::doIt(const MArgList& args)
{
    setResult("Hello " + args.asString(0));
    return MS::kSuccess;
}
