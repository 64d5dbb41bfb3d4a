#pragma once

#include "host/ui/UiFixture.h"
#include "ui/window/EscapeWatcher.h"
#include "ui/window/HostWindow.h"
#include "ui/workspace/WorkspaceControls.h"

/// A host with MEL and its main window. Saved panels are read when it starts.
class WindowFixture
{
public:
    WindowFixture();
    ~WindowFixture();

    QString Run(const QString& text) { return m_ui.Run(text); }
    QString TakePrinted() { return m_ui.TakePrinted(); }
    QStringList TakeWarnings();
    host::Engine& GetEngine() { return m_ui.GetEngine(); }
    host::ui::HostWindow& GetWindow() { return *m_window; }
    host::ui::WorkspaceControls& GetControls() { return m_window->GetControls(); }
    QWidget* Panel(const QString& name);
    QString WorkspacePath();
    /// Lets the idle queue run what waits.
    void RunIdle() { m_ui.GetEngine().idle.Drain(); }
    /// Saves, ends, and starts again on the same preferences.
    void Restart();

private:
    void Start();

    UiFixture m_ui;
    std::unique_ptr<host::ui::HostWindow> m_window;
    std::unique_ptr<host::ui::EscapeWatcher> m_watcher;
    QStringList m_warnings;
};
