#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

namespace {

Outcome Saved()
{
    const QString problem = Session::Current().hotkeys.Save();
    return problem.isEmpty() ? Outcome() : Outcome(Error{problem});
}

Outcome NameCommand(Call& call)
{
    Hotkeys& hotkeys = Session::Current().hotkeys;
    const QString name = call.ObjectText();
    NamedCommand command = hotkeys.NamedCommands().value(name);
    if (call.Has("annotation"))
        command.annotation = call.Text("annotation");
    if (call.Has("command"))
        command.command = call.GetScript("command");
    if (call.Has("sourceType") && !command.command.callable) {
        const bool python = call.Text("sourceType") == QLatin1String("python");
        command.command.language = python ? Language::Python : Language::Mel;
    }
    hotkeys.AddCommand(name, command);
    const Outcome saved = Saved();
    return saved.Ok() ? Outcome(name) : saved;
}

Qt::KeyboardModifiers ModifiersOf(const Call& call)
{
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ControlModifier, call.Has("ctrlModifier") && call.Bool("ctrlModifier"));
    modifiers.setFlag(Qt::AltModifier, call.Has("altModifier") && call.Bool("altModifier"));
    modifiers.setFlag(Qt::ShiftModifier, call.Has("shiftModifier") && call.Bool("shiftModifier"));
    return modifiers;
}

Outcome QueryHotkey(const Call& call, const Hotkey& hotkey)
{
    if (call.Has("releaseName"))
        return hotkey.release;
    if (call.Has("name"))
        return hotkey.press;
    return Error{QStringLiteral("hotkey: the query needs -name or -releaseName.")};
}

Outcome RunHotkey(Call& call)
{
    Hotkeys& hotkeys = Session::Current().hotkeys;
    if (call.Has("sourceUserHotkeys")) {
        hotkeys.Read();
        return {};
    }
    if (call.Has("factorySettings")) {
        hotkeys.Clear();
        return Saved();
    }
    const QString name = call.Has("keyShortcut") ? call.Text("keyShortcut") : call.ObjectText();
    if (name.isEmpty())
        return Error{QStringLiteral("hotkey needs a key: -keyShortcut \"k\".")};
    const QString key = Hotkeys::KeyText(name, ModifiersOf(call));
    if (key.isEmpty())
        return Error{QStringLiteral("There is no key called \"%1\".").arg(name)};
    Hotkey hotkey = hotkeys.Find(key);
    if (call.IsQuery())
        return QueryHotkey(call, hotkey);
    if (call.Has("name"))
        hotkey.press = call.Text("name");
    if (call.Has("releaseName"))
        hotkey.release = call.Text("releaseName");
    hotkeys.Set(key, hotkey);
    return call.Has("autoSave") && !call.Bool("autoSave") ? Outcome() : Saved();
}

const CommandRow COMMANDS[] = {
    {"nameCommand", "string", "", "String",
        "annotation/ann str c; command/c script c; data1/da1 str c; data2/da2 str c;"
        "data3/da3 str c; default/d - c; sourceType/stp str c",
        NameCommand},
    {"hotkey", "any", "Q", "[String]",
        "altModifier/alt B cqo; autoSave/as B cq; commandModifier/cmd B cqo; ctrlModifier/ctl B "
        "cqo; ctxClient/ctx str c; factorySettings/fs - c; keyShortcut/k str cqv; name/n str cq; "
        "releaseName/rn str cq; shiftModifier/sht B cqo; sourceUserHotkeys/suh - c",
        RunHotkey},
};

} // namespace

void RegisterHotkeys(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
