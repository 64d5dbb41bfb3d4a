#pragma once

#include "engine/UserInterface.h"
#include "ui/workspace/WorkspaceFile.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>

class QAbstractButton;

namespace host {
class Engine;
}

namespace host::commands {
struct HelpRequest;
}

namespace host::ui {

class CommandLine;
class Element;
class InterfaceModel;
class Viewport;
class Workspace;
class WorkspaceControls;

/// The host's main window: menus, shelves, the workspace with the viewport and the panels, the
/// command line and the help line. Made after the interpreters and before any plug-in is loaded;
/// owned by whoever starts the host. What the engine asks of the interface goes to the model.
class HostWindow : public QMainWindow, public UserInterface
{
    Q_OBJECT
public:
    HostWindow(Engine& engine, InterfaceModel& model);
    ~HostWindow() override;

    // Starting and ending

    /// Gives the menus and shelves their content; needs the interface commands.
    void Build();
    /// Reads workspaces.json; shows what it can and warns about the rest.
    void LoadWorkspace();
    /// Takes down the layout as the person leaves it: what is saved at the end is this.
    void FreezeWorkspace();
    void SaveWorkspace();
    WorkspaceControls& GetControls() { return *m_controls; }

    /// The window with everything that floats over it, as it stands on the screen.
    QPixmap Grab();

    // UserInterface
    QWidget* MainWindow() const override;
    QWidget* FindControl(const QString& name, const QWidget* ancestor) const override;
    QWidget* FindLayout(const QString& name, const QWidget* ancestor) const override;
    QWidget* FindWindow(const QString& name) const override;
    QAction* FindMenuItem(const QString& name) const override;
    QString FullName(const QObject* object) const override;
    QWidget* CurrentParent() const override;
    QString AddWidget(QWidget* control, QWidget* layout, const QString& type) override;
    double ScaleFactor() const override;

    void setVisible(bool visible) override;

    /// Runs the menu action of that name; false when there is none.
    bool TriggerAction(const QString& name);

Q_SIGNALS:
    /// Nobody objected to closing the window.
    void QuitAccepted();
    void SavePreferencesRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    /// Keys that nothing else wanted: neither a menu nor what has the keyboard.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct ActionRow;
    struct MenuRow;
    static const MenuRow MENUS[];
    static const ActionRow ACTIONS[];

    void CreateWidgets();
    void CreateElements();
    void CreateMenus();
    void CreateAction(const ActionRow& row, Element* menu);
    QAction* ActionNamed(const char* name) const;
    void ApplyStoredSwitches();
    QString FocusedPanel() const;
    void NoteCloseEvent();
    void UpdateScriptEditorButton(QAbstractButton* button);
    static void PrepareWindow(QWidget* window);
    QString WorkspacePath() const;
    SavedWorkspace CaptureWorkspace() const;

    void OnFocusChanged(QWidget* old, QWidget* now);
    /// The text that had the keyboard last; null when it is not to be seen any more.
    QWidget* TextWidget() const;

    // Menus about to open
    void UpdateEditActions();
    void UpdatePanelEntries();
    void UpdateModifyActions();

    // Scenes: questions about what would be lost, and names of files
    bool MayDropScene();
    bool RunFileCommand(const QString& arguments);
    QString ChooseScene(const QString& title);
    void FollowSceneName();
    void ShowSceneName();
    void NewScene();
    void OpenScene();
    bool SaveScene();
    bool SaveSceneAs();
    void SaveSceneNow();
    void SaveSceneUnderName();
    void ImportScene();

    // Actions, by menu
    void SourceScript();
    void SavePreferences();
    void OpenPreferencesFolder();
    void Quit();
    void RunEditSlot();
    void SelectNothing();
    void CreateShelfButton();
    void CreateShelf();
    void ToggleFloating();
    void ClosePanel();
    void ClearHistory();
    void ShowShelf(bool on);
    void ShowCommandLine(bool on);
    void ShowHelpLine(bool on);
    void ShowHelpRequest(const commands::HelpRequest& request);
    void ShowGrid(bool on);
    void ShowAxis(bool on);
    void ResetView();
    void SaveViewPicture();
    void ShowFullScreen(bool on);
    void ShowCommandReference();
    void ShowAbout();

    Engine& m_engine;
    InterfaceModel& m_model;
    QWidget* m_shelfArea = nullptr;
    Viewport* m_viewport = nullptr;
    Workspace* m_workspace = nullptr;
    WorkspaceControls* m_controls = nullptr;
    CommandLine* m_commandLine = nullptr;
    QList<QAction*> m_panelEntries;
    QPointer<QWidget> m_lastText;
    QTimer m_saveTimer;
    QRect m_windowedGeometry; ///< before it filled the screen
    SavedWorkspace m_frozenWorkspace;
    /// Hotkeys that run something when they are let go, and what.
    QHash<int, QString> m_heldKeys;
    bool m_awaitsCloseEvent = false; ///< it is on its way and may be kept from us
    bool m_frozen = false;
    bool m_saveFailed = false;
};

} // namespace host::ui
