#pragma once

namespace host {
class CommandRegistry;
}

namespace host::commands {

// Each theme's file ends in its tables and registers them here.
void RegisterArrays(CommandRegistry& registry);
void RegisterFiles(CommandRegistry& registry);
void RegisterFileSystem(CommandRegistry& registry);
void RegisterMathematics(CommandRegistry& registry);
void RegisterStrings(CommandRegistry& registry);
void RegisterTime(CommandRegistry& registry);
void RegisterVectors(CommandRegistry& registry);

} // namespace host::commands
