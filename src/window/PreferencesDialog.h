#pragma once

#include <QDialog>
#include <QVector>

class KeyBindings;
class OptionCopies;
class PreferencesPage;
class QBoxLayout;
class QDialogButtonBox;
class QLabel;
class QListWidget;
class QPushButton;
class QStackedWidget;
class ToolLineEdit;

/// The user's options, on pages that a search thins out. Works on copies: nothing changes before OK
/// or Apply, which report it. Modal to the window, which owns it.
/// Invariant: row i of the list and page i of the stack belong to m_pages[i].
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    /// The bindings are not owned and outlive the dialog.
    PreferencesDialog(KeyBindings* keyBindings, QWidget* parent);
    ~PreferencesDialog() override;

    /// By the title in the list; nothing happens when there is none.
    void ShowPage(const QString& title);

Q_SIGNALS:
    /// The options in memory are new ones: to be put into force and stored.
    void Applied();

public Q_SLOTS:
    void accept() override;
    /// False when something cannot be applied: it has the focus then, and nothing has changed.
    bool Apply();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    /// Of the page that is shown.
    void RestoreDefaults();
    void UpdateApplyButton();
    void OnPageChosen(int row);
    void OnSearchChanged(const QString& text);

private:
    void CreatePages(KeyBindings* keyBindings);
    void AddPage(PreferencesPage* page);
    void CreateSearch();
    void CreateList();
    void CreateButtons();
    void CreateLayout();
    QWidget* CreateSide();
    QLabel* CreateSessionNote();
    PreferencesPage* GetCurrentPage() const;
    bool FocusWrongField();
    void ShowFirstMatch();
    void FocusFirstMatch();
    void RestoreLook();
    void RememberLook() const;

    OptionCopies* m_copies;
    ToolLineEdit* m_search = nullptr;
    QListWidget* m_list = nullptr;
    QStackedWidget* m_stack = nullptr;
    QLabel* m_nothingFound = nullptr; ///< behind the pages in the stack
    QDialogButtonBox* m_buttons = nullptr;
    QPushButton* m_applyButton = nullptr;
    QPushButton* m_restoreButton = nullptr;
    QVector<PreferencesPage*> m_pages;
};
