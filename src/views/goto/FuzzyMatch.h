#pragma once

#include <QStringList>
#include <QStringView>
#include <QVector>

/// How well a text fits what somebody typed of it: the typed letters occur in it in their order,
/// and of all the ways to find them the best one counts. Without widgets or state; any thread.
namespace FuzzyMatch {

constexpr int NO_MATCH = -1000000;

// What a hit counts.
constexpr int WORD_START
    = 8; ///< at the start, behind "/", "_", "-", "." or a space, or a capital behind a small letter
constexpr int CONSECUTIVE = 5; ///< directly behind the hit before it
constexpr int IN_NAME = 3; ///< in the name rather than in the folder before it
constexpr int MAXIMUM_SKIPPED = 10; ///< letters between the hits of one word that count, -1 each

/// What was typed: parts at spaces that must all be found, each by itself.
struct Pattern
{
    explicit Pattern(const QString& typed);

    bool IsEmpty() const { return words.isEmpty(); }

    QStringList words; ///< folded unless the case counts
    bool matchCase = false; ///< there is a capital in it
};

/// The sum over the words, or NO_MATCH. `nameStart` is where the name begins in `text`.
int Score(const Pattern& pattern, QStringView text, int nameStart);

/// Where the letters were found, ascending and each once; empty without a match.
QVector<int> Hits(const Pattern& pattern, QStringView text, int nameStart);

} // namespace FuzzyMatch
