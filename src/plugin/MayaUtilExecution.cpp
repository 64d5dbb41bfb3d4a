// Running MEL and Python in the host, for their effect or for their result.

#include "plugin/HiddenTrace.h"
#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "plugin/MelText.h"
#include "settings/Settings.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MCommandResult.h>
#include <maya/MGlobal.h>
#include <maya/MMessage.h>
#include <maya/MQtUtil.h>
#include <maya/MStringArray.h>

#include <QFile>

MCallbackIdArray MayaUtil::callbackIds;

namespace {

/// Runs MEL for a result of exactly the wanted type.
template <typename T>
bool MelResult(const MString& text, MCommandResult::Type type, T& result, bool display, bool undo)
{
    MCommandResult commandResult;
    if (!MGlobal::executeCommand(text, commandResult, display, undo))
        return false;
    if (commandResult.resultType() != type)
        return false;
    T value{};
    if (!commandResult.getResult(value))
        return false;
    result = value;
    return true;
}

template <typename T>
bool PythonResult(const MString& text, T& result, bool display, bool undo)
{
    T value{};
    if (!MGlobal::executePythonCommand(text, value, display, undo))
        return false;
    result = value;
    return true;
}

QStringList ToQStringList(const MStringArray& texts)
{
    QStringList list;
    for (unsigned int i = 0; i < texts.length(); ++i)
        list.append(MayaUtil::ToQString(texts[i]));
    return list;
}

/// Empty when the resource cannot be read.
QString EmbeddedScript(const QString& path, const QString& failure)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Logger::Error(failure);
        return QString();
    }
    return QString::fromLatin1(file.readAll());
}

} // namespace

QString MayaUtil::ToQString(const MString& text)
{
    return MQtUtil::toQString(text);
}

MString MayaUtil::ToMString(const QString& text)
{
    return MQtUtil::toMString(text);
}

MStatus MayaUtil::ExecuteMel(const MString& text, bool display, bool undo)
{
    return MGlobal::executeCommand(text, display, undo);
}

MStatus MayaUtil::ExecuteMel(const QString& text, bool display, bool undo)
{
    return ExecuteMel(ToMString(text), display, undo);
}

MStatus MayaUtil::ExecutePython(const MString& text, bool display, bool undo)
{
    return MGlobal::executePythonCommand(text, display, undo);
}

MStatus MayaUtil::ExecutePython(const QString& text, bool display, bool undo)
{
    return ExecutePython(ToMString(text), display, undo);
}

void MayaUtil::ExecutePythonHidden(const MString& text)
{
    const HiddenTrace hidden;
    ExecutePython(text, false, false);
}

void MayaUtil::ExecutePythonHidden(const QString& text)
{
    ExecutePythonHidden(ToMString(text));
}

bool MayaUtil::ExecuteMelIntResult(const MString& text, int& result, bool display, bool undo)
{
    return MelResult(text, MCommandResult::kInt, result, display, undo);
}

bool MayaUtil::ExecuteMelIntResult(const QString& text, int& result, bool display, bool undo)
{
    return ExecuteMelIntResult(ToMString(text), result, display, undo);
}

bool MayaUtil::ExecuteMelDoubleResult(const MString& text, double& result, bool display, bool undo)
{
    return MelResult(text, MCommandResult::kDouble, result, display, undo);
}

bool MayaUtil::ExecuteMelDoubleResult(const QString& text, double& result, bool display, bool undo)
{
    return ExecuteMelDoubleResult(ToMString(text), result, display, undo);
}

bool MayaUtil::ExecuteMelStringResult(const MString& text, MString& result, bool display, bool undo)
{
    return MelResult(text, MCommandResult::kString, result, display, undo);
}

bool MayaUtil::ExecuteMelStringResult(const QString& text, QString& result, bool display, bool undo)
{
    MString value;
    if (!ExecuteMelStringResult(ToMString(text), value, display, undo))
        return false;
    result = ToQString(value);
    return true;
}

bool MayaUtil::ExecuteMelStringArrayResult(
    const MString& text, MStringArray& result, bool display, bool undo)
{
    return MelResult(text, MCommandResult::kStringArray, result, display, undo);
}

bool MayaUtil::ExecuteMelStringArrayResult(
    const QString& text, QStringList& result, bool display, bool undo)
{
    MStringArray values;
    if (!ExecuteMelStringArrayResult(ToMString(text), values, display, undo))
        return false;
    result = ToQStringList(values);
    return true;
}

bool MayaUtil::ExecutePythonIntResult(const MString& text, int& result, bool display, bool undo)
{
    return PythonResult(text, result, display, undo);
}

bool MayaUtil::ExecutePythonIntResult(const QString& text, int& result, bool display, bool undo)
{
    return ExecutePythonIntResult(ToMString(text), result, display, undo);
}

bool MayaUtil::ExecutePythonStringResult(
    const MString& text, MString& result, bool display, bool undo)
{
    return PythonResult(text, result, display, undo);
}

bool MayaUtil::ExecutePythonStringResult(
    const QString& text, QString& result, bool display, bool undo)
{
    MString value;
    if (!ExecutePythonStringResult(ToMString(text), value, display, undo))
        return false;
    result = ToQString(value);
    return true;
}

bool MayaUtil::ExecutePythonStringArrayResult(
    const MString& text, MStringArray& result, bool display, bool undo)
{
    return PythonResult(text, result, display, undo);
}

bool MayaUtil::ExecutePythonStringArrayResult(
    const QString& text, QStringList& result, bool display, bool undo)
{
    MStringArray values;
    if (!ExecutePythonStringArrayResult(ToMString(text), values, display, undo))
        return false;
    result = ToQStringList(values);
    return true;
}

void MayaUtil::ExecuteMelScript(const QString& script)
{
    if (!Settings::executeScriptOnIdle) {
        // Run as it is, a lone variable too: only the idle queue shows no result of its own.
        MGlobal::executeCommand(ToMString(script), true, true);
        return;
    }
    const bool isVariable = MelText::IsVariable(script);
    const QString text = isVariable ? MelText::PrintVariable(script) : script;
    MGlobal::executeCommandOnIdle(ToMString(text), !isVariable);
}

void MayaUtil::ExecutePythonScript(const QString& script)
{
    if (Settings::executeScriptOnIdle)
        MGlobal::executePythonCommandOnIdle(ToMString(script), true);
    else
        MGlobal::executePythonCommand(ToMString(script), true, true);
}

MStatus MayaUtil::SourceScript(const QString& path)
{
    return MGlobal::sourceFile(ToMString(path));
}

bool MayaUtil::PythonExecStatement(const QString& statement)
{
    const QString command
        = QStringLiteral("TarnwickEditorParser.exec_statement(\"%1\")").arg(statement);
    int result = 0;
    const HiddenTrace hidden;
    ExecutePythonIntResult(command, result, false, false);
    ClearCommandResponse();
    return result != 0;
}

void MayaUtil::ClearCommandResponse()
{
    ExecutePython(QStringLiteral("pass"), false, false);
}

void MayaUtil::ImportPyMel()
{
    ExecutePython(QStringLiteral("import pymel.core"), false, false);
}

void MayaUtil::SourceApplicationScripts()
{
    const QString mel = EmbeddedScript(QStringLiteral(":/te2_scripts/TarnwickEditor2.mel"),
        QStringLiteral("Failed to load MEL scripts."));
    if (!mel.isEmpty())
        ExecuteMel(mel, false, false);
    const QString helpers
        = EmbeddedScript(QStringLiteral(":/te2_python/tarnwick_editor_helpers.py"),
            QStringLiteral("Failed to load Python helpers."));
    if (!helpers.isEmpty())
        ExecutePython(helpers, false, false);
    const QString parser = EmbeddedScript(QStringLiteral(":/te2_python/tarnwick_editor_parser.py"),
        QStringLiteral("Failed to load Python parser."));
    if (parser.isEmpty())
        return;
    ExecutePython(parser, false, false);
    ExecutePython(QStringLiteral("TarnwickEditorParser.initialize()"), false, false);
}

MStatus MayaUtil::AddCallbacks()
{
    // The entry points add them (PluginMain.cpp): they alone have the functions to call.
    return MS::kSuccess;
}

MStatus MayaUtil::RemoveCallbacks()
{
    MStatus status = MS::kSuccess;
    if (callbackIds.length() > 0)
        status = MMessage::removeCallbacks(callbackIds);
    callbackIds.clear();
    return status;
}
