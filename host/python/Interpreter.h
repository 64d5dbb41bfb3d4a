#pragma once

#include <QStringList>

namespace host {
class Paths;
}

namespace host::python {

/// Starts CPython with the system's own library, whatever the caller's environment says; of that
/// only PYTHONPATH counts. The calling thread becomes the main one and holds the interpreter lock
/// afterwards. Empty on success, else what went wrong.
QString StartInterpreter(const Paths& paths);

/// Ends it: threads that are not daemons get a moment to finish, exit handlers run. The calling
/// thread is the main one and holds the lock; there is none afterwards.
void StopInterpreter();

} // namespace host::python
