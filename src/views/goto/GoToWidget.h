#pragma once

#include "views/goto/GoToEntries.h"
#include "views/goto/GoToFilter.h"
#include "views/goto/GoToModel.h"
#include "window/chrome/OverlayFrame.h"

#include <QElapsedTimer>
#include <QSet>

#include <functional>

class GoToRowDelegate;
class QLineEdit;
class QListView;
class WorkspaceFiles;

/// Goes to a file, a symbol or a line, or runs a command: a field whose first letter tells which,
/// and the list of what fits. Floats over the window, which owns it, tells it what there is and
/// does what is chosen. Symbols and lines are shown in the editor before they are chosen. Closes
/// when the focus leaves it.
class GoToWidget : public OverlayFrame
{
    Q_OBJECT

public:
    enum class Mode { Files, Symbols, Line, Commands, Help };

    /// The editor that symbols and lines are those of.
    struct Editor
    {
        bool isOpen = false;
        int position = 0; ///< of the cursor
        int line = 0; ///< of the cursor, from 1
        int lineCount = 0;
    };

    /// What there is to go to. Lists are asked for whenever their mode is entered.
    struct Sources
    {
        std::function<Editor()> editor; ///< asked with each opening
        /// Open editors, the active one first and then as they were used; then recent files.
        std::function<QVector<GoToEntry>()> files;
        std::function<QVector<GoToEntry>()> symbols;
        std::function<QVector<GoToEntry>()> commands;
        std::function<QString(Mode)> shortcut; ///< of the command that opens a mode, for showing
    };

    /// `anchor` is what the widget keeps to the top of, a descendant of the parent; the widget may
    /// be wider.
    GoToWidget(const Sources& sources, QWidget* anchor, QWidget* parent);

    /// Shows the widget in that mode. When it is there already and in that mode, the next row
    /// becomes the current one.
    void Open(Mode mode);
    /// The files of the workspace are others.
    void RefreshFiles();

Q_SIGNALS:
    /// Line and column from 1, 0 for none.
    void FileChosen(const QString& path, int line, int column, bool inNextGroup);
    /// From `start` to before `end` in the script. `chosen`: go there; otherwise only show it.
    void SymbolPicked(int start, int end, bool chosen);
    void LinePicked(int line, int column, bool chosen);
    /// The `value` of the command's entry.
    void CommandChosen(int command);
    /// The editor is to be as it was before the first symbol or line was shown.
    void PreviewEnded();
    /// The widget is about to go: the focus is to be where it was before.
    void FocusReturnRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void CreateWidgets();
    void CreateLayout();
    void CreateConnections();
    void UpdateLook();
    void FollowAnchor();
    void Place();

    // Input
    bool HandleKey(const QKeyEvent& event);
    void OnFocusOut(Qt::FocusReason reason);
    void OnWindowLeft();
    void OnTextChanged();
    void OnRowClicked(const QModelIndex& index);
    void MoveBy(int step, bool wraps);
    void Accept(bool inNextGroup);
    void AcceptEntry(const GoToEntry& entry, bool inNextGroup);
    void Cancel();
    void Leave();

    // What is listed
    QString TypedText() const;
    QString FilterText() const;
    void EnterMode(Mode mode);
    QVector<GoToEntry> HelpEntries() const;
    void TakeFiles();
    void OnFilesGrown();
    void OnFilesFinished(bool changed);
    void ShowMatches();
    void ShowLine();
    void SetRows(const QVector<GoToModel::Row>& rows, int current);
    void AddPastedPath(QVector<GoToModel::Row>& rows) const;
    QString EmptyText() const;
    int FirstRow() const;
    int CurrentRow() const;
    void SetCurrentRow(int row);
    void Preview();
    void EndPreview();

    Sources m_sources;
    QWidget* m_anchor; ///< not owned
    QLineEdit* m_field = nullptr;
    QListView* m_list = nullptr;
    GoToModel* m_model = nullptr;
    GoToRowDelegate* m_delegate = nullptr;
    WorkspaceFiles* m_workspaceFiles = nullptr;
    Mode m_mode = Mode::Files;
    Editor m_editor; ///< as it was when the widget was opened
    QVector<GoToEntry> m_entries; ///< of the mode
    int m_knownFiles = 0; ///< before those of the workspace
    QSet<QString> m_listedPaths; ///< of these
    int m_takenFiles = 0; ///< of the workspace
    QElapsedTimer m_sinceShown; ///< since files that were found were shown
    GoToFilter m_filter;
    GoToEntries::FilePlace m_line; ///< what the text names in that mode
    bool m_hasMoved = false; ///< to a row that is not the first choice
    bool m_isPreviewing = false;
    bool m_isLeaving = false;
};
