#pragma once

namespace host {
class CommandRegistry;
}

namespace host::api {

/// `undo`, `redo` and `flushUndo`: what a script can do with the commands of plug-ins that can be
/// undone.
void RegisterUndoCommands(CommandRegistry& registry);

} // namespace host::api
