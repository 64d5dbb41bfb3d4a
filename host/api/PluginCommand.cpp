#include "api/PluginCommand.h"

#include "api/ApiAccess.h"
#include "api/CommandRun.h"
#include "api/Conversions.h"
#include "api/Guard.h"
#include "api/PluginStep.h"
#include "engine/CallWords.h"
#include "engine/Engine.h"

#include <maya/MArgList.h>

namespace host::api {

namespace {

/// The command has said itself what went wrong, or at least its status does.
Error FailureOf(const CommandRun& run, const MStatus& status)
{
    if (!run.shownError.isNull())
        return {run.shownError, ErrorKind::Runtime, true};
    return {ToQString(status.errorString()), ErrorKind::Runtime, false};
}

} // namespace

PluginCommand::PluginCommand(const QString& name, std::shared_ptr<PluginRecord> record,
    MCreatorFunction creator, MCreateSyntaxFunction syntaxFunction)
    : m_name(name)
    , m_record(std::move(record))
    , m_creator(creator)
    , m_syntaxFunction(syntaxFunction)
{ }

const MSyntax& PluginCommand::Syntax()
{
    if (!m_syntax) {
        m_syntax = std::make_unique<MSyntax>();
        const MCreateSyntaxFunction function = m_syntaxFunction;
        const PluginScope inPlugin(m_record);
        if (function)
            CallGuarded(m_name, [&] { *m_syntax = function(); });
    }
    return *m_syntax;
}

std::unique_ptr<Command> PluginCommand::MakeEntry()
{
    const auto self = shared_from_this();
    auto entry = std::make_unique<Command>(
        m_name, CommandOrigin::PlugIn, [self](Call& call) { return self->Run(call); });
    entry->owner = m_record->plugin->name;
    entry->takesRawWords = m_syntaxFunction == nullptr;
    if (m_syntaxFunction) {
        entry->SetDescriber(
            [self](Command& command) { ApiAccess::Describe(command, self->Syntax()); });
    }
    return entry;
}

void PluginCommand::Retire()
{
    m_creator = nullptr;
    m_syntaxFunction = nullptr;
}

Outcome PluginCommand::Run(Call& call)
{
    if (!m_creator)
        return Error{QStringLiteral("Cannot find procedure \"%1\".").arg(m_name)};
    if (const std::optional<Error> error = KeywordError(call))
        return *error;
    const PluginScope inPlugin(m_record);
    MPxCommand* object = nullptr;
    const CommandRun run;
    CallGuarded(m_name, [&] { object = static_cast<MPxCommand*>(m_creator()); });
    if (!object)
        return FailureOf(run, MS::kFailure);
    return RunObject(std::unique_ptr<MPxCommand>(object), call);
}

Outcome PluginCommand::RunObject(std::unique_ptr<MPxCommand> object, Call& call)
{
    CommandRun& run = *CommandRun::Current();
    const QVector<Word> words = WordsOf(call);
    MArgList arguments;
    ApiAccess::SetWords(arguments, words);
    ApiAccess::Attach(*object, shared_from_this(), CallText(m_name, words));
    MStatus status = MS::kFailure;
    bool undoable = false;
    CallGuarded(m_name, [&] {
        status = object->doIt(arguments);
        undoable = status && object->isUndoable();
    });
    // A command may have deregistered itself while it ran.
    if (undoable && m_creator) {
        Engine::Current().undoQueue.Add(
            std::make_unique<PluginStep>(std::move(object), shared_from_this()));
    }
    object.reset();
    if (!status)
        return FailureOf(run, status);
    return run.result;
}

} // namespace host::api
