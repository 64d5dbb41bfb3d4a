// Hears of everything it can, counts it in option variables, and tidies up when it goes.

#include <maya/MCallbackIdArray.h>
#include <maya/MCommandMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>

namespace {

MCallbackIdArray callbacks;

void Append(const char* variable, const MString& text)
{
    const MString before = MGlobal::optionVarStringValue(variable);
    MGlobal::setOptionVarValue(variable, before + text + ";");
}

void onCommand(const MString& command, void*)
{
    Append("heardCommands", command);
}

void onProc(const MString& name, unsigned int id, bool entry, unsigned int type, void* data)
{
    MString text = name + (entry ? ">" : "<");
    text += static_cast<double>(id);
    text += type == MCommandMessage::kMELCommand ? "c" : "p";
    Append(static_cast<const char*>(data), text);
}

void onEvent(void* data)
{
    Append("heardEvents", static_cast<const char*>(data));
    MGlobal::executeTaskOnIdle([](void*) { Append("heardEvents", "idle"); });
}

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject obj)
{
    MStatus status;
    MFnPlugin plugin(obj, "A. N. Author", "1.0", "Any", &status);
    CHECK_MSTATUS_AND_RETURN_IT(status);
    static char calls[] = "heardCalls";
    static char selection[] = "SelectionChanged";
    callbacks.append(MCommandMessage::addCommandCallback(onCommand, nullptr, &status));
    CHECK_MSTATUS_AND_RETURN_IT(status);
    callbacks.append(MCommandMessage::addProcCallback(onProc, calls, &status));
    CHECK_MSTATUS_AND_RETURN_IT(status);
    callbacks.append(MEventMessage::addEventCallback(selection, onEvent, selection, &status));
    return status;
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject)
{
    return MMessage::removeCallbacks(callbacks);
}
