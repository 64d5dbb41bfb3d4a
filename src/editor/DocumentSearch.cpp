#include "editor/DocumentSearch.h"

#include "editor/SearchExpression.h"

#include <QTextDocument>

namespace {

constexpr int SLICE = 8; // ms
constexpr int GROUP = 64; ///< blocks between two known totals
// With so many lines given up the expression is hopeless, and the rest is not tried.
constexpr int MAXIMUM_GIVEN_UP = 100;

} // namespace

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
        if (m_nextNumber % GROUP == 0)
            m_totalsBefore.append(m_total);
        m_total += CountMatches(m_next);
        m_next = m_next.next();
        ++m_nextNumber;
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

/// Calls visit(span, match) for each match in the block until it answers false.
template <typename Visitor>
void DocumentSearch::VisitMatches(const QTextBlock& block, Visitor visit) const
{
    const int position = block.position();
    const bool isOutside = m_regionStart >= 0
        && (position > m_regionEnd || position + block.length() <= m_regionStart);
    if (!block.isValid() || isOutside || !IsSearching())
        return;
    const QString text = block.text();
    // Most lines have none, and one look is cheaper than an iterator.
    const QRegularExpressionMatch first = m_expression.match(text);
    if (!first.hasMatch()) {
        m_givenUp += HasExceededMatchLimit(first) ? 1 : 0;
        return;
    }
    QRegularExpressionMatchIterator matches = m_expression.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const TextSpan span{position + match.capturedStart(), position + match.capturedEnd()};
        if (IsInRegion(span.start, span.end) && !visit(span, match))
            return;
    }
    m_givenUp += matches.isValid() ? 0 : 1;
}

int DocumentSearch::CountMatches(const QTextBlock& block) const
{
    int count = 0;
    VisitMatches(block, [&count](const TextSpan&, const QRegularExpressionMatch&) {
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
    const QTextBlock wanted = m_document->findBlock(start);
    const int group = wanted.blockNumber() / GROUP;
    if (!IsUpToDate() || !wanted.isValid() || group >= m_totalsBefore.size())
        return -1;
    int number = m_totalsBefore.at(group);
    for (QTextBlock block = FirstBlockOfGroup(group); block != wanted; block = block.next())
        number += CountMatches(block);
    bool isFound = false;
    VisitMatches(wanted, [&](const TextSpan& span, const QRegularExpressionMatch&) {
        ++number;
        isFound = span.start == start;
        return span.start < start;
    });
    return isFound ? number : -1;
}

QRegularExpressionMatch DocumentSearch::GetMatch(const TextSpan& span) const
{
    QRegularExpressionMatch found;
    VisitMatches(m_document->findBlock(span.start),
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
    for (QTextBlock block = m_document->firstBlock(); block.isValid(); block = block.next()) {
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
    const auto visit = [&](const TextSpan& span, const QRegularExpressionMatch&) {
        if (span.start >= from)
            found = span;
        return !found.IsValid();
    };
    QTextBlock block = m_document->findBlock(from);
    for (int number = block.blockNumber(); block.isValid() && !found.IsValid(); ++number) {
        if (number % GROUP == 0) {
            if (deadline.hasExpired())
                break;
            while (block.isValid() && IsKnownEmpty(number / GROUP)) {
                number += GROUP;
                block = FirstBlockOfGroup(number / GROUP);
            }
        }
        VisitMatches(block, visit);
        block = block.next();
    }
    return found;
}

TextSpan DocumentSearch::FindPrevious(int before) const
{
    TextSpan found;
    const auto visit = [&](const TextSpan& span, const QRegularExpressionMatch&) {
        if (span.start < before && span.end <= before)
            found = span;
        return span.start < before;
    };
    const int last = m_document->characterCount() - 1;
    QTextBlock block = m_document->findBlock(qBound(0, before, last));
    for (int number = block.blockNumber(); block.isValid() && !found.IsValid(); --number) {
        if (number % GROUP == GROUP - 1) {
            while (number >= 0 && IsKnownEmpty(number / GROUP))
                number -= GROUP;
            block = m_document->findBlockByNumber(number);
        }
        VisitMatches(block, visit);
        block = block.previous();
    }
    return found;
}
