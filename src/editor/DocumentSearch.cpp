#include "editor/DocumentSearch.h"

#include "editor/SearchExpression.h"

#include <QStringMatcher>
#include <QTextDocument>

#include <algorithm>

namespace {

constexpr int SLICE = 8; // ms
constexpr int GROUP = 64; ///< blocks between two known totals
// With so many lines given up the expression is hopeless, and the rest is not tried.
constexpr int MAXIMUM_GIVEN_UP = 100;
constexpr int LONG_LINE = 65536; ///< characters from which on matches are remembered

/// What the expression seeks if that is plain text; empty if it is anything more.
QString PlainText(const QRegularExpression& expression)
{
    const QRegularExpression::PatternOptions options = expression.patternOptions();
    const bool ignoresCase = options.testFlag(QRegularExpression::CaseInsensitiveOption);
    if (options
        & ~(QRegularExpression::CaseInsensitiveOption
            | QRegularExpression::UseUnicodePropertiesOption))
        return {};
    const QString pattern = expression.pattern();
    QString text;
    for (int i = 0; i < pattern.size(); ++i) {
        const bool isEscaped = pattern.at(i) == QLatin1Char('\\') && ++i < pattern.size();
        const QChar character = pattern.at(qMin(i, pattern.size() - 1));
        const bool isWord = character.isLetterOrNumber() || character == QLatin1Char('_');
        // Which letters are the same beyond these, expressions know better.
        if (isWord == isEscaped || (ignoresCase && character.unicode() > 127))
            return {};
        text += character;
    }
    return text;
}

} // namespace

/// The text of a line and where it stands in the document.
struct DocumentSearch::LineText
{
    QString text;
    int position = 0;
    QVector<int> breaks; ///< columns at which the document has a break and the line goes on

    TextSpan SpanOf(int start, int end) const
    {
        const auto first = std::upper_bound(breaks.cbegin(), breaks.cend(), start);
        const int before = static_cast<int>(first - breaks.cbegin());
        const auto last = std::lower_bound(first, breaks.cend(), end);
        const int within = static_cast<int>(last - first);
        return {position + start + before, position + end + before + within};
    }
};

DocumentSearch::DocumentSearch(const QTextDocument* document, QObject* parent)
    : QObject(parent)
    , m_document(document)
{
    connect(&m_timer, &QTimer::timeout, this, &DocumentSearch::CountOn);
}

void DocumentSearch::Search(const QRegularExpression& expression, int regionStart, int regionEnd)
{
    const bool isSame
        = expression == m_expression && regionStart == m_regionStart && regionEnd == m_regionEnd;
    if (isSame && IsUpToDate())
        return;
    m_expression = expression;
    m_regionStart = regionStart;
    m_regionEnd = regionEnd;
    Begin();
    CountUntil(QDeadlineTimer(SLICE));
}

void DocumentSearch::Begin()
{
    m_revision = m_document->revision();
    m_next = IsSearching() ? m_document->firstBlock() : QTextBlock();
    m_nextNumber = 0;
    m_total = 0;
    m_totalsBefore.clear();
    m_isFinished = false;
    m_givenUp = 0;
    m_longLine = -1;
    m_longLineSpans.clear();
}

void DocumentSearch::CountOn()
{
    // The next block may be one of those that went.
    if (!IsUpToDate())
        Begin();
    CountUntil(QDeadlineTimer(SLICE));
    Q_EMIT Counted();
}

void DocumentSearch::Finish()
{
    if (!IsUpToDate())
        Begin();
    CountUntil(QDeadlineTimer::Forever);
}

void DocumentSearch::CountUntil(const QDeadlineTimer& deadline)
{
    while (m_next.isValid()) {
        while (m_totalsBefore.size() * GROUP <= m_nextNumber)
            m_totalsBefore.append(m_total);
        m_total += CountMatches(m_next);
        GoToNextLine(m_next, m_nextNumber);
        if (deadline.hasExpired())
            break;
    }
    m_isFinished = !m_next.isValid();
    if (m_isFinished)
        m_timer.stop();
    else
        m_timer.start();
}

bool DocumentSearch::IsSearching() const
{
    return !m_expression.pattern().isEmpty() && m_expression.isValid()
        && m_givenUp < MAXIMUM_GIVEN_UP;
}

bool DocumentSearch::IsUpToDate() const
{
    return m_revision == m_document->revision();
}

bool DocumentSearch::IsFinished() const
{
    return m_isFinished && IsUpToDate();
}

bool DocumentSearch::IsInRegion(int start, int end) const
{
    return m_regionStart < 0 || (start >= m_regionStart && end <= m_regionEnd);
}

QTextBlock DocumentSearch::FirstOfLine(QTextBlock block) const
{
    while (Continues(block))
        block = block.previous();
    return block;
}

void DocumentSearch::GoToNextLine(QTextBlock& block, int& number) const
{
    do {
        block = block.next();
        ++number;
    } while (block.isValid() && Continues(block));
}

DocumentSearch::LineText DocumentSearch::GetLine(const QTextBlock& first) const
{
    LineText line{first.text(), first.position(), {}};
    for (QTextBlock block = first; IsContinued(block); block = block.next()) {
        line.breaks.append(line.text.size());
        line.text += block.next().text();
    }
    return line;
}

/// Calls visit(span, match) for each match in the line that begins with the block until it answers
/// false.
template <typename Visitor>
void DocumentSearch::VisitMatches(const QTextBlock& first, Visitor visit) const
{
    if (!first.isValid() || !IsSearching()
        || (m_regionStart >= 0 && first.position() > m_regionEnd))
        return;
    const LineText line = GetLine(first);
    const QString& text = line.text;
    if (line.SpanOf(0, text.size()).end < m_regionStart)
        return;
    // Most lines have none, and one look is cheaper than an iterator.
    const QRegularExpressionMatch any = m_expression.match(text);
    if (!any.hasMatch()) {
        m_givenUp += HasExceededMatchLimit(any) ? 1 : 0;
        return;
    }
    QRegularExpressionMatchIterator matches = m_expression.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const TextSpan span = line.SpanOf(match.capturedStart(), match.capturedEnd());
        if (IsInRegion(span.start, span.end) && !visit(span, match))
            return;
    }
    m_givenUp += matches.isValid() ? 0 : 1;
}

QVector<TextSpan> DocumentSearch::FindSpans(const QTextBlock& first) const
{
    QVector<TextSpan> spans;
    const QString plain = PlainText(m_expression);
    if (plain.isEmpty()) {
        VisitMatches(first, [&spans](const TextSpan& span, const QRegularExpressionMatch&) {
            spans.append(span);
            return true;
        });
        return spans;
    }
    // Many times as fast as an expression, whose matches are costly objects.
    const LineText line = GetLine(first);
    const bool ignoresCase
        = m_expression.patternOptions().testFlag(QRegularExpression::CaseInsensitiveOption);
    const QStringMatcher matcher(plain, ignoresCase ? Qt::CaseInsensitive : Qt::CaseSensitive);
    int found = matcher.indexIn(line.text);
    while (found >= 0) {
        const TextSpan span = line.SpanOf(found, found + plain.size());
        if (IsInRegion(span.start, span.end))
            spans.append(span);
        found = matcher.indexIn(line.text, found + plain.size());
    }
    return spans;
}

/// The same for who only wants to know where they are.
template <typename Visitor>
void DocumentSearch::VisitSpans(const QTextBlock& first, Visitor visit) const
{
    const bool isLong = first.length() > LONG_LINE || IsContinued(first);
    if (!isLong || !IsUpToDate()) {
        VisitMatches(first,
            [&visit](const TextSpan& span, const QRegularExpressionMatch&) { return visit(span); });
        return;
    }
    if (m_longLine != first.position()) {
        m_longLine = first.position();
        m_longLineSpans = FindSpans(first);
    }
    for (const TextSpan& span : qAsConst(m_longLineSpans)) {
        if (!visit(span))
            return;
    }
}

int DocumentSearch::CountMatches(const QTextBlock& block) const
{
    int count = 0;
    VisitSpans(block, [&count](const TextSpan&) {
        ++count;
        return true;
    });
    return count;
}

QTextBlock DocumentSearch::FirstBlockOfGroup(int group) const
{
    return m_document->findBlockByNumber(group * GROUP);
}

int DocumentSearch::GetNumber(int start) const
{
    const QTextBlock wanted = FirstOfLine(m_document->findBlock(start));
    const int group = wanted.blockNumber() / GROUP;
    if (!IsUpToDate() || !wanted.isValid() || group >= m_totalsBefore.size())
        return -1;
    int number = m_totalsBefore.at(group);
    for (QTextBlock block = FirstBlockOfGroup(group); block != wanted; block = block.next())
        number += Continues(block) ? 0 : CountMatches(block);
    bool isFound = false;
    VisitSpans(wanted, [&](const TextSpan& span) {
        ++number;
        isFound = span.start == start;
        return span.start < start;
    });
    return isFound ? number : -1;
}

bool DocumentSearch::IsMatch(const TextSpan& span) const
{
    bool isMatch = false;
    VisitSpans(FirstOfLine(m_document->findBlock(span.start)), [&](const TextSpan& each) {
        isMatch = each.start == span.start && each.end == span.end;
        return each.start < span.start;
    });
    return isMatch;
}

QRegularExpressionMatch DocumentSearch::GetMatch(const TextSpan& span) const
{
    QRegularExpressionMatch found;
    VisitMatches(FirstOfLine(m_document->findBlock(span.start)),
        [&](const TextSpan& each, const QRegularExpressionMatch& match) {
            if (each.start == span.start && each.end == span.end)
                found = match;
            return each.start < span.start;
        });
    return found;
}

void DocumentSearch::VisitAllMatches(
    const std::function<void(const TextSpan&, const QRegularExpressionMatch&)>& visit) const
{
    int number = 0;
    for (QTextBlock block = m_document->firstBlock(); block.isValid();
         GoToNextLine(block, number)) {
        VisitMatches(block, [&visit](const TextSpan& span, const QRegularExpressionMatch& match) {
            visit(span, match);
            return true;
        });
    }
}

/// Whether the count says that a group of blocks has no match.
bool DocumentSearch::IsKnownEmpty(int group) const
{
    const bool isCounted = m_isFinished || (group + 1) * GROUP <= m_nextNumber;
    if (!IsUpToDate() || !isCounted || group >= m_totalsBefore.size())
        return false;
    const bool isLast = group + 1 == m_totalsBefore.size();
    const int behind = isLast ? m_total : m_totalsBefore.at(group + 1);
    return behind == m_totalsBefore.at(group);
}

TextSpan DocumentSearch::FindNext(int from, const QDeadlineTimer& deadline) const
{
    TextSpan found;
    const auto visit = [&](const TextSpan& span) {
        if (span.start >= from)
            found = span;
        return !found.IsValid();
    };
    QTextBlock block = FirstOfLine(m_document->findBlock(from));
    int number = block.blockNumber();
    while (block.isValid() && !found.IsValid()) {
        if (number % GROUP == 0) {
            if (deadline.hasExpired())
                break;
            while (block.isValid() && IsKnownEmpty(number / GROUP)) {
                number += GROUP;
                block = FirstBlockOfGroup(number / GROUP);
            }
        }
        if (!Continues(block))
            VisitSpans(block, visit);
        GoToNextLine(block, number);
    }
    return found;
}

TextSpan DocumentSearch::FindPrevious(int before) const
{
    TextSpan found;
    const auto visit = [&](const TextSpan& span) {
        if (span.start < before && span.end <= before)
            found = span;
        return span.start < before;
    };
    const int last = m_document->characterCount() - 1;
    QTextBlock block = FirstOfLine(m_document->findBlock(qBound(0, before, last)));
    for (int number = block.blockNumber(); block.isValid() && !found.IsValid(); --number) {
        if (number % GROUP == GROUP - 1) {
            while (number >= 0 && IsKnownEmpty(number / GROUP))
                number -= GROUP;
            block = m_document->findBlockByNumber(number);
        }
        if (!Continues(block))
            VisitSpans(block, visit);
        block = block.previous();
    }
    return found;
}
