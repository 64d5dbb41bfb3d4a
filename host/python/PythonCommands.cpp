#include "python/PythonCommands.h"

#include "engine/Engine.h"
#include "python/Execution.h"
#include "python/PythonArguments.h"
#include "python/PythonErrors.h"
#include "python/PythonOutput.h"
#include "python/PythonValue.h"

#include <algorithm>
#include <exception>
#include <iterator>

namespace host::python {

namespace {

/// The function that maya.cmds gives for a name. It holds the name alone: the command may come and
/// go with its plug-in.
struct CommandFunction
{
    PyObject_HEAD PyObject* name;
};

PyObject* functionType = nullptr;
PyObject* functions = nullptr; ///< dict: name to function

/// Commands that answer None rather than [] when they find nothing. Queries always do.
const char* const NONE_FOR_NOTHING[] = {
    "listAnimatable",
    "listAttr",
    "listConnections",
    "listHistory",
    "listRelatives",
    "lsUI",
};

/// Null when Python has no such command. Any thread.
std::shared_ptr<const Command> LookUp(const QString& name)
{
    if (!Engine::Exists())
        return nullptr;
    const std::shared_ptr<const Command> command
        = Engine::Current().commands.FindCommandFromAnyThread(name);
    return command && command->inPython ? command : nullptr;
}

bool GivesNoneForNothing(const Call& call)
{
    const QString name = call.GetCommand().GetName();
    return call.IsQuery()
        || std::any_of(std::begin(NONE_FOR_NOTHING), std::end(NONE_FOR_NOTHING),
            [&](const char* command) { return name == QLatin1String(command); });
}

PyObject* ResultObject(const Value& value, bool noneForNothing)
{
    if (value.IsArray() && value.Count() == 0 && noneForNothing)
        Py_RETURN_NONE;
    return FromValue(value);
}

Outcome RunCommand(ReadCall read)
{
    const HostWork work;
    try {
        return CommandRegistry::Run(std::move(read));
    } catch (const std::exception& exception) {
        return Error{QString::fromLocal8Bit(exception.what())};
    }
}

PyObject* CallCommand(const Command& command, PyObject* arguments, PyObject* keywords)
{
    QVector<Word> positional;
    QVector<Keyword> flags;
    if (!ReadPositional(command, arguments, positional)
        || !ReadKeywordArguments(command, keywords, flags))
        return nullptr;
    ReadCall read = ReadKeywords(command, positional, flags);
    const bool noneForNothing = GivesNoneForNothing(read.call);
    const Outcome outcome = RunCommand(std::move(read));
    if (RaiseStopRequest())
        return nullptr;
    if (outcome.Ok())
        return ResultObject(outcome.GetValue(), noneForNothing);
    RaiseError(outcome.GetError());
    return nullptr;
}

PyObject* CallFunction(PyObject* self, PyObject* arguments, PyObject* keywords)
{
    const QString name = ToText(reinterpret_cast<CommandFunction*>(self)->name);
    if (!RequireMainThread("maya.cmds"))
        return nullptr;
    const std::shared_ptr<const Command> command = LookUp(name);
    if (!command) {
        RaiseError({QStringLiteral("Cannot find procedure \"%1\".").arg(name)});
        return nullptr;
    }
    if (Py_EnterRecursiveCall(" while calling a command") != 0)
        return nullptr;
    PyObject* result = CallCommand(*command, arguments, keywords);
    Py_LeaveRecursiveCall();
    return result;
}

PyObject* FunctionRepresentation(PyObject* self)
{
    return PyUnicode_FromFormat(
        "<built-in function %U>", reinterpret_cast<CommandFunction*>(self)->name);
}

PyObject* FunctionName(PyObject* self, void*)
{
    PyObject* name = reinterpret_cast<CommandFunction*>(self)->name;
    Py_INCREF(name);
    return name;
}

PyObject* FunctionModule(PyObject*, void*)
{
    return PyUnicode_FromString("maya.cmds");
}

PyObject* FunctionDocument(PyObject* self, void*)
{
    return PyUnicode_FromFormat(
        "Runs the host's command %U: objects as positional arguments, flags "
        "as keywords. See cmds.help('%U').",
        reinterpret_cast<CommandFunction*>(self)->name,
        reinterpret_cast<CommandFunction*>(self)->name);
}

void DeallocateFunction(PyObject* self)
{
    PyTypeObject* type = Py_TYPE(self);
    Py_CLEAR(reinterpret_cast<CommandFunction*>(self)->name);
    type->tp_free(self);
    Py_DECREF(type);
}

PyGetSetDef FUNCTION_ATTRIBUTES[] = {
    {"__name__", FunctionName, nullptr, nullptr, nullptr},
    {"__qualname__", FunctionName, nullptr, nullptr, nullptr},
    {"__module__", FunctionModule, nullptr, nullptr, nullptr},
    {"__doc__", FunctionDocument, nullptr, nullptr, nullptr},
    {nullptr, nullptr, nullptr, nullptr, nullptr},
};

PyObject* MakeFunction(PyObject* name)
{
    auto* type = reinterpret_cast<PyTypeObject*>(functionType);
    const Reference function = Reference::Take(type->tp_alloc(type, 0));
    if (!function)
        return nullptr;
    Py_INCREF(name);
    reinterpret_cast<CommandFunction*>(function.Get())->name = name;
    if (PyDict_SetItem(functions, name, function.Get()) != 0)
        return nullptr;
    return Reference(function).Release();
}

} // namespace

bool InitializeCommands()
{
    PyType_Slot slots[] = {
        {Py_tp_dealloc, reinterpret_cast<void*>(DeallocateFunction)},
        {Py_tp_call, reinterpret_cast<void*>(CallFunction)},
        {Py_tp_repr, reinterpret_cast<void*>(FunctionRepresentation)},
        {Py_tp_getset, FUNCTION_ATTRIBUTES},
        {0, nullptr},
    };
    PyType_Spec spec{"_maya_host.Command", sizeof(CommandFunction), 0,
        Py_TPFLAGS_DEFAULT | Py_TPFLAGS_DISALLOW_INSTANTIATION, slots};
    functionType = PyType_FromSpec(&spec);
    functions = PyDict_New();
    return functionType && functions;
}

void ReleaseCommands()
{
    Py_CLEAR(functions);
    Py_CLEAR(functionType);
}

bool RequireMainThread(const char* what)
{
    if (IsMainThread() && Engine::Exists())
        return true;
    PyErr_Format(PyExc_RuntimeError,
        "%s can only be called from the main thread. "
        "Use maya.utils.executeInMainThreadWithResult() or executeDeferred().",
        what);
    return false;
}

PyObject* FindCommand(PyObject* module, PyObject* name)
{
    if (!PyUnicode_Check(name))
        return PyErr_Format(PyExc_TypeError, "attribute name must be string");
    // "from maya.cmds import *" asks for it.
    if (PyUnicode_CompareWithASCIIString(name, "__all__") == 0)
        return CommandNames(module, nullptr);
    if (!functions || !LookUp(ToText(name)))
        return PyErr_Format(PyExc_AttributeError, "module 'maya.cmds' has no attribute '%U'", name);
    PyObject* known = PyDict_GetItemWithError(functions, name);
    if (!known)
        return PyErr_Occurred() ? nullptr : MakeFunction(name);
    Py_INCREF(known);
    return known;
}

PyObject* CommandNames(PyObject*, PyObject*)
{
    StringList names;
    if (Engine::Exists())
        names = Engine::Current().commands.CommandNames();
    names.erase(std::remove_if(
                    names.begin(), names.end(), [](const QString& name) { return !LookUp(name); }),
        names.end());
    return FromValue(names);
}

} // namespace host::python
