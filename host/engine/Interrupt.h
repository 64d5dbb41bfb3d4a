#pragma once

#include <QElapsedTimer>

#include <atomic>
#include <functional>

namespace host {

/// How a person stops a script that runs too long. Interpreters poll it from the main thread; the
/// window looks for the Escape key in the hook. Request may come from any thread.
class Interrupt
{
public:
    /// Called at most every POLL_INTERVAL_MS while a script runs, once it has run that long.
    std::function<void()> hook;
    /// Asked first when a person wants the script to stop: true when it was only told to hurry up
    /// and goes on. Set by progress bars while they run.
    std::function<bool()> cancel;

    static constexpr int POLL_INTERVAL_MS = 100;

    void Request() { m_requested = true; }
    bool IsRequested() const { return m_requested; }
    /// Main thread only; the next script's time starts anew.
    void Clear()
    {
        m_requested = false;
        m_sincePoll.invalidate();
    }
    /// True when the running script has to stop. Cheap enough for every few hundred steps.
    bool Poll();

private:
    std::atomic<bool> m_requested{false};
    QElapsedTimer m_sincePoll;
    bool m_polling = false;
};

} // namespace host
