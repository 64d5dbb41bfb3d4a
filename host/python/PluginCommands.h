#pragma once

#include "python/PythonApi.h"

namespace host::python {

// Functions of the module _maya_host for the commands of plug-ins written in Python. A command's
// words go to Python as a list of (value, text, is flag); a syntax comes as the tuple that
// MSyntax._description makes.

/// (path of the plug-in, name, run, describe): `run` gets the words and the call as text, and gives
/// the result, how to undo and to redo it (or None twice) and the name of the step; `describe`
/// gives the syntax and is None for a command that reads its words itself. False when the name is
/// taken.
PyObject* RegisterCommand(PyObject* module, PyObject* arguments);
/// (path, name): False when the command is not the plug-in's.
PyObject* UnregisterCommand(PyObject* module, PyObject* arguments);

/// Whether something that the plug-in (its path) did can be undone or redone.
PyObject* HasUndoSteps(PyObject* module, PyObject* path);
PyObject* RemoveUndoSteps(PyObject* module, PyObject* path);

/// (syntax, words): mode, list of (flag, [arguments], position of the flag), and the objects.
/// RuntimeError, which has been shown, when the words do not fit.
PyObject* ReadCallOf(PyObject* module, PyObject* arguments);

} // namespace host::python
