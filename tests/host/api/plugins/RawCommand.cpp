// A command without a syntax: it reads its words itself. Its entry points have C names.

#include <maya/MArgList.h>
#define MNoPluginEntry
#include <maya/MFnPlugin.h>
#include <maya/MPxCommand.h>

namespace {

class RawCommand : public MPxCommand
{
public:
    static void* creator() { return new RawCommand; }

    MStatus doIt(const MArgList& args) override
    {
        const unsigned int flag = args.flagIndex("s", "sum");
        if (flag != MArgList::kInvalidArgIndex) {
            unsigned int next = flag + 1;
            int sum = 0;
            for (const int number : args.asIntArray(next))
                sum += number;
            setResult(sum);
            return MS::kSuccess;
        }
        for (unsigned int i = 0; i < args.length(); ++i)
            appendToResult(args.asString(i));
        return MS::kSuccess;
    }
};

} // namespace

extern "C" {

PLUGIN_EXPORT MStatus initializePlugin(MObject obj)
{
    MFnPlugin plugin(obj, "A. N. Author", "2");
    return plugin.registerCommand("rawCommand", RawCommand::creator);
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj)
{
    MFnPlugin plugin(obj);
    return plugin.deregisterCommand("rawCommand");
}
}
