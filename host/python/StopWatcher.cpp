#include "python/StopWatcher.h"

#include "engine/Engine.h"

#include <csignal>

namespace host::python {

namespace {

constexpr std::chrono::milliseconds TICK{Interrupt::POLL_INTERVAL_MS};
/// Ticks that the main thread may miss before it is taken to be waiting in a system call.
constexpr int PATIENCE = 3;
/// Ticks without Python code after which the thread sleeps until it is woken.
constexpr int IDLE_TICKS = 10;
/// How long handlers and "finally" blocks may work before the request is raised once more.
constexpr std::chrono::milliseconds CLEAN_UP_TIME{1000};
/// Ignored unless somebody asks for it, so that a late one does no harm.
constexpr int WAKE_SIGNAL = SIGURG;

constexpr const char* CAPSULE_NAME = "_maya_host.stopWatcher";

PyMethodDef signalHandler{"_onStopSignal", nullptr, METH_VARARGS, nullptr};

} // namespace

StopWatcher::StopWatcher()
    : m_mainThread(pthread_self())
    , m_thread([this] { Run(); })
{ }

StopWatcher::~StopWatcher()
{
    End();
}

void StopWatcher::End()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
        m_changed.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
}

bool StopWatcher::InstallSignalHandler()
{
    const Reference capsule = Reference::Take(PyCapsule_New(this, CAPSULE_NAME, nullptr));
    if (!capsule)
        return false;
    signalHandler.ml_meth = OnSignal;
    const Reference handler = Reference::Take(PyCFunction_New(&signalHandler, capsule.Get()));
    const Reference module = Reference::Take(PyImport_ImportModule("signal"));
    if (!handler || !module)
        return false;
    const Reference previous = Reference::Take(
        PyObject_CallMethod(module.Get(), "signal", "iO", WAKE_SIGNAL, handler.Get()));
    return static_cast<bool>(previous);
}

int StopWatcher::OnPendingCall(void* watcher)
{
    return static_cast<StopWatcher*>(watcher)->Poll();
}

PyObject* StopWatcher::OnSignal(PyObject* capsule, PyObject*)
{
    auto* watcher = static_cast<StopWatcher*>(PyCapsule_GetPointer(capsule, CAPSULE_NAME));
    if (!watcher || watcher->Poll() != 0)
        return nullptr;
    Py_RETURN_NONE;
}

/// Main thread, interpreter lock held; -1 with the exception set when the script has to stop.
int StopWatcher::Poll()
{
    m_queued = false;
    if (m_watches == 0 || m_pauses > 0 || !Engine::Exists() || IsCleaningUp())
        return 0;
    bool stop = false;
    {
        const Pause pause(*this);
        const InterpreterUnlock unlock;
        stop = Engine::Current().interrupt.Poll();
    }
    if (!stop)
        return 0;
    m_raised = std::chrono::steady_clock::now();
    PyErr_SetString(PyExc_KeyboardInterrupt, "Stopped on request.");
    return -1;
}

bool StopWatcher::IsCleaningUp() const
{
    return m_raised && std::chrono::steady_clock::now() - *m_raised < CLEAN_UP_TIME;
}

void StopWatcher::Run()
{
    std::unique_lock lock(m_mutex);
    int idleTicks = 0;
    while (!m_ending) {
        if (idleTicks >= IDLE_TICKS) {
            m_asleep = true;
            m_changed.wait(lock, [this] { return m_ending || !m_asleep; });
        }
        m_asleep = false;
        m_changed.wait_for(lock, TICK, [this] { return m_ending; });
        idleTicks = m_watches > 0 ? 0 : idleTicks + 1;
        if (!m_ending && m_watches > 0 && m_pauses == 0)
            Tick();
    }
}

void StopWatcher::Tick()
{
    if (!m_queued.exchange(true)) {
        m_missedTicks = 0;
        if (Py_AddPendingCall(OnPendingCall, this) != 0)
            m_queued = false;
        return;
    }
    if (++m_missedTicks >= PATIENCE)
        pthread_kill(m_mainThread, WAKE_SIGNAL);
}

StopWatcher::Watch::Watch(StopWatcher& watcher)
    : m_watcher(watcher)
    , m_outerPauses(watcher.m_pauses.exchange(0))
{
    if (m_watcher.m_watches++ > 0)
        return;
    m_watcher.m_raised.reset();
    const std::lock_guard lock(m_watcher.m_mutex);
    if (std::exchange(m_watcher.m_asleep, false))
        m_watcher.m_changed.notify_all();
}

StopWatcher::Watch::~Watch()
{
    --m_watcher.m_watches;
    m_watcher.m_pauses = m_outerPauses;
}

StopWatcher::Pause::Pause(StopWatcher& watcher)
    : m_watcher(watcher)
{
    ++m_watcher.m_pauses;
}

StopWatcher::Pause::~Pause()
{
    --m_watcher.m_pauses;
}

} // namespace host::python
