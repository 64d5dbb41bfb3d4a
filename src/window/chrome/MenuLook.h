#pragma once

class QPainter;
class QRect;
class QSize;
class QStyleOption;
class QStyleOptionMenuItem;

/// How menus are drawn: rows with the shortcut at the right end, the strip to tear a menu off by.
/// The style's helper; a sheet could not place the shortcuts.
class MenuLook
{
public:
    static void DrawPanel(const QRect& area, QPainter& painter);
    static void DrawItem(const QStyleOptionMenuItem& item, QPainter& painter);
    static void DrawTearOff(const QStyleOption& option, QPainter& painter);
    /// `contents` is the size of the text without its shortcut.
    static QSize ItemSize(const QStyleOptionMenuItem& item, const QSize& contents);
};
