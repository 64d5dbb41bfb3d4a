#include "views/goto/GoToEntries.h"

#include "views/SymbolLook.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <limits>

namespace {

/// By language.
constexpr const char* LANGUAGE_ICONS[] = {"lang_text", "lang_mel", "lang_python"};

/// By type of the item.
constexpr const char* KINDS[] = {
    "",
    QT_TRANSLATE_NOOP("GoToEntries", "global procedure"),
    QT_TRANSLATE_NOOP("GoToEntries", "procedure"),
    QT_TRANSLATE_NOOP("GoToEntries", "global variable"),
    QT_TRANSLATE_NOOP("GoToEntries", "import"),
    QT_TRANSLATE_NOOP("GoToEntries", "import"),
    QT_TRANSLATE_NOOP("GoToEntries", "import"),
    QT_TRANSLATE_NOOP("GoToEntries", "main"),
    QT_TRANSLATE_NOOP("GoToEntries", "function"),
    QT_TRANSLATE_NOOP("GoToEntries", "static method"),
    QT_TRANSLATE_NOOP("GoToEntries", "class method"),
    QT_TRANSLATE_NOOP("GoToEntries", "class"),
};

QString Translate(const char* text)
{
    return QCoreApplication::translate("GoToEntries", text);
}

CodeEditorLanguage LanguageOf(const QString& path)
{
    if (path.endsWith(QLatin1String(".py"), Qt::CaseInsensitive)
        || path.endsWith(QLatin1String(".pyw"), Qt::CaseInsensitive))
        return CodeEditorLanguage::Python;
    return path.endsWith(QLatin1String(".mel"), Qt::CaseInsensitive) ? CodeEditorLanguage::Mel
                                                                     : CodeEditorLanguage::Text;
}

void SetLanguage(GoToEntry& entry, CodeEditorLanguage language)
{
    entry.icon = QLatin1String(LANGUAGE_ICONS[static_cast<int>(language)]);
    entry.isLanguageIcon = true;
}

/// Where the part of the path begins that is shown.
int ShownFrom(const QString& path, const QStringList& folders)
{
    for (const QString& folder : folders) {
        if (path.startsWith(folder) && path.midRef(folder.size()).startsWith(QLatin1Char('/')))
            return folder.lastIndexOf(QLatin1Char('/')) + 1;
    }
    return 0;
}

bool IsImport(ParserItemType type)
{
    return type == ParserItemType::PythonImport || type == ParserItemType::PythonImportAs
        || type == ParserItemType::PythonFromImport;
}

/// A number too large to read is larger than any script.
int ToNumber(const QString& digits)
{
    bool isRead = false;
    const int number = digits.toInt(&isRead);
    return isRead || digits.isEmpty() ? number : std::numeric_limits<int>::max();
}

} // namespace

GoToEntry GoToEntries::OfFile(const QString& path, const QStringList& folders)
{
    GoToEntry entry;
    entry.text = path.mid(ShownFrom(path, folders));
    entry.nameStart = entry.text.lastIndexOf(QLatin1Char('/')) + 1;
    entry.target = path;
    SetLanguage(entry, LanguageOf(path));
    return entry;
}

GoToEntry GoToEntries::OfEditor(const CodeEditorProperties& properties, const QStringList& folders)
{
    GoToEntry entry;
    if (properties.type == CodeEditorType::File) {
        entry = OfFile(properties.filePath, folders);
    } else {
        entry.text = properties.label;
        entry.detail = Translate("internal buffer");
        entry.target = properties.filePath;
    }
    SetLanguage(entry, properties.language);
    return entry;
}

QVector<GoToEntry> GoToEntries::OfSymbols(
    const QVector<ParserItem>& items, const std::function<int(int position)>& lineOf)
{
    QVector<GoToEntry> entries;
    entries.reserve(items.size());
    QVector<const ParserItem*> parents; // by level
    for (const ParserItem& item : items) {
        const int level = qBound(0, item.level, items.size());
        const ParserItem* const parent = level > 0 ? parents.value(level - 1, nullptr) : nullptr;
        parents.resize(level + 1);
        parents[level] = &item;
        GoToEntry entry;
        entry.text = item.name;
        entry.detail
            = Translate("%1 · line %2")
                  .arg(parent ? parent->name : Translate(KINDS[static_cast<int>(item.type)]),
                      QString::number(lineOf(item.position)));
        entry.icon = SymbolLook::Icon(static_cast<int>(item.type));
        entry.onlyWhenTyped = IsImport(item.type);
        entry.level = level;
        entry.value = item.position;
        entry.end = SymbolLook::EndOf(item);
        entries.append(entry);
    }
    return entries;
}

GoToEntries::FilePlace GoToEntries::ParseFilePlace(const QString& text)
{
    static const QRegularExpression PLACE(QStringLiteral("^(.*?)(?::(\\d+)(?::(\\d*))?|:)$"));
    const QRegularExpressionMatch match = PLACE.match(text);
    if (!match.hasMatch())
        return {text, 0, 0};
    return {match.captured(1), ToNumber(match.captured(2)), ToNumber(match.captured(3))};
}

GoToEntries::FilePlace GoToEntries::ParseLine(const QString& text, int currentLine, int lineCount)
{
    static const QRegularExpression LINE(QStringLiteral("^\\s*([+-]?)(\\d+)(?::(\\d*))?\\s*$"));
    const QRegularExpressionMatch match = LINE.match(text);
    if (!match.hasMatch())
        return {};
    const qint64 number = ToNumber(match.captured(2));
    const QString sign = match.captured(1);
    if (sign.isEmpty() && number < 1)
        return {};
    const qint64 line = sign.isEmpty() ? number
        : sign == QLatin1String("+")   ? currentLine + number
                                       : currentLine - number;
    return {QString(), int(qBound<qint64>(1, line, lineCount)), ToNumber(match.captured(3))};
}
