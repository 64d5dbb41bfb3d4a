#pragma once

#include "python/PythonApi.h"

namespace host::python {

/// Name of the module that the maya package is written on.
constexpr const char* HOST_MODULE_NAME = "_maya_host";

/// Makes that module, for the interpreter's table of built-in modules.
PyObject* MakeHostModule();

} // namespace host::python
