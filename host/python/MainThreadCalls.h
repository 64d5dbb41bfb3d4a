#pragma once

#include "python/PythonApi.h"

namespace host::python {

// Functions of the module _maya_host behind maya.utils: work for the main thread, from any thread.

/// (textOrCallable, *args, **kwargs): runs it when the main loop is idle; None at once.
PyObject* ExecuteDeferred(PyObject* module, PyObject* arguments, PyObject* keywords);
/// The same, waiting for the result; an exception comes back to the caller. On the main thread it
/// runs at once.
PyObject* ExecuteInMainThread(PyObject* module, PyObject* arguments, PyObject* keywords);
/// Runs everything that waits for idle time.
PyObject* ProcessIdleEvents(PyObject* module, PyObject*);

/// Calls that other threads wait for are accepted from here on.
void OpenMainThreadCalls();
/// Ends the waiting of all of them with an error. Holds the interpreter lock.
void CloseMainThreadCalls();

} // namespace host::python
