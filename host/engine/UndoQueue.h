#pragma once

#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>

namespace host {

/// Something that was done and can be taken back. Owned by the queue.
class UndoStep
{
public:
    virtual ~UndoStep() = default;
    /// False when it could not; what went wrong has been shown then.
    virtual bool Undo() = 0;
    virtual bool Redo() = 0;
    /// The command as it was typed.
    virtual QString Name() const = 0;
};

/// What can be undone, and what can be redone after that. The steps that are added while a chunk is
/// open become one step when it is closed: a text that runs is such a chunk. Main thread only.
class UndoQueue
{
public:
    static constexpr int DEFAULT_LENGTH = 50;

    enum class StepResult { Done, Failed, NothingThere };

    UndoQueue() = default;
    ~UndoQueue();
    UndoQueue(const UndoQueue&) = delete;
    UndoQueue& operator=(const UndoQueue&) = delete;

    /// False while it is switched off, while a text runs that must not be undone, and while a step
    /// is taken.
    bool IsRecording() const;
    /// Drops the oldest step when the queue is full, and everything that could be redone. The step
    /// is dropped itself while nothing is recorded.
    void Add(std::unique_ptr<UndoStep> step);

    /// Chunks may lie in each other; the outermost one counts. An empty one leaves nothing. Without
    /// a name it bears that of its first step.
    void OpenChunk(const QString& name = {});
    void CloseChunk();

    /// Number of steps that are kept; the oldest ones beyond it are dropped. 0 keeps all.
    int GetLength() const { return m_length; }
    void SetLength(int length);

    /// A step that fails is dropped. The steps of an open chunk are taken back one by one.
    StepResult Undo();
    StepResult Redo();
    bool IsUndoing() const { return m_undoing; }
    bool IsRedoing() const { return m_redoing; }

    /// Names of the steps, the next one first.
    QStringList UndoNames() const;
    QStringList RedoNames() const;

    using Matches = std::function<bool(const UndoStep&)>;
    bool Contains(const Matches& matches) const;
    void Remove(const Matches& matches);
    void Clear();

    /// Switched by `undoInfo -state`.
    bool enabled = true;

private:
    friend class UndoPause;
    using Steps = std::deque<std::unique_ptr<UndoStep>>;

    StepResult Take(Steps& from, Steps& to, bool& running, bool (UndoStep::*run)());
    void BreakChunk();
    void DropOldest();

    // The last element is the next step.
    Steps m_done;
    Steps m_undone;
    Steps m_chunk;
    QString m_chunkName;
    int m_chunkDepth = 0;
    int m_length = DEFAULT_LENGTH;
    int m_pauses = 0;
    bool m_undoing = false;
    bool m_redoing = false;
};

/// Keeps what runs while it lives out of the queue, when `pause` says so.
class UndoPause
{
public:
    UndoPause(UndoQueue& queue, bool pause);
    ~UndoPause();
    UndoPause(const UndoPause&) = delete;
    UndoPause& operator=(const UndoPause&) = delete;

private:
    UndoQueue& m_queue;
    int m_pause;
};

} // namespace host
