#pragma once

#include "engine/Outcome.h"

namespace host::api {

// The scene as its commands show it to scripts: the API knows its objects by their names. Main
// thread only.

/// Names of what a name or pattern means; empty when nothing does or there is no scene.
QStringList ObjectsNamed(const QString& pattern);
QStringList SelectedObjects();
/// `flag` is one of the command's: "replace", "add", "toggle", "deselect", "addFirst" or "clear".
/// False when it cannot.
bool SelectObjects(const QString& flag, const QStringList& names);

} // namespace host::api
