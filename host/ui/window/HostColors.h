#pragma once

#include <QColor>

/// The host's colours: a lighter, bluer grey than the panels that plug-ins put into it, so that
/// those read as surfaces of their own.
namespace host::ui::colors {

// clang-format off
inline const QColor CHROME        (0x3b, 0x3d, 0x3f);
inline const QColor GROOVE        (0x2b, 0x2d, 0x2f);
inline const QColor SHELF         (0x43, 0x46, 0x4a);
inline const QColor SHELF_TABS    (0x35, 0x37, 0x3a);
inline const QColor DOCK_STRIP    (0x2f, 0x31, 0x33);
inline const QColor DOCK_TAB      (0x36, 0x38, 0x3b);
inline const QColor PANEL         (0x26, 0x26, 0x26); ///< current tab of a panel that a plug-in fills
inline const QColor VIEWPORT_TOP  (0x5f, 0x66, 0x6d);
inline const QColor VIEWPORT_FLOOR(0x39, 0x3d, 0x41);
inline const QColor GRID          (0x2b, 0x2e, 0x31);
inline const QColor WIRE          (0x12, 0x2c, 0x4a);
inline const QColor WIRE_SELECTED (0x7d, 0xe0, 0xb4);
inline const QColor FIELD         (0x2a, 0x2c, 0x2e);
inline const QColor FIELD_ERROR   (0x3a, 0x20, 0x20);
inline const QColor TEXT_ERROR    (0xff, 0xb0, 0xa8);
inline const QColor TEXT_WARNING  (0xdf, 0xe5, 0x27);
inline const QColor HELP_LINE     (0x33, 0x35, 0x37);
inline const QColor HELP_TEXT     (0xbf, 0xc1, 0xc3);
inline const QColor TEXT          (0xd6, 0xd6, 0xd6);
inline const QColor TEXT_STRONG   (0xf0, 0xf0, 0xf0);
inline const QColor TEXT_SOFT     (0xa6, 0xa6, 0xa6);
inline const QColor TEXT_DISABLED (0x80, 0x82, 0x84);
inline const QColor BUTTON        (0x4a, 0x4d, 0x50);
inline const QColor BUTTON_HOVER  (0x55, 0x58, 0x5c);
inline const QColor BUTTON_PRESSED(0x38, 0x3a, 0x3c);
inline const QColor BUTTON_EDGE   (0x5f, 0x64, 0x68);
inline const QColor MENU          (0x2d, 0x2d, 0x2d);
inline const QColor MENU_EDGE     (0x45, 0x45, 0x45);
inline const QColor MENU_ROW      (0x3d, 0x46, 0x45);
inline const QColor TIP           (0x32, 0x32, 0x32);
inline const QColor HIGHLIGHT     (0x2f, 0x5d, 0x66);
inline const QColor LAKE          (0x4f, 0xb8, 0xb0);
inline const QColor LAKE_TEXT     (0x7a, 0xd5, 0xcd);
inline const QColor DEFAULT_BUTTON(0x2c, 0x7a, 0x73);
// clang-format on

} // namespace host::ui::colors
