#pragma once

#include <functional>

class QWidget;

/// Calls `apply` now and whenever the widget's style sheet or font has changed, which is how a new
/// interface scale arrives: the place for lengths, fonts and colours that a widget is given instead
/// of painting with them. `apply` must not set the font of the widget itself. Interface thread.
void FollowLook(QWidget* widget, std::function<void()> apply);
