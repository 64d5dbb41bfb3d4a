#pragma once

#include "python/PythonApi.h"

namespace host::python {

/// Adds what maya/_api.py needs of the host to the module: executing, option variables, callbacks,
/// widgets. False, with the exception set, on failure.
bool AddApiFunctions(PyObject* module);

} // namespace host::python
