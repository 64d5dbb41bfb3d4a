#pragma once

#include "app/Options.h"
#include "engine/Engine.h"

#include <QObject>

namespace host {

class ConsoleOutput;

namespace mel {
class MelLanguage;
}
namespace python {
class PythonLanguage;
}
namespace ui {
class EscapeWatcher;
class HostWindow;
class InterfaceModel;
} // namespace ui

/// The whole host: engine, both interpreters, the commands, the windows (unless in batch mode) and
/// the plug-in loader. One per process, made after the QApplication and destroyed before it, on the
/// main thread.
class Host : public QObject
{
    Q_OBJECT
public:
    explicit Host(RunState state, const QString& applicationDirectory = {});
    ~Host() override;

    Engine& GetEngine() { return m_engine; }
    /// Null in batch mode.
    ui::HostWindow* GetWindow() { return m_window.get(); }

    /// Shows the window as the preferences remember it and runs userSetup.
    void Start();
    /// Every plug-in along MAYA_PLUG_IN_PATH, as it was before modules joined it, and those that
    /// are loaded at every start; then the panels that waited for them.
    void LoadPlugins();
    /// Opens the script editor when a plug-in offers it.
    void OpenEditor();
    /// False when the script failed; the reason has been printed. Waits for the idle queue in batch
    /// mode.
    bool RunTask(const StartTask& task);

    /// Asks whoever listens to the window's closing; with `force` nobody is asked. The process ends
    /// when the event loop is reached.
    void RequestQuit(int exitCode, bool force);
    bool IsQuitting() const { return m_quitting; }
    int ExitCode() const { return m_exitCode; }
    /// Fires "quitApplication" and saves the preferences, once.
    void Shutdown();

    void SavePreferences();
    /// When nothing waits any more: writes the picture and quits. False ends with an error code.
    void TakeScreenshot(const QString& path);

Q_SIGNALS:
    /// Time to leave the event loop.
    void Finished(int exitCode);

private:
    void ReadEnvironment();
    void CreateWindow();
    void OnQuitAccepted();
    void RunUserSetup();
    void RunIfPresent(Language language, const QString& path);

    Engine m_engine;
    QStringList m_pluginFolders; ///< whose plug-ins are loaded at the start
    std::unique_ptr<ConsoleOutput> m_console;
    std::unique_ptr<mel::MelLanguage> m_mel;
    std::unique_ptr<python::PythonLanguage> m_python;
    std::unique_ptr<ui::InterfaceModel> m_model;
    std::unique_ptr<ui::HostWindow> m_window;
    std::unique_ptr<ui::EscapeWatcher> m_escapeWatcher;
    int m_exitCode = 0;
    bool m_quitting = false;
    bool m_shutDown = false;
};

} // namespace host
