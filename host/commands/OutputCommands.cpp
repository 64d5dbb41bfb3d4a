#include "commands/Quoting.h"
#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

namespace {

EchoState& Echo()
{
    return Engine::Current().echo;
}

/// A switch that a flag of the same name sets and asks for.
struct SwitchRow
{
    const char* flag;
    bool EchoState::*state;
};

/// Sets what was given; in query mode the first flag's state.
template <size_t N>
Outcome Switch(Call& call, const SwitchRow (&rows)[N])
{
    for (const SwitchRow& row : rows) {
        if (!call.Has(row.flag))
            continue;
        if (call.IsQuery())
            return Echo().*row.state;
        Echo().*row.state = call.Bool(row.flag);
    }
    return {};
}

Outcome CommandEcho(Call& call)
{
    constexpr SwitchRow rows[]
        = {{"state", &EchoState::echoAll}, {"lineNumbers", &EchoState::lineNumbers}};
    if (call.IsQuery() && call.Has("filter"))
        return Echo().filter;
    if (call.Has("filter"))
        Echo().filter = call.Texts("filter");
    if (call.Has("addFilter")) {
        Echo().filter += call.Texts("addFilter");
        Echo().filter.removeDuplicates();
    }
    return Switch(call, rows);
}

Outcome StackTrace(Call& call)
{
    constexpr SwitchRow rows[] = {{"state", &EchoState::stackTrace}};
    return Switch(call, rows);
}

Outcome MelOptions(Call& call)
{
    constexpr SwitchRow rows[]
        = {{"duplicateVariableWarnings", &EchoState::duplicateVariableWarnings}};
    return Switch(call, rows);
}

struct SuppressRow
{
    const char* flag;
    MessageType type;
};

constexpr SuppressRow SUPPRESSED[] = {
    {"suppressErrors", MessageType::Error},
    {"suppressInfo", MessageType::Info},
    {"suppressResults", MessageType::Result},
    {"suppressWarnings", MessageType::Warning},
};

Outcome QueryScriptEditor(const Call& call)
{
    const Session& session = Session::Current();
    if (call.Has("historyFilename"))
        return session.historyFile.Name();
    if (call.Has("writeHistory"))
        return session.historyFile.IsWriting();
    if (call.Has("suppressStackWindow"))
        return session.suppressStackWindow;
    for (const SuppressRow& row : SUPPRESSED) {
        if (call.Has(row.flag))
            return Engine::Current().history.IsSuppressed(row.type);
    }
    return {};
}

/// Into every field where scripts are written.
void SetInput(const QString& text)
{
    if (!Engine::Current().commands.FindCommand(QStringLiteral("cmdScrollFieldExecuter")))
        return;
    const QString script = QStringLiteral("{ string $field; for ($field in `lsUI -long -type "
                                          "\"cmdScrollFieldExecuter\"`)"
                                          " cmdScrollFieldExecuter -edit -text %1 $field; }");
    Script{Language::Mel, script.arg(Quoted(text)), nullptr}.Run();
}

Outcome ScriptEditorInfo(Call& call)
{
    if (call.IsQuery())
        return QueryScriptEditor(call);
    Session& session = Session::Current();
    OutputHistory& history = Engine::Current().history;
    for (const SuppressRow& row : SUPPRESSED) {
        if (call.Has(row.flag))
            history.SetSuppressed(row.type, call.Bool(row.flag));
    }
    if (call.Has("suppressStackWindow"))
        session.suppressStackWindow = call.Bool("suppressStackWindow");
    if (call.Has("clearHistory"))
        history.Clear();
    if (call.Has("input"))
        SetInput(call.Text("input"));
    QStringList problems;
    if (call.Has("historyFilename"))
        problems += session.historyFile.SetName(call.Text("historyFilename"));
    if (call.Has("clearHistoryFile"))
        problems += session.historyFile.Clear();
    if (call.Has("writeHistory"))
        problems += session.historyFile.SetWriting(call.Bool("writeHistory"));
    problems.removeAll(QString());
    return problems.isEmpty() ? Outcome() : Outcome(Error{problems.first()});
}

const CommandRow COMMANDS[] = {
    {"commandEcho", "int", "Q", "",
        "addFilter/af str[] c; filter/f str[] cq; lineNumbers/ln B cq; state/st B cq", CommandEcho},
    {"stackTrace", "int", "Q", "", "state/s B cq", StackTrace},
    {"melOptions", "int", "Q", "", "duplicateVariableWarnings/dvw B cq", MelOptions},
    {"scriptEditorInfo", "any", "QE", "",
        "clearHistory/ch - ce; clearHistoryFile/chf - ce; historyFilename/hfn str cqe;"
        "input/i str ce; suppressErrors/se B cqe; suppressInfo/si B cqe; suppressResults/sr B cqe;"
        "suppressStackWindow/ssw B cqe; suppressWarnings/sw B cqe; writeHistory/wh B cqe",
        ScriptEditorInfo},
};

} // namespace

void RegisterOutput(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
