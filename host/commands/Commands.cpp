#include "commands/Commands.h"

#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

void RegisterCommands(Engine& engine)
{
    engine.commandState = std::make_shared<Session>(engine);
    void (*const themes[])(CommandRegistry&) = {
        RegisterAbout,
        RegisterArrays,
        RegisterDisplayStrings,
        RegisterFiles,
        RegisterFileSystem,
        RegisterMathematics,
        RegisterOptionVar,
        RegisterOutput,
        RegisterPlugins,
        RegisterRunTimeCommands,
        RegisterStrings,
        RegisterSystem,
        RegisterTime,
        RegisterVectors,
    };
    for (const auto theme : themes)
        theme(engine.commands);
}

void ReleaseCommands(Engine& engine)
{
    engine.commandState = std::make_shared<Session>(engine);
}

} // namespace host::commands
