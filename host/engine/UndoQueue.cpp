#include "engine/UndoQueue.h"

#include <algorithm>

namespace host {

namespace {

template <typename Steps>
QStringList NamesOf(const Steps& steps)
{
    QStringList names;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step)
        names += (*step)->Name();
    return names;
}

} // namespace

UndoQueue::~UndoQueue() = default;

bool UndoQueue::IsRecording() const
{
    return enabled && m_pauses == 0 && !m_undoing && !m_redoing;
}

void UndoQueue::Add(std::unique_ptr<UndoStep> step)
{
    if (!IsRecording())
        return;
    m_undone.clear();
    m_done.push_back(std::move(step));
    if (m_done.size() > MAXIMUM_LENGTH)
        m_done.pop_front();
}

UndoQueue::StepResult UndoQueue::Undo()
{
    return Take(m_done, m_undone, m_undoing, &UndoStep::Undo);
}

UndoQueue::StepResult UndoQueue::Redo()
{
    return Take(m_undone, m_done, m_redoing, &UndoStep::Redo);
}

UndoQueue::StepResult UndoQueue::Take(
    Steps& from, Steps& to, bool& running, bool (UndoStep::*run)())
{
    // A step may run texts, and those may ask for another step.
    if (from.empty() || m_undoing || m_redoing)
        return StepResult::NothingThere;
    std::unique_ptr<UndoStep> step = std::move(from.back());
    from.pop_back();
    running = true;
    const bool done = (*step.*run)();
    running = false;
    if (!done)
        return StepResult::Failed;
    to.push_back(std::move(step));
    return StepResult::Done;
}

QStringList UndoQueue::UndoNames() const
{
    return NamesOf(m_done);
}

QStringList UndoQueue::RedoNames() const
{
    return NamesOf(m_undone);
}

bool UndoQueue::Contains(const Matches& matches) const
{
    const auto found = [&](const auto& step) { return matches(*step); };
    return std::any_of(m_done.begin(), m_done.end(), found)
        || std::any_of(m_undone.begin(), m_undone.end(), found);
}

void UndoQueue::Remove(const Matches& matches)
{
    const auto found = [&](const auto& step) { return matches(*step); };
    for (Steps* steps : {&m_done, &m_undone})
        steps->erase(std::remove_if(steps->begin(), steps->end(), found), steps->end());
}

void UndoQueue::Clear()
{
    m_undone.clear();
    m_done.clear();
}

UndoPause::UndoPause(UndoQueue& queue, bool pause)
    : m_queue(queue)
    , m_pause(pause ? 1 : 0)
{
    m_queue.m_pauses += m_pause;
}

UndoPause::~UndoPause()
{
    m_queue.m_pauses -= m_pause;
}

} // namespace host
