// What follows a document through its edits ends where a fresh start would: the search's count and
// the copy of the text.

#include "editor/DocumentSearch.h"
#include "editor/SearchExpression.h"
#include "fuzz/Fuzz.h"
#include "language/DocumentCopy.h"

#include <QPlainTextDocumentLayout>
#include <QRegularExpression>
#include <QTextCursor>
#include <QTextDocument>

#include <utility>

using fuzz::Expect;

namespace {

constexpr int MAXIMUM_EDITS = 20;
constexpr int REPEATED_LENGTH = 500;

/// What is asked of a match reads its line up to there, and all of them may stand in one: of many
/// only some are asked.
bool IsAsked(int match)
{
    constexpr int FIRST = 50;
    constexpr int STEP = 97;
    return match < FIRST || match % STEP == 0;
}

void Edit(fuzz::Input& input, QTextDocument& document)
{
    if (input.Number(5) == 0) {
        document.undo();
        return;
    }
    QTextCursor cursor(&document);
    cursor.setPosition(input.Place(document.characterCount() - 1));
    cursor.setPosition(qMin(document.characterCount() - 1, cursor.position() + input.Number(40)),
        QTextCursor::KeepAnchor);
    cursor.insertText(input.Text(REPEATED_LENGTH));
}

QString Described(const DocumentSearch& search)
{
    QString text = QStringLiteral("%1:").arg(search.GetTotal());
    int match = 0;
    search.VisitAllMatches([&](const TextSpan& span, const QRegularExpressionMatch&) {
        text += QStringLiteral(" %1-%2").arg(span.start).arg(span.end);
        if (IsAsked(match++))
            text += QStringLiteral("#%1").arg(search.GetNumber(span.start));
    });
    for (const int block : search.GetHitBlocks())
        text += QStringLiteral(" b%1").arg(block);
    return text;
}

void ExpectFindable(const DocumentSearch& search)
{
    TextSpan last;
    int match = 0;
    search.VisitAllMatches([&](const TextSpan& span, const QRegularExpressionMatch&) {
        const TextSpan before = std::exchange(last, span);
        // Behind an empty match there may be a longer one at the same place.
        if (span.start == before.start || !IsAsked(match++))
            return;
        const TextSpan next = search.FindNext(qMax(before.start + 1, before.end));
        Expect(next.start == span.start && next.end == span.end && search.IsMatch(span),
            QStringLiteral("%1-%2 is found next, not %3")
                .arg(span.start)
                .arg(span.end)
                .arg(next.start));
    });
}

void ExpectSameCopy(DocumentCopy& copy, const QTextDocument& document)
{
    Expect(copy.TakeSlice(QDeadlineTimer(QDeadlineTimer::Forever)), QStringLiteral("it is whole"));
    QString text;
    for (const QString& piece : copy.GetPieces())
        text += piece;
    QString expected = document.toRawText();
    expected.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    Expect(
        text == expected, QStringLiteral("the copy\n%1\nof the document\n%2").arg(text, expected));
}

} // namespace

TE2_FUZZ_TARGET(DocumentSearches)
{
    const bool matchCase = input.Flag();
    const bool matchWord = input.Flag();
    const bool isExpression = input.Flag();
    const QString pattern = input.Text(200);
    const QRegularExpression expression
        = WithMatchLimit(CreateSearchRegEx(pattern, matchCase, matchWord, isExpression));
    QTextDocument document;
    document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
    document.setPlainText(input.Text(REPEATED_LENGTH));
    DocumentSearch search(&document, nullptr);
    search.Search(expression, -1, -1);
    DocumentCopy copy(&document);
    QObject::connect(
        &document, &QTextDocument::contentsChange, [&copy](int position, int removed, int added) {
            copy.OnContentsChange(position, removed, added);
        });
    for (int i = 0; i < MAXIMUM_EDITS && !input.AtEnd(); ++i) {
        if (input.Flag())
            search.CountSlice();
        if (input.Flag())
            copy.TakeSlice(QDeadlineTimer(0));
        Edit(input, document);
    }
    ExpectSameCopy(copy, document);
    search.Finish();
    DocumentSearch fresh(&document, nullptr);
    fresh.Search(expression, -1, -1);
    fresh.Finish();
    if (search.HasGivenUp() || fresh.HasGivenUp())
        return;
    Expect(Described(search) == Described(fresh),
        QStringLiteral("\"%1\" followed: %2\nfresh: %3")
            .arg(pattern, Described(search), Described(fresh)));
    ExpectFindable(search);
}
