#pragma once

#include "python/PythonApi.h"

namespace host::python {

/// Adds what the package's classes of the API need of the host to the module: executing, option
/// variables, callbacks, widgets. False, with the exception set, on failure.
bool AddApiFunctions(PyObject* module);
bool AddCallbackFunctions(PyObject* module);
bool AddWidgetFunctions(PyObject* module);

/// Stops the timers that scripts have left. Main thread.
void ReleaseTimers();

} // namespace host::python
