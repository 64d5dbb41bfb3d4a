// Fuzzy matching: a score and its hits agree, and typing less never finds less.

#include "fuzz/Fuzz.h"
#include "views/goto/FuzzyMatch.h"

using fuzz::Expect;

namespace {

/// Whether the letters of the word stand in the text in their order.
bool StandsIn(const QString& word, const QString& text, bool matchCase)
{
    int found = 0;
    for (const QChar letter : text) {
        const QChar folded = matchCase ? letter : letter.toCaseFolded();
        if (found < word.size() && folded == word.at(found))
            ++found;
    }
    return found == word.size();
}

} // namespace

TE2_FUZZ_TARGET(FuzzyMatches)
{
    const QString typed = input.Text(200);
    const int nameStart = input.Place(1000);
    const QString text = input.Text(2000);
    const FuzzyMatch::Pattern pattern(typed);
    const int start = qMin(nameStart, text.size());
    const int score = FuzzyMatch::Score(pattern, text, start);
    const QVector<int> hits = FuzzyMatch::Hits(pattern, text, start);
    bool expected = true;
    for (const QString& word : pattern.words) {
        Expect(!word.isEmpty(), QStringLiteral("a word has letters"));
        expected = expected && StandsIn(word, text, pattern.matchCase);
    }
    Expect((score != FuzzyMatch::NO_MATCH) == expected,
        QStringLiteral("\"%1\" in \"%2\"").arg(typed, text));
    Expect(pattern.IsEmpty() || hits.isEmpty() == !expected, QStringLiteral("a match has hits"));
    int last = -1;
    for (const int hit : hits) {
        Expect(last < hit && hit < text.size(), QStringLiteral("hits ascend in the text"));
        last = hit;
    }
}
