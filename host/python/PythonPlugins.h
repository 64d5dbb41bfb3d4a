#pragma once

#include "engine/Plugins.h"
#include "python/PythonApi.h"

namespace host::python {

/// Loads plug-ins written in Python. What they are and do is known to the package's own module
/// (maya/_plugins.py); this is the host's side of it. Lives as long as the interpreter.
class PythonPluginLoader : public PluginLoader
{
public:
    /// A script that raises while it is read or started is reported with its traceback first.
    Outcome Load(Plugin& plugin) override;
    Outcome Unload(Plugin& plugin, bool force) override;
    QString Obstacle(const Plugin& plugin) const override;
};

/// Adds what _plugins.py needs to the module _maya_host. False, with the exception set, on failure.
bool AddPluginFunctions(PyObject* module);

} // namespace host::python
