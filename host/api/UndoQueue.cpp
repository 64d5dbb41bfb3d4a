#include "api/UndoQueue.h"

#include "api/Guard.h"
#include "api/PluginCommand.h"

#include <algorithm>

namespace host::api {

void UndoQueue::Add(std::unique_ptr<MPxCommand> object, std::shared_ptr<PluginCommand> command)
{
    m_undone.clear();
    m_done.push_back({std::move(command), std::move(object)});
    if (m_done.size() > MAXIMUM_LENGTH)
        m_done.pop_front();
}

UndoQueue::Step UndoQueue::Undo()
{
    if (m_done.empty() || !IsOpen())
        return Step::NothingThere;
    Entry entry = std::move(m_done.back());
    m_done.pop_back();
    const PluginScope inPlugin(entry.command->Record());
    m_undoing = true;
    MStatus status = MS::kFailure;
    CallGuarded(entry.command->Name(), [&] { status = entry.object->undoIt(); });
    m_undoing = false;
    if (!status)
        return Step::Failed;
    m_undone.push_back(std::move(entry));
    return Step::Done;
}

UndoQueue::Step UndoQueue::Redo()
{
    if (m_undone.empty() || !IsOpen())
        return Step::NothingThere;
    Entry entry = std::move(m_undone.back());
    m_undone.pop_back();
    const PluginScope inPlugin(entry.command->Record());
    m_redoing = true;
    MStatus status = MS::kFailure;
    CallGuarded(entry.command->Name(), [&] { status = entry.object->redoIt(); });
    m_redoing = false;
    if (!status)
        return Step::Failed;
    m_done.push_back(std::move(entry));
    return Step::Done;
}

bool UndoQueue::Holds(const PluginRecord& plugin) const
{
    const auto matches
        = [&](const Entry& entry) { return entry.command->Record().get() == &plugin; };
    return std::any_of(m_done.begin(), m_done.end(), matches)
        || std::any_of(m_undone.begin(), m_undone.end(), matches);
}

template <typename Matches>
void UndoQueue::RemoveWhere(const Matches& matches)
{
    m_done.erase(std::remove_if(m_done.begin(), m_done.end(), matches), m_done.end());
    m_undone.erase(std::remove_if(m_undone.begin(), m_undone.end(), matches), m_undone.end());
}

void UndoQueue::RemoveOf(const PluginRecord& plugin)
{
    RemoveWhere([&](const Entry& entry) { return entry.command->Record().get() == &plugin; });
}

void UndoQueue::Remove(const PluginCommand& command)
{
    RemoveWhere([&](const Entry& entry) { return entry.command.get() == &command; });
}

void UndoQueue::Clear()
{
    m_undone.clear();
    m_done.clear();
}

} // namespace host::api
