#include "output/SelectionPattern.h"

#include "editor/TextMatches.h"

#include <algorithm>

namespace {

bool IsBreak(QChar character)
{
    return character == QLatin1Char('\n') || character == QChar::ParagraphSeparator
        || character == QChar::LineSeparator;
}

/// A hyphen counts as part of a word here although words end at it in the text.
bool IsPartOfWord(QChar character)
{
    const ushort code = character.unicode();
    return code == '-' || (code < 128 && IsWordCharacter(character));
}

bool IsWordEdge(const QString& text, int index)
{
    const bool isWordBefore = index > 0 && IsWordCharacter(text.at(index - 1));
    const bool isWordBehind = index < text.size() && IsWordCharacter(text.at(index));
    return isWordBefore != isWordBehind;
}

} // namespace

SelectionPattern MakeSelectionPattern(const QString& selected, bool wordsOnly, bool dollarSign)
{
    if (selected.trimmed().isEmpty())
        return {};
    if (!wordsOnly) {
        const bool isOneLine = std::none_of(selected.cbegin(), selected.cend(), IsBreak);
        return isOneLine ? SelectionPattern{selected} : SelectionPattern{};
    }
    const bool hasSign = dollarSign && selected.startsWith(QLatin1Char('$'));
    if (!std::all_of(selected.cbegin() + (hasSign ? 1 : 0), selected.cend(), IsPartOfWord))
        return {};
    return {selected, !hasSign, true};
}

int FindPattern(const SelectionPattern& pattern, const QString& text, int from)
{
    int found = text.indexOf(pattern.text, from);
    while (found >= 0) {
        const int end = found + pattern.text.size();
        if ((!pattern.edgeBefore || IsWordEdge(text, found))
            && (!pattern.edgeBehind || IsWordEdge(text, end)))
            return found;
        found = text.indexOf(pattern.text, found + 1);
    }
    return -1;
}
