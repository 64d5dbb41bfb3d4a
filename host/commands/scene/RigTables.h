#pragma once

namespace host {
class CommandRegistry;
}

namespace host::commands {

// Themes of the scene that only rigs and bigger scenes need; see SceneCommands.h.
void RegisterSceneChains(CommandRegistry& registry);
void RegisterSceneLayers(CommandRegistry& registry);
void RegisterSceneMeasures(CommandRegistry& registry);

} // namespace host::commands
