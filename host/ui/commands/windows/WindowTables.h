#pragma once

namespace host {
class CommandRegistry;
}

namespace host::ui {

// Commands about whole windows and panels; see Tables.h for those of what stands in them.
void RegisterLayoutDialog(CommandRegistry& commands);
void RegisterPanelCommands(CommandRegistry& commands);
void RegisterWindowPref(CommandRegistry& commands);

} // namespace host::ui
