#pragma once

#include "search/ByteFinder.h"
#include "search/RequiredLiterals.h"
#include "search/SearchResult.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QVector>

#include <functional>
#include <optional>
#include <vector>

class QTextCodec;

/// Finds an expression in texts and in the bytes of files, line by line, so that "^" and "$" stand
/// for the ends of a line. Gives what reading every file as a text and matching each of its lines
/// would give, but looks into the bytes first and decodes only what can match. Used by one thread.
class TextSearch
{
public:
    /// Files are in the codec unless a byte-order mark says otherwise; null means the locale's. An
    /// expression without pattern or with a fault finds nothing.
    TextSearch(const QRegularExpression& expression, const QTextCodec* codec);

    /// Asked every few hundred lines; false ends the search of the text at hand.
    void SetPoll(std::function<bool()> keepGoing) { m_keepGoing = std::move(keepGoing); }

    // The hits have neither path nor name.
    QVector<SearchResult> SearchText(const QString& text);
    QVector<SearchResult> SearchBytes(const char* begin, const char* end);
    /// Whether the last text was left because matching a line took too many steps.
    bool HasGivenUp() const { return m_hasGivenUp; }

private:
    /// What a line has to hold, as bytes.
    struct Needles
    {
        std::vector<ByteFinder> finders; ///< the one to look for first is the first
        bool StandIn(const char* begin, const char* end) const;
    };
    struct Bytes;

    void MakeNeedles();
    bool SearchTextAsBytes(const QString& text);
    Needles NeedlesOf(const QStringList& texts) const;
    QVector<SearchResult> SearchPlainly(const char* begin, const char* end);
    void SearchEveryLine(const Bytes& bytes);
    void SearchCandidates(Bytes bytes, const char* candidate);
    bool IsInsideWord(const char* candidate, const Bytes& bytes) const;
    void SearchLine(const char* begin, const char* end, int position, bool isAscii);
    void AddPlainHits(const char* begin, const char* end, int position);
    void MatchLine(const QString& line, int position);
    bool KeepGoing();
    QVector<SearchResult> TakeHits();

    QRegularExpression m_expression;
    const QTextCodec* m_codec; ///< not owned
    bool m_isUtf8;
    bool m_isSearching;
    bool m_ignoresCase;
    RequiredLiterals m_literals;
    Needles m_needles;
    Needles m_asciiNeedles; ///< of a text that is ASCII throughout
    bool m_needsAscii = false; ///< the two differ
    std::optional<ByteFinder> m_whole; ///< a match in ASCII is just this
    std::function<bool()> m_keepGoing;
    QByteArray m_withoutReturns;
    QVector<SearchResult> m_hits;
    int m_linesUntilPoll = 0;
    bool m_isStopped = false;
    bool m_hasGivenUp = false;
};
