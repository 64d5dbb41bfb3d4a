#include "api/PluginStep.h"

#include "api/CommandRun.h"
#include "api/Conversions.h"
#include "api/Guard.h"
#include "api/PluginCommand.h"
#include "engine/Engine.h"

namespace host::api {

namespace {

UndoQueue::Matches StepsOf(const PluginRecord& record)
{
    return [&record](const UndoStep& step) {
        const auto* own = dynamic_cast<const PluginStep*>(&step);
        return own && &own->Record() == &record;
    };
}

} // namespace

PluginStep::PluginStep(std::unique_ptr<MPxCommand> object, std::shared_ptr<PluginCommand> command)
    : m_command(std::move(command))
    , m_object(std::move(object))
{ }

PluginStep::~PluginStep() = default;

QString PluginStep::Name() const
{
    return ToQString(m_object->commandString());
}

const PluginRecord& PluginStep::Record() const
{
    return *m_command->Record();
}

bool PluginStep::Run(MStatus (MPxCommand::*step)())
{
    const PluginScope inPlugin(m_command->Record());
    const CommandRun run;
    MStatus status = MS::kFailure;
    CallGuarded(m_command->Name(), [&] { status = (*m_object.*step)(); });
    if (!status && run.shownError.isNull())
        ShowMessage(MessageType::Error, ToQString(status.errorString()));
    return !status.error();
}

bool HasSteps(const PluginRecord& record)
{
    return Engine::Current().undoQueue.Contains(StepsOf(record));
}

void RemoveSteps(const PluginRecord& record)
{
    Engine::Current().undoQueue.Remove(StepsOf(record));
}

void RemoveSteps(const PluginCommand& command)
{
    Engine::Current().undoQueue.Remove([&command](const UndoStep& step) {
        const auto* own = dynamic_cast<const PluginStep*>(&step);
        return own && &own->Command() == &command;
    });
}

} // namespace host::api
