#include "views/FuzzyMatch.h"

#include <QVarLengthArray>

#include <algorithm>

namespace {

using namespace FuzzyMatch;

QChar Folded(QChar character)
{
    const ushort code = character.unicode();
    if (code < 128)
        return code >= 'A' && code <= 'Z' ? QChar(ushort(code + 'a' - 'A')) : character;
    return character.toCaseFolded();
}

bool IsWordStart(QStringView text, int index)
{
    if (index == 0)
        return true;
    const QChar before = text[index - 1];
    switch (before.unicode()) {
    case '/':
    case '_':
    case '-':
    case '.':
    case ' ': return true;
    default: return before.isLower() && text[index].isUpper();
    }
}

/// The ways to find one word in one text. What the best one of them counts is found letter by
/// letter: a row for each letter says what the best way counts that ends with that letter at each
/// place. As no more than so many skipped letters count, either every one of them counts or the
/// maximum does, whatever is better.
class Alignment
{
public:
    Alignment(const QString& word, QStringView text, int nameStart, bool matchCase)
        : m_word(word)
        , m_text(text)
        , m_nameStart(nameStart)
        , m_matchCase(matchCase)
    { }

    int Score()
    {
        return FindBounds() ? std::max(BestOf(1), BestOf(0) - MAXIMUM_SKIPPED) : NO_MATCH;
    }

    /// In order; empty without a match.
    QVector<int> Hits()
    {
        if (!FindBounds())
            return {};
        const int withEverySkip = BestOf(1);
        if (BestOf(0) - MAXIMUM_SKIPPED > withEverySkip)
            return Trace(0);
        BestOf(1);
        return Trace(1);
    }

private:
    bool IsHit(int letter, int index) const
    {
        const QChar found = m_text[index];
        return (m_matchCase ? found : Folded(found)) == m_word[letter];
    }

    int Bonus(int index) const
    {
        return (IsWordStart(m_text, index) ? WORD_START : 0) + (index >= m_nameStart ? IN_NAME : 0);
    }

    /// The first and the last place that each letter can have; false without a match.
    bool FindBounds()
    {
        const int letters = m_word.size();
        const int length = int(m_text.size());
        m_first.resize(letters);
        int index = 0;
        for (int letter = 0; letter < letters; ++letter, ++index) {
            while (index < length && !IsHit(letter, index))
                ++index;
            if (index >= length)
                return false;
            m_first[letter] = index;
        }
        m_last.resize(letters);
        index = length - 1;
        for (int letter = letters - 1; letter >= 0; --letter, --index) {
            while (!IsHit(letter, index))
                --index;
            m_last[letter] = index;
        }
        return true;
    }

    int& Cell(int letter, int index) { return m_best[letter * int(m_text.size()) + index]; }

    int BestOf(int penalty)
    {
        m_best.resize(m_word.size() * int(m_text.size()));
        for (int letter = 0; letter < m_word.size(); ++letter)
            FillRow(letter, penalty);
        const int last = m_word.size() - 1;
        const int* const row = &Cell(last, 0);
        return *std::max_element(row + m_first[last], row + m_last[last] + 1);
    }

    /// What stands outside of the bounds of a row is never looked at.
    void FillRow(int letter, int penalty)
    {
        int behindGap = NO_MATCH; // the best way so far that skips something before this place
        for (int index = m_first[letter]; index <= m_last[letter]; ++index) {
            int best = NO_MATCH;
            if (letter == 0) {
                best = 0;
            } else {
                behindGap = BehindGap(letter, index, penalty, behindGap);
                best = std::max(behindGap, At(letter - 1, index - 1) + CONSECUTIVE);
            }
            Cell(letter, index)
                = best > NO_MATCH / 2 && IsHit(letter, index) ? best + Bonus(index) : NO_MATCH;
        }
    }

    int BehindGap(int letter, int index, int penalty, int before)
    {
        if (index > m_first[letter])
            return std::max(before, At(letter - 1, index - 2)) - penalty;
        // The places left of the bounds of this row.
        int best = NO_MATCH;
        for (int earlier = m_first[letter - 1]; earlier <= index - 2; ++earlier)
            best = std::max(best, At(letter - 1, earlier) - penalty * (index - 1 - earlier));
        return best;
    }

    int At(int letter, int index)
    {
        return index >= m_first[letter] && index <= m_last[letter] ? Cell(letter, index) : NO_MATCH;
    }

    QVector<int> Trace(int penalty)
    {
        QVector<int> hits(m_word.size());
        const int last = m_word.size() - 1;
        const int* const row = &Cell(last, 0);
        int index = int(std::max_element(row + m_first[last], row + m_last[last] + 1) - row);
        for (int letter = last; letter >= 0; --letter) {
            hits[letter] = index;
            index = letter > 0 ? Before(letter, index, penalty) : 0;
        }
        return hits;
    }

    /// Where the letter before stands in the way that the cell was filled with.
    int Before(int letter, int index, int penalty)
    {
        const int wanted = Cell(letter, index) - Bonus(index);
        if (At(letter - 1, index - 1) + CONSECUTIVE == wanted)
            return index - 1;
        int earlier = index - 2;
        while (At(letter - 1, earlier) - penalty * (index - 1 - earlier) != wanted)
            --earlier;
        return earlier;
    }

    const QString& m_word;
    QStringView m_text;
    int m_nameStart;
    bool m_matchCase;
    QVarLengthArray<int, 64> m_first;
    QVarLengthArray<int, 64> m_last;
    QVarLengthArray<int, 1024> m_best;
};

} // namespace

FuzzyMatch::Pattern::Pattern(const QString& typed)
    : words(typed.split(QLatin1Char(' '), Qt::SkipEmptyParts))
    , matchCase(std::any_of(
          typed.begin(), typed.end(), [](QChar character) { return character.isUpper(); }))
{
    if (matchCase)
        return;
    for (QString& word : words)
        std::transform(word.begin(), word.end(), word.begin(), Folded);
}

int FuzzyMatch::Score(const Pattern& pattern, QStringView text, int nameStart)
{
    int sum = 0;
    for (const QString& word : pattern.words) {
        const int score = Alignment(word, text, nameStart, pattern.matchCase).Score();
        if (score == NO_MATCH)
            return NO_MATCH;
        sum += score;
    }
    return sum;
}

QVector<int> FuzzyMatch::Hits(const Pattern& pattern, QStringView text, int nameStart)
{
    QVector<int> all;
    for (const QString& word : pattern.words) {
        const QVector<int> hits = Alignment(word, text, nameStart, pattern.matchCase).Hits();
        if (hits.isEmpty())
            return {};
        all += hits;
    }
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}
