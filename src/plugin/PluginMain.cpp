// What the host calls: the entry points and the callbacks.

#include "plugin/MayaUtil.h"
#include "plugin/OutputFraming.h"
#include "plugin/TarnwickEditorCommand.h"
#include "settings/Settings.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MCommandMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>

#include <QClipboard>
#include <QGuiApplication>

namespace {

const char* const VENDOR = "Quenholt";
const char* const REQUIRED_API_VERSION = "Any";

/// Lives across messages: each is framed after the ones before it.
OutputFraming framing;

void OnApplicationExit(void* /*clientData*/)
{
    TarnwickEditorCommand::Shutdown();
}

/// May be called on any thread that prints.
void OnCommandOutputReceived(
    const MString& message, MCommandMessage::MessageType type, void* /*clientData*/)
{
    if (Settings::traceHideAll || !TarnwickEditorCommand::GuiAvailable())
        return;
    if (const auto output = framing.Frame(MayaUtil::ToQString(message), type))
        TarnwickEditorCommand::AppendToOutput(*output);
}

/// Both callbacks or none.
MStatus AddCallbacks()
{
    MayaUtil::callbackIds.clear();
    MStatus status;
    const MCallbackId exitId
        = MEventMessage::addEventCallback("quitApplication", OnApplicationExit, nullptr, &status);
    if (!status)
        return status;
    MayaUtil::callbackIds.append(exitId);
    const MCallbackId outputId
        = MCommandMessage::addCommandOutputCallback(OnCommandOutputReceived, nullptr, &status);
    if (!status) {
        MayaUtil::RemoveCallbacks();
        return status;
    }
    MayaUtil::callbackIds.append(outputId);
    return MS::kSuccess;
}

MString VersionString()
{
    return MayaUtil::ToMString(Settings::VERSION_STRING);
}

/// Shows the reason and passes the status on.
MStatus Failed(const MString& text, const MStatus& status)
{
    MGlobal::displayError(text);
    return status;
}

MString CommandFailure(const char* what, const MStatus& status)
{
    return MString(what) + TarnwickEditorCommand::GetCommandName()
        + "' command: " + status.errorString();
}

} // namespace

PLUGIN_EXPORT MStatus initializePlugin(MObject object)
{
    MStatus status;
    MFnPlugin plugin(object, VENDOR, VersionString().asUTF8(), REQUIRED_API_VERSION, &status);
    if (!status)
        return Failed(MString("Failed to initialize plugin: ") + status.errorString(), status);
    if (MayaUtil::IsBatchMode())
        return MS::kSuccess;
    framing.Reset();
    MayaUtil::SourceApplicationScripts();
    status = plugin.registerCommand(TarnwickEditorCommand::GetCommandName(),
        TarnwickEditorCommand::Creator, TarnwickEditorCommand::CommandSyntax);
    if (!status)
        return Failed(CommandFailure("Failed to register '", status), status);
    TarnwickEditorCommand::Initialize();
    status = AddCallbacks();
    if (!status)
        return Failed("Failed to add callbacks", status);
    return MS::kSuccess;
}

PLUGIN_EXPORT MStatus uninitializePlugin(MObject object)
{
    // Before anything else: what the editor copied has its code in this module.
    QGuiApplication::clipboard()->clear();

    MStatus status;
    MFnPlugin plugin(object, VENDOR, VersionString().asUTF8(), REQUIRED_API_VERSION, &status);
    if (!status)
        return Failed(MString("Failed to uninitialize plugin: ") + status.errorString(), status);
    if (MayaUtil::IsBatchMode())
        return MS::kSuccess;
    status = MayaUtil::RemoveCallbacks();
    if (!status)
        return Failed("Failed to remove callbacks", status);
    TarnwickEditorCommand::Cleanup();
    status = plugin.deregisterCommand(TarnwickEditorCommand::GetCommandName());
    if (!status)
        return Failed(CommandFailure("Failed to deregister '", status), status);
    return MS::kSuccess;
}
