#include "host/ui/window/WindowFixture.h"

#include "ui/window/HostActionCommand.h"
#include "ui/workspace/WorkspaceCommands.h"

using namespace host;

WindowFixture::WindowFixture()
{
    Start();
}

WindowFixture::~WindowFixture()
{
    m_watcher.reset();
    m_window.reset();
}

void WindowFixture::Start()
{
    GetEngine().output.AddListener([this](const Message& message) {
        if (message.type == MessageType::Warning)
            m_warnings += message.text;
    });
    ui::RegisterWorkspaceCommands(GetEngine());
    ui::RegisterHostAction(GetEngine());
    m_window = std::make_unique<ui::HostWindow>(GetEngine(), m_ui.Model());
    m_watcher = std::make_unique<ui::EscapeWatcher>(GetEngine());
    m_window->Build();
    m_window->LoadWorkspace();
    m_window->show();
    m_window->GetControls().BuildSaved();
}

void WindowFixture::Restart()
{
    m_window->FreezeWorkspace();
    m_window->SaveWorkspace();
    m_watcher.reset();
    m_window.reset();
    m_ui.Restart();
    Start();
}

QStringList WindowFixture::TakeWarnings()
{
    QStringList warnings;
    warnings.swap(m_warnings);
    return warnings;
}

QWidget* WindowFixture::Panel(const QString& name)
{
    return m_window->FindControl(name, nullptr);
}

QString WindowFixture::WorkspacePath()
{
    return GetEngine().paths.PreferencesDirectory() + "/workspaces.json";
}
