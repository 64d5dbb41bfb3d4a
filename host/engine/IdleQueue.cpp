#include "engine/IdleQueue.h"

#include <algorithm>

namespace host {

IdleQueue::IdleQueue(QObject* parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &IdleQueue::RunNext);
}

void IdleQueue::Post(Task task, IdlePriority priority)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_closed)
            return;
        const auto later = std::find_if(m_tasks.begin(), m_tasks.end(),
            [&](const auto& waiting) { return waiting.first > priority; });
        m_tasks.insert(later, {priority, std::move(task)});
    }
    Schedule();
}

void IdleQueue::PostNext(Task task)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_closed)
            return;
        m_tasks.prepend({IdlePriority::High, std::move(task)});
    }
    Schedule();
}

void IdleQueue::Schedule()
{
    // A timer can only be started on its own thread.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_holds == 0 && !m_timer.isActive())
                m_timer.start();
        },
        Qt::AutoConnection);
}

int IdleQueue::Count() const
{
    const QMutexLocker lock(&m_mutex);
    return m_tasks.size();
}

bool IdleQueue::TakeNext(Task& task)
{
    const QMutexLocker lock(&m_mutex);
    if (m_tasks.isEmpty())
        return false;
    task = m_tasks.takeFirst().second;
    return true;
}

void IdleQueue::RunNext()
{
    if (m_holds > 0 || m_running)
        return;
    Task task;
    if (TakeNext(task)) {
        m_running = true;
        task();
        m_running = false;
    }
    if (Count() > 0)
        Schedule();
}

void IdleQueue::Drain()
{
    if (m_running)
        return;
    m_running = true;
    Task task;
    while (TakeNext(task))
        task();
    m_running = false;
}

void IdleQueue::Hold()
{
    ++m_holds;
}

void IdleQueue::Release()
{
    if (--m_holds == 0 && Count() > 0)
        Schedule();
}

void IdleQueue::Close()
{
    const QMutexLocker lock(&m_mutex);
    m_closed = true;
    m_tasks.clear();
}

} // namespace host
