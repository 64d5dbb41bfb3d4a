#pragma once

#include "editor/LineSearch.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTextBlock>
#include <QTimer>
#include <QVector>

#include <functional>

class QTextDocument;

/// A piece of a document, empty where an expression such as "^" matches.
struct TextSpan
{
    int start = -1;
    int end = -1; ///< behind the last character
    bool IsValid() const { return start >= 0; }
};

/// The matches of an expression in a document or a region of it, line by line: how many, which
/// number one has, and which one comes next. Counts a slice at once and the rest in slices between
/// events, so that long documents never hold up typing. After an edit only the lines that changed
/// are counted again, and the region moves with its text. Owned by who shows the document;
/// interface thread only.
class DocumentSearch : public QObject
{
    Q_OBJECT

public:
    /// `document` outlives the search and is not owned.
    DocumentSearch(const QTextDocument* document, QObject* parent);

    /// For documents in which a line may be several blocks: tells which go on with the line of the
    /// block before. Set before searching; a break between two such blocks is not sought in.
    void SetContinuation(bool (*continues)(const QTextBlock&)) { m_continues = continues; }
    /// Searches from here on for this: an expression without pattern or with a fault finds nothing.
    /// A negative start means the whole document. Counting begins anew only when something is
    /// another than before.
    void Search(const QRegularExpression& expression, int regionStart, int regionEnd);
    /// Counts on for some milliseconds at once, which is all that an edit takes.
    void CountSlice();
    /// Counts the rest at once.
    void Finish();

    /// Whether this is what is searched.
    bool IsSearching(const QRegularExpression& expression, int regionStart, int regionEnd) const;
    /// Whether the whole text as it stands has been counted.
    bool IsFinished() const { return IsUpToDate() && m_dirtyFrom >= m_dirtyTo; }
    /// As far as counted.
    int GetTotal() const { return m_total; }
    /// Of the match that starts there, from 1; -1 without one and where nothing is counted yet.
    int GetNumber(int start) const;
    /// Whether matches were given up for their endless trying; the count may be short then.
    bool HasGivenUp() const { return m_givenUp > 0; }
    /// The blocks with matches, as far as counted; from 0, ascending.
    QVector<int> GetHitBlocks() const;

    bool IsMatch(const TextSpan& span) const;
    /// The match that is exactly this piece; without a match, hasMatch() is false.
    QRegularExpressionMatch GetMatch(const TextSpan& span) const;
    /// The matches in the block that have a length, also those that go over its ends.
    QVector<TextSpan> GetMatchesIn(const QTextBlock& block) const;
    void VisitAllMatches(
        const std::function<void(const TextSpan&, const QRegularExpressionMatch&)>& visit) const;
    /// The first match that starts at `from` or behind. Gives up looking at the deadline.
    TextSpan FindNext(int from, const QDeadlineTimer& deadline = QDeadlineTimer::Forever) const;
    /// The last match that ends at `before` or earlier and starts before it.
    TextSpan FindPrevious(
        int before, const QDeadlineTimer& deadline = QDeadlineTimer::Forever) const;

    /// Where a region goes when the text changes: what is put in at its ends becomes part of it.
    static void OffsetRegion(int& start, int& end, int position, int removed, int added);

Q_SIGNALS:
    /// Another slice was counted.
    void Counted();
    /// There are other lines with matches than the last time all was counted.
    void HitBlocksChanged();

private Q_SLOTS:
    void CountOn();
    void OnContentsChange(int position, int removed, int added);

private:
    struct LineText;
    bool Continues(const QTextBlock& block) const { return m_continues && m_continues(block); }
    QTextBlock FirstOfLine(QTextBlock block) const;
    LineText GetLine(const QTextBlock& first) const;
    bool IsInRegion(int start, int end) const;

    template <typename Visitor>
    bool VisitMatches(const QTextBlock& first, Visitor visit) const;
    template <typename Visitor>
    bool VisitSpans(const QTextBlock& first, Visitor visit) const;

    int CountMatches(const QTextBlock& first, bool& wasSearched) const;
    bool IsUpToDate() const;
    bool IsKnownEmpty(int number) const;
    void Begin();
    void CountUntil(const QDeadlineTimer& deadline);
    void CountSnapshot(const QDeadlineTimer& deadline);
    void CountBlocks(const QDeadlineTimer& deadline);
    void CountLine(QTextBlock& block, int& number);
    void Recount(int first, int last, int lastBefore);
    void SetCount(int number, int count);
    void GiveUpTheRest();
    int CountBefore(int number) const;

    const QTextDocument* m_document; ///< not owned
    bool (*m_continues)(const QTextBlock&) = nullptr;
    LineSearch m_search;
    int m_regionStart = -1;
    int m_regionEnd = -1;
    int m_revision = -1; ///< of the text that the counts are about

    // Counting
    QTimer m_timer;
    QVector<int> m_counts; ///< by block, a line's at its first; UNKNOWN where not counted yet
    int m_dirtyFrom = 0; ///< outside these blocks every count is known
    int m_dirtyTo = 0;
    int m_total = 0;
    int m_givenUp = 0; ///< lines
    qint64 m_spent = 0; ///< ms
    bool m_hitBlocksDue = false;
    /// The text that is counted as a whole: getting it block by block takes longer than searching
    /// it. Null after edits and where lines are several blocks.
    QString m_snapshot;
    int m_snapshotPosition = 0; ///< of the first dirty block

    mutable int m_sumBlock = 0; ///< a block whose number of matches before it is known
    mutable int m_sum = 0;
    mutable int m_longLine = -1; ///< where the line begins whose matches are remembered, or -1
    mutable int m_longLineEnd = -1;
    mutable QVector<TextSpan> m_longLineSpans;
};
