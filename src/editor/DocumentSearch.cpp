// What is asked about the matches of a document; counting them is in DocumentSearchCount.cpp.

#include "editor/DocumentSearch.h"

#include <QTextDocument>

#include <algorithm>

namespace {

constexpr int LONG_LINE = 65536; ///< characters from which on matches are remembered
constexpr int LINES_PER_LOOK_AT_THE_CLOCK = 16;

/// Ends a walk over lines at the deadline, or when it only meets lines that take too long.
class WalkLimit
{
public:
    explicit WalkLimit(const QDeadlineTimer& deadline)
        : m_deadline(deadline)
    { }

    bool IsReached()
    {
        return m_givenUp >= LineSearch::MAXIMUM_GIVEN_UP
            || (++m_lines % LINES_PER_LOOK_AT_THE_CLOCK == 0 && m_deadline.hasExpired());
    }
    void Add(bool wasSearched) { m_givenUp += wasSearched ? 0 : 1; }

private:
    QDeadlineTimer m_deadline;
    int m_lines = 0;
    int m_givenUp = 0;
};

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
    connect(document, &QTextDocument::contentsChange, this, &DocumentSearch::OnContentsChange);
}

bool DocumentSearch::IsSearching(
    const QRegularExpression& expression, int regionStart, int regionEnd) const
{
    return expression == m_search.GetExpression() && regionStart == m_regionStart
        && (regionStart < 0 || regionEnd == m_regionEnd);
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

DocumentSearch::LineText DocumentSearch::GetLine(const QTextBlock& first) const
{
    LineText line{first.text(), first.position(), {}};
    if (!m_continues)
        return line;
    for (QTextBlock block = first.next(); Continues(block); block = block.next()) {
        line.breaks.append(line.text.size());
        line.text += block.text();
    }
    return line;
}

/// Calls visit(span, match) for each match in the line that begins with the block until it answers
/// false. False when the line was given up.
template <typename Visitor>
bool DocumentSearch::VisitMatches(const QTextBlock& first, Visitor visit) const
{
    const LineText line = GetLine(first);
    return m_search.VisitMatches(QStringRef(&line.text), [&](const QRegularExpressionMatch& match) {
        const TextSpan span = line.SpanOf(match.capturedStart(), match.capturedEnd());
        return !IsInRegion(span.start, span.end) || visit(span, match);
    });
}

/// The same for who only wants to know where they are.
template <typename Visitor>
bool DocumentSearch::VisitSpans(const QTextBlock& first, Visitor visit) const
{
    const auto walk = [this, &first](auto visitSpan) {
        if (!m_snapshot.isNull() && IsUpToDate()) {
            const int position = first.position();
            const QStringRef text = m_snapshot.midRef(position, first.length() - 1);
            return m_search.Visit(text, [&](int start, int end) {
                const TextSpan span{position + start, position + end};
                return !IsInRegion(span.start, span.end) || visitSpan(span);
            });
        }
        const LineText line = GetLine(first);
        return m_search.Visit(QStringRef(&line.text), [&](int start, int end) {
            const TextSpan span = line.SpanOf(start, end);
            return !IsInRegion(span.start, span.end) || visitSpan(span);
        });
    };
    const bool isLong = first.length() > LONG_LINE || Continues(first.next());
    if (!isLong || !IsUpToDate())
        return walk(visit);
    bool wasSearched = true;
    if (m_longLine != first.position()) {
        const LineText line = GetLine(first);
        m_longLine = first.position();
        m_longLineEnd = line.SpanOf(line.text.size(), line.text.size()).end;
        m_longLineSpans.clear();
        wasSearched = walk([this](const TextSpan& span) {
            m_longLineSpans.append(span);
            return true;
        });
    }
    for (const TextSpan& span : qAsConst(m_longLineSpans)) {
        if (!visit(span))
            break;
    }
    return wasSearched;
}

int DocumentSearch::CountMatches(const QTextBlock& first, bool& wasSearched) const
{
    int count = 0;
    wasSearched = VisitSpans(first, [&count](const TextSpan&) {
        ++count;
        return true;
    });
    return count;
}

int DocumentSearch::GetNumber(int start) const
{
    const QTextBlock wanted = FirstOfLine(m_document->findBlock(start));
    const int block = wanted.blockNumber();
    const bool isCounted = m_dirtyFrom >= m_dirtyTo || block < m_dirtyFrom;
    if (!m_search.IsSearching() || !IsUpToDate() || !wanted.isValid() || !isCounted)
        return -1;
    int number = CountBefore(block);
    bool isFound = false;
    if (m_counts.at(block) > 0) {
        VisitSpans(wanted, [&](const TextSpan& span) {
            ++number;
            isFound = span.start == start;
            return span.start < start;
        });
    }
    return isFound ? number : -1;
}

bool DocumentSearch::IsMatch(const TextSpan& span) const
{
    const QTextBlock block = FirstOfLine(m_document->findBlock(span.start));
    if (!m_search.IsSearching() || !block.isValid() || IsKnownEmpty(block.blockNumber()))
        return false;
    bool isMatch = false;
    VisitSpans(block, [&](const TextSpan& each) {
        isMatch = each.start == span.start && each.end == span.end;
        return each.start < span.start;
    });
    return isMatch;
}

QRegularExpressionMatch DocumentSearch::GetMatch(const TextSpan& span) const
{
    QRegularExpressionMatch found;
    const QTextBlock block = FirstOfLine(m_document->findBlock(span.start));
    if (!block.isValid())
        return found;
    VisitMatches(block, [&](const TextSpan& each, const QRegularExpressionMatch& match) {
        if (each.start == span.start && each.end == span.end)
            found = match;
        return each.start < span.start;
    });
    return found;
}

QVector<TextSpan> DocumentSearch::GetMatchesIn(const QTextBlock& block) const
{
    QVector<TextSpan> spans;
    const QTextBlock first = FirstOfLine(block);
    if (!m_search.IsSearching() || !first.isValid() || IsKnownEmpty(first.blockNumber()))
        return spans;
    const int end = block.position() + block.length();
    VisitSpans(first, [&](const TextSpan& span) {
        if (span.end > qMax(span.start, block.position()) && span.start < end)
            spans.append(span);
        return span.start < end;
    });
    return spans;
}

void DocumentSearch::VisitAllMatches(
    const std::function<void(const TextSpan&, const QRegularExpressionMatch&)>& visit) const
{
    if (!m_search.IsSearching())
        return;
    WalkLimit limit(QDeadlineTimer::Forever);
    int number = 0;
    for (QTextBlock block = m_document->firstBlock(); block.isValid() && !limit.IsReached();
         block = block.next(), ++number) {
        if (IsKnownEmpty(number) || Continues(block))
            continue;
        limit.Add(VisitMatches(
            block, [&visit](const TextSpan& span, const QRegularExpressionMatch& match) {
                visit(span, match);
                return true;
            }));
    }
}

TextSpan DocumentSearch::FindNext(int from, const QDeadlineTimer& deadline) const
{
    TextSpan found;
    if (!m_search.IsSearching())
        return found;
    const auto visit = [&](const TextSpan& span) {
        if (span.start >= from)
            found = span;
        return !found.IsValid();
    };
    WalkLimit limit(deadline);
    QTextBlock block = FirstOfLine(m_document->findBlock(from));
    int number = block.blockNumber();
    while (block.isValid() && !found.IsValid() && !limit.IsReached()) {
        if (!IsKnownEmpty(number) && !Continues(block))
            limit.Add(VisitSpans(block, visit));
        block = block.next();
        if (!IsKnownEmpty(++number))
            continue;
        while (IsKnownEmpty(number))
            ++number;
        block = m_document->findBlockByNumber(number);
    }
    return found;
}

TextSpan DocumentSearch::FindPrevious(int before, const QDeadlineTimer& deadline) const
{
    TextSpan found;
    if (!m_search.IsSearching())
        return found;
    const auto visit = [&](const TextSpan& span) {
        if (span.start < before && span.end <= before)
            found = span;
        return span.start < before;
    };
    WalkLimit limit(deadline);
    const int last = m_document->characterCount() - 1;
    QTextBlock block = FirstOfLine(m_document->findBlock(qBound(0, before, last)));
    int number = block.blockNumber();
    while (block.isValid() && !found.IsValid() && !limit.IsReached()) {
        if (!IsKnownEmpty(number) && !Continues(block))
            limit.Add(VisitSpans(block, visit));
        block = block.previous();
        if (!IsKnownEmpty(--number))
            continue;
        while (IsKnownEmpty(number))
            --number;
        block = m_document->findBlockByNumber(number);
    }
    return found;
}
