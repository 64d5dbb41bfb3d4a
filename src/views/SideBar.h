#pragma once

#include "views/quickhelp/QuickHelpTopics.h"

#include <QWidget>

#include <functional>

class ExplorerView;
class BaseParser;
class KeyBindings;
class OpenEditorsView;
class OutlineView;
class QuickHelpView;
class SearchView;
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
    static bool HasPage(Page page);
    Page GetPage() const { return m_page; }
    void ShowPage(Page page);
    /// Into the page that is shown.
    void FocusPage(Qt::FocusReason reason);

    // The views; the window connects itself to them.
    OpenEditorsView* GetOpenEditors() const;
    WorkspaceView* GetWorkspace() const;
    OutlineView* GetOutline() const;
    SearchView* GetSearch() const { return m_search; }

    // The outline
    void UpdateOutline(BaseParser* parser);
    void SaveOutline();
    void ClearInvalidDetailsFromOutline(const QStringList& openFilePaths);

    // The workspace
    void SaveWorkspace();
    void SaveWorkspaceAs(const QString& path);
    void OpenWorkspace(const QString& path);

    // Quick help
    /// Where the script comes from that names are looked up in.
    void SetQuickHelpScript(std::function<QuickHelpTopics::Script()> source);
    /// Help on what the text names. What was asked for shows the page; anything else
    /// only changes it while it can be seen.
    void UpdateQuickHelp(const QString& text, bool isRequested);

    /// Puts what the pages remember into the settings.
    void SaveState();
    /// The shortcuts that tool tips and hints name. They are read again at every call.
    void UpdateKeyBindings(const KeyBindings* keyBindings);
    /// Follows options that were changed elsewhere.
    void UpdatePreferences();

Q_SIGNALS:
    void PageChanged();
    void HideRequested();
    /// Escape was pressed in a view.
    void FocusEditorRequested();
    /// A flag of the quick help, by its long name, for the script.
    void FlagChosen(const QString& longName);
    void CommandReferenceRequested(const QString& command);
    /// To show a line (from 1; 0 for anywhere) of a file that the quick help names.
    void FileRequested(const QString& path, int line);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct PageRow;

    static const PageRow* RowOf(Page page);
    void CreateLayout();
    void CreateSearch();
    QWidget* CreateQuickHelp();
    void UpdateTitle();
    void ShowTitleMenu(const QPoint& point);

    QLabel* m_title = nullptr;
    QWidget* m_groove = nullptr; ///< below the title
    QStackedWidget* m_stack = nullptr;
    ExplorerView* m_explorer = nullptr;
    SearchView* m_search;
    QuickHelpView* m_quickHelp = nullptr; ///< made when first shown
    std::function<QuickHelpTopics::Script()> m_quickHelpScript;
    const KeyBindings* m_keyBindings = nullptr; ///< not owned
    Page m_page = Page::Explorer;
};
