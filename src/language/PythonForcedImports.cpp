#include "language/PythonForcedImports.h"

#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"

#include <QHash>
#include <QRegularExpression>

namespace {

/// A comma parts names within a "from" statement, too: what follows one belongs to it as long as it
/// is a plain name.
QStringList EntriesOfLine(const QString& line)
{
    static const QRegularExpression SIMPLE_NAME(QStringLiteral("^\\w+(?:\\s+as\\s+\\w+)?\\z"));
    QStringList entries;
    for (const QString& part : line.split(QLatin1Char(','))) {
        const QString entry = part.simplified();
        const bool continues = !entries.isEmpty()
            && entries.last().startsWith(QLatin1String("from "))
            && SIMPLE_NAME.match(entry).hasMatch();
        if (continues)
            entries.last() += QLatin1String(", ") + entry;
        else if (!entry.isEmpty())
            entries.append(entry);
    }
    return entries;
}

} // namespace

PythonForcedImports::Entries PythonForcedImports::Parse(const QString& option)
{
    static const QRegularExpression MODULE(QStringLiteral("^[\\w.]+(?:\\s+as\\s+\\w+)?\\z"));
    static const QRegularExpression STATEMENT(
        QStringLiteral("^(?:import\\s|from\\s.+\\simport\\s)[^\"'\\\\;]*\\z"));
    static const QRegularExpression LINE_BREAKS(QStringLiteral("[\\r\\n]+"));
    Entries entries;
    for (const QString& line : option.split(LINE_BREAKS)) {
        for (const QString& entry : EntriesOfLine(line)) {
            if (MODULE.match(entry).hasMatch())
                entries.statements.append(QLatin1String("import ") + entry);
            else if (STATEMENT.match(entry).hasMatch())
                entries.statements.append(entry);
            else
                entries.rejected.append(entry);
        }
    }
    return entries;
}

QStringList PythonForcedImports::Statements()
{
    static QString parsedOption;
    static QHash<QString, bool> tried;
    if (Settings::pythonForcedImports == parsedOption)
        return Settings::pythonParsedForcedImports;
    parsedOption = Settings::pythonForcedImports;
    const Entries entries = Parse(parsedOption);
    if (!entries.rejected.isEmpty())
        Logger::Warning(QStringLiteral("Forced imports that are no import statements: %1")
                            .arg(entries.rejected.join(QStringLiteral(", "))));
    Settings::pythonParsedForcedImports.clear();
    for (const QString& statement : entries.statements) {
        if (!tried.contains(statement))
            tried.insert(statement, MayaUtil::PythonExecStatement(statement));
        if (tried.value(statement))
            Settings::pythonParsedForcedImports.append(statement);
    }
    return Settings::pythonParsedForcedImports;
}
