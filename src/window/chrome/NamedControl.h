#pragma once

#include <QString>

/// The control with the names that tests and assistive technology find it by.
template <typename Widget>
Widget* NamedControl(Widget* widget, const char* name, const QString& accessibleName)
{
    widget->setObjectName(QLatin1String(name));
    widget->setAccessibleName(accessibleName);
    return widget;
}
