#include "engine/Engine.h"

#include <QCoreApplication>
#include <QThread>

namespace host {

namespace {

Engine* current = nullptr;

const QString OPTION_VARS_FILE = QStringLiteral("/optionVars.json");

/// The echo of a MEL text always ends in ";" and a line feed, that of a Python text in a line feed
/// alone: this is how receivers tell the two languages apart.
QString EchoText(Language language, const QString& text)
{
    int end = text.size();
    if (language == Language::Python) {
        while (end > 0
            && (text.at(end - 1) == QLatin1Char('\n') || text.at(end - 1) == QLatin1Char('\r')))
            --end;
        return text.left(end) + QLatin1Char('\n');
    }
    while (end > 0 && text.at(end - 1).isSpace())
        --end;
    QString echo = text.left(end);
    if (!echo.endsWith(QLatin1Char(';')))
        echo += QLatin1Char(';');
    return echo + QLatin1Char('\n');
}

} // namespace

Engine::Engine(RunState runState, const QString& applicationDirectory)
    : state(runState)
    , paths(applicationDirectory)
{
    Q_ASSERT_X(!current, "Engine", "there is one engine per process");
    current = this;
    output.AddDisplay([this](const Message& message) { history.Append(message); });
}

Engine::~Engine()
{
    idle.Close();
    // While there still is an engine: what the commands keep may reach for it.
    commandState.reset();
    current = nullptr;
}

Engine& Engine::Current()
{
    Q_ASSERT(current);
    return *current;
}

bool Engine::Exists()
{
    return current != nullptr;
}

bool Engine::IsMainThread() const
{
    return QThread::currentThread() == idle.thread();
}

ScriptResult Engine::Execute(Language language, const QString& text, bool display)
{
    const ScriptScope scope(language);
    // Echoing all commands shows what they give, too.
    const bool showsResult = display || (language == Language::Mel && echo.echoAll);
    if (display)
        output.Write(MessageType::History, EchoText(language, text));
    const ScriptResult result = GetLanguage(language).Run(text);
    if (showsResult && !result.failed && !result.resultText.isNull())
        output.Write(MessageType::Result, result.resultText);
    return result;
}

void Engine::ExecuteOnIdle(
    Language language, const QString& text, bool display, IdlePriority priority)
{
    idle.Post([this, language, text, display] { Execute(language, text, display); }, priority);
}

void Engine::LoadPreferences()
{
    QStringList problems{paths.CreateDirectories()};
    problems += optionVars.Load(paths.PreferencesDirectory() + OPTION_VARS_FILE);
    for (const QString& problem : qAsConst(problems)) {
        if (!problem.isEmpty())
            output.Warning(problem);
    }
}

void Engine::SavePreferences()
{
    const QString problem = optionVars.Save(paths.PreferencesDirectory() + OPTION_VARS_FILE);
    if (!problem.isEmpty())
        output.Warning(problem);
}

ScriptScope::ScriptScope(Language language)
    : m_language(language)
{
    Engine& engine = Engine::Current();
    if (engine.m_runningScripts++ == 0)
        engine.interrupt.Clear();
    engine.undoQueue.OpenChunk();
    engine.idle.Hold();
}

ScriptScope::~ScriptScope()
{
    Engine& engine = Engine::Current();
    engine.idle.Release();
    engine.undoQueue.CloseChunk();
    if (--engine.m_runningScripts == 0)
        engine.interrupt.Clear();
}

} // namespace host
