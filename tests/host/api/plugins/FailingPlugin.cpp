// Registers a command and a callback and then fails to start: by its status, or by an exception
// when the option variable asks for one.

#include <maya/MCommandMessage.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>

#include <stdexcept>

namespace {

void OnOutput(const MString&, MCommandMessage::MessageType, void*)
{
    MGlobal::setOptionVarValue("failingPluginHeard", 1);
}

void* Create()
{
    return new MPxCommand;
}

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject obj)
{
    MFnPlugin plugin(obj, "A. N. Author", "1");
    CHECK_MSTATUS_AND_RETURN_IT(plugin.registerCommand("failingCommand", Create));
    MCommandMessage::addCommandOutputCallback(OnOutput);
    if (MGlobal::optionVarIntValue("failingPluginThrows"))
        throw std::runtime_error("no start today");
    return MS::kFailure;
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject)
{
    MGlobal::setOptionVarValue("failingPluginUninitialized", 1);
    return MS::kSuccess;
}
