#pragma once

#include "python/PythonApi.h"

#include <QString>

namespace host::python {

// Compiling and running texts in the console's namespace. The interpreter lock is held; null means
// that an exception is set.

/// File name of typed text in messages.
constexpr const char* CONSOLE_NAME = "<maya console>";

struct Compiled
{
    Reference code;
    bool isExpression = false;
};

/// First as an expression, else as statements. Line ends may be of any kind.
Compiled CompileText(const QString& text);
/// Reads a file with the encoding that it names itself.
PyObject* CompileFile(const QString& path);
/// The path, or where a relative one is found along sys.path; "" when there is no such file.
QString FindSource(const QString& path);

/// Runs code in `__main__`; a new reference to its value.
PyObject* RunCode(PyObject* code);
/// The same with `__file__` set meanwhile.
PyObject* RunFileCode(PyObject* code, const QString& path);
/// Compiles and runs: the value of an expression, None for statements.
PyObject* EvaluateText(const QString& text);

/// How the script window shows a value, as maya.utils.formatGuiResult puts it. Null with the
/// exception set when the value cannot be shown.
QString ResultText(PyObject* value);

} // namespace host::python
