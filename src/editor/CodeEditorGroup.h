#pragma once

#include "editor/CodeEditorProperties.h"
#include "editor/TabDropZone.h"
#include "language/PylintOptions.h"

#include <QPointer>
#include <QRegularExpression>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

class BaseParser;
class CodeEditor;
class CodeEditorGroupTabBar;
class EmptyGroupHint;
class FindReplaceWidget;
class FlatButton;
class KeyBindings;
class MelParser;
class OverlayWidget;
class PylintWorker;
class PythonParser;
class QAction;
class QMimeData;
class QStackedWidget;
class QThread;
class QTimer;

/// One tabbed pane of code editors with its mini tool bar, the parsers that check the current one,
/// and a thread for pylint. Owned by the window; lives on the interface thread; speaks to the
/// window by signals. Invariant: tab i of the bar always shows
/// editor i of the stack; operations that would break it log an error and change nothing.
/// Operations on an index without an editor do nothing or give a neutral value.
class CodeEditorGroup : public QWidget
{
    Q_OBJECT

public:
    /// `id` is the group's index in the window and never changes; `keyBindings` is not owned.
    /// `newBufferAction` is the window's, offered where there is no editor; may be null.
    CodeEditorGroup(int id, KeyBindings* keyBindings, QAction* newBufferAction, QWidget* parent);
    /// Waits for the pylint thread, a second at most.
    ~CodeEditorGroup() override;

    int GetId() const { return m_id; }
    int GetCount() const;
    int GetCurrentIndex() const;
    void SetCurrentIndex(int index);
    CodeEditor* GetCodeEditor(int index) const;
    CodeEditor* GetCurrent() const;
    bool CodeEditorExists(const QString& path) const { return GetCodeEditorIndex(path) >= 0; }
    /// -1 when no editor shows that path.
    int GetCodeEditorIndex(const QString& path) const;
    QList<CodeEditorProperties> GetAllProperties() const;
    /// Most recently used first; what was never current follows in tab order.
    QList<CodeEditorProperties> GetLastUsedEditors() const;

    // The editor's operations by tab index
    CodeEditorProperties GetProperties(int index) const;
    CodeEditorType GetType(int index) const;
    CodeEditorLanguage GetLanguage(int index) const;
    QString GetFilePath(int index) const;
    QString GetLabel(int index) const;
    QString GetText(int index) const;
    void SetText(int index, const QString& text);
    QString GetSelectedTextForExecute(int index) const;
    QString GetCurrentLineForExecute(int index) const;
    bool IsModified(int index) const;
    void SetModified(int index, bool modified);
    int GetCursorPosition(int index) const;
    void SetCursorPosition(int index, int position);
    void SetCursorSelection(int index, int start, int end);
    int GetVerticalScrollBarValue(int index) const;
    void SetVerticalScrollBarValue(int index, int value);

    // Editors. Inserting past the end appends; the place is returned, -1 on failure.
    int InsertCodeEditor(int index, const CodeEditorProperties& properties, const QString& text);
    int InsertCodeEditor(int index, CodeEditor* editor);
    /// Hands the editor back without deleting it; the caller owns it then. Null on failure.
    CodeEditor* RemoveCodeEditor(int index);
    void DeleteCodeEditor(int index);
    /// Within the group; `to` is the place that the editor has afterwards.
    void MoveCodeEditor(int from, int to);
    /// Takes the editor at `from` of another group over; its text and its history stay as they are.
    void MoveCodeEditor(CodeEditorGroup* source, int from, int to);
    void SetProperties(int index, const CodeEditorProperties& properties);
    /// After a file got another name. Does nothing when no editor shows the old path.
    void UpdateFilePath(
        const QString& oldPath, const QString& newPath, CodeEditorLanguage language);
    void SetTabLabel(int index, const QString& label, bool modified, CodeEditorType type);
    void SetTabToolTip(int index, const CodeEditorProperties& properties);
    int GetTabBarScrollValue() const;
    void SetTabBarScrollValue(int value);
    void FocusCurrentCodeEditor();
    /// The tab's own menu, at a point of the screen.
    void ShowTabContextMenu(int index, const QPoint& globalPoint);

    // Find and replace in the current editor
    /// `takeSearchText`: seek what is selected or under the cursor.
    void ShowFindReplace(bool replace, bool takeSearchText, bool focus, bool focusReplace);
    void SetFindReplaceVisible(bool visible);
    bool IsFindReplaceVisible() const;
    void SetSearchText(const QString& text);
    bool HasSearchText() const;
    /// Seeks what is selected or under the cursor, without showing the bar.
    void SelectAndFind(bool backward);
    FindReplaceWidget* GetFindReplace() const { return m_findReplace; }
    /// Takes the marks off the editor that is shown.
    void ClearSearch();
    /// Ends finding in a region of the editor that is shown.
    void ClearSearchSelection();
    void UpdateSearchResults(CodeEditor* editor);

    // Re-reading the settings
    void UpdateTextOptions();
    void UpdateFontsAndColors();
    void UpdateFont();
    void UpdateOverwriteMode();
    void UpdateKeyBindings();
    void UpdatePreferences();

    // Parsing. Only the current editor is parsed, and only while it can be seen.
    /// Parses the current editor now and tells the result by ParserUpdated.
    void UpdateParser();
    void SetParsingEnabled(bool enabled) { m_parsingEnabled = enabled; }
    /// The parser of the current editor's language; null for plain text and without an editor.
    BaseParser* GetParser() const;

    /// Whether a drop at the edges may split off a new group.
    void SetTabDropOtherGroupsEnabled(bool enabled) { m_tabDropOtherGroupsEnabled = enabled; }

    /// Shows the tool bar when the settings want it.
    void SetMiniToolbarVisible(bool visible);
    /// Only the group that the user works in has the accent.
    void SetActive(bool active);

Q_SIGNALS:
    void NewTabRequested();
    void CurrentTabChanged();
    void CursorPositionChanged();
    void OverwriteModeChanged();
    void ErrorAndWarningTextChanged();
    void ExecutePressed();
    void ExecuteAllPressed();
    void ExecuteLinePressed();
    void SaveScriptToShelfPressed();
    void InsertPathRequested();
    void PythonDirRequested();
    void PythonHelpRequested();
    void PythonUpdateModuleStateRequested();
    void PythonRevertModuleStateRequested();
    void TogglePythonRevertModuleStateOnExecuteRequested();
    void MiniToolbarDisplayModified();
    void IncreaseFontSizeRequested();
    void DecreaseFontSizeRequested();
    void ShutdownWorkers();
    void ReceivedFocus(CodeEditorGroup* group);
    void CloseTabRequested(CodeEditorGroup* group, int index);
    void CloseOtherTabsRequested(CodeEditorGroup* group, int index);
    void CloseTabsToRightRequested(CodeEditorGroup* group, int index);
    /// The target index is the place that the tab has afterwards.
    void MoveTabRequested(int sourceGroupId, int sourceIndex, int targetGroupId, int targetIndex);
    void RenameRequested(CodeEditorGroup* group, int index);
    void MoveTabToZoneRequested(
        int sourceGroupId, int sourceIndex, int targetGroupId, TabDropZone zone);
    /// A file that gets no tab at `index` (it is open already) leaves the place to the next one.
    void OpenFileRequested(int groupId, int index, const QString& path);
    void ShowInSideBarRequested(const QString& path);
    void TextChanged(const QString& path, const QString& text);
    void FileChanged(const QString& path);
    /// To the worker thread, as copies.
    void PylintSourceCode(const QString& text, const QString& path, const QString& pythonPath);
    /// Sent before the text that they are for.
    void PylintOptionsTaken(const PylintOptions& options);
    void OpenFilesRequested(int groupId, TabDropZone zone, const QStringList& paths);
    /// Null when there is nothing to show; otherwise to be read at once.
    void ParserUpdated(BaseParser* parser);
    void QuickHelpChanged(const QString& text, bool isRequested);
    /// An editor came, went, moved, or is called or marked differently.
    void TabsChanged();

public Q_SLOTS:
    /// Also with the bar closed: what was sought last.
    void FindNext();
    void FindPrevious();
    void CloseFindReplace();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private Q_SLOTS:
    void OnSearchChanged(const QRegularExpression& expression, bool findInSelection,
        bool incremental, bool retakeRegion);
    void OnFindReplaceClosed();
    void Replace(const QString& text);
    void ReplaceAll(const QString& text);
    void OnCurrentTabChanged(int index);
    void OnCodeEditorReceivedFocus() { Q_EMIT ReceivedFocus(this); }
    void OnTextChanged(const QString& path, const QString& text);
    void OnModificationChanged(bool modified, CodeEditor* editor);
    void OnFileChanged(const QString& path) { Q_EMIT FileChanged(path); }
    void OnCursorPositionChanged() { Q_EMIT CursorPositionChanged(); }
    void OnExecute() { Q_EMIT ExecutePressed(); }
    void OnExecuteAll() { Q_EMIT ExecuteAllPressed(); }
    void OnExecuteLine() { Q_EMIT ExecuteLinePressed(); }
    void OnMoveRequested(int sourceGroupId, int sourceIndex, int target);
    /// One after the other, each behind the one before it.
    void RequestOpenFiles(int index, const QStringList& paths);
    void CopyPath(int index);
    void OnShowInFolder(int index);
    void OnPylintOutput(const QString& path, const QStringList& lines, int fieldCount);
    void OnPylintFailed(const QString& path);
    void ShowOpenCodeEditorContextMenu();
    void SetCurrentTabFromAction();
    /// At a point of the hint.
    void ShowEmptyContextMenu(const QPoint& point);
    /// At a global point.
    void ShowMiniToolbarContextMenu(const QPoint& point);
    void UpdateMiniToolbar();

private:
    struct MiniButton;
    /// Whose text a parser's results are about.
    struct ParsedText
    {
        QPointer<CodeEditor> editor;
        int revision = 0; ///< of the document
    };

    // Find and replace
    void CreateFindReplace();
    void ConnectEditorSearch(CodeEditor* editor);
    /// Before and after another editor becomes current.
    void LeaveSearch();
    void EnterSearch();
    bool IsSearching() const;
    bool ShowReadOnly(const CodeEditor& editor);
    void RunSearch(const std::function<void(CodeEditor&)>& operation);
    void ShowSearchResults();
    void UpdateFindReplacePosition();

    void CreateWidgets();
    void CreateLayout();
    void UpdateMiniToolbarSpacing();
    void CreateConnections();
    void ConnectTabBarRequests();
    void ConnectEditor(CodeEditor* editor);
    bool CheckCounts(const char* failure) const;
    void UpdateLastUsedEditorOrder();
    void RenameLastUsedEditor(const QString& oldPath, const QString& newPath);
    void ScrollTabs();
    void BeginScroll(int direction);
    static const MiniButton* MiniButtons();
    void ToggleMiniToolbarDisplay(const MiniButton& row);
    bool HasRoomForMiniToolbar() const;

    // Checking
    void UpdateParser(CodeEditor* editor);
    BaseParser* GetParser(CodeEditorLanguage language) const;
    void Parse(CodeEditor& editor, BaseParser& parser);
    bool IsParsed(const CodeEditor& editor, const BaseParser& parser) const;
    static void ShowMessages(CodeEditor& editor, const BaseParser& parser);
    void RequestPylint(const QString& text, const QString& path);
    void CreateWorkerThread();
    void DestroyWorkerThread();

    // Drops
    void UpdateDropZone(const QPoint& point, const QMimeData* payload);
    void SetDropZone(TabDropZone zone, const QRect& rectangle);
    void ClearDropZone();

    int m_id;
    KeyBindings* m_keyBindings; ///< not owned
    CodeEditorGroupTabBar* m_tabBar = nullptr;
    QStackedWidget* m_stack = nullptr;
    QWidget* m_miniToolbar = nullptr;
    FlatButton* m_scrollLeftButton = nullptr;
    FlatButton* m_scrollRightButton = nullptr;
    FlatButton* m_executeButton = nullptr;
    FlatButton* m_executeAllButton = nullptr;
    FlatButton* m_executeLineButton = nullptr;
    FlatButton* m_openEditorsButton = nullptr;
    FindReplaceWidget* m_findReplace = nullptr;
    QRegularExpression m_searchRegEx; ///< what was sought last; without pattern: nothing
    QTimer* m_scrollTimer = nullptr;
    int m_scrollDirection = 0;
    bool m_miniToolbarVisible = false; ///< wanted; a narrow group hides it all the same
    QStringList m_lastUsedPaths; ///< most recent first
    bool m_parsingEnabled = true;
    std::unique_ptr<MelParser> m_melParser;
    std::unique_ptr<PythonParser> m_pythonParser;
    ParsedText m_parsedMel;
    ParsedText m_parsedPython;
    QThread* m_workerThread = nullptr;
    QPointer<PylintWorker> m_pylintWorker; ///< lives on the worker thread
    EmptyGroupHint* m_emptyHint = nullptr;
    TabDropZone m_dropZone = TabDropZone::NoZone;
    QPointer<CodeEditor> m_dropEditor; ///< shows the zone; null over a group without editors
    OverlayWidget* m_emptyDropOverlay = nullptr;
    bool m_tabDropOtherGroupsEnabled = false;
};
