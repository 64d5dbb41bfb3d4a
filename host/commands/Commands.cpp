#include "commands/Commands.h"

#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

void RegisterCommands(Engine& engine)
{
    engine.commandState = std::make_shared<Session>();
    void (*const themes[])(CommandRegistry&) = {
        RegisterArrays,
        RegisterFiles,
        RegisterFileSystem,
        RegisterMathematics,
        RegisterStrings,
        RegisterTime,
        RegisterVectors,
    };
    for (const auto theme : themes)
        theme(engine.commands);
}

void ReleaseCommands(Engine& engine)
{
    engine.commandState = std::make_shared<Session>();
}

} // namespace host::commands
