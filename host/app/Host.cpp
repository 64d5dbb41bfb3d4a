#include "app/Host.h"

#include "api/PluginLibraryLoader.h"
#include "app/ConsoleOutput.h"
#include "commands/Commands.h"
#include "commands/PluginPreferences.h"
#include "mel/MelLanguage.h"
#include "python/PythonLanguage.h"
#include "ui/commands/InterfaceCommands.h"
#include "ui/model/InterfaceModel.h"
#include "ui/window/EscapeWatcher.h"
#include "ui/window/HostActionCommand.h"
#include "ui/window/HostWindow.h"
#include "ui/workspace/WorkspaceCommands.h"
#include "ui/workspace/WorkspaceControls.h"

#include <QDir>
#include <QFileInfo>
#include <QPixmap>
#include <QTimer>

namespace host {

namespace {

const QString SAVE_SHELVES
    = QStringLiteral("{ global string $gShelfTopLevel; saveAllShelves $gShelfTopLevel; }");
const QString EDITOR_COMMAND = QStringLiteral("tarnwickEditor2");
/// Turns of the event loop without work that count as "nothing waits any more".
constexpr int QUIET_TURNS = 10;
constexpr int TURN_MS = 20;

} // namespace

Host::Host(RunState state, const QString& applicationDirectory)
    : m_engine(state, applicationDirectory)
{
    if (m_engine.IsBatch())
        m_console = std::make_unique<ConsoleOutput>(m_engine);
    ReadEnvironment();
    m_engine.LoadPreferences();
    m_mel = std::make_unique<mel::MelLanguage>(m_engine);
    m_python = std::make_unique<python::PythonLanguage>(m_engine);
    commands::RegisterCommands(m_engine);
    m_model = std::make_unique<ui::InterfaceModel>();
    ui::RegisterInterfaceCommands(m_engine, *m_model);
    ui::RegisterWorkspaceCommands(m_engine);
    ui::RegisterHostAction(m_engine);
    m_engine.plugins.SetLoader(api::MakePluginLoader(m_engine));
    m_engine.quit = [this](int exitCode, bool force) { RequestQuit(exitCode, force); };
    if (!m_engine.IsBatch())
        CreateWindow();
}

Host::~Host()
{
    Shutdown();
    m_engine.idle.Close();
    commands::ReleaseCommands(m_engine);
    m_escapeWatcher.reset();
    m_window.reset();
    m_model.reset();
    m_python.reset();
    m_mel.reset();
}

void Host::ReadEnvironment()
{
    QStringList problems = m_engine.environment.ReadFile(m_engine.paths.EnvironmentFile());
    // A module makes its plug-ins findable; only folders that somebody named are loaded whole.
    m_pluginFolders = EnvironmentEntries("MAYA_PLUG_IN_PATH");
    problems += m_engine.modules.Read(m_engine.paths.ModulePath(), m_engine.environment);
    for (const QString& problem : qAsConst(problems))
        m_engine.output.Warning(problem);
}

void Host::CreateWindow()
{
    m_window = std::make_unique<ui::HostWindow>(m_engine, *m_model);
    m_escapeWatcher = std::make_unique<ui::EscapeWatcher>(m_engine);
    connect(m_window.get(), &ui::HostWindow::QuitAccepted, this, &Host::OnQuitAccepted);
    connect(
        m_window.get(), &ui::HostWindow::SavePreferencesRequested, this, &Host::SavePreferences);
    m_window->Build();
}

// Starting

void Host::Start()
{
    if (m_window) {
        m_window->LoadWorkspace();
        m_window->show();
    }
    RunUserSetup();
}

void Host::RunIfPresent(Language language, const QString& path)
{
    if (path.isEmpty() || !QFileInfo(path).isFile())
        return;
    const ScriptScope scope(language);
    m_engine.GetLanguage(language).RunFile(path);
}

void Host::RunUserSetup()
{
    RunIfPresent(Language::Mel, m_engine.paths.FindScript(QStringLiteral("userSetup.mel")));
    const QString own = m_engine.paths.InstallDirectory();
    for (const QString& folder : m_engine.paths.ScriptPath()) {
        if (!folder.startsWith(own))
            RunIfPresent(Language::Python, folder + QLatin1String("/userSetup.py"));
    }
}

void Host::LoadPlugins()
{
    QStringList plugins;
    const QString problem = commands::ReadPluginPreferences(m_engine);
    if (!problem.isEmpty())
        m_engine.output.Warning(problem);
    for (const QString& folder : qAsConst(m_pluginFolders)) {
        const QDir directory(folder);
        for (const QString& file : directory.entryList({QStringLiteral("*.so")}, QDir::Files))
            plugins += directory.absoluteFilePath(file);
    }
    plugins += m_engine.plugins.autoload;
    for (const QString& plugin : qAsConst(plugins)) {
        if (m_engine.plugins.Find(plugin))
            continue;
        const Outcome outcome = m_engine.plugins.Load(plugin);
        if (!outcome.Ok() && !outcome.GetError().shown)
            m_engine.output.Error(outcome.GetError().text);
    }
    if (m_window)
        m_window->GetControls().BuildSaved();
}

void Host::OpenEditor()
{
    if (!m_engine.commands.FindCommand(EDITOR_COMMAND)) {
        m_engine.output.Info(
            QStringLiteral("No plug-in offers \"%1\"; see MAYA_PLUG_IN_PATH.").arg(EDITOR_COMMAND));
        return;
    }
    m_engine.Execute(Language::Mel, EDITOR_COMMAND, false);
}

bool Host::RunTask(const StartTask& task)
{
    const bool isFile = task.kind == StartTask::Kind::File;
    const bool python = task.kind == StartTask::Kind::Python
        || (isFile && task.text.endsWith(QLatin1String(".py"), Qt::CaseInsensitive));
    const Language language = python ? Language::Python : Language::Mel;
    ScriptResult result;
    if (isFile && !QFileInfo(task.text).isFile()) {
        m_engine.output.Error(QStringLiteral("Script file not found: %1").arg(task.text));
        result.failed = true;
    } else {
        const ScriptScope scope(language);
        result = isFile
            ? m_engine.GetLanguage(language).RunFile(QFileInfo(task.text).absoluteFilePath())
            : m_engine.GetLanguage(language).Run(task.text);
    }
    if (m_engine.IsBatch())
        m_engine.idle.Drain();
    return !result.failed;
}

// Ending

void Host::RequestQuit(int exitCode, bool force)
{
    m_exitCode = exitCode;
    if (!m_window || force) {
        // Not while the script that asks for it still runs.
        QMetaObject::invokeMethod(this, &Host::OnQuitAccepted, Qt::QueuedConnection);
        m_quitting = !m_window;
        return;
    }
    QMetaObject::invokeMethod(m_window.get(), &QWidget::close, Qt::QueuedConnection);
}

void Host::OnQuitAccepted()
{
    m_quitting = true;
    Shutdown();
    Q_EMIT Finished(m_exitCode);
}

void Host::SavePreferences()
{
    m_engine.SavePreferences();
    if (!m_window)
        return;
    m_window->SaveWorkspace();
    m_engine.Execute(Language::Mel, SAVE_SHELVES, false);
}

void Host::Shutdown()
{
    if (m_shutDown)
        return;
    m_shutDown = true;
    // Plug-ins close their panels when they hear of the end; the person did not.
    if (m_window)
        m_window->FreezeWorkspace();
    m_engine.events.Fire(QStringLiteral("quitApplication"));
    SavePreferences();
}

// Picture

void Host::TakeScreenshot(const QString& path)
{
    auto* timer = new QTimer(this);
    timer->setInterval(TURN_MS);
    connect(timer, &QTimer::timeout, this, [this, path, timer, quiet = 0]() mutable {
        quiet = m_engine.idle.Count() > 0 || m_engine.RunningScripts() > 0 ? 0 : quiet + 1;
        if (quiet < QUIET_TURNS)
            return;
        timer->deleteLater();
        timer->stop();
        const bool saved = m_window->Grab().save(path);
        if (!saved)
            std::fprintf(stderr, "Error: Cannot write the picture \"%s\".\n", qPrintable(path));
        RequestQuit(saved ? m_exitCode : 1, true);
    });
    timer->start();
}

} // namespace host
