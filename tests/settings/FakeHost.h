#pragma once

#include <QString>
#include <QStringList>

/// What the settings ask of the host, answered by the test: the bridge and the log are not linked.
namespace FakeHost {

extern QString prefsDirectory;
extern QString version;
extern QStringList errors;
extern QStringList warnings;

} // namespace FakeHost
