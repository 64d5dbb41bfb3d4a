#pragma once

#include "engine/CallListeners.h"
#include "engine/CommandRegistry.h"
#include "engine/Events.h"
#include "engine/IdleQueue.h"
#include "engine/Interrupt.h"
#include "engine/Measures.h"
#include "engine/Modules.h"
#include "engine/OptionVars.h"
#include "engine/OutputHistory.h"
#include "engine/OutputStream.h"
#include "engine/Paths.h"
#include "engine/Plugins.h"
#include "engine/StartEnvironment.h"
#include "engine/UndoQueue.h"
#include "engine/UserInterface.h"

namespace host {

enum class RunState { Interactive, Batch };

/// What `commandEcho` and `stackTrace` switch.
struct EchoState
{
    bool echoAll = false;
    bool lineNumbers = true;
    bool stackTrace = false;
    bool duplicateVariableWarnings = false; ///< told when a variable is declared twice
    QStringList filter; ///< commands that are not echoed
};

/// The host without its windows: the services that both interpreters, the commands and the API
/// share. There is one per process, made first and destroyed last by whoever starts the host. It
/// lives on the main thread; what may be used from others says so itself.
class Engine
{
public:
    explicit Engine(RunState state, const QString& applicationDirectory = {});
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// The one engine. Undefined before it is made and after it is gone.
    static Engine& Current();
    static bool Exists();

    const RunState state;
    const Paths paths;
    StartEnvironment environment;
    Modules modules;
    OutputStream output;
    OutputHistory history;
    CallListeners callListeners;
    CommandRegistry commands;
    OptionVars optionVars;
    Events events;
    UndoQueue undoQueue;
    Plugins plugins;
    IdleQueue idle;
    Interrupt interrupt;
    EchoState echo;
    Units units;
    /// What the commands' library keeps (commands/Session.h).
    std::shared_ptr<void> commandState;

    /// Set by the interpreters' libraries; not owned. Null until then.
    ScriptLanguage* mel = nullptr;
    ScriptLanguage* python = nullptr;
    /// Set by the interface library; not owned. Null in batch mode and before the window exists.
    UserInterface* ui = nullptr;
    ScriptLanguage& GetLanguage(Language language)
    {
        return *(language == Language::Mel ? mel : python);
    }

    bool IsBatch() const { return state == RunState::Batch; }
    bool IsMainThread() const;

    /// Runs a text as the script window does: with `display` on, its echo goes out before it runs
    /// and its result line after it. Main thread only.
    ScriptResult Execute(Language language, const QString& text, bool display);
    /// The same when the main loop is idle. Any thread.
    void ExecuteOnIdle(Language language, const QString& text, bool display,
        IdlePriority priority = IdlePriority::Low);

    /// Number of texts being run inside each other right now.
    int RunningScripts() const { return m_runningScripts; }

    /// Ends the host once the running script is over; without `force` the windows are asked first
    /// and may refuse. Set by the application.
    std::function<void(int exitCode, bool force)> quit;

    /// Files of the preferences that the engine keeps itself (option variables).
    void LoadPreferences();
    void SavePreferences();

private:
    friend class ScriptScope;

    int m_runningScripts = 0;
};

/// Marks a text as running: idle work waits, what it changes can be undone as one, and a stop
/// request ends with the outermost text.
class ScriptScope
{
public:
    explicit ScriptScope(Language language);
    ~ScriptScope();

private:
    LanguageScope m_language;
};

} // namespace host
