#pragma once

namespace host {
class Engine;
}

namespace host::ui {

/// Registers `hostAction NAME`, which does what the main window's menu entry of that name does: the
/// shelf's buttons are made of it.
void RegisterHostAction(Engine& engine);

} // namespace host::ui
