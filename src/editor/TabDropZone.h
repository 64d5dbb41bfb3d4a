#pragma once

#include <QMetaType>

/// Where in a code editor group something dragged would go.
enum class TabDropZone : int {
    Center = 0, ///< into the group
    Before = 1, ///< into a new group above or left of it
    After = 2, ///< into a new group below or right of it
    NoZone = 3,
};

Q_DECLARE_METATYPE(TabDropZone)
