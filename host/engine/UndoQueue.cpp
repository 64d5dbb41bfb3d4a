#include "engine/UndoQueue.h"

#include <algorithm>
#include <utility>

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

/// Several steps that are undone together.
class UndoChunk : public UndoStep
{
public:
    UndoChunk(const QString& name, std::deque<std::unique_ptr<UndoStep>> steps)
        : m_name(name.isEmpty() ? steps.front()->Name() : name)
        , m_steps(std::move(steps))
    { }

    bool Undo() override
    {
        return std::all_of(
            m_steps.rbegin(), m_steps.rend(), [](const auto& step) { return step->Undo(); });
    }
    bool Redo() override
    {
        return std::all_of(
            m_steps.begin(), m_steps.end(), [](const auto& step) { return step->Redo(); });
    }
    QString Name() const override { return m_name; }

    std::deque<std::unique_ptr<UndoStep>>& Steps() { return m_steps; }

private:
    QString m_name;
    std::deque<std::unique_ptr<UndoStep>> m_steps;
};

bool Contained(const UndoQueue::Matches& matches, UndoStep& step)
{
    auto* chunk = dynamic_cast<UndoChunk*>(&step);
    if (!chunk)
        return matches(step);
    return std::any_of(chunk->Steps().begin(), chunk->Steps().end(),
        [&](const auto& part) { return Contained(matches, *part); });
}

/// True when nothing is left of the step.
bool Taken(const UndoQueue::Matches& matches, UndoStep& step)
{
    auto* chunk = dynamic_cast<UndoChunk*>(&step);
    if (!chunk)
        return matches(step);
    auto& parts = chunk->Steps();
    parts.erase(std::remove_if(parts.begin(), parts.end(),
                    [&](const auto& part) { return Taken(matches, *part); }),
        parts.end());
    return parts.empty();
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
    if (m_chunkDepth > 0) {
        m_chunk.push_back(std::move(step));
        return;
    }
    m_done.push_back(std::move(step));
    DropOldest();
}

void UndoQueue::DropOldest()
{
    while (m_length > 0 && m_done.size() > static_cast<size_t>(m_length))
        m_done.pop_front();
}

void UndoQueue::SetLength(int length)
{
    m_length = length;
    DropOldest();
}

void UndoQueue::OpenChunk(const QString& name)
{
    if (m_chunkDepth++ == 0 || m_chunkName.isEmpty())
        m_chunkName = name;
}

void UndoQueue::CloseChunk()
{
    if (m_chunkDepth == 0 || --m_chunkDepth > 0)
        return;
    const QString name = std::exchange(m_chunkName, QString());
    Steps steps = std::exchange(m_chunk, Steps());
    if (steps.size() == 1 && name.isEmpty())
        m_done.push_back(std::move(steps.front()));
    else if (!steps.empty())
        m_done.push_back(std::make_unique<UndoChunk>(name, std::move(steps)));
    DropOldest();
}

/// A text that undoes means what it has done just now.
void UndoQueue::BreakChunk()
{
    for (auto& step : m_chunk)
        m_done.push_back(std::move(step));
    m_chunk.clear();
}

UndoQueue::StepResult UndoQueue::Undo()
{
    if (!m_undoing && !m_redoing)
        BreakChunk();
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
    return NamesOf(m_chunk) + NamesOf(m_done);
}

QStringList UndoQueue::RedoNames() const
{
    return NamesOf(m_undone);
}

bool UndoQueue::Contains(const Matches& matches) const
{
    const auto found = [&](const auto& step) { return Contained(matches, *step); };
    return std::any_of(m_done.begin(), m_done.end(), found)
        || std::any_of(m_undone.begin(), m_undone.end(), found)
        || std::any_of(m_chunk.begin(), m_chunk.end(), found);
}

void UndoQueue::Remove(const Matches& matches)
{
    const auto found = [&](const auto& step) { return Taken(matches, *step); };
    for (Steps* steps : {&m_done, &m_undone, &m_chunk})
        steps->erase(std::remove_if(steps->begin(), steps->end(), found), steps->end());
}

void UndoQueue::Clear()
{
    m_undone.clear();
    m_done.clear();
    m_chunk.clear();
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
