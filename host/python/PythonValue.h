#pragma once

#include "engine/Value.h"
#include "python/PythonApi.h"

namespace host::python {

// Conversions between the host's values and Python's. The interpreter lock is held.

/// Text of a str, lone surrogates kept. The object must be a str.
QString ToText(PyObject* text);
/// str() of any object; a placeholder when that fails. Leaves no exception behind.
QString Describe(PyObject* object);
/// repr() of any object; null, with the exception set, when that fails.
QString Representation(PyObject* object);

PyObject* FromText(const QString& text);
/// Arrays become lists, a vector three floats, a matrix a list of its cells row by row.
PyObject* FromValue(const Value& value);

/// A scalar, or a list or tuple of scalars of one kind. None for everything else: there is no value
/// of the host for it.
Value ToValue(PyObject* object);

} // namespace host::python
