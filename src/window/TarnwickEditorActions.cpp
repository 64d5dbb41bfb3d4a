// Actions and menus of the editor window.

#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"
#include "window/chrome/ActivityBar.h"
#include "window/chrome/StatusBar.h"

#include <QAction>
#include <QMenuBar>
#include <QSplitter>

namespace {

using T = TarnwickEditor;
using K = KeyBindings;

enum class ActionKind { Plain, Checkable };

} // namespace

struct TarnwickEditor::ActionSpec
{
    QAction* TarnwickEditor::*member;
    const char* text;
    int binding; ///< 0: no keys
    void (TarnwickEditor::*slot)();
    ActionKind kind = ActionKind::Plain;
};

struct TarnwickEditor::MenuRow
{
    enum Kind { Begin, End, Entry, Separator };
    Kind kind;
    QAction* TarnwickEditor::*action = nullptr;
    const char* title = nullptr;
    void (TarnwickEditor::*onShow)() = nullptr;
    QMenu* TarnwickEditor::*menu = nullptr; ///< where it is filled elsewhere
};

// clang-format off
const TarnwickEditor::ActionSpec TarnwickEditor::ACTIONS[] = {
    {&T::m_newBufferAction,                  QT_TR_NOOP("New..."),                  K::NewBuffer,                 &T::NewBuffer},
    {&T::m_newMelBufferAction,               QT_TR_NOOP("New MEL Buffer"),          K::NewMelBuffer,              &T::NewMelBuffer},
    {&T::m_newPythonBufferAction,            QT_TR_NOOP("New Python Buffer"),       K::NewPythonBuffer,           &T::NewPythonBuffer},
    {&T::m_openFileAction,                   QT_TR_NOOP("Open File..."),            K::OpenFile,                  &T::OpenFile},
    {&T::m_reopenClosedFileAction,           QT_TR_NOOP("Reopen Closed File"),      K::ReopenClosedFile,          &T::ReopenClosedFile},
    {&T::m_clearRecentFilesAction,           QT_TR_NOOP("Clear Items"),             K::None,                      &T::ClearRecentFiles},
    {&T::m_saveAction,                       QT_TR_NOOP("Save"),                    K::Save,                      &T::Save},
    {&T::m_saveAsAction,                     QT_TR_NOOP("Save As..."),              K::SaveAs,                    &T::SaveAs},
    {&T::m_saveAllAction,                    QT_TR_NOOP("Save All"),                K::SaveAll,                   &T::SaveAll},
    {&T::m_renameAction,                     QT_TR_NOOP("Rename..."),               K::Rename,                    &T::Rename},
    {&T::m_revertFileAction,                 QT_TR_NOOP("Revert File"),             K::RevertFile,                &T::RevertFile},
    {&T::m_closeFileAction,                  QT_TR_NOOP("Close File"),              K::CloseFile,                 &T::CloseFile},
    {&T::m_closeAllFilesAction,              QT_TR_NOOP("Close All Files"),         K::CloseAllFiles,             &T::CloseAllFiles},
    {&T::m_saveStateAction,                  QT_TR_NOOP("Save State"),              K::SaveState,                 &T::SaveState},
    {&T::m_openWorkspaceAction,              QT_TR_NOOP("Open Workspace..."),       K::OpenWorkspace,             &T::OpenWorkspace},
    {&T::m_addFolderToWorkspaceAction,       QT_TR_NOOP("Add Folder to Workspace..."), K::AddFolderToWorkspace,   &T::AddFolderToWorkspace},
    {&T::m_saveWorkspaceAsAction,            QT_TR_NOOP("Save Workspace As..."),    K::SaveWorkspaceAs,           &T::SaveWorkspaceAs},
    {&T::m_saveScriptToShelfAction,          QT_TR_NOOP("Save Script to Shelf..."), K::SaveScriptToShelf,         &T::SaveScriptToShelf},
    {&T::m_sourceScriptAction,               QT_TR_NOOP("Source Script..."),        K::SourceScript,              &T::SourceScript},
    {&T::m_undoAction,                       QT_TR_NOOP("Undo"),                    K::Undo,                      &T::Undo},
    {&T::m_redoAction,                       QT_TR_NOOP("Redo"),                    K::Redo,                      &T::Redo},
    {&T::m_cutAction,                        QT_TR_NOOP("Cut"),                     K::Cut,                       &T::Cut},
    {&T::m_copyAction,                       QT_TR_NOOP("Copy"),                    K::Copy,                      &T::Copy},
    {&T::m_pasteAction,                      QT_TR_NOOP("Paste"),                   K::Paste,                     &T::Paste},
    {&T::m_selectAllAction,                  QT_TR_NOOP("Select All"),              K::SelectAll,                 &T::SelectAll},
    {&T::m_increaseIndentAction,             QT_TR_NOOP("Increase Indent"),         K::IncreaseIndent,            &T::IncreaseIndent},
    {&T::m_decreaseIndentAction,             QT_TR_NOOP("Decrease Indent"),         K::DecreaseIndent,            &T::DecreaseIndent},
    {&T::m_copyLineUpAction,                 QT_TR_NOOP("Copy Line Up"),            K::CopyLineUp,                &T::CopyLineUp},
    {&T::m_copyLineDownAction,               QT_TR_NOOP("Copy Line Down"),          K::CopyLineDown,              &T::CopyLineDown},
    {&T::m_moveLineUpAction,                 QT_TR_NOOP("Move Line Up"),            K::MoveLineUp,                &T::MoveLineUp},
    {&T::m_moveLineDownAction,               QT_TR_NOOP("Move Line Down"),          K::MoveLineDown,              &T::MoveLineDown},
    {&T::m_deleteLineAction,                 QT_TR_NOOP("Delete Line"),             K::DeleteLine,                &T::DeleteLine},
    {&T::m_toggleCommentAction,              QT_TR_NOOP("Toggle Comment"),          K::ToggleComment,             &T::ToggleComment},
    {&T::m_toggleBlockCommentAction,         QT_TR_NOOP("Toggle Block Comment"),    K::ToggleBlockComment,        &T::ToggleBlockComment},
    {&T::m_convertTabsToSpacesAction,        QT_TR_NOOP("Convert Tabs to Spaces"),  K::ConvertTabsToSpaces,       &T::ConvertTabsToSpaces},
    {&T::m_findAction,                       QT_TR_NOOP("Find"),                    K::Find,                      &T::Find},
    {&T::m_replaceAction,                    QT_TR_NOOP("Replace"),                 K::Replace,                   &T::Replace},
    {&T::m_findNextAction,                   QT_TR_NOOP("Find Next"),               K::FindNext,                  &T::FindNext},
    {&T::m_findPreviousAction,               QT_TR_NOOP("Find Previous"),           K::FindPrevious,              &T::FindPrevious},
    {&T::m_selectAndFindNextAction,          QT_TR_NOOP("Select and Find Next"),    K::SelectAndFindNext,         &T::SelectAndFindNext},
    {&T::m_selectAndFindPreviousAction,      QT_TR_NOOP("Select and Find Previous"), K::SelectAndFindPrevious,    &T::SelectAndFindPrevious},
    {&T::m_replaceNextAction,                QT_TR_NOOP("Replace Next"),            K::ReplaceNext,               &T::ReplaceNext},
    {&T::m_replaceAllAction,                 QT_TR_NOOP("Replace"),                 K::ReplaceAll,                &T::ReplaceAll},
    {&T::m_clearOutputAction,                QT_TR_NOOP("Clear Output"),            K::ClearOutput,               &T::ClearHistory},
    {&T::m_preferencesAction,                QT_TR_NOOP("Preferences..."),          K::Preferences,               &T::ShowPreferencesDialog},
    {&T::m_renderWhitespaceAction,           QT_TR_NOOP("Toggle Render Whitespaces"), K::ToggleRenderWhitespace,  &T::ToggleRenderWhitespace},
    {&T::m_wordWrapAction,                   QT_TR_NOOP("Toggle Word Wrap"),        K::ToggleWordWrap,            &T::ToggleWordWrap},
    {&T::m_toggleCodeEditorAction,           QT_TR_NOOP("Toggle Code Editor"),      K::ToggleCodeEditor,          &T::ToggleCodeEditor},
    {&T::m_toggleOutputAction,               QT_TR_NOOP("Toggle Output"),           K::ToggleOutput,              &T::ToggleOutput},
    {&T::m_toggleSideBarAction,              QT_TR_NOOP("Toggle Side Bar"),         K::ToggleSideBar,             &T::ToggleSideBar},
    {&T::m_quickHelpAction,                  QT_TR_NOOP("Quick Help"),              K::QuickHelp,                 &T::ShowQuickHelp},
    {&T::m_explorerAction,                   QT_TR_NOOP("Explorer"),                K::Explorer,                  &T::ShowExplorer},
    {&T::m_toggleActivityBarAction,          QT_TR_NOOP("Hide Activity Bar"),       K::ToggleActivityBar,         &T::ToggleActivityBar},
    {&T::m_toggleStatusBarAction,            QT_TR_NOOP("Hide Status Bar"),         K::ToggleStatusBar,           &T::ToggleStatusBar},
    {&T::m_toggleCodeEditorLayoutAction,     QT_TR_NOOP("Toggle Code Editor Layout"), K::ToggleCodeEditorLayout,  &T::ToggleCodeEditorLayout},
    {&T::m_toggleSideBarPositionAction,      QT_TR_NOOP("Move Side Bar Right"),     K::ToggleSidebarPosition,     &T::ToggleSideBarPosition},
    {&T::m_outputTopAction,                  QT_TR_NOOP("Top"),                     K::None,                      &T::OutputPositionTop},
    {&T::m_outputBottomAction,               QT_TR_NOOP("Bottom"),                  K::None,                      &T::OutputPositionBottom},
    {&T::m_outputLeftAction,                 QT_TR_NOOP("Left"),                    K::None,                      &T::OutputPositionLeft},
    {&T::m_outputRightAction,                QT_TR_NOOP("Right"),                   K::None,                      &T::OutputPositionRight},
    {&T::m_increaseFontSizeAction,           QT_TR_NOOP("Increase Font Size"),      K::IncreaseFontSize,          &T::IncreaseFontSize},
    {&T::m_decreaseFontSizeAction,           QT_TR_NOOP("Decrease Font Size"),      K::DecreaseFontSize,          &T::DecreaseFontSize},
    {&T::m_resetFontSizeAction,              QT_TR_NOOP("Reset Font Size"),         K::ResetFontSize,             &T::ResetFontSize},
    {&T::m_echoAllAction,                    QT_TR_NOOP("Echo All"),                K::None,                      &T::UpdateOutputVerbosity,      ActionKind::Checkable},
    {&T::m_normalAction,                     QT_TR_NOOP("Normal"),                  K::None,                      &T::UpdateOutputVerbosity,      ActionKind::Checkable},
    {&T::m_minimalAction,                    QT_TR_NOOP("Minimal"),                 K::None,                      &T::UpdateOutputVerbosity,      ActionKind::Checkable},
    {&T::m_echoAllCommandsAction,            QT_TR_NOOP("Echo All Commands"),       K::ToggleEchoAllCommands,     &T::ToggleEchoAllCommands,      ActionKind::Checkable},
    {&T::m_lineNumbersInErrorsAction,        QT_TR_NOOP("Line Numbers in Errors"),  K::ToggleLineNumbersInErrors, &T::ToggleLineNumbersInErrors,  ActionKind::Checkable},
    {&T::m_showStackTraceAction,             QT_TR_NOOP("Show Stack Trace"),        K::ToggleShowStackTrace,      &T::ToggleShowStackTrace,       ActionKind::Checkable},
    {&T::m_suppressStackWindowAction,        QT_TR_NOOP("Suppress Stack Window"),   K::ToggleSuppressStackWindow, &T::ToggleSuppressStackWindow,  ActionKind::Checkable},
    {&T::m_writeOutputToFileAction,          QT_TR_NOOP("Write Output to File"),    K::ToggleWriteOutputToFile,   &T::ToggleWriteOutputToFile,    ActionKind::Checkable},
    {&T::m_executeAction,                    QT_TR_NOOP("Execute"),                 K::Execute,                   &T::Execute},
    {&T::m_executeAltAction,                 QT_TR_NOOP("Execute Alt"),             K::ExecuteAlt,                &T::Execute},
    {&T::m_executeLineAction,                QT_TR_NOOP("Execute Line"),            K::ExecuteLine,               &T::ExecuteLine},
    {&T::m_executeAllAction,                 QT_TR_NOOP("Execute All"),             K::ExecuteAll,                &T::ExecuteAll},
    {&T::m_nextEditorAction,                 QT_TR_NOOP("Next Editor"),             K::NextEditor,                &T::GoToEditor},
    {&T::m_previousEditorAction,             QT_TR_NOOP("Previous Editor"),         K::PreviousEditor,            &T::GoToEditor},
    {&T::m_nextUsedEditorAction,             QT_TR_NOOP("Next Used Editor in Group"), K::NextUsedEditor,          &T::GoToEditor},
    {&T::m_previousUsedEditorAction,         QT_TR_NOOP("Previous Used Editor in Group"), K::PreviousUsedEditor,  &T::GoToEditor},
    {&T::m_nextEditorGroupAction,            QT_TR_NOOP("Next Editor Group"),       K::NextEditorGroup,           &T::GoToEditorGroup},
    {&T::m_previousEditorGroupAction,        QT_TR_NOOP("Previous Editor Group"),   K::PreviousEditorGroup,       &T::GoToEditorGroup},
    {&T::m_scriptPathAction,                 "MAYA_SCRIPT_PATH",                    K::None,                      &T::PrintMayaEnvVarPaths},
    {&T::m_pluginPathAction,                 "MAYA_PLUG_IN_PATH",                   K::None,                      &T::PrintMayaEnvVarPaths},
    {&T::m_modulePathAction,                 "MAYA_MODULE_PATH",                    K::None,                      &T::PrintMayaEnvVarPaths},
    {&T::m_shelfPathAction,                  "MAYA_SHELF_PATH",                     K::None,                      &T::PrintMayaEnvVarPaths},
    {&T::m_bitmapPathAction,                 "XBMLANGPATH",                         K::None,                      &T::PrintMayaEnvVarPaths},
    {&T::m_pythonPathAction,                 "PYTHONPATH",                          K::None,                      &T::PrintMayaEnvVarPaths},
    {&T::m_sysPathAction,                    "sys.path",                            K::None,                      &T::PrintPythonPath},
    {&T::m_environAction,                    "os.environ",                          K::None,                      &T::PrintPythonEnviron},
    {&T::m_updateModuleStateAction,          QT_TR_NOOP("Update Module State"),     K::PythonUpdateModuleState,   &T::PythonUpdateModuleState},
    {&T::m_revertModuleStateAction,          QT_TR_NOOP("Revert Module State"),     K::PythonRevertModuleState,   &T::PythonRevertModuleState},
    {&T::m_revertModuleStateOnExecuteAction, QT_TR_NOOP("Revert Module State on Execute"), K::PythonRevertModuleStateOnExecute, &T::UpdatePythonRevertModuleStateOnExecute, ActionKind::Checkable},
    {&T::m_melReferenceAction,               QT_TR_NOOP("MEL Command Reference"),   K::None,                      &T::MelCommandReference},
    {&T::m_pythonReferenceAction,            QT_TR_NOOP("Python Command Reference"), K::None,                     &T::PythonCommandReference},
    {&T::m_nodeReferenceAction,              QT_TR_NOOP("Node and Attribute Reference"), K::None,                 &T::NodeAndAttributeReference},
};

#define MENU(title) {MenuRow::Begin, nullptr, title}
#define ENTRY(member) {MenuRow::Entry, &T::member}
#define SEPARATOR {MenuRow::Separator}
#define END {MenuRow::End}
const TarnwickEditor::MenuRow TarnwickEditor::MENUS[] = {
    MENU(QT_TR_NOOP("File")),
        ENTRY(m_newBufferAction), ENTRY(m_newMelBufferAction), ENTRY(m_newPythonBufferAction), SEPARATOR,
        ENTRY(m_openFileAction),
        {MenuRow::Begin, nullptr, QT_TR_NOOP("Recent Files"), nullptr, &T::m_recentFilesMenu}, END, SEPARATOR,
        ENTRY(m_openWorkspaceAction), SEPARATOR,
        ENTRY(m_addFolderToWorkspaceAction), ENTRY(m_saveWorkspaceAsAction), SEPARATOR,
        ENTRY(m_saveAction), ENTRY(m_saveAsAction), ENTRY(m_saveAllAction), ENTRY(m_renameAction), SEPARATOR,
        ENTRY(m_saveScriptToShelfAction), ENTRY(m_sourceScriptAction), SEPARATOR,
        ENTRY(m_revertFileAction), ENTRY(m_closeFileAction), ENTRY(m_closeAllFilesAction), SEPARATOR,
        ENTRY(m_saveStateAction),
    END,
    MENU(QT_TR_NOOP("Edit")),
        ENTRY(m_undoAction), ENTRY(m_redoAction), SEPARATOR,
        ENTRY(m_cutAction), ENTRY(m_copyAction), ENTRY(m_pasteAction), ENTRY(m_selectAllAction), SEPARATOR,
        MENU(QT_TR_NOOP("Line")),
            ENTRY(m_increaseIndentAction), ENTRY(m_decreaseIndentAction),
            ENTRY(m_copyLineUpAction), ENTRY(m_copyLineDownAction),
            ENTRY(m_moveLineUpAction), ENTRY(m_moveLineDownAction), ENTRY(m_deleteLineAction),
        END,
        MENU(QT_TR_NOOP("Comment")),
            ENTRY(m_toggleCommentAction), ENTRY(m_toggleBlockCommentAction),
        END, SEPARATOR,
        ENTRY(m_convertTabsToSpacesAction), SEPARATOR,
        ENTRY(m_findAction), ENTRY(m_replaceAction), SEPARATOR,
        ENTRY(m_clearOutputAction), SEPARATOR,
        ENTRY(m_preferencesAction),
    END,
    MENU(QT_TR_NOOP("View")),
        ENTRY(m_explorerAction), ENTRY(m_quickHelpAction), SEPARATOR,
        ENTRY(m_toggleCodeEditorAction), ENTRY(m_toggleOutputAction), ENTRY(m_toggleSideBarAction),
        ENTRY(m_toggleActivityBarAction), ENTRY(m_toggleStatusBarAction), SEPARATOR,
        ENTRY(m_toggleCodeEditorLayoutAction), ENTRY(m_toggleSideBarPositionAction),
        MENU(QT_TR_NOOP("Output Position")),
            ENTRY(m_outputTopAction), ENTRY(m_outputBottomAction),
            ENTRY(m_outputLeftAction), ENTRY(m_outputRightAction),
        END, SEPARATOR,
        ENTRY(m_renderWhitespaceAction), ENTRY(m_wordWrapAction), SEPARATOR,
        ENTRY(m_increaseFontSizeAction), ENTRY(m_decreaseFontSizeAction), ENTRY(m_resetFontSizeAction),
    END,
    MENU(QT_TR_NOOP("Go")),
        MENU(QT_TR_NOOP("Switch Editor")),
            ENTRY(m_nextEditorAction), ENTRY(m_previousEditorAction), SEPARATOR,
            ENTRY(m_nextUsedEditorAction), ENTRY(m_previousUsedEditorAction),
        END,
        MENU(QT_TR_NOOP("Switch Group")),
            ENTRY(m_nextEditorGroupAction), ENTRY(m_previousEditorGroupAction),
        END,
    END,
    MENU(QT_TR_NOOP("Output")),
        {MenuRow::Begin, nullptr, QT_TR_NOOP("Verbosity"), &T::OnShowOutputVerbosityMenu},
            ENTRY(m_echoAllAction), ENTRY(m_normalAction), ENTRY(m_minimalAction),
        END, SEPARATOR,
        ENTRY(m_lineNumbersInErrorsAction), ENTRY(m_showStackTraceAction), SEPARATOR,
        ENTRY(m_suppressStackWindowAction), SEPARATOR,
        ENTRY(m_writeOutputToFileAction),
    END,
    MENU(QT_TR_NOOP("Command")),
        ENTRY(m_executeAction), ENTRY(m_executeLineAction), ENTRY(m_executeAllAction), SEPARATOR,
        MENU(QT_TR_NOOP("Environment Variables")),
            ENTRY(m_scriptPathAction), ENTRY(m_pluginPathAction), ENTRY(m_modulePathAction),
            ENTRY(m_shelfPathAction), ENTRY(m_bitmapPathAction), SEPARATOR, ENTRY(m_pythonPathAction),
        END, SEPARATOR,
        MENU(QT_TR_NOOP("Python")),
            ENTRY(m_sysPathAction), ENTRY(m_environAction), SEPARATOR,
            ENTRY(m_updateModuleStateAction), ENTRY(m_revertModuleStateAction), SEPARATOR,
            ENTRY(m_revertModuleStateOnExecuteAction),
        END,
    END,
    MENU(QT_TR_NOOP("Help")),
        ENTRY(m_melReferenceAction), ENTRY(m_pythonReferenceAction), ENTRY(m_nodeReferenceAction),
    END,
};
#undef MENU
#undef ENTRY
#undef SEPARATOR
#undef END
// clang-format on

void TarnwickEditor::CreateActions()
{
    for (const ActionSpec& spec : ACTIONS) {
        auto* action = new QAction(tr(spec.text), this);
        this->*spec.member = action;
        action->setStatusTip(action->text().remove(QLatin1Char('.')));
        action->setCheckable(spec.kind == ActionKind::Checkable);
        m_keyBindings.SetAction(spec.binding, action);
        addAction(action);
        connect(action, &QAction::triggered, this, spec.slot);
    }
    m_newBufferAction->setStatusTip(tr("New Buffer"));
    m_moveLineUpAction->setStatusTip(tr("Move Line Upt")); // the tip has always been spelled so
}

void TarnwickEditor::CreateMenus()
{
    m_menuBar = new QMenuBar(this);
    m_menuBar->setObjectName(QStringLiteral("m_menuBar"));
    // In the window itself, also where the desktop would take menu bars away.
    m_menuBar->setNativeMenuBar(false);
    QList<QMenu*> open;
    for (const MenuRow& row : MENUS) {
        switch (row.kind) {
        case MenuRow::Begin: {
            QMenu* const menu = open.isEmpty() ? m_menuBar->addMenu(tr(row.title))
                                               : open.last()->addMenu(tr(row.title));
            menu->setTearOffEnabled(!row.onShow);
            if (row.onShow)
                connect(menu, &QMenu::aboutToShow, this, row.onShow);
            if (row.menu)
                this->*row.menu = menu;
            open.append(menu);
            break;
        }
        case MenuRow::End: open.removeLast(); break;
        case MenuRow::Entry: open.last()->addAction(this->*row.action); break;
        case MenuRow::Separator: open.last()->addSeparator(); break;
        }
    }
    UpdateRecentFilesMenu();
}

/// The check marks and panes follow the host and the settings each time the window is shown.
void TarnwickEditor::SyncActions()
{
    m_lineNumbersInErrorsAction->setChecked(MayaUtil::LineNumbersInErrorsEnabled());
    m_showStackTraceAction->setChecked(MayaUtil::ShowStackTraceEnabled());
    m_suppressStackWindowAction->setChecked(Settings::suppressStackWindow);
    m_revertModuleStateOnExecuteAction->setChecked(Settings::pythonRevertModuleStateOnExecute);
    OnEchoAllCommandsChanged();
    ShowPanes();
    FinishSideBarSlide();
    m_activityBar->setVisible(Settings::activityBarVisible);
    m_statusBar->setVisible(Settings::statusBarVisible);
    UpdateActivityBar();
    UpdatePaneActions();
}
