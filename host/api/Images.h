#pragma once

#include <QPixmap>

namespace host::api {

/// The image that `name` means: a Qt resource, a file, or a file along XBMLANGPATH and in the
/// host's own icons. Its size is multiplied by `scale`. Null when there is none, when it cannot be
/// read, and without windows. Main thread only.
QPixmap FindPixmap(const QString& name, double scale);

} // namespace host::api
