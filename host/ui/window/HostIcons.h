#pragma once

#include <QIcon>
#include <QString>

namespace host::ui {

/// The icon of that name from the host's icon folder, in all the sizes that are there. Null when
/// there is none. Interface thread only.
QIcon HostIcon(const QString& name);

} // namespace host::ui
