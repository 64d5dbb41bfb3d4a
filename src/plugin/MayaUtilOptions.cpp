// The host's switches, history, module state, versions and places.

#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "plugin/MelText.h"
#include "settings/Settings.h"

#include <maya/MGlobal.h>

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace {

/// One of the script window's switches: the command that takes 0 or 1 at its end, and the option
/// variable in which the host keeps its state (null for none).
struct Switch
{
    const char* command;
    const char* optionVariable;
};

constexpr Switch ECHO_ALL{"commandEcho -state ", "echoAllLines"};
constexpr Switch LINE_NUMBERS{"commandEcho -lineNumbers ", "showLineNumbersIsOn"};
constexpr Switch STACK_TRACE{"stackTrace -state ", "stackTraceIsOn"};
constexpr Switch SUPPRESS_STACK_WINDOW{"scriptEditorInfo -ssw ", nullptr};

void Set(const Switch& which, bool on)
{
    const int state = on ? 1 : 0;
    MString command(which.command);
    command += state;
    MGlobal::executeCommandOnIdle(command, false);
    if (which.optionVariable)
        MGlobal::setOptionVarValue(which.optionVariable, state);
}

bool IsOn(const Switch& which)
{
    return MGlobal::optionVarIntValue(which.optionVariable) != 0;
}

void ExecutePythonOnIdle(const QString& command)
{
    MGlobal::executePythonCommandOnIdle(MayaUtil::ToMString(command), false);
}

QString MelString(const QString& command)
{
    QString result;
    MayaUtil::ExecuteMelStringResult(command, result, false, false);
    return result;
}

} // namespace

void MayaUtil::SetEchoAllCommandsEnabled(bool on)
{
    Set(ECHO_ALL, on);
}

bool MayaUtil::EchoAllCommandsEnabled()
{
    return IsOn(ECHO_ALL);
}

void MayaUtil::SetLineNumbersInErrorsEnabled(bool on)
{
    Set(LINE_NUMBERS, on);
}

bool MayaUtil::LineNumbersInErrorsEnabled()
{
    return IsOn(LINE_NUMBERS);
}

void MayaUtil::SetShowStackTraceEnabled(bool on)
{
    Set(STACK_TRACE, on);
}

bool MayaUtil::ShowStackTraceEnabled()
{
    return IsOn(STACK_TRACE);
}

void MayaUtil::SetSuppressStackWindowEnabled(bool on)
{
    Set(SUPPRESS_STACK_WINDOW, on);
    Settings::suppressStackWindow = on;
}

QString MayaUtil::GetExistingHistory()
{
    return MelString(QStringLiteral("qhGetExistingHistory()"));
}

void MayaUtil::ClearExistingHistory()
{
    ExecuteMel(QStringLiteral("qhClearExistingHistory()"), false, false);
}

void MayaUtil::PythonUpdateModuleState()
{
    ExecutePythonOnIdle(QStringLiteral("TarnwickEditorHelpers.update_modules()"));
}

void MayaUtil::PythonRevertModuleState()
{
    ExecutePythonOnIdle(QStringLiteral("TarnwickEditorHelpers.revert_modules()"));
}

void MayaUtil::SaveScriptToShelf(const QString& label, const QString& script, bool isMel)
{
    const QString command = MelText::ScriptToShelf(label, script, isMel);
    MGlobal::executeCommandOnIdle(ToMString(command), false);
}

bool MayaUtil::IsBatchMode()
{
    int isBatch = 0;
    return ExecuteMelIntResult(QStringLiteral("about -batch"), isBatch) && isBatch != 0;
}

QString MayaUtil::GetPythonVersion()
{
    static QString version;
    if (version.isEmpty()) {
        ExecutePythonStringResult(
            QStringLiteral("TarnwickEditorHelpers.python_version()"), version);
    }
    return version;
}

QString MayaUtil::GetQtVersion()
{
    return QStringLiteral("5.15.2");
}

QString MayaUtil::GetMayaVersionString()
{
    return MelString(QStringLiteral("about -version;"));
}

QString MayaUtil::GetUserScriptsDirectory()
{
    return MelString(QStringLiteral("internalVar -userScriptDir"));
}

QString MayaUtil::GetMayaPrefsDirectory()
{
    return MelString(QStringLiteral("internalVar -userPrefDir"));
}

void MayaUtil::PrintPythonPath()
{
    ExecutePythonOnIdle(QStringLiteral("TarnwickEditorHelpers.print_python_path()"));
}

void MayaUtil::PrintPythonEnviron()
{
    ExecutePythonOnIdle(QStringLiteral("TarnwickEditorHelpers.print_python_environ()"));
}

void MayaUtil::PrintMayaEnvVarPaths(const QString& variableName)
{
    ExecutePythonOnIdle(
        QStringLiteral("TarnwickEditorHelpers.print_maya_env_var_paths('%1')").arg(variableName));
}

void MayaUtil::RevealInFolder(const QString& path)
{
    if (path.isEmpty())
        return;
    const QFileInfo info(path);
    const QString directory = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    QDesktopServices::openUrl(QUrl::fromLocalFile(directory));
}
