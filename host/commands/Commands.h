#pragma once

namespace host {
class Engine;
}

namespace host::commands {

/// Adds the commands and functions that need no window to the engine's registry. Call once per
/// engine, after both interpreters were made.
void RegisterCommands(Engine& engine);

/// Forgets the callbacks that scripts left behind and closes their files. Call before the
/// interpreters go; harmless when repeated.
void ReleaseCommands(Engine& engine);

} // namespace host::commands
