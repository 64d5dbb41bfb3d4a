#include "python/HostModule.h"

#include "engine/Engine.h"
#include "python/ApiFunctions.h"
#include "python/Execution.h"
#include "python/MainThreadCalls.h"
#include "python/PythonCommands.h"
#include "python/PythonErrors.h"
#include "python/PythonOutput.h"
#include "python/PythonPlugins.h"
#include "python/PythonValue.h"

namespace host::python {

namespace {

/// Runs MEL; on failure `errorText` becomes the message as it was shown, with its place.
ScriptResult RunMel(const QString& text)
{
    const HostWork work;
    Engine& engine = Engine::Current();
    QString lastError;
    const int listener = engine.output.AddListener([&lastError](const Message& message) {
        if (message.type == MessageType::Error && IsMainThread())
            lastError = message.text;
    });
    ScriptResult result = engine.Execute(Language::Mel, text, false);
    engine.output.Remove(listener);
    if (result.failed && lastError.endsWith(result.errorText))
        result.errorText = lastError;
    return result;
}

/// maya.mel.eval: the value of the text's last statement.
PyObject* EvaluateMel(PyObject*, PyObject* text)
{
    if (!PyUnicode_Check(text)) {
        return PyErr_Format(
            PyExc_TypeError, "eval() argument must be str, not %.200s", Py_TYPE(text)->tp_name);
    }
    if (!RequireMainThread("maya.mel.eval()"))
        return nullptr;
    if (!Engine::Current().mel)
        return PyErr_Format(PyExc_RuntimeError, "MEL is not available");
    if (Py_EnterRecursiveCall(" while evaluating MEL") != 0)
        return nullptr;
    const ScriptResult result = RunMel(ToText(text));
    Py_LeaveRecursiveCall();
    if (RaiseStopRequest())
        return nullptr;
    if (!result.failed)
        return FromValue(result.value);
    RaiseError(
        {QLatin1String("Error occurred during execution of MEL script\n") + result.errorText});
    return nullptr;
}

/// (type, text): a message of that MessageType.
PyObject* Show(PyObject*, PyObject* arguments)
{
    int type = 0;
    PyObject* text = nullptr;
    if (!PyArg_ParseTuple(arguments, "iU", &type, &text))
        return nullptr;
    WriteMessage(static_cast<MessageType>(type), ToText(text));
    Py_RETURN_NONE;
}

/// (type, value, traceback): shows an exception that nobody caught.
PyObject* ShowException(PyObject*, PyObject* arguments)
{
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    if (!PyArg_ParseTuple(arguments, "OOO", &type, &value, &traceback))
        return nullptr;
    ReportError({Reference::Share(type), Reference::Share(value), Reference::Share(traceback)});
    Py_RETURN_NONE;
}

PyObject* IsBatch(PyObject*, PyObject*)
{
    return PyBool_FromLong(!Engine::Exists() || Engine::Current().IsBatch());
}

// clang-format off
PyMethodDef METHODS[] = {
    {"findCommand",         FindCommand,                   METH_O,       nullptr},
    {"commandNames",        CommandNames,                  METH_NOARGS,  nullptr},
    {"evaluateMel",         EvaluateMel,                   METH_O,       nullptr},
    {"executeDeferred",     AsMethod(ExecuteDeferred),     METH_VARARGS | METH_KEYWORDS, nullptr},
    {"executeInMainThread", AsMethod(ExecuteInMainThread), METH_VARARGS | METH_KEYWORDS, nullptr},
    {"processIdleEvents",   ProcessIdleEvents,             METH_NOARGS,  nullptr},
    {"show",                Show,                          METH_VARARGS, nullptr},
    {"showException",       ShowException,                 METH_VARARGS, nullptr},
    {"isBatch",             IsBatch,                       METH_NOARGS,  nullptr},
    {nullptr,               nullptr,                       0,            nullptr},
};

const std::pair<const char*, MessageType> MESSAGE_TYPES[] = {
    {"INFO",    MessageType::Info},
    {"WARNING", MessageType::Warning},
    {"ERROR",   MessageType::Error},
};
// clang-format on

PyModuleDef definition{PyModuleDef_HEAD_INIT, HOST_MODULE_NAME,
    "What the host itself offers to the maya package.", -1, METHODS, nullptr, nullptr, nullptr,
    nullptr};

} // namespace

PyObject* MakeHostModule()
{
    Reference module = Reference::Take(PyModule_Create(&definition));
    if (!module)
        return nullptr;
    if (!AddApiFunctions(module.Get()) || !AddPluginFunctions(module.Get()))
        return nullptr;
    for (const auto& [name, type] : MESSAGE_TYPES) {
        if (PyModule_AddIntConstant(module.Get(), name, static_cast<int>(type)) != 0)
            return nullptr;
    }
    PyModule_AddIntConstant(module.Get(), "API_VERSION", API_VERSION);
    PyModule_AddStringConstant(module.Get(), "RELEASE", RELEASE);
    return module.Release();
}

} // namespace host::python
