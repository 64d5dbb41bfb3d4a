#include "ui/commands/InterfaceCommands.h"

#include "engine/Engine.h"
#include "ui/commands/Tables.h"

namespace host::ui {

namespace {

using Registration = void (*)(CommandRegistry&);

const Registration REGISTRATIONS[] = {
    RegisterWindowCommands,
    RegisterLayoutCommands,
    RegisterFormLayout,
    RegisterTabCommands,
    RegisterShelfCommands,
    RegisterButtonCommands,
    RegisterFieldCommands,
    RegisterListCommands,
    RegisterMenuCommands,
    RegisterScriptFieldCommands,
    RegisterDialogCommands,
    RegisterMessageCommands,
};

} // namespace

void RegisterInterfaceCommands(Engine& engine, InterfaceModel&)
{
    for (const Registration registration : REGISTRATIONS)
        registration(engine.commands);
}

} // namespace host::ui
