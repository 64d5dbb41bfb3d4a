#include "engine/Engine.h"
#include "python/ApiFunctions.h"
#include "python/PythonCallable.h"
#include "python/PythonCommands.h"
#include "python/PythonErrors.h"
#include "python/PythonValue.h"

#include <QTimer>

#include <map>

// What the package's _messages.py needs: events, output, calls and timers.

namespace host::python {

namespace {

bool RequireApiThread()
{
    return RequireMainThread("This function of the API");
}

PyObject* EventNames(PyObject*, PyObject*)
{
    return FromValue(Events::Names());
}

/// (event, function): the handler's id; ValueError for an event that does not exist.
PyObject* AddEventHandler(PyObject*, PyObject* arguments)
{
    PyObject* event = nullptr;
    PyObject* function = nullptr;
    if (!PyArg_ParseTuple(arguments, "UO", &event, &function) || !RequireApiThread())
        return nullptr;
    const Script script{Language::Python, {}, std::make_shared<PythonCallable>(function)};
    const int id = Engine::Current().events.Add(ToText(event), [script] { script.Run(); });
    if (id == 0)
        return PyErr_Format(PyExc_ValueError, "There is no event named '%U'", event);
    return PyLong_FromLong(id);
}

PyObject* RemoveEventHandler(PyObject*, PyObject* id)
{
    const long number = PyLong_AsLong(id);
    if ((number == -1 && PyErr_Occurred()) || !RequireApiThread())
        return nullptr;
    return PyBool_FromLong(Engine::Current().events.Remove(static_cast<int>(number)));
}

/// The listeners by id. They go here rather than in OutputStream::Remove, which holds a lock that
/// the thread with the interpreter lock may want.
QHash<int, std::shared_ptr<PythonCallable>> outputListeners;

/// Calls the function with a message, on the thread that prints.
void TellListener(const std::shared_ptr<PythonCallable>& function, const Message& message)
{
    // The message about a listener that fails would come back to it.
    static thread_local bool reporting = false;
    if (reporting || !InterpreterIsRunning())
        return;
    const InterpreterLock lock;
    // What was raised before the message was written belongs to somebody else.
    PyObject *type, *value, *traceback;
    PyErr_Fetch(&type, &value, &traceback);
    const Reference result
        = Reference::Take(function->Invoke({message.text, static_cast<int>(message.type)}));
    if (!result) {
        reporting = true;
        ReportRaisedError();
        reporting = false;
    }
    PyErr_Restore(type, value, traceback);
}

PyObject* AddOutputListener(PyObject*, PyObject* function)
{
    const auto callable = std::make_shared<PythonCallable>(function);
    const int id = Engine::Current().output.AddListener(
        [callable](const Message& message) { TellListener(callable, message); });
    outputListeners.insert(id, callable);
    return PyLong_FromLong(id);
}

PyObject* RemoveOutputListener(PyObject*, PyObject* id)
{
    const long number = PyLong_AsLong(id);
    if (number == -1 && PyErr_Occurred())
        return nullptr;
    const std::shared_ptr<PythonCallable> removed = outputListeners.take(static_cast<int>(number));
    if (removed)
        Engine::Current().output.Remove(static_cast<int>(number));
    return PyBool_FromLong(removed != nullptr);
}

/// Runs a callback of the API with whatever the host tells it.
std::shared_ptr<PythonCallable> Callback(PyObject* function)
{
    return std::make_shared<PythonCallable>(function);
}

PyObject* AddCommandListener(PyObject*, PyObject* function)
{
    if (!RequireApiThread())
        return nullptr;
    const auto call = Callback(function);
    return PyLong_FromLong(Engine::Current().callListeners.AddForCommands(
        [call](const QString& text) { call->Call({text}); }));
}

/// The function gets name, number, whether the call begins, and 0 for a procedure or 1 for a
/// command.
PyObject* AddCallListener(PyObject*, PyObject* function)
{
    if (!RequireApiThread())
        return nullptr;
    const auto call = Callback(function);
    return PyLong_FromLong(
        Engine::Current().callListeners.AddForCalls([call](const CallNotice& notice) {
            call->Call({notice.name, static_cast<int>(notice.number), notice.begins,
                static_cast<int>(notice.kind)});
        }));
}

PyObject* RemoveCallListener(PyObject*, PyObject* id)
{
    const long number = PyLong_AsLong(id);
    if ((number == -1 && PyErr_Occurred()) || !RequireApiThread())
        return nullptr;
    return PyBool_FromLong(Engine::Current().callListeners.Remove(static_cast<int>(number)));
}

/// The timers by id; they end with the interpreter.
std::map<int, std::unique_ptr<QTimer>> timers;

/// (seconds, function): the timer's id.
PyObject* AddTimer(PyObject*, PyObject* arguments)
{
    double seconds = 0;
    PyObject* function = nullptr;
    if (!PyArg_ParseTuple(arguments, "dO", &seconds, &function) || !RequireApiThread())
        return nullptr;
    static int lastId = 0;
    const int id = ++lastId;
    auto timer = std::make_unique<QTimer>();
    const auto call = Callback(function);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), [call] { call->Call({}); });
    timer->start(qRound(seconds * 1000));
    timers.emplace(id, std::move(timer));
    return PyLong_FromLong(id);
}

PyObject* RemoveTimer(PyObject*, PyObject* id)
{
    const long number = PyLong_AsLong(id);
    if ((number == -1 && PyErr_Occurred()) || !RequireApiThread())
        return nullptr;
    const auto found = timers.find(static_cast<int>(number));
    if (found == timers.end())
        Py_RETURN_FALSE;
    // It may be the one that is ringing.
    found->second->stop();
    found->second.release()->deleteLater();
    timers.erase(found);
    Py_RETURN_TRUE;
}

// clang-format off
PyMethodDef METHODS[] = {
    {"eventNames",           EventNames,           METH_NOARGS,  nullptr},
    {"addEventHandler",      AddEventHandler,      METH_VARARGS, nullptr},
    {"removeEventHandler",   RemoveEventHandler,   METH_O,       nullptr},
    {"addOutputListener",    AddOutputListener,    METH_O,       nullptr},
    {"removeOutputListener", RemoveOutputListener, METH_O,       nullptr},
    {"addCommandListener",   AddCommandListener,   METH_O,       nullptr},
    {"addCallListener",      AddCallListener,      METH_O,       nullptr},
    {"removeCallListener",   RemoveCallListener,   METH_O,       nullptr},
    {"addTimer",             AddTimer,             METH_VARARGS, nullptr},
    {"removeTimer",          RemoveTimer,          METH_O,       nullptr},
    {nullptr,                nullptr,              0,            nullptr},
};
// clang-format on

} // namespace

void ReleaseTimers()
{
    timers.clear();
}

bool AddCallbackFunctions(PyObject* module)
{
    return PyModule_AddFunctions(module, METHODS) == 0;
}

} // namespace host::python
