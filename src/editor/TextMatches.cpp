#include "editor/TextMatches.h"

#include <algorithm>

namespace {

bool IsWordCharacterAt(const QString& text, int index)
{
    return index >= 0 && index < text.size() && IsWordCharacter(text.at(index));
}

} // namespace

bool IsWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

bool IsWholeWord(const QString& line, int start, int length)
{
    const auto begin = line.begin() + start;
    return length > 0 && std::all_of(begin, begin + length, IsWordCharacter)
        && !IsWordCharacterAt(line, start - 1) && !IsWordCharacterAt(line, start + length);
}

QVector<TextMatch> FindOccurrences(const QString& line, const QString& text, bool wholeWords)
{
    QVector<TextMatch> matches;
    const int length = text.size();
    int from = 0;
    while (length > 0) {
        const int found = line.indexOf(text, from);
        if (found < 0)
            break;
        const bool touchesWord
            = IsWordCharacterAt(line, found - 1) || IsWordCharacterAt(line, found + length);
        if (!wholeWords || !touchesWord)
            matches.append({found, length});
        from = found + length;
    }
    return matches;
}
