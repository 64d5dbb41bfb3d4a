#pragma once

#include "python/PythonApi.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <pthread.h>
#include <thread>

namespace host::python {

/// Lets a person stop Python code that runs on the main thread: about every POLL_INTERVAL_MS a
/// small thread has the main thread ask the engine's Interrupt, and a stop request raises
/// KeyboardInterrupt there. Code that waits in a system call or for a lock is woken by a signal
/// that nothing else uses. Made and destroyed on the main thread.
class StopWatcher
{
public:
    StopWatcher();
    ~StopWatcher();
    StopWatcher(const StopWatcher&) = delete;
    StopWatcher& operator=(const StopWatcher&) = delete;

    /// Has the interpreter call us when a signal ended a wait. False, with the exception set, when
    /// that fails.
    bool InstallSignalHandler();
    /// Watches no more. A call that the interpreter has still to make comes here all the same: the
    /// object has to outlive it.
    void End();

    /// Python code runs on the main thread while it lives. May be nested.
    class Watch
    {
    public:
        explicit Watch(StopWatcher& watcher);
        ~Watch();
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;

    private:
        StopWatcher& m_watcher;
        int m_outerPauses; ///< set aside: the Python code within is watched again
    };

    /// Within a Watch: the host's own code is at work, and minds stop requests itself.
    class Pause
    {
    public:
        explicit Pause(StopWatcher& watcher);
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        StopWatcher& m_watcher;
    };

private:
    static int OnPendingCall(void* watcher);
    static PyObject* OnSignal(PyObject* capsule, PyObject* arguments);
    int Poll();
    bool IsCleaningUp() const;
    void Run();
    void Tick();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_ending = false; ///< guarded by m_mutex
    bool m_asleep = true; ///< guarded by m_mutex
    std::atomic<int> m_watches{0};
    std::atomic<int> m_pauses{0};
    /// When the last stop request was raised: cleaning up after it gets some time.
    std::optional<std::chrono::steady_clock::time_point> m_raised; ///< main thread only
    std::atomic<bool> m_queued{false}; ///< a pending call waits for the main thread
    int m_missedTicks = 0; ///< of the thread
    const pthread_t m_mainThread;
    std::thread m_thread;
};

} // namespace host::python
