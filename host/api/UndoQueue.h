#pragma once

#include <maya/MPxCommand.h>

#include <deque>
#include <memory>
#include <vector>

namespace host::api {

class PluginCommand;
struct PluginRecord;

/// The commands that can be undone, and those that can be redone. Owns their objects. Main thread
/// only.
class UndoQueue
{
public:
    static constexpr size_t MAXIMUM_LENGTH = 50;

    /// Takes the object; drops the oldest one when the queue is full, and all that could be redone.
    void Add(std::unique_ptr<MPxCommand> object, std::shared_ptr<PluginCommand> command);

    enum class Step { Done, Failed, NothingThere };
    Step Undo();
    Step Redo();
    bool IsUndoing() const { return m_undoing; }
    bool IsRedoing() const { return m_redoing; }

    bool Holds(const PluginRecord& plugin) const;
    void RemoveOf(const PluginRecord& plugin);
    void Remove(const PluginCommand& command);
    void Clear();

    /// False while a text runs that must not be undone, or while a step is being undone.
    bool IsOpen() const { return m_closed == 0 && !m_undoing && !m_redoing; }

private:
    friend class UndoPause;

    struct Entry
    {
        std::shared_ptr<PluginCommand> command;
        std::unique_ptr<MPxCommand> object;
    };
    template <typename Matches>
    void RemoveWhere(const Matches& matches);

    std::deque<Entry> m_done;
    std::vector<Entry> m_undone;
    int m_closed = 0;
    bool m_undoing = false;
    bool m_redoing = false;
};

/// Keeps what runs while it lives out of the queue, when `pause` says so.
class UndoPause
{
public:
    UndoPause(UndoQueue& queue, bool pause)
        : m_queue(queue)
        , m_pause(pause ? 1 : 0)
    {
        m_queue.m_closed += m_pause;
    }
    ~UndoPause() { m_queue.m_closed -= m_pause; }
    UndoPause(const UndoPause&) = delete;
    UndoPause& operator=(const UndoPause&) = delete;

private:
    UndoQueue& m_queue;
    int m_pause;
};

} // namespace host::api
