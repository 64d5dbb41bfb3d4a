#include "api/UndoCommands.h"

#include "api/Session.h"
#include "engine/CommandRegistry.h"
#include "engine/Engine.h"

namespace host::api {

namespace {

Outcome AfterStep(UndoQueue::Step step, const QString& word)
{
    if (step == UndoQueue::Step::Failed)
        return Error{QStringLiteral("The command could not be %1ne.").arg(word)};
    if (step == UndoQueue::Step::NothingThere)
        Engine::Current().output.Warning(
            QStringLiteral("There are no more commands to %1.").arg(word));
    return {};
}

Outcome Undo(Call&)
{
    return AfterStep(Session::Current().undoQueue.Undo(), QStringLiteral("undo"));
}

Outcome Redo(Call&)
{
    return AfterStep(Session::Current().undoQueue.Redo(), QStringLiteral("redo"));
}

Outcome FlushUndo(Call&)
{
    Session::Current().undoQueue.Clear();
    return {};
}

// clang-format off
constexpr CommandRow COMMANDS[] = {
    {"undo",      "none", "", "", "", Undo},
    {"redo",      "none", "", "", "", Redo},
    {"flushUndo", "none", "", "", "", FlushUndo},
};
// clang-format on

} // namespace

void RegisterUndoCommands(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::api
