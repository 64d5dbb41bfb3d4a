#pragma once

#include <QMutex>
#include <QObject>
#include <QTimer>

#include <functional>

namespace host {

/// Lower numbers run first; within one priority first in, first out.
enum class IdlePriority { High, Low, VeryLow };

/// Work that waits until the event loop has nothing else to do. Any thread may post; tasks run one
/// per turn on the thread that owns the queue (the main thread), never inside a running script.
class IdleQueue : public QObject
{
    Q_OBJECT
public:
    using Task = std::function<void()>;

    explicit IdleQueue(QObject* parent = nullptr);

    void Post(Task task, IdlePriority priority = IdlePriority::Low);
    /// Puts the task before everything else that waits.
    void PostNext(Task task);
    int Count() const;
    /// Runs what waits, and what that posts, until nothing is left. For batch mode and for
    /// processing idle events on request. Returns at once when a task is already running.
    void Drain();
    /// While held (see IdleHold) nothing runs; it catches up afterwards.
    void Hold();
    void Release();
    /// Forgets what waits; nothing posted later runs either. For the end of the process.
    void Close();

private:
    void Schedule();
    void RunNext();
    bool TakeNext(Task& task);

    mutable QMutex m_mutex;
    QVector<std::pair<IdlePriority, Task>> m_tasks;
    QTimer m_timer;
    int m_holds = 0;
    bool m_running = false;
    bool m_closed = false;
};

} // namespace host
