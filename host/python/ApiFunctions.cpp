#include "python/ApiFunctions.h"

#include "engine/Engine.h"
#include "python/Execution.h"
#include "python/PythonCallable.h"
#include "python/PythonCommands.h"
#include "python/PythonErrors.h"
#include "python/PythonValue.h"

namespace host::python {

namespace {

Language LanguageOf(int isPython)
{
    return isPython ? Language::Python : Language::Mel;
}

bool RequireApiThread()
{
    return RequireMainThread("This function of the API");
}

bool RequireLanguage(Language language)
{
    const Engine& engine = Engine::Current();
    if (language == Language::Mel ? engine.mel : engine.python)
        return true;
    PyErr_SetString(PyExc_RuntimeError, "MEL is not available");
    return false;
}

/// (isPython, text, display): the value of the text; RuntimeError once its error has been shown.
PyObject* Execute(PyObject*, PyObject* arguments)
{
    int isPython = 0;
    PyObject* text = nullptr;
    int display = 0;
    if (!PyArg_ParseTuple(arguments, "pUp", &isPython, &text, &display) || !RequireApiThread()
        || !RequireLanguage(LanguageOf(isPython)))
        return nullptr;
    ScriptResult result;
    {
        const HostWork work;
        result = Engine::Current().Execute(LanguageOf(isPython), ToText(text), display != 0);
    }
    if (RaiseStopRequest())
        return nullptr;
    if (!result.failed)
        return FromValue(result.value);
    RaiseError({result.errorText, ErrorKind::Runtime, true});
    return nullptr;
}

/// (isPython, text, display), from any thread.
PyObject* ExecuteOnIdle(PyObject*, PyObject* arguments)
{
    int isPython = 0;
    PyObject* text = nullptr;
    int display = 0;
    if (!PyArg_ParseTuple(arguments, "pUp", &isPython, &text, &display))
        return nullptr;
    if (Engine::Exists()) {
        const QString script = ToText(text);
        const InterpreterUnlock unlock;
        Engine::Current().ExecuteOnIdle(LanguageOf(isPython), script, display != 0);
    }
    Py_RETURN_NONE;
}

PyObject* OptionVar(PyObject*, PyObject* name)
{
    if (!RequireApiThread())
        return nullptr;
    return FromValue(Engine::Current().optionVars.Get(Describe(name)));
}

/// (name, value): None removes it.
PyObject* SetOptionVar(PyObject*, PyObject* arguments)
{
    PyObject* name = nullptr;
    PyObject* object = nullptr;
    if (!PyArg_ParseTuple(arguments, "UO", &name, &object) || !RequireApiThread())
        return nullptr;
    OptionVars& variables = Engine::Current().optionVars;
    if (object == Py_None)
        return PyBool_FromLong(variables.Remove(ToText(name)));
    const Value value = ToValue(object).Normalized();
    if (value.IsNone()) {
        return PyErr_Format(
            PyExc_TypeError, "An option variable cannot hold %.200s", Py_TYPE(object)->tp_name);
    }
    variables.Set(ToText(name), value);
    Py_RETURN_TRUE;
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

void* FindElement(const QString& kind, const QString& name)
{
    const UserInterface* ui = Engine::Current().ui;
    if (!ui)
        return nullptr;
    if (kind == QLatin1String("control"))
        return ui->FindControl(name, nullptr);
    if (kind == QLatin1String("layout"))
        return ui->FindLayout(name, nullptr);
    if (kind == QLatin1String("window"))
        return ui->FindWindow(name);
    if (kind == QLatin1String("menuItem"))
        return ui->FindMenuItem(name);
    if (kind == QLatin1String("mainWindow"))
        return ui->MainWindow();
    return ui->CurrentParent();
}

/// (kind, name): address of a widget or action; None when there is none.
PyObject* FindWidget(PyObject*, PyObject* arguments)
{
    PyObject* kind = nullptr;
    PyObject* name = nullptr;
    if (!PyArg_ParseTuple(arguments, "UU", &kind, &name) || !RequireApiThread())
        return nullptr;
    void* element = FindElement(ToText(kind), ToText(name));
    return element ? PyLong_FromVoidPtr(element) : Py_NewRef(Py_None);
}

/// Path of the element at an address, which must be one of a living object.
PyObject* FullName(PyObject*, PyObject* address)
{
    const void* object = PyLong_AsVoidPtr(address);
    if (PyErr_Occurred() || !RequireApiThread())
        return nullptr;
    const UserInterface* ui = Engine::Current().ui;
    // A widget's address is that of its QObject, which comes first.
    return FromText(ui && object ? ui->FullName(static_cast<const QObject*>(object)) : QString());
}

// clang-format off
PyMethodDef METHODS[] = {
    {"execute",              Execute,              METH_VARARGS, nullptr},
    {"executeOnIdle",        ExecuteOnIdle,        METH_VARARGS, nullptr},
    {"optionVar",            OptionVar,            METH_O,       nullptr},
    {"setOptionVar",         SetOptionVar,         METH_VARARGS, nullptr},
    {"eventNames",           EventNames,           METH_NOARGS,  nullptr},
    {"addEventHandler",      AddEventHandler,      METH_VARARGS, nullptr},
    {"removeEventHandler",   RemoveEventHandler,   METH_O,       nullptr},
    {"addOutputListener",    AddOutputListener,    METH_O,       nullptr},
    {"removeOutputListener", RemoveOutputListener, METH_O,       nullptr},
    {"findWidget",           FindWidget,           METH_VARARGS, nullptr},
    {"fullName",             FullName,             METH_O,       nullptr},
    {nullptr,                nullptr,              0,            nullptr},
};
// clang-format on

} // namespace

bool AddApiFunctions(PyObject* module)
{
    return PyModule_AddFunctions(module, METHODS) == 0;
}

} // namespace host::python
