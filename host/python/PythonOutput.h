#pragma once

#include "engine/OutputStream.h"
#include "python/PythonApi.h"

namespace host::python {

/// Sends a message to the host's output, marked as Python's. Any thread that holds the interpreter
/// lock; threads other than the main one give it up meanwhile, as a listener may wait for the main
/// thread. Does nothing once the output is closed.
void WriteMessage(MessageType type, const QString& text);

/// Replaces sys.stdout, sys.stderr and sys.stdin. False, with the exception set, on failure.
bool InstallStreams();

/// Output goes to the engine from here on. Main thread.
void OpenOutput();
/// Waits for the messages that other threads are sending, and drops what comes later. Main thread;
/// holds the interpreter lock.
void CloseOutput();
/// Whether the calling thread is the one that opened the output.
bool IsMainThread();

} // namespace host::python
