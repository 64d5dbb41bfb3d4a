#include "commands/Tables.h"
#include "engine/Engine.h"
#include "mel/MelLanguage.h"

#include <QFileInfo>

namespace host::commands {

namespace {

mel::MelLanguage& Mel()
{
    return mel::MelLanguage::Current();
}

/// Path of the script that would define the procedure when it is first called; empty for none.
QString ScriptFileOf(const QString& name)
{
    const QString path = Engine::Current().paths.FindScript(name + QLatin1String(".mel"));
    return name.isEmpty() || name.contains(QLatin1Char('/')) ? QString() : path;
}

QString KindOfVariable(const QString& name)
{
    const Value::Kind kind = Mel().GlobalVariableKind(name);
    return kind == Value::Kind::None ? QStringLiteral("Unknown")
                                     : KindName(kind) + QLatin1String(" variable");
}

QString WhatIsName(const QString& name)
{
    if (name.startsWith(QLatin1Char('$')))
        return KindOfVariable(name);
    // A procedure hides a command of its name.
    if (const auto procedure = Mel().FindProcedure(name)) {
        return procedure->file.isEmpty()
            ? QStringLiteral("Mel procedure entered interactively.")
            : QStringLiteral("Mel procedure found in: ") + procedure->file;
    }
    const CommandRegistry& commands = Engine::Current().commands;
    if (const auto command = commands.FindCommand(name)) {
        return command->GetOrigin() == CommandOrigin::RunTime ? QStringLiteral("Run Time Command")
                                                              : QStringLiteral("Command");
    }
    if (commands.FindFunction(name))
        return QStringLiteral("Command");
    const QString script = ScriptFileOf(name);
    return script.isEmpty() ? QStringLiteral("Unknown")
                            : QStringLiteral("Script found in: ") + script;
}

Outcome WhatIs(FunctionCall& call)
{
    return WhatIsName(call.Text(0));
}

Outcome Exists(FunctionCall& call)
{
    const QString name = call.Text(0);
    return Mel().FindProcedure(name) || Engine::Current().commands.Contains(name)
            || !ScriptFileOf(name).isEmpty()
        ? 1
        : 0;
}

Outcome MelInfo(Call&)
{
    QStringList names = Engine::Current().commands.Names() + Mel().ProcedureNames();
    names.sort();
    names.removeDuplicates();
    return names;
}

Outcome Environment(FunctionCall&)
{
    return Mel().GlobalVariableNames();
}

Outcome GetProcArguments(FunctionCall& call)
{
    const auto procedure = Mel().FindProcedure(call.Text(0));
    if (!procedure)
        return Error{QStringLiteral("Cannot find procedure \"%1\".").arg(call.Text(0))};
    QStringList types;
    for (const Value::Kind kind : procedure->parameters)
        types += KindName(kind);
    return types;
}

Outcome GetLastError(FunctionCall&)
{
    return Mel().LastError();
}

Outcome RunPython(FunctionCall& call)
{
    Engine& engine = Engine::Current();
    if (!engine.python)
        return Error{QStringLiteral("Python is not available.")};
    const ScriptResult result = engine.Execute(Language::Python, call.Text(0), false);
    if (result.failed)
        return Error{result.errorText, ErrorKind::Runtime, true};
    return result.value;
}

const FunctionRow FUNCTIONS[] = {
    {"string whatIs(string)", WhatIs},
    {"int exists(string)", Exists},
    {"string[] env()", Environment},
    {"string[] getProcArguments(string)", GetProcArguments},
    {"string getLastError()", GetLastError},
    {"any python(string)", RunPython},
};

const CommandRow COMMANDS[] = {
    {"melInfo", "string[]", "", "", "", MelInfo},
};

} // namespace

void RegisterIntrospection(CommandRegistry& registry)
{
    registry.Register(FUNCTIONS);
    registry.Register(COMMANDS);
}

} // namespace host::commands
