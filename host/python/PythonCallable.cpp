#include "python/PythonCallable.h"

#include "python/Execution.h"
#include "python/PythonValue.h"

namespace host::python {

namespace {

Reference ArgumentTuple(const QVector<Value>& arguments)
{
    Reference tuple = Reference::Take(PyTuple_New(arguments.size()));
    for (int i = 0; tuple && i < arguments.size(); ++i) {
        PyObject* argument = FromValue(arguments.at(i));
        if (!argument)
            return {};
        PyTuple_SET_ITEM(tuple.Get(), i, argument);
    }
    return tuple;
}

} // namespace

PythonCallable::PythonCallable(PyObject* function)
    : m_function(function)
    , m_interpreter(InterpreterNumber())
{
    Py_INCREF(m_function);
}

PythonCallable::~PythonCallable()
{
    // What outlives the interpreter was taken down with it.
    if (!IsAlive())
        return;
    const InterpreterLock lock;
    Py_DECREF(m_function);
}

bool PythonCallable::IsAlive() const
{
    return m_interpreter != 0 && m_interpreter == InterpreterNumber();
}

PyObject* PythonCallable::Invoke(const QVector<Value>& arguments) const
{
    const Reference tuple = ArgumentTuple(arguments);
    return tuple ? InvokeWith(tuple.Get()) : nullptr;
}

PyObject* PythonCallable::InvokeWith(PyObject* arguments) const
{
    // A control may be deleted, and its callback with it, by the callback itself.
    const Reference function = Reference::Share(m_function);
    return WithoutUnwinding([&] { return PyObject_CallObject(function.Get(), arguments); });
}

Outcome PythonCallable::Call(const QVector<Value>& arguments)
{
    if (!IsAlive())
        return Error{QStringLiteral("Python is not running.")};
    const Execution execution;
    if (!execution.IsAllowed())
        return execution.Report();
    const Reference result = Reference::Take(Invoke(arguments));
    if (!result)
        return execution.Report();
    return ToValue(result.Get());
}

QString PythonCallable::Description() const
{
    if (!IsAlive())
        return {};
    const InterpreterLock lock;
    const QString text = Representation(m_function);
    PyErr_Clear();
    return text;
}

} // namespace host::python
