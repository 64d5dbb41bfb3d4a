#pragma once

namespace host {
class Engine;
}

namespace host::ui {

class InterfaceModel;

/// Registers the commands that make, change and query the elements of the model, and the run-time
/// commands that open the host's own windows. Call once, after host::commands::RegisterCommands.
void RegisterInterfaceCommands(Engine& engine, InterfaceModel& model);

} // namespace host::ui
