#pragma once

#include <QJsonObject>

/// What a person would see on the screen, as a tool that clicks needs it. Places are rectangles
/// [x, y, width, height] in pixels of the screen.
namespace Sights {

/// Windows, menus, tabs, splitters, texts, lists and buttons that are shown.
QJsonObject Look();
/// Every widget that is shown.
QJsonObject Areas();

} // namespace Sights
