#pragma once

namespace host {
class CommandRegistry;
}

namespace host::commands {

// Each theme's file ends in its tables and registers them here.
void RegisterAbout(CommandRegistry& registry);
void RegisterArrays(CommandRegistry& registry);
void RegisterConditions(CommandRegistry& registry);
void RegisterDisplayStrings(CommandRegistry& registry);
void RegisterFileSystem(CommandRegistry& registry);
void RegisterFiles(CommandRegistry& registry);
void RegisterHelp(CommandRegistry& registry);
void RegisterHotkeys(CommandRegistry& registry);
void RegisterIntrospection(CommandRegistry& registry);
void RegisterMathematics(CommandRegistry& registry);
void RegisterModules(CommandRegistry& registry);
void RegisterOptionVar(CommandRegistry& registry);
void RegisterOutput(CommandRegistry& registry);
void RegisterPlugins(CommandRegistry& registry);
void RegisterRunTimeCommands(CommandRegistry& registry);
void RegisterScriptJobs(CommandRegistry& registry);
void RegisterStrings(CommandRegistry& registry);
void RegisterSystem(CommandRegistry& registry);
void RegisterTime(CommandRegistry& registry);
void RegisterVectors(CommandRegistry& registry);
void RegisterWorkspace(CommandRegistry& registry);

} // namespace host::commands
