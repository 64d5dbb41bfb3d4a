#include "ui/commands/InterfaceCommands.h"

#include "commands/Session.h"
#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/windows/WindowTables.h"

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
    RegisterProgressCommands,
    RegisterFileDialogCommands,
    RegisterColorCommands,
    RegisterTreeView,
    RegisterLayoutDialog,
    RegisterPanelCommands,
    RegisterWindowPref,
    RegisterRowCommands,
    RegisterPaneCommands,
    RegisterOptionMenuCommands,
    RegisterNumberGroupCommands,
    RegisterSliderCommands,
    RegisterRadioCommands,
    RegisterChoiceGroupCommands,
    RegisterIconTextCommands,
    RegisterTemplateCommands,
};

struct RunTimeRow
{
    const char* name;
    const char* label;
    const char* annotation;
    const char* command;
};

// clang-format off
const RunTimeRow RUN_TIME_COMMANDS[] = {
    {"ScriptEditor",  "Script Editor",   "Open the host's own script window",  "scriptEditorWindow"},
    {"PluginManager", "Plug-in Manager", "Load, unload and autoload plug-ins", "pluginManagerWindow"},
};
// clang-format on

void AddRunTimeCommand(const RunTimeRow& row)
{
    commands::RunTimeCommand command;
    command.command = {Language::Mel, QString::fromLatin1(row.command), nullptr};
    command.texts.insert(QStringLiteral("label"), QString::fromLatin1(row.label));
    command.texts.insert(QStringLiteral("annotation"), QString::fromLatin1(row.annotation));
    command.texts.insert(QStringLiteral("category"), QStringLiteral("Windows"));
    command.isDefault = true;
    commands::Session::Current().runTimeCommands.Add(QString::fromLatin1(row.name), command);
}

} // namespace

void RegisterInterfaceCommands(Engine& engine, InterfaceModel&)
{
    for (const Registration registration : REGISTRATIONS)
        registration(engine.commands);
    MakeHostTemplates();
    for (const RunTimeRow& row : RUN_TIME_COMMANDS)
        AddRunTimeCommand(row);
}

} // namespace host::ui
