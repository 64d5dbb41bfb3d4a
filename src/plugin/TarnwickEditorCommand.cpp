#include "plugin/TarnwickEditorCommand.h"

#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "plugin/OutputQueue.h"
#include "settings/ColorSettings.h"
#include "settings/ExtraSettings.h"
#include "settings/Settings.h"
#include "window/TarnwickEditor.h"

#include <maya/MArgDatabase.h>

#include <QFileInfo>

#include <atomic>
#include <memory>

namespace {

const char* const VERSION_FLAG = "-v";
const char* const CLEAR_OUTPUT_FLAG = "-co";
const char* const OPEN_FILE_FLAG = "-of";
const char* const REVERT_MODULE_STATE_FLAG = "-rms";

/// The one window. Other threads only look whether it is there.
std::atomic<TarnwickEditor*> editor{nullptr};

/// A host that restores its layout runs the command for a collapsed control too, and then the
/// control stays as it is.
bool isFirstInvocation = true;

/// Lives from loading to unloading, so that no thread touches a window that is being deleted.
std::unique_ptr<OutputQueue> threadOutput;

void ShowOutput(const OutputText& output)
{
    if (output.isEcho && Settings::outputMinimalTrace)
        return;
    if (TarnwickEditor* const window = editor)
        window->AppendToOutputThreadSafe(output.text);
}

} // namespace

void* TarnwickEditorCommand::Creator()
{
    return new TarnwickEditorCommand;
}

MSyntax TarnwickEditorCommand::CommandSyntax()
{
    MSyntax syntax;
    syntax.addFlag(VERSION_FLAG, "-version", MSyntax::kNoArg);
    syntax.addFlag(CLEAR_OUTPUT_FLAG, "-clearOutput", MSyntax::kNoArg);
    syntax.addFlag(OPEN_FILE_FLAG, "-openFile", MSyntax::kString);
    syntax.addFlag(REVERT_MODULE_STATE_FLAG, "-revertModuleState", MSyntax::kNoArg);
    return syntax;
}

MStatus TarnwickEditorCommand::doIt(const MArgList& arguments)
{
    MStatus status;
    const MArgDatabase database(syntax(), arguments, &status);
    if (!status)
        return status;
    if (database.isFlagSet(VERSION_FLAG))
        return GetVersion();
    if (database.isFlagSet(CLEAR_OUTPUT_FLAG))
        return ClearOutput();
    if (database.isFlagSet(OPEN_FILE_FLAG)) {
        MString path;
        status = database.getFlagArgument(OPEN_FILE_FLAG, 0, path);
        return status ? OpenFile(path) : status;
    }
    if (database.isFlagSet(REVERT_MODULE_STATE_FLAG))
        return RevertPythonModuleState();
    return ShowWindow();
}

void TarnwickEditorCommand::Initialize()
{
    // A host that kept the module in memory loads it with what the last time left.
    isFirstInvocation = true;
    Settings::ResetToDefaults();

    threadOutput = std::make_unique<OutputQueue>(ShowOutput);
    Settings::ReadUserConfig();
    ColorSettings::ReadUserConfig();
    ExtraSettings::ReadUserConfig();
    if (Settings::outputDisableEchoAllOnStartup)
        MayaUtil::SetEchoAllCommandsEnabled(false);
    else if (MayaUtil::EchoAllCommandsEnabled())
        Settings::outputMinimalTrace = false;
    MayaUtil::CreateMainMenuItem();
    MayaUtil::RefreshCommandList();
    MayaUtil::SetSuppressStackWindowEnabled(Settings::suppressStackWindow);
    Settings::customScaleValue = MayaUtil::GetCustomScaleValue();
    if (Settings::overrideScriptEditorButton)
        MayaUtil::OverrideScriptEditorButton();
    if (Settings::pythonImportPyMelOnLoad)
        MayaUtil::ImportPyMel();
}

void TarnwickEditorCommand::Shutdown()
{
    MayaUtil::RemoveMainMenuItem();
    MayaUtil::RestoreScriptEditorButton();
    MayaUtil::CloseWorkspaceControl();
    TarnwickEditor* const window = editor;
    if (!window)
        return;
    window->Shutdown();
    // What the host prints while the window goes must not reach it any more.
    editor = nullptr;
    window->setParent(nullptr);
    delete window;
}

void TarnwickEditorCommand::Cleanup()
{
    Shutdown();
    threadOutput.reset();
}

MString TarnwickEditorCommand::GetCommandName()
{
    return MayaUtil::ToMString(Settings::MEL_COMMAND);
}

bool TarnwickEditorCommand::GuiAvailable()
{
    return editor != nullptr;
}

void TarnwickEditorCommand::AppendToOutput(const OutputText& text)
{
    if (threadOutput)
        threadOutput->Append(text);
}

MStatus TarnwickEditorCommand::GetVersion()
{
    setResult(MayaUtil::ToMString(Settings::VERSION_STRING));
    return MS::kSuccess;
}

MStatus TarnwickEditorCommand::ClearOutput()
{
    if (TarnwickEditor* const window = editor)
        window->ClearHistory();
    else
        MayaUtil::ClearExistingHistory();
    return MS::kSuccess;
}

MStatus TarnwickEditorCommand::OpenFile(const MString& path)
{
    const QString filePath = MayaUtil::ToQString(path);
    if (filePath.isEmpty())
        return MS::kSuccess;
    const QFileInfo info(filePath);
    if (!info.exists()) {
        Logger::Error(QStringLiteral("File not found: %1").arg(filePath));
        return MS::kFailure;
    }
    if (!info.isFile()) {
        Logger::Error(QStringLiteral("Invalid file path: %1").arg(filePath));
        return MS::kFailure;
    }
    if (!GuiAvailable()) {
        Logger::Error(QStringLiteral("Tarnwick Editor 2 GUI has not been initialized."));
        return MS::kFailure;
    }
    editor.load()->OpenFile(filePath, false);
    return MS::kSuccess;
}

MStatus TarnwickEditorCommand::RevertPythonModuleState()
{
    TarnwickEditor* const window = editor;
    if (window && window->IsPythonModuleStateUpdated())
        window->PythonRevertModuleState();
    return MS::kSuccess;
}

MStatus TarnwickEditorCommand::ShowWindow()
{
    const bool isFirst = isFirstInvocation;
    isFirstInvocation = false;
    if (MayaUtil::WorkspaceControlExists()) {
        if (!isFirst || !MayaUtil::WorkspaceControlCollapsed())
            MayaUtil::SetWorkspaceControlVisible(true);
        if (!GuiAvailable())
            PlaceWindow(nullptr);
        return MS::kSuccess;
    }
    QWidget* const control = MayaUtil::CreateWorkspaceControl();
    if (!control) {
        Logger::Error(QStringLiteral("Failed to create workspace control"));
        Logger::Error(QStringLiteral("%1 setup failed. (See script editor for details")
                          .arg(Settings::APPLICATION_NAME));
        return MS::kFailure;
    }
    PlaceWindow(control);
    return MS::kSuccess;
}

void TarnwickEditorCommand::PlaceWindow(QWidget* control)
{
    if (!GuiAvailable())
        editor = new TarnwickEditor(nullptr);
    MayaUtil::SetWorkspaceChild(editor, control);
}
