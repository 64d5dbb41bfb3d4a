#include "ui/window/HostActionCommand.h"

#include "engine/Engine.h"
#include "ui/window/HostWindow.h"

namespace host::ui {

namespace {

Outcome RunHostAction(Call& call)
{
    auto* window = static_cast<HostWindow*>(Engine::Current().ui);
    if (!window)
        return Error{QStringLiteral("hostAction is not available in batch mode.")};
    if (!window->TriggerAction(call.ObjectText()))
        return Error{QStringLiteral("There is no host action \"%1\".").arg(call.ObjectText())};
    return {};
}

/// Everything is written, whichever part the script names.
Outcome SavePreferences(Call&)
{
    auto* window = static_cast<HostWindow*>(Engine::Current().ui);
    if (window)
        window->TriggerAction(QStringLiteral("savePreferences"));
    else
        Engine::Current().SavePreferences();
    return {};
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"savePrefs", "none", "", "", "colors/c - c; general/g - c; hotkeys/hk - c; menuSets/ms - c; uiLayout/ui - c", SavePreferences},
    {"hostAction", "none", "", "String", "", RunHostAction},
};
// clang-format on

} // namespace

void RegisterHostAction(Engine& engine)
{
    engine.commands.Register(COMMANDS);
}

} // namespace host::ui
