#pragma once

#include <QTimer>

namespace host::commands {

/// Lets the time of the scene run through its range, as often as the playback options say. What
/// it changes is no step to undo. Owned by the session; main thread only.
class Player : public QObject
{
    Q_OBJECT
public:
    Player();

    bool IsPlaying() const { return m_timer.isActive(); }
    bool IsForward() const { return m_step > 0; }
    void Start(bool forward);
    void Stop() { m_timer.stop(); }
    /// Once through the range, without waiting for the clock.
    void RunThrough(bool forward);

private:
    void Step();

    QTimer m_timer;
    int m_step = 1;
};

} // namespace host::commands
