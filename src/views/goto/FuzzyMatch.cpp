#include "views/goto/FuzzyMatch.h"

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
        if (!FindBounds())
            return NO_MATCH;
        const int withEverySkip = BestOf(1);
        return SkipsMany() ? std::max(withEverySkip, BestOf(0) - MAXIMUM_SKIPPED) : withEverySkip;
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
    QChar LetterAt(int index) const { return m_matchCase ? m_text[index] : Folded(m_text[index]); }

    /// The first and the last place that each letter can have; false without a match.
    bool FindBounds()
    {
        const int letters = m_word.size();
        const int length = int(m_text.size());
        m_first.resize(letters);
        int index = 0;
        for (int letter = 0; letter < letters; ++letter, ++index) {
            while (index < length && LetterAt(index) != m_word[letter])
                ++index;
            if (index >= length)
                return false;
            m_first[letter] = index;
        }
        DescribePlaces();
        m_last.resize(letters);
        index = length - 1;
        for (int letter = letters - 1; letter >= 0; --letter, --index) {
            while (m_letters[index] != m_word[letter])
                --index;
            m_last[letter] = index;
        }
        return true;
    }

    /// What every row asks for, once.
    void DescribePlaces()
    {
        const int length = int(m_text.size());
        m_letters.resize(length);
        m_bonuses.resize(length);
        for (int index = 0; index < length; ++index) {
            m_letters[index] = LetterAt(index);
            m_bonuses[index] = (IsWordStart(m_text, index) ? WORD_START : 0)
                + (index >= m_nameStart ? IN_NAME : 0);
        }
    }

    /// Whether there can be a way that skips more than counts.
    bool SkipsMany() const
    {
        const int letters = m_word.size();
        return m_last[letters - 1] - m_first[0] + 1 - letters > MAXIMUM_SKIPPED;
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
            int best = 0;
            if (letter > 0) {
                behindGap = BehindGap(letter, index, penalty, behindGap);
                best = std::max(behindGap, At(letter - 1, index - 1) + CONSECUTIVE);
            }
            const bool isHit = m_letters[index] == m_word[letter];
            Cell(letter, index) = isHit ? best + m_bonuses[index] : NO_MATCH;
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
        const int wanted = Cell(letter, index) - m_bonuses[index];
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
    QVarLengthArray<QChar, 256> m_letters; ///< of the text, as they are compared
    QVarLengthArray<int, 256> m_bonuses; ///< of a hit at each place
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
