#pragma once

#include "engine/Outcome.h"
#include "engine/OutputStream.h"
#include "python/PythonApi.h"
#include "python/StopWatcher.h"

namespace host::python {

/// Python code runs on the main thread while it lives: holds the interpreter lock, marks messages
/// as Python's and watches for stop requests.
class Execution
{
public:
    Execution();
    ~Execution();
    Execution(const Execution&) = delete;
    Execution& operator=(const Execution&) = delete;

    /// False, with an exception set, when too many executions run inside each other; nothing may
    /// be run then.
    bool IsAllowed() const;
    /// Shows the exception that is set. A stop request that ended the script leaves this alone.
    Error Report() const;

private:
    InterpreterLock m_lock;
    LanguageScope m_language;
    StopWatcher::Watch m_watch;
};

/// The opposite: host code that Python called is at work on the main thread. Python threads go on.
class HostWork
{
public:
    HostWork();

private:
    StopWatcher::Pause m_pause;
    InterpreterUnlock m_unlock;
};

/// Raises KeyboardInterrupt when a stop was requested meanwhile; true then. Main thread.
bool RaiseStopRequest();

} // namespace host::python
