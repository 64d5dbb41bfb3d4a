#pragma once

#include "engine/Script.h"

#include <memory>

namespace host {
class Engine;
}

namespace host::python {

class StopWatcher;

/// The host's Python: CPython, started once per process, whose `__main__` is the console's
/// namespace. Made on the main thread after the engine and destroyed before it. The interpreter
/// lock is free whenever the main thread is not running Python, so that Python threads run while
/// the event loop does.
class PythonLanguage : public ScriptLanguage
{
public:
    /// Starts the interpreter and becomes the engine's `python`.
    explicit PythonLanguage(Engine& engine);
    /// Waits a moment for the threads that are not daemons, runs exit handlers and stops.
    ~PythonLanguage() override;

    /// First as an expression, which gives the result; else as statements.
    ScriptResult Run(const QString& text) override;
    /// In `__main__` like Run. A relative path is looked for along sys.path.
    ScriptResult RunFile(const QString& path) override;

    static PythonLanguage& Current();
    StopWatcher& GetStopWatcher() { return *m_stopWatcher; }

    /// Runs of Python code inside each other, through MEL or callbacks; one more is an error.
    static constexpr int MAXIMUM_NESTING = 100;

private:
    Engine& m_engine;
    std::unique_ptr<StopWatcher> m_stopWatcher;
};

} // namespace host::python
