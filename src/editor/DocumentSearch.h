#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QRegularExpression>
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
/// events, so that long documents never hold up typing; what was counted stays as long as neither
/// text nor search change. Owned by who shows the document; interface thread only.
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
    /// another than before, the text included.
    void Search(const QRegularExpression& expression, int regionStart, int regionEnd);
    /// Counts the rest at once.
    void Finish();

    /// Whether the whole text as it stands has been counted.
    bool IsFinished() const;
    /// Whether what was counted is about the text as it stands.
    bool IsUpToDate() const;
    /// As far as counted.
    int GetTotal() const { return m_total; }
    /// Of the match that starts there, from 1; -1 without one and where nothing is counted yet.
    int GetNumber(int start) const;
    /// Whether matches were given up for their endless trying; the count may be short then.
    bool HasGivenUp() const { return m_givenUp > 0; }

    bool IsMatch(const TextSpan& span) const;
    /// The match that is exactly this piece; without a match, hasMatch() is false.
    QRegularExpressionMatch GetMatch(const TextSpan& span) const;
    void VisitAllMatches(
        const std::function<void(const TextSpan&, const QRegularExpressionMatch&)>& visit) const;
    /// The first match that starts at `from` or behind. Gives up looking at the deadline.
    TextSpan FindNext(int from, const QDeadlineTimer& deadline = QDeadlineTimer::Forever) const;
    /// The last match that ends at `before` or earlier and starts before it.
    TextSpan FindPrevious(int before) const;

Q_SIGNALS:
    /// Another slice was counted.
    void Counted();

private Q_SLOTS:
    void CountOn();

private:
    struct LineText;
    LineText GetLine(const QTextBlock& first) const;
    QVector<TextSpan> FindSpans(const QTextBlock& first) const;
    template <typename Visitor>
    void VisitMatches(const QTextBlock& first, Visitor visit) const;
    template <typename Visitor>
    void VisitSpans(const QTextBlock& first, Visitor visit) const;
    bool IsContinued(const QTextBlock& block) const
    {
        return m_continues && m_continues(block.next());
    }
    bool Continues(const QTextBlock& block) const { return m_continues && m_continues(block); }
    QTextBlock FirstOfLine(QTextBlock block) const;
    void GoToNextLine(QTextBlock& block, int& number) const;
    bool IsSearching() const;
    bool IsInRegion(int start, int end) const;
    bool IsKnownEmpty(int group) const;
    QTextBlock FirstBlockOfGroup(int group) const;
    int CountMatches(const QTextBlock& block) const;
    void Begin();
    void CountUntil(const QDeadlineTimer& deadline);

    const QTextDocument* m_document; ///< not owned
    bool (*m_continues)(const QTextBlock&) = nullptr;
    QRegularExpression m_expression;
    int m_regionStart = -1;
    int m_regionEnd = -1;
    QTimer m_timer;
    QTextBlock m_next; ///< the first line that is not counted
    int m_nextNumber = 0;
    bool m_isFinished = false;
    int m_revision = -1; ///< of the text that was counted
    int m_total = 0;
    /// Matches before each group of blocks, so that a number needs no walk through the document.
    QVector<int> m_totalsBefore;
    mutable int m_longLine = -1; ///< where the line begins whose matches are remembered, or -1
    mutable QVector<TextSpan> m_longLineSpans;
    mutable int m_givenUp = 0; ///< lines, until it is known that they all are like that
};
