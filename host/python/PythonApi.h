#pragma once

// Python.h before any standard header, as its own manual asks.
#define PY_SSIZE_T_CLEAN
#include <Python.h>
#include <cxxabi.h>
#include <utility>

namespace host::python {

/// Owns one reference to a Python object, or none. The interpreter lock is held wherever one is
/// made, copied or dropped.
class Reference
{
public:
    Reference() = default;
    Reference(const Reference& other)
        : m_object(other.m_object)
    {
        Py_XINCREF(m_object);
    }
    Reference(Reference&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    { }
    Reference& operator=(Reference other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~Reference() { Py_XDECREF(m_object); }

    /// Takes over a new reference, as most calls of the interpreter return it; may be null.
    static Reference Take(PyObject* object)
    {
        Reference reference;
        reference.m_object = object;
        return reference;
    }
    /// Shares an object that belongs to somebody else; may be null.
    static Reference Share(PyObject* object)
    {
        Py_XINCREF(object);
        return Take(object);
    }

    PyObject* Get() const { return m_object; }
    /// Gives the reference away, as a function called by the interpreter returns it.
    PyObject* Release() { return std::exchange(m_object, nullptr); }
    explicit operator bool() const { return m_object != nullptr; }

private:
    PyObject* m_object = nullptr;
};

/// Waits until the process ends.
[[noreturn]] void ParkThread();

/// Runs what waits for the interpreter lock. While the interpreter goes down it ends a thread that
/// waits there, by unwinding its stack; objects on that stack would then be dropped without the
/// lock. Such a thread is parked instead. `function` itself must own nothing. (There is no object
/// behind the reference that is caught, which the sanitizer minds.)
template <typename Function>
__attribute__((no_sanitize("undefined"))) auto WithoutUnwinding(Function function)
    -> decltype(function())
{
    try {
        return function();
    } catch (const abi::__forced_unwind&) {
        ParkThread();
    }
}

/// Holds the interpreter lock while it lives. Any thread; may be nested. Only while
/// InterpreterIsRunning.
class InterpreterLock
{
public:
    InterpreterLock()
        : m_state(WithoutUnwinding([] { return PyGILState_Ensure(); }))
    { }
    ~InterpreterLock() { PyGILState_Release(m_state); }
    InterpreterLock(const InterpreterLock&) = delete;
    InterpreterLock& operator=(const InterpreterLock&) = delete;

private:
    PyGILState_STATE m_state;
};

/// Lets other Python threads run while it lives. The thread holds the lock before and after.
class InterpreterUnlock
{
public:
    InterpreterUnlock()
        : m_state(PyEval_SaveThread())
    { }
    ~InterpreterUnlock()
    {
        WithoutUnwinding([this] { PyEval_RestoreThread(m_state); });
    }
    InterpreterUnlock(const InterpreterUnlock&) = delete;
    InterpreterUnlock& operator=(const InterpreterUnlock&) = delete;

private:
    PyThreadState* m_state;
};

/// Number of the running interpreter, counted from 1 within the process; 0 before it is started and
/// as soon as it begins to go down. What belongs to another one must not be touched. Any thread.
int InterpreterNumber();
inline bool InterpreterIsRunning()
{
    return InterpreterNumber() != 0;
}

/// A function with keywords, or without arguments, in the form that tables of methods hold.
template <typename Function>
PyCFunction AsMethod(Function* function)
{
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

} // namespace host::python
