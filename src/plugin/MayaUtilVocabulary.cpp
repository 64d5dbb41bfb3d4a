// What the host knows: commands and their flags, keywords, modules and their attributes.

#include "plugin/HiddenTrace.h"
#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "plugin/MelText.h"
#include "settings/Settings.h"

#include <QFile>

namespace {

// Filled by RefreshCommandList
QStringList melCommands;
QStringList melRunTimeCommands;
QStringList melProcedures;
// Filled at first use
QStringList pythonKeywords;
QStringList pythonBuiltins;

const QStringList& FilledOnce(QStringList& names, const QString& query)
{
    if (names.isEmpty())
        MayaUtil::ExecutePythonStringArrayResult(query, names, false, false);
    return names;
}

/// Seldom needed, so not a part of what every start loads.
bool DefineInspector()
{
    QFile file(QStringLiteral(":/te2_python/tarnwick_editor_inspector.py"));
    if (file.open(QIODevice::ReadOnly)
        && MayaUtil::ExecutePython(QString::fromLatin1(file.readAll())))
        return true;
    Logger::Error(QStringLiteral("Failed to load Python inspector."));
    return false;
}

void Refill(QStringList& names, const QString& query)
{
    names.clear();
    MayaUtil::ExecuteMelStringArrayResult(query, names, false, false);
}

} // namespace

QStringList MayaUtil::MelKeywords()
{
    // clang-format off
    static const char* const KEYWORDS[] = {
        "break", "case", "continue", "default", "do", "else", "false", "float", "for", "global",
        "if", "in", "int", "matrix", "no", "off", "on", "proc", "return", "string", "switch",
        "true", "vector", "while", "yes"};
    // clang-format on
    QStringList keywords;
    for (const char* keyword : KEYWORDS)
        keywords.append(QLatin1String(keyword));
    return keywords;
}

void MayaUtil::RefreshCommandList()
{
    Refill(melCommands, QStringLiteral("qhGetMelInfo(1, 0, 0)"));
    Refill(melRunTimeCommands, QStringLiteral("qhGetMelInfo(0, 1, 0)"));
    Refill(melProcedures, QStringLiteral("qhGetMelInfo(0, 0, 1)"));
}

QStringList MayaUtil::MelCommands()
{
    return melCommands;
}

QStringList MayaUtil::MelRunTimeCommands()
{
    return melRunTimeCommands;
}

QStringList MayaUtil::MelProcedures()
{
    return melProcedures;
}

QStringList MayaUtil::PythonKeywords()
{
    return FilledOnce(pythonKeywords, QStringLiteral("TarnwickEditorHelpers.list_keywords()"));
}

QStringList MayaUtil::PythonBuiltins()
{
    return FilledOnce(pythonBuiltins, QStringLiteral("TarnwickEditorHelpers.list_builtins()"));
}

QStringList MayaUtil::CommandFlags(const QString& command)
{
    // The list has empty entries.
    if (command.isEmpty() || !melCommands.contains(command))
        return {};
    return MelText::FlagsOfHelp(CommandHelp(command));
}

QString MayaUtil::CommandHelp(const QString& command)
{
    QString help;
    const HiddenTrace hidden;
    ExecuteMelStringResult(QStringLiteral("help -so %1").arg(command), help, false, false);
    return help;
}

QString MayaUtil::WhatIs(const QString& name)
{
    QString kind;
    const HiddenTrace hidden;
    ExecuteMelStringResult(
        QStringLiteral("whatIs \"%1\"").arg(MelText::Escaped(name)), kind, false, false);
    return kind;
}

void MayaUtil::RunTimeCommandHelp(const QString& name, QString& annotation, QString& script)
{
    const auto ask = [&name](const char* what, QString& answer) {
        ExecuteMelStringResult(
            QStringLiteral("runTimeCommand -q -%1 %2").arg(QLatin1String(what), name), answer,
            false, false);
    };
    const HiddenTrace hidden;
    ask("annotation", annotation);
    ask("command", script);
}

void MayaUtil::CommandDocumentation(const QString& command, bool python)
{
    if (!command.isEmpty() && !melCommands.contains(command)) {
        Logger::Error(QStringLiteral("Command not found: %1").arg(command));
        return;
    }
    const QString page = QStringLiteral("%1/%2").arg(
        python ? QStringLiteral("CommandsPython") : QStringLiteral("Commands"),
        command.isEmpty() ? QStringLiteral("index") : command);
    ExecuteMel(QStringLiteral("showHelp -docs \"%1.html\"").arg(page), false, false);
}

void MayaUtil::PythonAttributesFromSource(const QString& source, const QString& objectName,
    QStringList& results, bool keywordsAndBuiltins)
{
    const QString flag = keywordsAndBuiltins ? QStringLiteral("1") : QStringLiteral("0");
    const QString object = objectName.isEmpty() ? QStringLiteral("None")
                                                : QLatin1Char('"') + objectName + QLatin1Char('"');
    const QString command
        = QStringLiteral("TarnwickEditorParser().parse_source(\"%1\", %2, %3, %3)")
              .arg(source, object, flag);
    results.clear();
    // An import that the source names may print.
    const HiddenTrace hidden;
    ExecutePythonStringArrayResult(command, results, false, false);
    ClearCommandResponse();
}

void MayaUtil::PythonNameHelp(
    const QString& source, const QString& name, int line, QStringList& results)
{
    results.clear();
    // A library may print where a module replaces what looking at it means.
    const HiddenTrace hidden;
    static const bool isDefined = DefineInspector();
    if (!isDefined)
        return;
    ExecutePythonStringArrayResult(
        QStringLiteral("TarnwickEditorInspector().describe(\"%1\", \"%2\", %3)")
            .arg(source, name, QString::number(line)),
        results, false, false);
    ClearCommandResponse();
}

void MayaUtil::PythonSyntaxCheck(const QString& source, QStringList& results)
{
    results.clear();
    const HiddenTrace hidden;
    ExecutePythonStringArrayResult(
        QStringLiteral("TarnwickEditorParser.syntax_check(\"%1\")").arg(source), results, false,
        false);
}

void MayaUtil::UpdatePylintPythonPath()
{
    QString searchPath;
    if (!ExecutePythonStringResult(
            QStringLiteral("TarnwickEditorHelpers.get_python_path_str()"), searchPath))
        return;
    const QString path = MelText::WithoutStandardLibrary(searchPath, Settings::PATH_SEP);
    const QString& additional = Settings::pylintAdditionalPythonPaths;
    Settings::pylintPythonPath = additional.isEmpty()
        ? path
        : QStringLiteral("%1%2%3").arg(additional, Settings::PATH_SEP, path);
}
