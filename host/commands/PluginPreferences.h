#pragma once

#include <QString>

namespace host {
class Engine;
}

namespace host::commands {

/// The file of plug-ins to load at every start: "pluginPrefs.mel" in the preferences folder. It is
/// a script in the form that the host's users know and may edit; only its load lines are read.

/// Fills engine.plugins.autoload. A missing file is no error. Empty on success.
QString ReadPluginPreferences(Engine& engine);
/// Replaces the file as a whole or leaves it as it was. Empty on success.
QString WritePluginPreferences(const Engine& engine);

} // namespace host::commands
