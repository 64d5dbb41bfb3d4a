#pragma once

#include <QStringList>

class QWidget;

/// What keeps people from using the controls inside a widget that is shown: each fault as a line
/// that names the control.
namespace ControlFaults {

/// Controls without a name for assistive technology or for tests, icons that nothing explains, and
/// what is too small to hit.
QStringList OfNames(const QWidget& root);
/// Controls that Tab does not come to, or does not leave. Sends keys to the application.
QStringList OfTabChain(QWidget& root);
/// Texts that are cut, and controls that stand outside of what holds them.
QStringList OfSizes(const QWidget& root);

} // namespace ControlFaults
