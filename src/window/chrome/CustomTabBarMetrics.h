#pragma once

#include "window/chrome/Theme.h"

/// What the files of the tab bar know in common about its looks. Design pixels.
namespace TabMetrics {

constexpr int BAR_HEIGHT = 34;
constexpr int PADDING_LEFT = 11;
constexpr int PADDING_RIGHT = 5;
constexpr int ICON_SIZE = 14;
constexpr int ICON_GAP = 7;
constexpr int MARK_GAP = 6;
constexpr int MARK_BOX = 20;
constexpr int MINIMUM_TAB = 60;
constexpr int MAXIMUM_TAB = 240;

/// Screen pixels from a tab's left edge to its label.
inline int LabelLeft()
{
    return Theme::Dp(PADDING_LEFT) + Theme::Dp(ICON_SIZE) + Theme::Dp(ICON_GAP);
}

/// Screen pixels from a label's end to the tab's right edge.
inline int LabelRightMargin()
{
    return Theme::Dp(MARK_GAP) + Theme::Dp(MARK_BOX) + Theme::Dp(PADDING_RIGHT);
}

} // namespace TabMetrics
