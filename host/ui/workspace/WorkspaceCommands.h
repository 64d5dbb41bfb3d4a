#pragma once

namespace host {
class Engine;
}

namespace host::ui {

/// Registers `workspaceControl` and `workspaceControlState`. They act on WorkspaceControls::Current
/// and refuse to work while there is none.
void RegisterWorkspaceCommands(Engine& engine);

} // namespace host::ui
