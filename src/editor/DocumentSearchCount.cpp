// Counting the matches of a document, in slices, and again where the text changed.

#include "editor/DocumentSearch.h"

#include <QElapsedTimer>
#include <QTextDocument>

#include <algorithm>
#include <numeric>

namespace {

constexpr int SLICE = 8; // ms
constexpr int MAXIMUM_TIME = 10000; ///< ms of counting after which the rest is given up
constexpr int LINES_PER_LOOK_AT_THE_CLOCK = 16;
constexpr int UNKNOWN = -1;

} // namespace

void DocumentSearch::Search(const QRegularExpression& expression, int regionStart, int regionEnd)
{
    if (IsUpToDate() && IsSearching(expression, regionStart, regionEnd))
        return;
    if (expression != m_search.GetExpression())
        m_search = LineSearch(expression);
    m_regionStart = regionStart;
    m_regionEnd = regionEnd;
    Begin();
    CountUntil(QDeadlineTimer(SLICE));
}

bool DocumentSearch::IsUpToDate() const
{
    return m_revision == m_document->revision();
}

bool DocumentSearch::IsKnownEmpty(int number) const
{
    return number >= 0 && number < m_counts.size() && m_counts.at(number) == 0 && IsUpToDate();
}

void DocumentSearch::Begin()
{
    if (!IsUpToDate() || !m_search.IsSearching())
        m_snapshot.clear();
    m_revision = m_document->revision();
    m_counts.clear();
    m_dirtyFrom = 0;
    m_dirtyTo = 0;
    m_total = 0;
    m_givenUp = 0;
    m_spent = 0;
    m_sumBlock = 0;
    m_sum = 0;
    m_longLine = -1;
    m_hitBlocksDue = true;
    if (!m_search.IsSearching())
        return;
    m_dirtyTo = m_document->blockCount();
    m_snapshotPosition = 0;
    if (m_regionStart >= 0) {
        const QTextBlock first = FirstOfLine(m_document->findBlock(m_regionStart));
        const QTextBlock last = m_document->findBlock(m_regionEnd);
        m_dirtyFrom = qMax(0, first.blockNumber());
        m_dirtyTo = last.isValid() ? last.blockNumber() + 1 : m_dirtyTo;
        m_snapshotPosition = qMax(0, first.position());
    }
    m_counts.fill(0, m_document->blockCount());
    std::fill(m_counts.begin() + m_dirtyFrom, m_counts.begin() + m_dirtyTo, UNKNOWN);
    if (!m_continues && m_snapshot.isNull())
        m_snapshot = m_document->toRawText();
}

void DocumentSearch::CountOn()
{
    if (!IsUpToDate())
        Begin();
    CountUntil(QDeadlineTimer(SLICE));
    Q_EMIT Counted();
}

void DocumentSearch::CountSlice()
{
    if (IsUpToDate() && !IsFinished())
        CountUntil(QDeadlineTimer(SLICE));
}

void DocumentSearch::Finish()
{
    if (!IsUpToDate())
        Begin();
    CountUntil(QDeadlineTimer::Forever);
}

void DocumentSearch::CountUntil(const QDeadlineTimer& deadline)
{
    QElapsedTimer clock;
    clock.start();
    if (m_snapshot.isNull())
        CountBlocks(deadline);
    else
        CountSnapshot(deadline);
    m_spent += clock.elapsed();
    if (m_givenUp >= LineSearch::MAXIMUM_GIVEN_UP || m_spent > MAXIMUM_TIME)
        GiveUpTheRest();
    if (m_dirtyFrom < m_dirtyTo) {
        m_timer.start();
        return;
    }
    m_timer.stop();
    if (m_hitBlocksDue) {
        m_hitBlocksDue = false;
        Q_EMIT HitBlocksChanged();
    }
}

void DocumentSearch::CountSnapshot(const QDeadlineTimer& deadline)
{
    int lines = 0;
    while (m_dirtyFrom < m_dirtyTo && m_givenUp < LineSearch::MAXIMUM_GIVEN_UP) {
        const int start = m_snapshotPosition;
        int end = m_snapshot.indexOf(QChar::ParagraphSeparator, start);
        end = end < 0 ? m_snapshot.size() : end;
        int count = 0;
        const QStringRef line = m_snapshot.midRef(start, end - start);
        const bool wasSearched = m_search.Visit(line, [&](int from, int to) {
            count += IsInRegion(start + from, start + to) ? 1 : 0;
            return true;
        });
        m_givenUp += wasSearched ? 0 : 1;
        SetCount(m_dirtyFrom++, count);
        m_snapshotPosition = end + 1;
        if (++lines % LINES_PER_LOOK_AT_THE_CLOCK == 0 && deadline.hasExpired())
            return;
    }
}

void DocumentSearch::CountBlocks(const QDeadlineTimer& deadline)
{
    QTextBlock block = FirstOfLine(m_document->findBlockByNumber(m_dirtyFrom));
    int number = block.blockNumber();
    int lines = 0;
    while (block.isValid() && number < m_dirtyTo && m_givenUp < LineSearch::MAXIMUM_GIVEN_UP) {
        CountLine(block, number);
        m_dirtyFrom = number;
        if (++lines % LINES_PER_LOOK_AT_THE_CLOCK == 0 && deadline.hasExpired())
            return;
    }
    if (!block.isValid())
        m_dirtyFrom = m_dirtyTo;
}

/// Counts what is not known of the line, and goes to the next one.
void DocumentSearch::CountLine(QTextBlock& block, int& number)
{
    const QTextBlock first = block;
    const int firstNumber = number;
    bool isKnown = true;
    do {
        isKnown = isKnown && m_counts.at(number) != UNKNOWN;
        block = block.next();
        ++number;
    } while (block.isValid() && Continues(block));
    if (isKnown)
        return;
    bool wasSearched = true;
    SetCount(firstNumber, CountMatches(first, wasSearched));
    for (int continuing = firstNumber + 1; continuing < number; ++continuing)
        SetCount(continuing, 0);
    m_givenUp += wasSearched ? 0 : 1;
}

void DocumentSearch::SetCount(int number, int count)
{
    const int before = qMax(0, m_counts.at(number));
    m_counts[number] = count;
    m_total += count - before;
    m_hitBlocksDue = m_hitBlocksDue || count > 0;
}

/// What is not known by now is taken for empty, so that nothing tries it again.
void DocumentSearch::GiveUpTheRest()
{
    m_givenUp = qMax(1, m_givenUp);
    std::replace(m_counts.begin() + m_dirtyFrom, m_counts.begin() + m_dirtyTo, UNKNOWN, 0);
    m_dirtyFrom = m_dirtyTo;
}

/// From the block asked about last on, as one mostly asks about one near it.
int DocumentSearch::CountBefore(int number) const
{
    const auto begin = m_counts.cbegin();
    if (number >= m_sumBlock)
        m_sum = std::accumulate(begin + m_sumBlock, begin + number, m_sum);
    else
        m_sum -= std::accumulate(begin + number, begin + m_sumBlock, 0);
    m_sumBlock = number;
    return m_sum;
}

QVector<int> DocumentSearch::GetHitBlocks() const
{
    QVector<int> blocks;
    for (int number = 0; number < m_counts.size(); ++number) {
        if (m_counts.at(number) > 0)
            blocks.append(number);
    }
    return blocks;
}

void DocumentSearch::OnContentsChange(int position, int removed, int added)
{
    m_snapshot.clear();
    if (position <= m_longLineEnd)
        m_longLine = -1;
    if (m_regionStart >= 0)
        OffsetRegion(m_regionStart, m_regionEnd, position, removed, added);
    if (!m_search.IsSearching()) {
        m_revision = m_document->revision();
        return;
    }
    // In the text as it was, the blocks from `first` to `lastBefore` were there instead.
    const int length = m_document->characterCount();
    const int addedBlocks = m_document->blockCount() - m_counts.size();
    const int first = FirstOfLine(m_document->findBlock(qMin(position, length - 1))).blockNumber();
    const int last = m_document->findBlock(qMin(position + added, length - 1)).blockNumber();
    const int lastBefore = last - addedBlocks;
    if (first < 0 || last < first || lastBefore < first || lastBefore >= m_counts.size()) {
        m_revision = -1;
        m_timer.start();
        return;
    }
    Recount(first, last, lastBefore);
    m_revision = m_document->revision();
    m_timer.start();
}

void DocumentSearch::Recount(int first, int last, int lastBefore)
{
    const auto begin = m_counts.begin();
    for (auto count = begin + first; count <= begin + lastBefore; ++count) {
        m_total -= qMax(0, *count);
        m_hitBlocksDue = m_hitBlocksDue || *count > 0;
        *count = UNKNOWN;
    }
    const int addedBlocks = last - lastBefore;
    if (addedBlocks > 0)
        m_counts.insert(lastBefore + 1, addedBlocks, UNKNOWN);
    else
        m_counts.remove(last + 1, -addedBlocks);
    if (addedBlocks != 0)
        m_hitBlocksDue = true;
    if (m_sumBlock > first) {
        m_sumBlock = 0;
        m_sum = 0;
    }
    const bool wasFinished = m_dirtyFrom >= m_dirtyTo;
    m_dirtyTo = wasFinished ? last + 1 : qMax(last + 1, m_dirtyTo + addedBlocks);
    m_dirtyFrom = wasFinished ? first : qMin(first, m_dirtyFrom);
}

void DocumentSearch::OffsetRegion(int& start, int& end, int position, int removed, int added)
{
    const int removedEnd = position + removed;
    if (position > end)
        return;
    if (removedEnd < start) {
        start += added - removed;
        end += added - removed;
        return;
    }
    start = qMin(start, position);
    end = qMax(end, removedEnd) + added - removed;
}
