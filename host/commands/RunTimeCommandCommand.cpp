#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QRegularExpression>

namespace host::commands {

namespace {

/// Flags whose text is only kept.
constexpr const char* TEXT_FLAGS[] = {"annotation", "category", "helpUrl", "hotkeyCtx", "image",
    "keywords", "label", "longAnnotation", "plugin", "tags"};

RunTimeCommands& Commands()
{
    return Session::Current().runTimeCommands;
}

QStringList NamesWhere(bool isDefault)
{
    QStringList names;
    for (const QString& name : Commands().Names()) {
        if (Commands().Get(name).isDefault == isDefault)
            names += name;
    }
    return names;
}

/// The queries that need no name; none when the query is about one command.
std::optional<Value> QueryAll(const Call& call)
{
    if (call.Has("commandArray"))
        return Commands().Names();
    if (call.Has("numberOfCommands"))
        return Commands().Names().size();
    if (call.Has("defaultCommandArray"))
        return NamesWhere(true);
    if (call.Has("numberOfDefaultCommands"))
        return NamesWhere(true).size();
    if (call.Has("userCommandArray"))
        return NamesWhere(false);
    if (call.Has("numberOfUserCommands"))
        return NamesWhere(false).size();
    if (!call.Has("categoryArray"))
        return std::nullopt;
    QStringList categories;
    for (const QString& name : Commands().Names())
        categories += Commands().Get(name).texts.value(QStringLiteral("category"));
    categories.removeAll(QString());
    categories.removeDuplicates();
    categories.sort();
    return categories;
}

Outcome Query(const Call& call, const RunTimeCommand& command)
{
    if (call.Has("command"))
        return command.command.Description();
    if (call.Has("commandLanguage")) {
        return command.command.language == Language::Mel ? QStringLiteral("mel")
                                                         : QStringLiteral("python");
    }
    if (call.Has("default"))
        return command.isDefault;
    if (call.Has("showInHotkeyEditor"))
        return command.showInHotkeyEditor;
    return command.texts.value(call.GivenFlags().value(0));
}

/// Adds a word to the comma-separated list that `flag` keeps.
void AddWords(const Call& call, const char* flag, const QString& list, RunTimeCommand& command)
{
    QStringList words = command.texts.value(list).split(QLatin1Char(','), Qt::SkipEmptyParts);
    words += call.Texts(flag);
    words.removeDuplicates();
    if (!words.isEmpty())
        command.texts.insert(list, words.join(QLatin1Char(',')));
}

Outcome Change(const Call& call, RunTimeCommand& command)
{
    for (const char* flag : TEXT_FLAGS) {
        if (call.Has(flag))
            command.texts.insert(QLatin1String(flag), call.Text(flag));
    }
    AddWords(call, "addKeyword", QStringLiteral("keywords"), command);
    AddWords(call, "addTag", QStringLiteral("tags"), command);
    if (call.Has("default"))
        command.isDefault = call.Bool("default");
    if (call.Has("showInHotkeyEditor"))
        command.showInHotkeyEditor = call.Bool("showInHotkeyEditor");
    // The language of the text is MEL unless told, also when Python makes the command.
    const Language before = command.command.IsEmpty() ? Language::Mel : command.command.language;
    if (call.Has("command"))
        command.command = call.GetScript("command");
    if (!command.command.callable)
        command.command.language = before;
    if (!call.Has("commandLanguage"))
        return {};
    const QString language = call.Text("commandLanguage");
    if (language != QLatin1String("mel") && language != QLatin1String("python"))
        return Error{QStringLiteral("Unknown command language '%1'.").arg(language)};
    command.command.language = language == QLatin1String("mel") ? Language::Mel : Language::Python;
    return {};
}

Outcome Create(const Call& call, const QString& name)
{
    static const QRegularExpression legal(QStringLiteral("^[A-Za-z_]\\w*$"));
    if (!legal.match(name).hasMatch())
        return Error{QStringLiteral("'%1' is not a legal command name.").arg(name)};
    RunTimeCommand command;
    const Outcome changed = Change(call, command);
    if (!changed.Ok())
        return changed;
    if (!Commands().Add(name, command))
        return Error{QStringLiteral("The command '%1' already exists.").arg(name)};
    return name;
}

Outcome RunTime(Call& call)
{
    const QString name = call.ObjectText();
    if (call.Has("exists"))
        return Commands().Contains(name);
    if (call.Has("save")) {
        const QString problem = Commands().Save();
        return problem.isEmpty() ? Outcome() : Outcome(Error{problem});
    }
    if (call.IsQuery()) {
        if (const std::optional<Value> all = QueryAll(call))
            return *all;
    }
    if (call.IsCreate() && !call.Has("delete"))
        return Create(call, name);
    if (!Commands().Contains(name))
        return Error{QStringLiteral("Run time command '%1' not found.").arg(name)};
    if (call.IsQuery())
        return Query(call, Commands().Get(name));
    if (!call.Has("delete"))
        return Change(call, Commands().Edit(name));
    if (Commands().Get(name).isDefault)
        return Error{QStringLiteral("The default command '%1' cannot be deleted.").arg(name)};
    Commands().Remove(name);
    return {};
}

const CommandRow COMMANDS[] = {
    {"runTimeCommand", "any", "QE", "[String]",
        "addKeyword/ak str cem; addTag/at str cem; annotation/ann str cqe; category/cat str cqe;"
        "categoryArray/caa - q; command/c script cqe; commandArray/ca - q;"
        "commandLanguage/cl str cqe; default/d B cq; defaultCommandArray/dca - q;"
        "delete/delete - e; exists/ex - cq; helpUrl/url str cqe; hotkeyCtx/hc str cqe;"
        "image/i str cqe; keywords/k str cqe; label/l str cqe; longAnnotation/la str cqe;"
        "numberOfCommands/nc - q; numberOfDefaultCommands/ndc - q; numberOfUserCommands/nuc - q;"
        "plugin/p str cqe; save/s - e; showInHotkeyEditor/she B cqe; tags/t str cqe;"
        "userCommandArray/uca - q",
        RunTime},
};

} // namespace

void RegisterRunTimeCommands(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
