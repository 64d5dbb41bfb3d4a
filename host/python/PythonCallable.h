#pragma once

#include "engine/Script.h"
#include "python/PythonApi.h"

namespace host::python {

/// A Python function (or anything else that can be called) that the host keeps. May be destroyed on
/// any thread, also after the interpreter is gone.
class PythonCallable : public Callable
{
public:
    /// The interpreter lock is held.
    explicit PythonCallable(PyObject* function);
    ~PythonCallable() override;
    PythonCallable(const PythonCallable&) = delete;
    PythonCallable& operator=(const PythonCallable&) = delete;

    Outcome Call(const QVector<Value>& arguments) override;
    QString Description() const override;

    /// New reference to the result, or null with the exception set. Any thread that holds the
    /// interpreter lock.
    PyObject* Invoke(const QVector<Value>& arguments) const;
    /// The same with a tuple of any objects.
    PyObject* InvokeWith(PyObject* arguments) const;

    /// False once the interpreter that the function belongs to is gone.
    bool IsAlive() const;

private:
    PyObject* m_function; ///< a reference of its own
    const int m_interpreter; ///< the one it belongs to
};

} // namespace host::python
