#pragma once

#include <QLatin1String>
#include <QString>

/// One thing that the go-to widget can go to. A value; what `target` and `value` mean is up to the
/// mode that lists it.
struct GoToEntry
{
    QString text; ///< what is matched: a name, or a folder, "/" and a name
    int nameStart = 0; ///< in the text
    QString detail; ///< shown behind the name, not matched
    QString shortcut; ///< shown at the right end
    QLatin1String icon; ///< empty: none
    bool isLanguageIcon = false; ///< these are smaller
    bool onlyWhenTyped = false; ///< left out while nothing is typed
    int level = 0; ///< depth, shown while nothing is typed
    QString target; ///< a path, or a prefix
    int value = 0; ///< a position in the script, or the number of a command
    int end = 0; ///< behind the last character at that position
};

Q_DECLARE_TYPEINFO(GoToEntry, Q_MOVABLE_TYPE);
