#include <maya/MPxCommand.h>

class CommandAlone : public MPxCommand
{
public:
    MStatus doIt(const MArgList&) override;
    static MSyntax newSyntax();
};

MStatus CommandAlone::doIt(const MArgList&)
{
    setResult(MString("x"));
    return MS::kSuccess;
}
