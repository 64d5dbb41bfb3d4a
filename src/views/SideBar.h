#pragma once

#include <QWidget>

class ExplorerView;
class OpenEditorsView;
class QLabel;
class QStackedWidget;
class WorkspaceView;

/// The pane beside the editors: one page at a time under a row with its title. Owned by the window,
/// which connects itself to the views. While it is hidden none of its views does any work.
class SideBar : public QWidget
{
    Q_OBJECT

public:
    enum class Page { Explorer, Search, QuickHelp };

    explicit SideBar(QWidget* parent);

    /// Pages that do not exist are not offered.
    bool HasPage(Page page) const;
    Page GetPage() const { return m_page; }
    void ShowPage(Page page);
    /// Into the page that is shown.
    void FocusPage(Qt::FocusReason reason);

    // The views; the window connects itself to them.
    OpenEditorsView* GetOpenEditors() const;
    WorkspaceView* GetWorkspace() const;

    // The workspace
    void SaveWorkspace();
    void SaveWorkspaceAs(const QString& path);
    void OpenWorkspace(const QString& path);

    /// Puts what the pages remember into the settings.
    void SaveState();
    /// Follows options that were changed elsewhere.
    void UpdatePreferences();

Q_SIGNALS:
    void PageChanged();
    void HideRequested();
    /// Escape was pressed in a view.
    void FocusEditorRequested();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void CreateLayout();
    void UpdateTitle();
    void ShowTitleMenu(const QPoint& point);

    QLabel* m_title = nullptr;
    QStackedWidget* m_stack = nullptr;
    ExplorerView* m_explorer = nullptr;
    Page m_page = Page::Explorer;
};
