#include "python/ApiFunctions.h"

#include "engine/Engine.h"
#include "python/Execution.h"
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

PyObject* UndoState(PyObject*, PyObject*)
{
    const UndoQueue& queue = Engine::Current().undoQueue;
    return Py_BuildValue(
        "(NN)", PyBool_FromLong(queue.IsUndoing()), PyBool_FromLong(queue.IsRedoing()));
}

// clang-format off
PyMethodDef METHODS[] = {
    {"execute",              Execute,              METH_VARARGS, nullptr},
    {"executeOnIdle",        ExecuteOnIdle,        METH_VARARGS, nullptr},
    {"optionVar",            OptionVar,            METH_O,       nullptr},
    {"setOptionVar",         SetOptionVar,         METH_VARARGS, nullptr},
    {"undoState",            UndoState,            METH_NOARGS,  nullptr},
    {nullptr,                nullptr,              0,            nullptr},
};
// clang-format on

} // namespace

bool AddApiFunctions(PyObject* module)
{
    return PyModule_AddFunctions(module, METHODS) == 0 && AddCallbackFunctions(module)
        && AddWidgetFunctions(module);
}

} // namespace host::python
