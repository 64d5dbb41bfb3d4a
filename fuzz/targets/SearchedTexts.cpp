// Search in files finds what reading each file as a text and matching its lines would find.

#include "editor/SearchExpression.h"
#include "fuzz/Fuzz.h"
#include "search/FindMatching.h"
#include "search/TextReplacement.h"
#include "search/TextSearch.h"
#include "tests/search/PlainSearch.h"

#include <QRegularExpression>
#include <QTextCodec>

using fuzz::Expect;

namespace {

QString Listed(const QVector<SearchResult>& hits)
{
    QString listed;
    for (const SearchResult& hit : hits)
        listed += QStringLiteral("%1+%2 %3\n").arg(hit.position).arg(hit.length).arg(hit.lineText);
    return listed;
}

void ExpectWithin(const QVector<SearchResult>& hits, const QString& text)
{
    int end = 0;
    for (const SearchResult& hit : hits) {
        Expect(end <= hit.position && hit.length >= 0 && hit.position + hit.length <= text.size(),
            [&] { return QStringLiteral("hits are in order and in the text:\n") + Listed(hits); });
        end = hit.position + hit.length;
    }
}

void ExpectReplaceable(const QString& text, const QVector<SearchResult>& hits,
    const QRegularExpression& expression, const QString& replacement)
{
    const auto edits = PlanReplacement(text, hits, expression, replacement);
    if (!edits)
        return;
    Expect(edits->size() == hits.size(), QStringLiteral("each hit is replaced"));
    int length = text.size();
    for (const TextEdit& edit : *edits)
        length += edit.text.size() - edit.length;
    Expect(ApplyEdits(text, *edits).size() == length, QStringLiteral("and nothing else is"));
}

} // namespace

TE2_FUZZ_TARGET(SearchedTexts)
{
    const bool matchCase = input.Flag();
    const bool matchWord = input.Flag();
    const bool isExpression = input.Flag();
    const QString pattern = input.Text(1000);
    const QString replacement = input.Text(1000);
    const QRegularExpression expression
        = CreateSearchRegEx(pattern, matchCase, matchWord, isExpression);
    Expect(!isExpression || matchWord || expression.isValid() == DescribeFault(pattern).isEmpty(),
        QStringLiteral("a fault is described: %1").arg(pattern));
    const QTextCodec* const codec = QTextCodec::codecForName(input.Flag() ? "UTF-8" : "ISO-8859-1");
    const QByteArray bytes = input.Rest();

    TextSearch search(WithMatchLimit(expression), codec);
    const QVector<SearchResult> inBytes = search.SearchBytes(bytes.begin(), bytes.end());
    const bool hasGivenUp = search.HasGivenUp();
    QTextCodec::ConverterState state;
    QString text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    text.remove(QLatin1Char('\r'));
    const QVector<SearchResult> inText = search.SearchText(text);
    ExpectWithin(inText, text);
    if (hasGivenUp || search.HasGivenUp() || !expression.isValid()
        || expression.pattern().isEmpty())
        return;
    // Marks and halves of pairs have rules of their own.
    if (text.contains(QChar::ByteOrderMark) || bytes.startsWith("\xff\xfe")
        || bytes.startsWith("\xfe\xff") || bytes.startsWith(QByteArray("\0\0\xfe\xff", 4))
        || !text.isValidUtf16() || state.invalidChars > 0)
        return;
    const QString expected = Listed(PlainSearch::InText(text, expression));
    Expect(Listed(inText) == expected,
        QStringLiteral("\"%1\" in a text:\n%2expected:\n%3")
            .arg(pattern, Listed(inText), expected));
    // Behind the last line end of a file there is no line.
    const QString lines = text.endsWith(QLatin1Char('\n')) ? text.chopped(1) : text;
    const QString expectedInFile
        = text.isEmpty() ? QString() : Listed(PlainSearch::InText(lines, expression));
    Expect(Listed(inBytes) == expectedInFile,
        QStringLiteral("\"%1\" in bytes:\n%2expected:\n%3")
            .arg(pattern, Listed(inBytes), expectedInFile));
    ExpectReplaceable(text, inText, expression, replacement);
}
