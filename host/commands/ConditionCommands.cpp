#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

namespace {

Conditions& All()
{
    return Session::Current().conditions;
}

Error Unknown(const QString& name)
{
    return {QStringLiteral("Unknown condition: '%1'.").arg(name)};
}

Outcome Condition(Call& call)
{
    const QString name = call.ObjectText();
    if (call.IsQuery() || call.Has("delete")) {
        if (!All().Contains(name))
            return Unknown(name);
        if (call.IsQuery())
            return All().IsTrue(name);
    }
    if (name.isEmpty() || All().IsBuiltIn(name))
        return Error{QStringLiteral("The condition '%1' is the host's own.").arg(name)};
    if (call.IsEdit() && !All().Contains(name))
        return Unknown(name);
    if (call.Has("delete")) {
        All().Remove(name);
        return {};
    }
    if (call.Has("script")
        && !All().SetScript(
            name, call.GetScript("script"), call.Texts("dependency"), call.Has("initialize")))
        return Error{QStringLiteral("Unknown event or condition: '%1'.")
                         .arg(call.Texts("dependency").join(QStringLiteral("', '")))};
    if (call.Has("state") || !All().Contains(name))
        All().SetState(name, call.Has("state") && call.Bool("state"));
    return {};
}

Outcome IsTrue(Call& call)
{
    if (!All().Contains(call.ObjectText()))
        return Unknown(call.ObjectText());
    return All().IsTrue(call.ObjectText());
}

const CommandRow COMMANDS[] = {
    {"condition", "any", "QE", "String",
        "delete/del - c; dependency/d str cm; initialize/i - c; script/s script c; state/st B cqe",
        Condition},
    {"isTrue", "bool", "", "String", "", IsTrue},
};

} // namespace

void RegisterConditions(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
