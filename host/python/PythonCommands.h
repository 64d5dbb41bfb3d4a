#pragma once

#include "python/PythonApi.h"

namespace host::python {

/// Makes the type of maya.cmds' functions. False, with the exception set, on failure.
bool InitializeCommands();
/// Forgets the functions made so far. Holds the interpreter lock.
void ReleaseCommands();

// Functions of the module _maya_host.

/// The function of a command by its name; AttributeError when there is no such command.
PyObject* FindCommand(PyObject* module, PyObject* name);
/// Sorted list of all names.
PyObject* CommandNames(PyObject* module, PyObject*);

/// True on the main thread; else false with RuntimeError set. `what` names the thing called.
bool RequireMainThread(const char* what);

} // namespace host::python
