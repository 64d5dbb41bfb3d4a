#pragma once

#include "engine/Call.h"
#include "python/PythonApi.h"

namespace host::python {

// Words, calls and syntaxes of commands as Python's MArgList, MArgParser and MSyntax hold them. The
// interpreter lock is held; on failure an exception is set.

/// List of (value, text, is flag).
PyObject* FromWords(const QVector<Word>& words);
bool ToWords(PyObject* list, QVector<Word>& words);

/// (mode, [(flag, [arguments], position)], [objects]); the mode is a number of host::Mode.
PyObject* FromCall(const Call& call);

/// Gives a command what the tuple ([(short, long, (types), multi-use, arguments in queries)],
/// (argument types), takes objects, minimum, maximum, query, edit) says; types are those of
/// MSyntax, a maximum below 0 means any number.
bool DescribeCommand(Command& command, PyObject* syntax);

} // namespace host::python
