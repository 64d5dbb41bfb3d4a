#pragma once

#include "engine/Outcome.h"
#include "engine/Script.h"
#include "mel/CompileError.h"
#include "mel/GlobalScope.h"

#include <QSet>

namespace host {
class Engine;
}

namespace host::mel {

/// A running script that failed. Its message is out already, or was not wanted. Thrown by the
/// interpreter and caught by it: at `catch` and where a text was started from outside.
struct ScriptError
{
    QString text; ///< without its place
};

/// Whether the lead "line 3: " stands before a message.
enum class PlaceLead { AsSet, Always, Never };

/// Runs compiled texts: keeps the frames of what is running, calls procedures, and sends errors and
/// warnings where they belong. Main thread only; what it runs may start it again. No exception
/// leaves Run; everything else is for the code that runs inside it.
class Interpreter
{
public:
    Interpreter(Engine& engine, GlobalScope& globals);

    /// Procedures and texts inside each other, and the stack they may take together.
    static constexpr int MAXIMUM_CALLS = 256;
    static constexpr qint64 MAXIMUM_STACK_BYTES = 4 * 1024 * 1024;

    // Running
    /// Compiles and runs a text for somebody outside. Errors are shown, also when a script that
    /// waits for it hides its own.
    ScriptResult Run(const QString& text);
    ScriptResult RunFile(const QString& name);
    /// Compiles and runs a text as a part of the one that is running.
    Value RunInside(const QString& text);
    Value RunFileInside(const QString& name);
    /// Sources NAME.mel for a name that nothing else knows.
    void AutoLoad(const QString& name);
    Value CallProcedure(const Procedure& procedure, Value* slots, Value** references);
    /// 1 when `code` failed.
    int Catch(const ExpressionCode& code, Frame& frame, bool quiet);
    /// Once per turn of a loop and per call, so that a person can stop the script.
    void CountStep()
    {
        if (--m_stepsLeft <= 0)
            Poll();
    }

    // Messages
    [[noreturn]] void Raise(const QString& text);
    /// What a command or function gave back.
    [[noreturn]] void Raise(const Error& error);
    /// Shows the error with the stack trace, unless a script hides its errors.
    void ShowError(const QString& text, PlaceLead lead = PlaceLead::AsSet);
    void Warn(const QString& text, PlaceLead lead = PlaceLead::AsSet);
    /// "line 3: " or "file: /a.mel line 3: ".
    QString Place(PlaceLead lead) const;
    /// "Line 2.7: " or "\"/a.mel\" line 2.7: ", as what is said about a text while it is compiled.
    QString CompilePlace(const Source& source, int offset) const;
    const QString& LastError() const { return m_lastError; }

    Engine& GetEngine() { return m_engine; }
    GlobalScope& Globals() { return m_globals; }

private:
    class FrameScope;
    using Inside = Value (Interpreter::*)(const QString&);

    ScriptResult RunFromOutside(Inside run, const QString& text);
    Value RunSource(const std::shared_ptr<const Source>& source);
    Value RunModule(const Module& module);
    [[noreturn]] void RaiseCompileError(const Source& source, const CompileError& error);
    void CheckDepth();
    void Poll();
    QString StackTrace() const;

    Engine& m_engine;
    GlobalScope& m_globals;
    Frame* m_top = nullptr; ///< of what is running now; null outside
    int m_calls = 0;
    int m_hidden = 0; ///< catchQuiet's around what is running
    int m_stepsLeft = 0;
    const char* m_stackStart = nullptr; ///< address in the outermost frame
    QString m_lastError;
    QSet<QString> m_loading; ///< names being auto-loaded
};

} // namespace host::mel
