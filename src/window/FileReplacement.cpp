#include "window/FileReplacement.h"

#include "files/FileText.h"
#include "files/SafeFile.h"
#include "files/TextBytes.h"
#include "files/TextFormat.h"
#include "search/TextReplacement.h"
#include "search/TextSearch.h"

#include <QCoreApplication>
#include <QFile>

namespace {

QString Tr(const char* text)
{
    return QCoreApplication::translate("FileReplacement", text);
}

/// The same places with the character that a search sees for bytes that are none.
QString WithUnknownCharacters(QString text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size()
            && text.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

bool IsSame(const SearchResult& left, const SearchResult& right)
{
    return left.position == right.position && left.length == right.length
        && left.lineText == right.lineText;
}

/// The hits where they are in the text as an editor has it: bytes that are no characters, and
/// returns, count otherwise there. Empty when one is gone.
QVector<SearchResult> Located(const QVector<SearchResult>& hits, const QByteArray& bytes,
    const QString& text, const QRegularExpression& expression)
{
    TextSearch search(expression, &FileText::ChosenCodec());
    const QVector<SearchResult> before = search.SearchBytes(bytes.begin(), bytes.end());
    const QVector<SearchResult> now = search.SearchText(text);
    QVector<SearchResult> located;
    if (before.size() > now.size())
        return {};
    int place = 0;
    for (const SearchResult& hit : hits) {
        while (place < before.size() && !IsSame(before[place], hit))
            ++place;
        if (place == before.size() || now[place].length != hit.length)
            return {};
        located.append(now[place]);
    }
    return located;
}

} // namespace

QString ReplaceInFile(const QString& path, const QVector<SearchResult>& hits,
    const QRegularExpression& expression, const QString& replacement)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QByteArray bytes = file.readAll();
    file.close();
    const QTextCodec& chosen = FileText::ChosenCodec();
    const FormattedText found = ReadFormatted(bytes, chosen);
    const QString seen = WithUnknownCharacters(found.text);
    const QVector<SearchResult> located = Located(hits, bytes, seen, expression);
    const std::optional<QVector<TextEdit>> edits
        = PlanReplacement(seen, located, expression, replacement);
    if (located.isEmpty() || !edits)
        return Tr("it changed since it was listed");
    for (const TextEdit& edit : *edits) {
        const QChar unknown(QChar::ReplacementCharacter);
        if (edit.text.contains(unknown) && !replacement.contains(unknown))
            return Tr("bytes that are no characters would be lost");
    }
    const QString text = ApplyEdits(found.text, *edits);
    if (!TextBytes::CanHold(text, found.format.GetCodec(chosen)))
        return Tr("its encoding has no place for the new text");
    // Whoever may write everything is held back by nothing else.
    if (!(QFile::permissions(path) & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther)))
        return Tr("it is read-only");
    QString reason;
    return SafeFile::Write(path, FormatText(text, found.format, chosen), reason) ? QString()
                                                                                 : reason;
}
