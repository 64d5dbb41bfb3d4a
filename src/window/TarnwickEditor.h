#pragma once

#include "editor/CodeEditorProperties.h"
#include "editor/RememberedView.h"
#include "editor/TabDropZone.h"
#include "files/DiskContents.h"
#include "files/FileStamp.h"
#include "files/TextFormat.h"
#include "settings/KeyBindings.h"
#include "views/SideBar.h"
#include "views/goto/GoToWidget.h"
#include "window/EditorActions.h"
#include "window/chrome/ActivityBar.h"

#include <QHash>
#include <QList>
#include <QPointer>
#include <QSet>
#include <QVector>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class BaseParser;
class BusyLoop;
class CodeEditor;
class CodeEditorGroup;
class GrooveSplitter;
class GuestTabs;
class FindReplaceWidget;
class PanelGroup;
class QFileInfo;
class QHBoxLayout;
class QMenu;
class QMenuBar;
class QShortcutEvent;
class QSplitter;
class QVariantAnimation;
class RecoveryKeeper;
class RecoveryLeftovers;
class RecoveryNotice;
class SearchRun;
class SessionLock;
class StatusBar;
class TarnwickStyle;
enum class FormatAnswer;
struct FormatQuestion;
struct GroupPlan;
struct RecoverySnapshot;
struct SaveBatch;
struct SearchFilter;
struct SearchResult;
struct TabDetails;

/// The editor window, placed in the host's workspace control: owns the code editor groups, the
/// output panel and the status bar, decides what is executed, and carries the host's output into
/// the console. Made and deleted by the editor command. Everything is for the interface thread but
/// AppendToOutputThreadSafe.
class TarnwickEditor : public QWidget
{
    Q_OBJECT

public:
    /// What of an editor's text is executed.
    enum ExecuteKind {
        ExecuteWhole = 0,
        ExecuteSelection = 1, ///< everything when nothing is selected
        ExecuteCurrentLine = 2,
    };

    explicit TarnwickEditor(QWidget* parent = nullptr);
    ~TarnwickEditor() override;

    /// Saves what must outlive the window; called before it is deleted.
    void Shutdown();
    void WriteUserConfigs();
    void ApplyPreferences();

    // Groups and editors
    int GetCodeEditorGroupCount() const { return m_groups.size(); }
    int GetCodeEditorGroupIndex(const CodeEditorGroup* group) const;
    CodeEditorGroup* GetCodeEditorGroupByIndex(int index) const;
    int GetActiveCodeEditorGroupIndex() const;
    CodeEditorGroup* GetActiveCodeEditorGroup() const;
    CodeEditor* GetActiveCodeEditor() const;
    CodeEditor* GetCodeEditorWithFocus() const;
    CodeEditor* GetCodeEditor(const QString& path) const;
    CodeEditor* GetCodeEditor(const QString& path, bool openIfMissing);
    CodeEditorGroup* GetCodeEditorGroupByPath(const QString& path) const;
    int GetCodeEditorIndex(const CodeEditorGroup* group, const QString& path) const;
    bool CodeEditorExists(const QString& path) const;
    int GetCodeEditorCount() const;
    QStringList GetCodeEditorPaths() const;
    void SetActiveCodeEditorGroup(CodeEditorGroup* group, bool force);
    void SetActiveCodeEditor(int groupIndex, int tabIndex, bool focus);
    void SetActiveCodeEditor(const QString& path);
    void FocusActiveCodeEditor();
    /// The new tab's index; -1 when the file is open already (its tab becomes current) or there is
    /// no group.
    int CreateCodeEditor(CodeEditorType type, CodeEditorLanguage language, const QString& path,
        const QString& label, const QString& text, CodeEditorGroup* group, int index);
    /// The same with the text of the file, the language of its name and, without a label, its
    /// name. -1 also for a file that cannot be read, which has been logged.
    int CreateCodeEditor(CodeEditorType type, const QString& path, const QString& label,
        CodeEditorGroup* group, int index);
    static CodeEditorLanguage GetLanguageFromFilename(const QFileInfo& info);
    /// Puts the open tabs into the settings.
    void UpdateCodeEditorGroupDetails();

    // Files and buffers. A buffer is a tab without a name of its own, whose text a file in the
    // internal buffer folder keeps.
    void NewBuffer(CodeEditorLanguage language);
    /// Opens the file in the active group, or shows the tab that has it. The flag tells a restored
    /// session from a request.
    void OpenFile(const QString& path, bool restoring);
    /// Null when the file cannot be read, which has been logged.
    QString GetFileText(const QString& path);
    void SaveAll(bool saveBuffers, bool saveFiles);
    bool SaveCodeEditor(const QString& path, const QString& text);
    bool SaveCodeEditor(int groupIndex, int tabIndex);
    bool ModifiedFilesExist() const;
    /// Without `ask` nobody is asked and nothing is saved or deleted. False only when the user
    /// cancelled or the text could not be saved: then nothing more is to be closed either.
    bool CloseCodeEditor(CodeEditorGroup* group, int index, bool ask);
    void Rename(CodeEditorGroup* group, int index);
    /// A file has another name now: editors and views follow.
    void OnFilePathChanged(const QString& oldPath, const QString& newPath);
    void DeleteFileByPath(const QString& path);
    void AddRecentFile(const QString& path);

    // Module state
    bool IsPythonModuleStateUpdated() const { return m_pythonModuleStateUpdated; }

    // Output
    /// Shows the text in the console. Any thread: touches nothing, only emits a signal.
    void AppendToOutputThreadSafe(const QString& text);

Q_SIGNALS:
    void AppendToOutputRequested(const QString& text);

public Q_SLOTS:
    // Execution; only ever of the editor that has the focus
    void Execute(int kind);
    void Execute() { Execute(ExecuteSelection); }
    void ExecuteAll() { Execute(ExecuteWhole); }
    void ExecuteLine() { Execute(ExecuteCurrentLine); }
    void SourceScript();
    void SaveScriptToShelf();
    void PythonUpdateModuleState();
    void PythonRevertModuleState();
    void UpdatePythonRevertModuleStateOnExecute();
    void OnTogglePythonRevertModuleStateOnExecuteRequested();
    /// Of the selected name, or of the one at the cursor, with its dots.
    void PythonDirSelection();
    void PythonHelpSelection();
    void PrintPythonPath();
    void PrintPythonEnviron();
    /// Prints the variable that the sending action is named after.
    void PrintMayaEnvVarPaths();

    // Files and buffers; of the active editor where nothing else is said
    /// Asks for the language.
    void NewBuffer();
    void NewMelBuffer();
    void NewPythonBuffer();
    void OpenFile();
    /// Opens the file that the sending action carries.
    void OpenRecentFile();
    void ReopenClosedFile();
    void ClearRecentFiles();
    void Save();
    void SaveAs();
    void SaveAll() { SaveAll(true, true); }
    void Rename();
    void RevertFile();
    void CloseFile();
    void CloseAllFiles();
    void SaveState() { WriteUserConfigs(); }
    /// Looks after the files that other programs changed; asks where something would be lost.
    void CheckForFileChanges();

    // Output
    void AppendToOutput(const QString& text);
    void ClearHistory();
    /// Tells the three verbosities apart by the sending action.
    void UpdateOutputVerbosity();
    void OnEchoAllCommandsChanged();
    void ToggleLineNumbersInErrors();
    void ToggleShowStackTrace();
    void ToggleSuppressStackWindow();
    void ToggleEchoAllCommands();
    void ToggleWriteOutputToFile();

    // Editing, in the editor or the console that has the focus
    void Undo();
    void Redo();
    void Cut();
    void Copy();
    void Paste();
    void SelectAll();
    void IncreaseIndent();
    void DecreaseIndent();
    void CopyLineUp();
    void CopyLineDown();
    void MoveLineUp();
    void MoveLineDown();
    void DeleteLine();
    void ToggleComment();
    void ToggleBlockComment();
    void ConvertTabsToSpaces();
    void Find();
    void Replace();
    void FindNext();
    void FindPrevious();
    void SelectAndFindNext();
    void SelectAndFindPrevious();
    void ReplaceNext();
    void ReplaceAll();
    void FindInFiles();
    void ReplaceInFiles();
    void FindInFilesNext();
    void FindInFilesPrevious();
    void ShowInsertPathDialog();
    void IncreaseFontSize();
    void DecreaseFontSize();
    void ResetFontSize();
    void IncreaseCodeEditorFontSize();
    void DecreaseCodeEditorFontSize();
    void IncreaseOutputFontSize();
    void DecreaseOutputFontSize();
    void ToggleRenderWhitespace();
    void ToggleWordWrap();
    /// Does not wait for the dialog.
    void ShowPreferencesDialog();

    // Panes. Whatever had the focus in a pane that goes hands it on.
    void ToggleCodeEditor();
    void ToggleOutput();
    void ToggleSideBar();
    void ToggleActivityBar();
    void ToggleStatusBar();
    void ToggleCodeEditorLayout();
    void ToggleSideBarPosition();
    void ShowExplorer();
    void OutputPositionTop() { SetOutputPosition(true, true); }
    void OutputPositionBottom() { SetOutputPosition(true, false); }
    void OutputPositionLeft() { SetOutputPosition(false, true); }
    void OutputPositionRight() { SetOutputPosition(false, false); }

    // Going around; which way is told by the sending action
    void GoToEditor();
    void GoToEditorGroup();
    void GoToFile();
    void GoToSymbolInFile();
    void GoToLine();
    /// To the next message behind the cursor of the active editor, and round at the end.
    void GoToNextMessage();
    /// To the message that the status bar shows.
    void GoToMessageOfLine();

    // Workspace
    void OpenWorkspace();
    void SaveWorkspaceAs();
    void AddFolderToWorkspace();
    /// The workspace has other folders or files.
    void OnWorkspaceModified();

    // Search in files
    /// Searches the folders and files to include, or else the open buffers and the workspace.
    /// Paints meanwhile and ends when Escape is pressed.
    void Search(const QString& text, const QStringList& include, const QStringList& exclude,
        bool matchCase, bool matchWord, bool useRegularExpression);
    /// Whether the patterns of the last search let a file in, by its absolute path.
    bool IncludePathInSearch(const QString& path) const;
    /// Brings the results of an open editor's path up to date. An empty label means its own.
    void UpdateSearch(const QString& filePath, const QString& label);

    // Quick help
    void ShowQuickHelp();
    void OnQuickHelpChanged(const QString& text, bool isRequested);

    // Host
    void UpdateOverrideScriptEditorButton();
    void MelCommandReference();
    void PythonCommandReference();
    void NodeAndAttributeReference();
    /// The host's page on what is selected in the active editor; its index when nothing is.
    void OpenCommandReference();
    /// Pylint's configuration in an editor; offers to make one where there is none.
    void OpenPylintrc();
    void ShowAboutDialog();

    // Keeping the views in step
    void OnActiveCodeEditorChanged();
    void UpdateOpenEditors();
    /// Parses the active editor again.
    void UpdateParser();
    void OnParserUpdated(BaseParser* parser);
    void UpdateInterpreter();
    void UpdateCursorPosition();
    void UpdateTextFormat();
    void UpdateTitleBar();
    void UpdateStatusBarInfo();
    void OnApplicationFocusChanged(QWidget* old, QWidget* now);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;

private Q_SLOTS:
    void ReplaceSearchHits(const QVector<SearchResult>& hits, const QString& text);
    void ReplaceSearchHit(const SearchResult& hit);
    void ShowSearchHit(const SearchResult& hit, bool focus);
    void UpdateSearchOfEditors();
    void UpdateSearchMarks();
    void OnNewTabRequested();
    void OnMiniToolbarDisplayModified();
    void OnFileChanged(const QString& path);
    void OnCloseTabRequested(CodeEditorGroup* group, int index);
    void OnCloseOtherTabsRequested(CodeEditorGroup* group, int index);
    void OnCloseTabsToRightRequested(CodeEditorGroup* group, int index);
    void OnMoveTabRequested(int sourceId, int sourceIndex, int targetId, int targetIndex);
    void OnMoveTabToZoneRequested(int sourceId, int sourceIndex, int targetId, TabDropZone zone);
    void OnOpenFileRequested(int groupId, int index, const QString& path);
    void OnOpenFilesRequested(int groupId, TabDropZone zone, const QStringList& paths);
    void OnCurrentTabChanged();
    void OnCodeEditorGroupReceivedFocus(CodeEditorGroup* group);
    void OnOverwriteModeChanged();
    void OnWriteToFileUpdated(bool active);
    void OnShowEditMenu();
    void OnShowViewMenu();
    void OnShowOutputVerbosityMenu();
    void OnGoToFileChosen(const QString& path, int line, int column, bool inNextGroup);
    void OnGoToSymbolPicked(int start, int end, bool chosen);
    void OnGoToLinePicked(int line, int column, bool chosen);
    void OnGoToCommandChosen(int command);
    void OnGoToPreviewEnded();
    void OnGoToFocusReturnRequested();

private:
    struct ActionSpec;
    struct MenuRow;
    enum class UnsavedAnswer { Save, Discard, Cancel };
    enum class CloseAnswer { Close, Keep, Cancel };

    // Construction
    void InitializeForMaya();
    /// Makes an action of the window and stores it in `*action`.
    void CreateAction(QAction** action, const QString& text, const QString& statusTip,
        KeyBindings::KeySequenceType binding, bool checkable);
    void CreateActions();
    void RenameFindInFiles(const QString& text);
    void CreateMenus();
    void OnMenuChildPolished(QObject* child);
    bool RunAmbiguous(QObject* action, const QShortcutEvent& event);
    void CreateWidgets();
    void CreateLayout();
    void CreateConnections();
    void ConnectGroup(CodeEditorGroup* group);
    void ConnectSideBar();
    void ConnectWorkspace();
    void ConnectSearch();
    void UpdateOpenEditorsSelection();
    void ShowInSideBar(const QString& path);
    void UpdateOutlineCursor();
    void ShowQuickHelpOn(const QString& name);
    static QString NameForHelp(const CodeEditor& editor);
    QuickHelpTopics::Script ScriptForHelp() const;
    void ShowFileLine(const QString& path, int line);
    void InsertFlag(const QString& longName);
    void InsertPath(const QString& path);
    void FindInFolder(const QString& folder);
    void OnPathMoved(const QString& from, const QString& to);
    void OnPathDeleted(const QString& deleted);
    /// Empty when cancelled.
    QString ShowSaveWorkspaceDialog();
    QString ShowOpenWorkspaceDialog();
    void ApplyTheme();
    void SyncActions();

    // Groups
    void RefreshCodeEditorGroups(bool focus);
    bool IsTarnwickEditorWidget(const QWidget* widget) const;
    QString ExecuteText(const CodeEditor& editor, int kind) const;
    void CallPythonOnSelection(const QString& function);
    QString ShowNewPylintrcDialog();
    void RestoreCodeEditors();
    void RestoreCodeEditor(const TabDetails& details);

    // Search in files
    class SearchOwner;
    void RunSearch(const SearchFilter& filter);
    void SearchEverything(SearchRun& run, const SearchFilter& filter);
    void TakeSearchText();
    CodeEditor* OpenSearchHit(const SearchResult& hit);
    QString ReplaceInPath(
        const QString& path, const QVector<SearchResult>& hits, const QString& text);
    void UpdateSearchResults(const QString& path);

    // Several hosts on one preferences folder
    bool IsGuest() const;
    void StartSession();
    void AdoptGuestTabs();
    void StoreConfiguration();
    bool StoreGuestTabs();
    void EndGuestSession();

    // Files
    void PreSave(CodeEditor* editor);
    bool WriteCodeEditor(CodeEditor* editor);
    /// Empty when cancelled.
    QString ShowSaveFileNameDialog(const CodeEditorProperties& properties);
    /// Of all files when the name is empty.
    UnsavedAnswer ShowUnsavedFileDialog(const QString& name);
    bool ShowConfirmCloseInternalBufferDialog(const QString& label);
    /// Asks where something would be lost, and saves or deletes as the answer wants it.
    CloseAnswer PrepareClosingBuffer(const CodeEditorProperties& properties);
    CloseAnswer PrepareClosingFile(const CodeEditorProperties& properties);
    void CloseTabs(const QStringList& paths);
    bool ConfirmReplacing(const QString& path);
    void BecomeFile(const CodeEditorProperties& old, const QString& path);
    void RenameBuffer(CodeEditorProperties properties, const QString& name);
    void RenameFile(const QString& oldPath, const QString& name);
    bool WriteFile(const QString& path, const QString& text, const TextFormat& found);
    bool ChooseBytes(
        const QString& path, const QString& text, TextFormat& format, QByteArray& bytes);
    FormatAnswer AskAboutFormat(const FormatQuestion& question, const TextFormat& format);
    bool MayOpen(const QString& path);
    void DropOddCharacters(const QString& path, const QString& saved);
    void FollowFileChange(const QString& path);
    void TakeFileChange(const QString& path, CodeEditor& editor);
    void ReloadFile(const QString& path);
    QString ReadText(const QString& path, CodeEditorType type);
    void OnPathChanged(const QString& oldPath, const QString& newPath);
    void ActivateGroupWithEditors();
    void UpdateRecentFilesMenu();
    /// False when the user wants to go on.
    bool MayHostClose();
    static QString DefaultBufferLabel(CodeEditorLanguage language);

    // Unsaved text that outlives a crash
    void StartRecovery();
    void EndRecovery();
    void WatchForRecovery();
    RecoverySnapshot DescribeForRecovery(const CodeEditor& editor) const;
    /// To be called before anything that may end the host: all that is not saved is on the disk
    /// afterwards.
    void KeepUnsavedText();
    /// To be called before an editor's file is written.
    void NoteSaving(const QString& path, const QByteArray& fingerprint);
    void OfferRecovery(const QString& folder);
    void RestoreUnsavedText();
    void RestoreSnapshot(const RecoverySnapshot& snapshot);
    void CloseRecoveryOffer(bool drop);

    // Tabs that are moved
    QVector<int> CountTabs() const;
    void MoveGroupsAlong(const GroupPlan& plan);
    static void MoveAllTabs(CodeEditorGroup* source, CodeEditorGroup* target);
    void FinishMove(const QString& path);
    void EditActive(const std::function<void(CodeEditor&)>& operation);
    void ShowFindReplace(bool replace);
    void FindAgain(bool backward);
    bool IsFocusInOutput() const;
    void FindAgainInOutput(bool backward);
    void SelectAndFind(bool backward);
    void SelectAndFindInOutput(bool backward);
    FindReplaceWidget* TakeReplaceBar();
    void SetCodeEditorZoom(int zoom);
    void GoToNeighbour(int step);
    void GoToUsedEditor(int step);
    void FollowUsedEditorWalk(const QEvent& event);
    void EndUsedEditorWalk();
    void SetOutputZoom(int zoom);

    // Going to files, symbols, lines and commands
    void CreateGoTo();
    void OpenGoTo(GoToWidget::Mode mode);
    void NoteUsedEditor();
    QVector<GoToEntry> GetGoToFiles() const;
    QVector<GoToEntry> GetGoToSymbols();
    QVector<GoToEntry> GetGoToCommands() const;
    void NameHiddenCommands(QVector<GoToEntry>& entries) const;
    CodeEditor* TakeGoToTarget(bool chosen);
    void FocusGoToTarget();

    // Layout. Extents are pixels in the direction of the splitter; the settings hold those that
    // the panes have, or come back with.
    void CreateCodeEditorGroups();
    void CreateSplitters();
    void ArrangeOutputSplitter();
    void ArrangeSideBarSplitter();
    void PlaceActivityBar();
    void SetEqualGroupSizes();
    void RestoreSplitterState();
    void SaveSplitterState();
    void ForgetUnchosenSizes();
    static int SideBarMinimumWidth();
    int SideBarExtent() const;
    int StoredSideBarExtent();
    int StoredOutputExtent();
    int TakeDefaultSideBarExtent();
    int TakeDefaultOutputExtent();
    void SetSideBarExtent(int extent);
    void SetOutputExtent(int extent);
    void OnSplitterHandleEvent(const QSplitter* splitter, const QEvent& event);
    void OnSplitterDragged();
    void SaveWindowGeometry(bool hiding);

    // Panes
    void SetPanesVisible(bool codeEditor, bool output);
    void ShowPanes();
    void FocusShownPane();
    void UpdatePaneActions();
    void UpdateLineMessage();
    bool IsSideBarShown() const;
    void SetSideBarVisible(bool visible, bool animated);
    void SlideSideBar();
    void FinishSideBarSlide();
    void SetOutputPosition(bool vertical, bool topLeft);
    void ShowSideBarPage(SideBar::Page page);
    void OnActivityPressed(ActivityBar::Item item);
    void UpdateActivityItems();
    void UpdateActivityBar();
    void UpdateActivityToolTips();
    void OnPreferencesApplied();
    /// Puts the keys in force into the tool tips.
    void ShowBoundKeys();
    void ShowActivityContextMenu(const QPoint& point);

    static const ActionSpec ACTIONS[];
    static const MenuRow MENUS[];

    std::unique_ptr<TarnwickStyle> m_style; ///< outlives the children's use of it
    QWidget* m_mainWindow = nullptr; ///< the host's; not owned
    QList<CodeEditorGroup*> m_groups; ///< owned by the widget tree
    KeyBindings m_keyBindings;
    DiskContents m_diskContents; ///< of the open files
    QHash<QString, TextFormat> m_fileFormats; ///< how the open files stand on the disk
    QHash<QString, FileStamp> m_searchStamps; ///< of the files with results, as they were searched
    QSet<QString> m_changedWhileSearching; ///< paths whose results are due
    BusyLoop* m_busyLoop = nullptr; ///< while files are searched or replaced in; not owned
    SaveBatch* m_saveBatch = nullptr; ///< while several files are saved; not owned
    std::unique_ptr<SessionLock> m_session;
    std::unique_ptr<GuestTabs> m_guestTabs; ///< of a guest
    /// Of guests that have ended; theirs until this session has stored them.
    std::vector<std::unique_ptr<GuestTabs>> m_adoptedTabs;
    bool m_isShuttingDown = false; ///< nobody can be asked any more
    bool m_checkingForFileChanges = false;
    std::unique_ptr<RecoveryKeeper>
        m_recovery; ///< null without a preferences folder, and at the end
    std::unique_ptr<RecoveryLeftovers> m_leftovers; ///< while they are offered
    RecoveryNotice* m_recoveryNotice = nullptr;
    QMenuBar* m_menuBar = nullptr;
    QMenu* m_recentFilesMenu = nullptr;
    QSplitter* m_codeEditorSplitter = nullptr;
    QSplitter* m_outputSplitter = nullptr;
    PanelGroup* m_outputPanel = nullptr;
    GrooveSplitter* m_sideBarSplitter = nullptr;
    SideBar* m_sideBar = nullptr;
    QVariantAnimation* m_sideBarSlide = nullptr;
    QHBoxLayout* m_middleRow = nullptr; ///< between the menu bar and the status bar
    ActivityBar* m_activityBar = nullptr;
    StatusBar* m_statusBar = nullptr;
    int m_defaultSideBarExtent = -1; ///< as it was last given while nobody had chosen another
    int m_defaultOutputExtent = -1;
    QSize m_sizeWhenHidden;
    GoToWidget* m_goTo = nullptr;
    QPointer<QWidget> m_focusBeforeGoTo;
    RememberedView m_viewBeforeGoTo;
    QStringList m_lastUsedPaths; ///< of editors, the last one first; some may be closed
    QList<QAction*> m_lastCommands; ///< chosen by name, the last one first
    QStringList m_usedPaths; ///< while a walk through the used editors lasts
    bool m_isComplete = false; ///< all that is stored has been read
    bool m_bindingsEnabled = true;
    bool m_pythonModuleStateUpdated = false;

    EditorActions m_actions;
};
