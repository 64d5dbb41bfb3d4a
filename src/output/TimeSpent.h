#pragma once

#include <QElapsedTimer>

/// Adds the nanoseconds that it lives to a total, which outlives it.
class TimeSpent
{
public:
    explicit TimeSpent(qint64& total)
        : m_total(total)
    {
        m_timer.start();
    }
    ~TimeSpent() { m_total += m_timer.nsecsElapsed(); }
    TimeSpent(const TimeSpent&) = delete;
    TimeSpent& operator=(const TimeSpent&) = delete;

private:
    qint64& m_total;
    QElapsedTimer m_timer;
};
