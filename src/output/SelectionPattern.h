#pragma once

#include <QString>

/// What the console marks as equal to the selected text.
struct SelectionPattern
{
    QString text; ///< as it stands; empty when nothing is to be marked
    bool edgeBefore = false; ///< a word begins or ends there
    bool edgeBehind = false;
};

/// `wordsOnly`: nothing but words is marked, and only where they stand by themselves;
/// `dollarSign`: a dollar sign before the word belongs to it then.
SelectionPattern MakeSelectionPattern(const QString& selected, bool wordsOnly, bool dollarSign);

/// Index of the first place at `from` or behind where the pattern, which is not empty, fits; -1
/// without one.
int FindPattern(const SelectionPattern& pattern, const QString& text, int from);
