#include "python/MainThreadCalls.h"

#include "engine/Engine.h"
#include "python/Execution.h"
#include "python/PythonCommands.h"
#include "python/PythonErrors.h"
#include "python/PythonOutput.h"
#include "python/PythonSource.h"
#include "python/PythonValue.h"

#include <condition_variable>
#include <mutex>
#include <vector>

namespace host::python {

namespace {

/// One call for the main thread. Whoever drops it last may be any thread, even after the
/// interpreter is gone.
class MainThreadCall
{
public:
    /// The interpreter lock is held. `arguments` begins with the function or text.
    MainThreadCall(PyObject* arguments, PyObject* keywords)
        : m_function(Reference::Share(PyTuple_GET_ITEM(arguments, 0)))
        , m_arguments(Reference::Take(PyTuple_GetSlice(arguments, 1, PyTuple_GET_SIZE(arguments))))
        , m_keywords(Reference::Share(keywords))
        , m_interpreter(InterpreterNumber())
    { }
    ~MainThreadCall()
    {
        if (!IsAlive()) {
            // What outlives the interpreter was taken down with it.
            for (Reference* reference : {&m_function, &m_arguments, &m_keywords, &m_result,
                     &m_error.type, &m_error.value, &m_error.traceback})
                reference->Release();
            return;
        }
        const InterpreterLock lock;
        m_function = m_arguments = m_keywords = m_result = {};
        m_error = {};
    }
    MainThreadCall(const MainThreadCall&) = delete;
    MainThreadCall& operator=(const MainThreadCall&) = delete;

    bool IsAlive() const { return m_interpreter != 0 && m_interpreter == InterpreterNumber(); }
    /// New reference, or null with the exception set. Main thread.
    PyObject* Call()
    {
        if (PyUnicode_Check(m_function.Get()))
            return EvaluateText(ToText(m_function.Get()));
        return PyObject_Call(m_function.Get(), m_arguments.Get(), m_keywords.Get());
    }
    void CallForWaiter()
    {
        m_result = Reference::Take(Call());
        if (!m_result)
            m_error = RaisedError::Fetch();
        Finish();
    }
    void Finish()
    {
        const std::lock_guard lock(m_mutex);
        m_finished = true;
        m_changed.notify_all();
    }
    /// Without the interpreter lock.
    void Wait()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_finished; });
    }
    /// After Wait.
    PyObject* TakeResult()
    {
        if (m_result)
            return m_result.Release();
        if (m_error.type)
            std::move(m_error).Raise();
        else
            PyErr_SetString(PyExc_RuntimeError, "The host is closing: the call was not made.");
        return nullptr;
    }

private:
    Reference m_function;
    Reference m_arguments;
    Reference m_keywords;
    Reference m_result;
    RaisedError m_error;
    const int m_interpreter; ///< the one that all of them belong to
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_finished = false;
};

using CallPointer = std::shared_ptr<MainThreadCall>;

/// The calls that threads wait for.
class WaitingCalls
{
public:
    /// False when the host is closing.
    bool Add(const CallPointer& call)
    {
        const std::lock_guard lock(m_mutex);
        if (m_open)
            m_calls.push_back(call);
        return m_open;
    }
    void Remove(const CallPointer& call)
    {
        const std::lock_guard lock(m_mutex);
        m_calls.erase(std::remove(m_calls.begin(), m_calls.end(), call), m_calls.end());
    }
    void Open()
    {
        const std::lock_guard lock(m_mutex);
        m_open = true;
    }
    void Close()
    {
        const std::lock_guard lock(m_mutex);
        m_open = false;
        for (const CallPointer& call : m_calls)
            call->Finish();
    }

private:
    std::mutex m_mutex;
    std::vector<CallPointer> m_calls;
    bool m_open = false;
};

WaitingCalls& Waiting()
{
    // Never destroyed: a thread may still wait while the process ends.
    static WaitingCalls* const waiting = new WaitingCalls;
    return *waiting;
}

bool CheckArguments(PyObject* arguments, const char* name)
{
    PyObject* first = PyTuple_GET_SIZE(arguments) > 0 ? PyTuple_GET_ITEM(arguments, 0) : nullptr;
    if (first && (PyUnicode_Check(first) || PyCallable_Check(first)))
        return true;
    PyErr_Format(PyExc_TypeError, "%s() needs a function or a text as its first argument", name);
    return false;
}

/// Posts without the interpreter lock: the queue may be dropping a call just now, which needs it.
void PostTask(IdleQueue::Task task, IdlePriority priority)
{
    const InterpreterUnlock unlock;
    Engine::Current().idle.Post(std::move(task), priority);
}

void RunDeferred(const CallPointer& call)
{
    if (!call->IsAlive())
        return;
    const ScriptScope scope(Language::Python);
    const Execution execution;
    const Reference result = Reference::Take(call->Call());
    if (!result)
        execution.Report();
}

void RunForWaiter(const CallPointer& call)
{
    if (!call->IsAlive())
        return;
    const ScriptScope scope(Language::Python);
    const Execution execution;
    call->CallForWaiter();
}

PyObject* WaitForResult(const CallPointer& call)
{
    if (!Waiting().Add(call))
        return call->TakeResult();
    PostTask([call] { RunForWaiter(call); }, IdlePriority::High);
    {
        const InterpreterUnlock unlock;
        call->Wait();
    }
    Waiting().Remove(call);
    return call->TakeResult();
}

} // namespace

PyObject* ExecuteDeferred(PyObject*, PyObject* arguments, PyObject* keywords)
{
    if (!CheckArguments(arguments, "executeDeferred"))
        return nullptr;
    const auto call = std::make_shared<MainThreadCall>(arguments, keywords);
    PostTask([call] { RunDeferred(call); }, IdlePriority::Low);
    Py_RETURN_NONE;
}

PyObject* ExecuteInMainThread(PyObject*, PyObject* arguments, PyObject* keywords)
{
    if (!CheckArguments(arguments, "executeInMainThreadWithResult"))
        return nullptr;
    const auto call = std::make_shared<MainThreadCall>(arguments, keywords);
    return IsMainThread() ? call->Call() : WaitForResult(call);
}

PyObject* ProcessIdleEvents(PyObject*, PyObject*)
{
    if (!RequireMainThread("maya.utils.processIdleEvents()"))
        return nullptr;
    {
        const HostWork work;
        Engine::Current().idle.Drain();
    }
    if (RaiseStopRequest())
        return nullptr;
    Py_RETURN_NONE;
}

void OpenMainThreadCalls()
{
    Waiting().Open();
}

void CloseMainThreadCalls()
{
    Waiting().Close();
}

} // namespace host::python
