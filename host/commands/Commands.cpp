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
        RegisterFileSystem,
        RegisterFiles,
        RegisterHelp,
        RegisterMathematics,
        RegisterOptionVar,
        RegisterOutput,
        RegisterPlugins,
        RegisterRunTimeCommands,
        RegisterScriptJobs,
        RegisterStrings,
        RegisterSystem,
        RegisterTime,
        RegisterVectors,
        RegisterWorkspace,
    };
    for (const auto theme : themes)
        theme(engine.commands);
}

void ReleaseCommands(Engine& engine)
{
    engine.commandState = std::make_shared<Session>(engine);
}

} // namespace host::commands
