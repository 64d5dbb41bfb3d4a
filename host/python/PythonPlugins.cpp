#include "python/PythonPlugins.h"

#include "engine/Engine.h"
#include "python/Execution.h"
#include "python/PluginCommands.h"
#include "python/PythonCommands.h"
#include "python/PythonErrors.h"
#include "python/PythonValue.h"

namespace host::python {

namespace {

/// Calls a function of the package's module with the plug-in's path and name. What it returns is
/// what went wrong; null when nothing did.
QString CallModule(const Execution& execution, const char* function, const Plugin& plugin)
{
    const Reference module = Reference::Take(PyImport_ImportModule("maya._plugins"));
    const Reference path = Reference::Take(FromText(plugin.path));
    const Reference name = Reference::Take(FromText(plugin.name));
    Reference result;
    if (module && path && name) {
        result = Reference::Take(WithoutUnwinding([&] {
            return PyObject_CallMethod(module.Get(), function, "OO", path.Get(), name.Get());
        }));
    }
    if (!result)
        return execution.Report().text;
    return PyUnicode_Check(result.Get()) ? ToText(result.Get()) : QString();
}

Plugin* FindPlugin(PyObject* path)
{
    Plugin* plugin = Engine::Current().plugins.Find(ToText(path));
    if (!plugin)
        PyErr_Format(PyExc_RuntimeError, "(kFailure): Object does not exist");
    return plugin;
}

struct DetailRow
{
    const char* name;
    QString Plugin::*text;
};

constexpr DetailRow DETAILS[] = {
    {"name", &Plugin::name},
    {"path", &Plugin::path},
    {"vendor", &Plugin::vendor},
    {"version", &Plugin::version},
    {"apiVersion", &Plugin::apiVersion},
};

/// (path): dict of the plug-in's texts and commands.
PyObject* PluginDetails(PyObject*, PyObject* path)
{
    if (!RequireMainThread("This function of the API"))
        return nullptr;
    const Plugin* plugin = FindPlugin(path);
    Reference details = Reference::Take(plugin ? PyDict_New() : nullptr);
    if (!details)
        return nullptr;
    for (const DetailRow& row : DETAILS) {
        const Reference text = Reference::Take(FromText(plugin->*row.text));
        if (!text || PyDict_SetItemString(details.Get(), row.name, text.Get()) != 0)
            return nullptr;
    }
    const Reference commands = Reference::Take(FromValue(plugin->commands));
    if (!commands || PyDict_SetItemString(details.Get(), "commands", commands.Get()) != 0)
        return nullptr;
    return details.Release();
}

/// (path, name, text)
PyObject* SetPluginDetail(PyObject*, PyObject* arguments)
{
    PyObject* path = nullptr;
    const char* name = nullptr;
    PyObject* text = nullptr;
    if (!PyArg_ParseTuple(arguments, "UsU", &path, &name, &text))
        return nullptr;
    Plugin* plugin = FindPlugin(path);
    if (!plugin)
        return nullptr;
    for (const DetailRow& row : DETAILS) {
        if (qstrcmp(row.name, name) == 0)
            plugin->*row.text = ToText(text);
    }
    Py_RETURN_NONE;
}

/// The path of a loaded plug-in by its name; None when it is not loaded.
PyObject* PluginPath(PyObject*, PyObject* name)
{
    const Plugin* plugin = Engine::Current().plugins.Find(Describe(name));
    return plugin ? FromText(plugin->path) : Py_NewRef(Py_None);
}

// clang-format off
PyMethodDef METHODS[] = {
    {"pluginDetails",     PluginDetails,     METH_O,       nullptr},
    {"setPluginDetail",   SetPluginDetail,   METH_VARARGS, nullptr},
    {"pluginPath",        PluginPath,        METH_O,       nullptr},
    {"registerCommand",   RegisterCommand,   METH_VARARGS, nullptr},
    {"unregisterCommand", UnregisterCommand, METH_VARARGS, nullptr},
    {"hasUndoSteps",      HasUndoSteps,      METH_O,       nullptr},
    {"removeUndoSteps",   RemoveUndoSteps,   METH_O,       nullptr},
    {"readCall",          ReadCallOf,        METH_VARARGS, nullptr},
    {nullptr,             nullptr,           0,            nullptr},
};
// clang-format on

} // namespace

Outcome PythonPluginLoader::Load(Plugin& plugin)
{
    const Execution execution;
    if (!execution.IsAllowed())
        return execution.Report();
    const QString problem = CallModule(execution, "load", plugin);
    if (problem.isNull())
        return {};
    CallModule(execution, "forget", plugin);
    return Error{problem};
}

Outcome PythonPluginLoader::Unload(Plugin& plugin, bool force)
{
    const Execution execution;
    if (!execution.IsAllowed())
        return execution.Report();
    QString problem = CallModule(execution, force ? "forced_obstacle" : "obstacle", plugin);
    if (!problem.isNull())
        return Plugins::InUse(plugin, problem);
    problem = CallModule(execution, "unload", plugin);
    if (!problem.isNull() && !force)
        return Error{problem};
    CallModule(execution, "forget", plugin);
    return {};
}

QString PythonPluginLoader::Obstacle(const Plugin& plugin) const
{
    const Execution execution;
    return execution.IsAllowed() ? CallModule(execution, "obstacle", plugin)
                                 : execution.Report().text;
}

bool AddPluginFunctions(PyObject* module)
{
    return PyModule_AddFunctions(module, METHODS) == 0;
}

} // namespace host::python
