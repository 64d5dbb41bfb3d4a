// Leaves its callbacks, a command and an idle task behind; refuses to stop while the option
// variable says so.

#include <maya/MCallbackIdArray.h>
#include <maya/MCommandMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>

namespace {

void Count(const char* variable)
{
    MGlobal::setOptionVarValue(variable, MGlobal::optionVarIntValue(variable) + 1);
}

void OnOutput(const MString& message, MCommandMessage::MessageType, void*)
{
    Count("untidyOutput");
    if (message == "unload it")
        MGlobal::executeCommand("unloadPlugin UntidyPlugin");
}

class UntidyCommand : public MPxCommand
{
public:
    static void* creator() { return new UntidyCommand; }
    MStatus doIt(const MArgList&) override
    {
        return MGlobal::executeTaskOnIdle([](void*) { Count("untidyIdle"); });
    }
};

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject obj)
{
    MFnPlugin plugin(obj, "A. N. Author", "1");
    MCommandMessage::addCommandOutputCallback(OnOutput);
    MEventMessage::addEventCallback("quitApplication", [](void*) { Count("untidyQuit"); });
    return plugin.registerCommand("untidyCommand", UntidyCommand::creator);
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject)
{
    Count("untidyExit");
    return MGlobal::optionVarIntValue("untidyRefuses") ? MS::kFailure : MS::kSuccess;
}
