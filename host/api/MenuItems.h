#pragma once

#include "api/PluginRecord.h"

namespace host::api {

/// Forgets an entry of a plug-in and removes it from its menu, where it may be gone already. False
/// when the entry is not the plug-in's.
bool DeleteMenuItem(PluginRecord& record, const QString& name);

} // namespace host::api
