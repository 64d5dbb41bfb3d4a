#pragma once

#include <Qt>

/// Whether the focus came in a way that asks for a focus ring.
inline bool IsKeyboardFocus(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
}
