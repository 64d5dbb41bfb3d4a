#include "commands/HelpRequests.h"
#include "commands/HelpText.h"
#include "commands/Patterns.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

namespace {

/// A regular expression for the whole name; people also give shell patterns.
Outcome NamesLike(const QString& pattern)
{
    const QRegularExpression expression(
        QStringLiteral("\\A(?:%1)\\z").arg(pattern.isEmpty() ? QStringLiteral(".*") : pattern));
    const QRegularExpression shell = ShellExpression(pattern);
    QStringList names;
    for (const QString& name : Engine::Current().commands.Names()) {
        if ((expression.isValid() && expression.match(name).hasMatch())
            || shell.match(name).hasMatch())
            names += name;
    }
    return names;
}

/// How the interface explains itself is kept as option variables, for scripts that switch it.
struct ModeRow
{
    const char* flag;
    int usual;
};

const ModeRow MODES[] = {
    {"popupDisplayTime", 5000},
    {"popupMode", 1},
    {"popupPauseTime", 500},
    {"popupSimpleMode", 0},
    {"rolloverMode", 1},
};

std::optional<Outcome> ChangeModes(const Call& call)
{
    OptionVars& variables = Engine::Current().optionVars;
    std::optional<Outcome> outcome;
    for (const ModeRow& row : MODES) {
        if (!call.Has(row.flag))
            continue;
        const QString name = QStringLiteral("help_") + QLatin1String(row.flag);
        if (call.IsQuery())
            return Outcome(variables.Contains(name) ? variables.Get(name) : Value(row.usual));
        variables.Set(name, call.Argument(row.flag).ToInt());
        outcome = Outcome();
    }
    return outcome;
}

Outcome Help(Call& call)
{
    if (const std::optional<Outcome> changed = ChangeModes(call))
        return *changed;
    const QString name = call.ObjectText();
    if (call.Has("list"))
        return NamesLike(name);
    if (call.Has("documentation")) {
        const QString page = name.isEmpty() ? QStringLiteral("index") : name;
        HelpRequests::Current().Add(
            {HelpRequest::Kind::Docs, QStringLiteral("Commands/%1.html").arg(page)});
        return {};
    }
    const CommandRegistry& commands = Engine::Current().commands;
    if (const Function* function = commands.FindFunction(name))
        return HelpText(*function);
    const std::shared_ptr<const Command> command = commands.FindCommand(name);
    if (!command || command->GetOrigin() == CommandOrigin::RunTime) {
        return Error{QStringLiteral("Quick help is not available for \"%1\".").arg(name)};
    }
    QString text = HelpText(*command);
    if (!call.Has("syntaxOnly"))
        text += QLatin1String("\nCommand Type: Command\n");
    return text;
}

const CommandRow COMMANDS[] = {
    {"help", "any", "Q", "[String]",
        "documentation/doc - c; language/lng str c; list/l - c; popupDisplayTime/pdt int cq;"
        "popupMode/pm B cq; popupPauseTime/ppt int cq; popupSimpleMode/psm B cq; rolloverMode/rm B "
        "cq; syntaxOnly/so - c",
        Help},
};

} // namespace

void RegisterHelp(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
