#pragma once

#include "engine/Call.h"
#include "python/PythonApi.h"

namespace host::python {

/// The arguments of a command's Python function as the engine reads them. The interpreter lock is
/// held. Both answer false, with the exception set, for what no command can take.
/// A function is taken by a command whose objects are scripts.
bool ReadPositional(const Command& command, PyObject* arguments, QVector<Word>& words);
bool ReadKeywordArguments(const Command& command, PyObject* keywords, QVector<Keyword>& read);

} // namespace host::python
