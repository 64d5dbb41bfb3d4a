#pragma once

#include "engine/Outcome.h"
#include "python/PythonApi.h"

namespace host::python {

// From Python's exceptions to the host's error messages and back. The interpreter lock is held.

/// An exception taken from the interpreter, with its traceback.
struct RaisedError
{
    Reference type;
    Reference value;
    Reference traceback;

    /// Takes the exception that is set; there must be one. None is set afterwards.
    static RaisedError Fetch();
    /// Sets it again.
    void Raise() &&;
};

/// Shows an uncaught exception as one error message, in the form that maya.utils gives it. The
/// result's text is its message without place. Nothing is shown for an error that the host has
/// shown already.
Error ReportError(const RaisedError& error);
/// The same for the exception that is set.
Error ReportRaisedError();

/// Sets the exception that belongs to a failed command.
void RaiseError(const Error& error);

} // namespace host::python
