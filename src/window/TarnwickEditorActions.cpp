// Actions and menus of the editor window.

#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"
#include "window/chrome/ActivityBar.h"
#include "window/chrome/StatusBar.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenuBar>
#include <QSplitter>
#include <QWindow>

namespace {

using A = EditorActions;
using K = KeyBindings;
using T = TarnwickEditor;

enum class ActionKind { Plain, Checkable };

/// Most commands act on what has the focus, which a click on a menu must not take from it.
void LeaveFocusAlone(QWidget& tornOffMenu)
{
    if (QWindow* const window = tornOffMenu.windowHandle())
        window->setFlag(Qt::WindowDoesNotAcceptFocus);
    else
        tornOffMenu.overrideWindowFlags(tornOffMenu.windowFlags() | Qt::WindowDoesNotAcceptFocus);
}

} // namespace

struct TarnwickEditor::ActionSpec
{
    QAction* EditorActions::*member;
    const char* text;
    KeyBindings::KeySequenceType binding;
    void (TarnwickEditor::*slot)();
    ActionKind kind = ActionKind::Plain;
};

struct TarnwickEditor::MenuRow
{
    enum Kind { Begin, End, Entry, Separator };
    Kind kind;
    QAction* EditorActions::*action = nullptr;
    const char* title = nullptr;
    void (TarnwickEditor::*onShow)() = nullptr;
    QMenu* TarnwickEditor::*menu = nullptr; ///< where it is filled elsewhere
};

// clang-format off
const TarnwickEditor::ActionSpec TarnwickEditor::ACTIONS[] = {
    {&A::newBuffer,                  QT_TR_NOOP("New..."),                         K::NewBuffer,                        &T::NewBuffer},
    {&A::newMelBuffer,               QT_TR_NOOP("New MEL Buffer"),                 K::NewMelBuffer,                     &T::NewMelBuffer},
    {&A::newPythonBuffer,            QT_TR_NOOP("New Python Buffer"),              K::NewPythonBuffer,                  &T::NewPythonBuffer},
    {&A::openFile,                   QT_TR_NOOP("Open File..."),                   K::OpenFile,                         &T::OpenFile},
    {&A::reopenClosedFile,           QT_TR_NOOP("Reopen Closed File"),             K::ReopenClosedFile,                 &T::ReopenClosedFile},
    {&A::clearRecentFiles,           QT_TR_NOOP("Clear Items"),                    K::None,                             &T::ClearRecentFiles},
    {&A::save,                       QT_TR_NOOP("Save"),                           K::Save,                             &T::Save},
    {&A::saveAs,                     QT_TR_NOOP("Save As..."),                     K::SaveAs,                           &T::SaveAs},
    {&A::saveAll,                    QT_TR_NOOP("Save All"),                       K::SaveAll,                          &T::SaveAll},
    {&A::rename,                     QT_TR_NOOP("Rename..."),                      K::Rename,                           &T::Rename},
    {&A::revertFile,                 QT_TR_NOOP("Revert File"),                    K::RevertFile,                       &T::RevertFile},
    {&A::closeFile,                  QT_TR_NOOP("Close File"),                     K::CloseFile,                        &T::CloseFile},
    {&A::closeAllFiles,              QT_TR_NOOP("Close All Files"),                K::CloseAllFiles,                    &T::CloseAllFiles},
    {&A::saveState,                  QT_TR_NOOP("Save State"),                     K::SaveState,                        &T::SaveState},
    {&A::openWorkspace,              QT_TR_NOOP("Open Workspace..."),              K::OpenWorkspace,                    &T::OpenWorkspace},
    {&A::addFolderToWorkspace,       QT_TR_NOOP("Add Folder to Workspace..."),     K::AddFolderToWorkspace,             &T::AddFolderToWorkspace},
    {&A::saveWorkspaceAs,            QT_TR_NOOP("Save Workspace As..."),           K::SaveWorkspaceAs,                  &T::SaveWorkspaceAs},
    {&A::saveScriptToShelf,          QT_TR_NOOP("Save Script to Shelf..."),        K::SaveScriptToShelf,                &T::SaveScriptToShelf},
    {&A::sourceScript,               QT_TR_NOOP("Source Script..."),               K::SourceScript,                     &T::SourceScript},
    {&A::undo,                       QT_TR_NOOP("Undo"),                           K::Undo,                             &T::Undo},
    {&A::redo,                       QT_TR_NOOP("Redo"),                           K::Redo,                             &T::Redo},
    {&A::cut,                        QT_TR_NOOP("Cut"),                            K::Cut,                              &T::Cut},
    {&A::copy,                       QT_TR_NOOP("Copy"),                           K::Copy,                             &T::Copy},
    {&A::paste,                      QT_TR_NOOP("Paste"),                          K::Paste,                            &T::Paste},
    {&A::selectAll,                  QT_TR_NOOP("Select All"),                     K::SelectAll,                        &T::SelectAll},
    {&A::increaseIndent,             QT_TR_NOOP("Increase Indent"),                K::IncreaseIndent,                   &T::IncreaseIndent},
    {&A::decreaseIndent,             QT_TR_NOOP("Decrease Indent"),                K::DecreaseIndent,                   &T::DecreaseIndent},
    {&A::copyLineUp,                 QT_TR_NOOP("Copy Line Up"),                   K::CopyLineUp,                       &T::CopyLineUp},
    {&A::copyLineDown,               QT_TR_NOOP("Copy Line Down"),                 K::CopyLineDown,                     &T::CopyLineDown},
    {&A::moveLineUp,                 QT_TR_NOOP("Move Line Up"),                   K::MoveLineUp,                       &T::MoveLineUp},
    {&A::moveLineDown,               QT_TR_NOOP("Move Line Down"),                 K::MoveLineDown,                     &T::MoveLineDown},
    {&A::deleteLine,                 QT_TR_NOOP("Delete Line"),                    K::DeleteLine,                       &T::DeleteLine},
    {&A::toggleComment,              QT_TR_NOOP("Toggle Comment"),                 K::ToggleComment,                    &T::ToggleComment},
    {&A::toggleBlockComment,         QT_TR_NOOP("Toggle Block Comment"),           K::ToggleBlockComment,               &T::ToggleBlockComment},
    {&A::convertTabsToSpaces,        QT_TR_NOOP("Convert Tabs to Spaces"),         K::ConvertTabsToSpaces,              &T::ConvertTabsToSpaces},
    {&A::insertPath,                 QT_TR_NOOP("Insert Path..."),                 K::InsertPath,                       &T::ShowInsertPathDialog},
    {&A::find,                       QT_TR_NOOP("Find"),                           K::Find,                             &T::Find},
    {&A::replace,                    QT_TR_NOOP("Replace"),                        K::Replace,                          &T::Replace},
    {&A::findInFiles,                QT_TR_NOOP("Find in Files"),                  K::FindInFiles,                      &T::FindInFiles},
    {&A::replaceInFiles,             QT_TR_NOOP("Replace in Files"),               K::ReplaceInFiles,                   &T::ReplaceInFiles},
    {&A::findNext,                   QT_TR_NOOP("Find Next"),                      K::FindNext,                         &T::FindNext},
    {&A::findPrevious,               QT_TR_NOOP("Find Previous"),                  K::FindPrevious,                     &T::FindPrevious},
    {&A::selectAndFindNext,          QT_TR_NOOP("Select and Find Next"),           K::SelectAndFindNext,                &T::SelectAndFindNext},
    {&A::selectAndFindPrevious,      QT_TR_NOOP("Select and Find Previous"),       K::SelectAndFindPrevious,            &T::SelectAndFindPrevious},
    {&A::findInFilesNext,            QT_TR_NOOP("Find in Files Next"),             K::FindInFilesNext,                  &T::FindInFilesNext},
    {&A::findInFilesPrevious,        QT_TR_NOOP("Find in Files Previous"),         K::FindInFilesPrevious,              &T::FindInFilesPrevious},
    {&A::replaceNext,                QT_TR_NOOP("Replace Next"),                   K::ReplaceNext,                      &T::ReplaceNext},
    {&A::replaceAll,                 QT_TR_NOOP("Replace"),                        K::ReplaceAll,                       &T::ReplaceAll},
    {&A::clearOutput,                QT_TR_NOOP("Clear Output"),                   K::ClearOutput,                      &T::ClearHistory},
    {&A::preferences,                QT_TR_NOOP("Preferences..."),                 K::Preferences,                      &T::ShowPreferencesDialog},
    {&A::renderWhitespace,           QT_TR_NOOP("Toggle Render Whitespaces"),      K::ToggleRenderWhitespace,           &T::ToggleRenderWhitespace},
    {&A::wordWrap,                   QT_TR_NOOP("Toggle Word Wrap"),               K::ToggleWordWrap,                   &T::ToggleWordWrap},
    {&A::toggleCodeEditor,           QT_TR_NOOP("Toggle Code Editor"),             K::ToggleCodeEditor,                 &T::ToggleCodeEditor},
    {&A::toggleOutput,               QT_TR_NOOP("Toggle Output"),                  K::ToggleOutput,                     &T::ToggleOutput},
    {&A::toggleSideBar,              QT_TR_NOOP("Toggle Side Bar"),                K::ToggleSideBar,                    &T::ToggleSideBar},
    {&A::quickHelp,                  QT_TR_NOOP("Quick Help"),                     K::QuickHelp,                        &T::ShowQuickHelp},
    {&A::explorer,                   QT_TR_NOOP("Explorer"),                       K::Explorer,                         &T::ShowExplorer},
    {&A::toggleActivityBar,          QT_TR_NOOP("Hide Activity Bar"),              K::ToggleActivityBar,                &T::ToggleActivityBar},
    {&A::toggleStatusBar,            QT_TR_NOOP("Hide Status Bar"),                K::ToggleStatusBar,                  &T::ToggleStatusBar},
    {&A::toggleCodeEditorLayout,     QT_TR_NOOP("Toggle Code Editor Layout"),      K::ToggleCodeEditorLayout,           &T::ToggleCodeEditorLayout},
    {&A::toggleSideBarPosition,      QT_TR_NOOP("Move Side Bar Right"),            K::ToggleSidebarPosition,            &T::ToggleSideBarPosition},
    {&A::outputTop,                  QT_TR_NOOP("Top"),                            K::None,                             &T::OutputPositionTop},
    {&A::outputBottom,               QT_TR_NOOP("Bottom"),                         K::None,                             &T::OutputPositionBottom},
    {&A::outputLeft,                 QT_TR_NOOP("Left"),                           K::None,                             &T::OutputPositionLeft},
    {&A::outputRight,                QT_TR_NOOP("Right"),                          K::None,                             &T::OutputPositionRight},
    {&A::increaseFontSize,           QT_TR_NOOP("Increase Font Size"),             K::IncreaseFontSize,                 &T::IncreaseFontSize},
    {&A::decreaseFontSize,           QT_TR_NOOP("Decrease Font Size"),             K::DecreaseFontSize,                 &T::DecreaseFontSize},
    {&A::resetFontSize,              QT_TR_NOOP("Reset Font Size"),                K::ResetFontSize,                    &T::ResetFontSize},
    {&A::echoAll,                    QT_TR_NOOP("Echo All"),                       K::None,                             &T::UpdateOutputVerbosity,                  ActionKind::Checkable},
    {&A::normal,                     QT_TR_NOOP("Normal"),                         K::None,                             &T::UpdateOutputVerbosity,                  ActionKind::Checkable},
    {&A::minimal,                    QT_TR_NOOP("Minimal"),                        K::None,                             &T::UpdateOutputVerbosity,                  ActionKind::Checkable},
    {&A::echoAllCommands,            QT_TR_NOOP("Echo All Commands"),              K::ToggleEchoAllCommands,            &T::ToggleEchoAllCommands,                  ActionKind::Checkable},
    {&A::lineNumbersInErrors,        QT_TR_NOOP("Line Numbers in Errors"),         K::ToggleLineNumbersInErrors,        &T::ToggleLineNumbersInErrors,              ActionKind::Checkable},
    {&A::showStackTrace,             QT_TR_NOOP("Show Stack Trace"),               K::ToggleShowStackTrace,             &T::ToggleShowStackTrace,                   ActionKind::Checkable},
    {&A::suppressStackWindow,        QT_TR_NOOP("Suppress Stack Window"),          K::ToggleSuppressStackWindow,        &T::ToggleSuppressStackWindow,              ActionKind::Checkable},
    {&A::writeOutputToFile,          QT_TR_NOOP("Write Output to File"),           K::ToggleWriteOutputToFile,          &T::ToggleWriteOutputToFile,                ActionKind::Checkable},
    {&A::execute,                    QT_TR_NOOP("Execute"),                        K::Execute,                          &T::Execute},
    {&A::executeAlt,                 QT_TR_NOOP("Execute Alt"),                    K::ExecuteAlt,                       &T::Execute},
    {&A::executeLine,                QT_TR_NOOP("Execute Line"),                   K::ExecuteLine,                      &T::ExecuteLine},
    {&A::executeAll,                 QT_TR_NOOP("Execute All"),                    K::ExecuteAll,                       &T::ExecuteAll},
    {&A::nextEditor,                 QT_TR_NOOP("Next Editor"),                    K::NextEditor,                       &T::GoToEditor},
    {&A::previousEditor,             QT_TR_NOOP("Previous Editor"),                K::PreviousEditor,                   &T::GoToEditor},
    {&A::nextUsedEditor,             QT_TR_NOOP("Next Used Editor in Group"),      K::NextUsedEditor,                   &T::GoToEditor},
    {&A::previousUsedEditor,         QT_TR_NOOP("Previous Used Editor in Group"),  K::PreviousUsedEditor,               &T::GoToEditor},
    {&A::nextEditorGroup,            QT_TR_NOOP("Next Editor Group"),              K::NextEditorGroup,                  &T::GoToEditorGroup},
    {&A::previousEditorGroup,        QT_TR_NOOP("Previous Editor Group"),          K::PreviousEditorGroup,              &T::GoToEditorGroup},
    {&A::goToFile,                   QT_TR_NOOP("Go to File..."),                  K::GotoFile,                         &T::GoToFile},
    {&A::goToSymbolInFile,           QT_TR_NOOP("Go to Symbol in File..."),        K::GotoSymbolInFile,                 &T::GoToSymbolInFile},
    {&A::goToLine,                   QT_TR_NOOP("Go to Line..."),                  K::GotoLine,                         &T::GoToLine},
    {&A::scriptPath,                 "MAYA_SCRIPT_PATH",                           K::None,                             &T::PrintMayaEnvVarPaths},
    {&A::pluginPath,                 "MAYA_PLUG_IN_PATH",                          K::None,                             &T::PrintMayaEnvVarPaths},
    {&A::modulePath,                 "MAYA_MODULE_PATH",                           K::None,                             &T::PrintMayaEnvVarPaths},
    {&A::shelfPath,                  "MAYA_SHELF_PATH",                            K::None,                             &T::PrintMayaEnvVarPaths},
    {&A::bitmapPath,                 "XBMLANGPATH",                                K::None,                             &T::PrintMayaEnvVarPaths},
    {&A::pythonPath,                 "PYTHONPATH",                                 K::None,                             &T::PrintMayaEnvVarPaths},
    {&A::sysPath,                    "sys.path",                                   K::None,                             &T::PrintPythonPath},
    {&A::osEnviron,                  "os.environ",                                 K::None,                             &T::PrintPythonEnviron},
    {&A::pythonDir,                  "dir( )",                                     K::PythonSelectionDir,               &T::PythonDirSelection},
    {&A::pythonHelp,                 "help( )",                                    K::PythonSelectionHelp,              &T::PythonHelpSelection},
    {&A::updateModuleState,          QT_TR_NOOP("Update Module State"),            K::PythonUpdateModuleState,          &T::PythonUpdateModuleState},
    {&A::revertModuleState,          QT_TR_NOOP("Revert Module State"),            K::PythonRevertModuleState,          &T::PythonRevertModuleState},
    {&A::revertModuleStateOnExecute, QT_TR_NOOP("Revert Module State on Execute"), K::PythonRevertModuleStateOnExecute, &T::UpdatePythonRevertModuleStateOnExecute, ActionKind::Checkable},
    {&A::openPylintrc,               QT_TR_NOOP("Open pylintrc"),                  K::None,                             &T::OpenPylintrc},
    {&A::commandReference,           QT_TR_NOOP("Command Reference"),              K::CommandReference,                 &T::OpenCommandReference},
    {&A::melReference,               QT_TR_NOOP("MEL Command Reference"),          K::None,                             &T::MelCommandReference},
    {&A::pythonReference,            QT_TR_NOOP("Python Command Reference"),       K::None,                             &T::PythonCommandReference},
    {&A::nodeReference,              QT_TR_NOOP("Node and Attribute Reference"),   K::None,                             &T::NodeAndAttributeReference},
    {&A::about,                      QT_TR_NOOP("About..."),                       K::None,                             &T::ShowAboutDialog},
};

#define MENU(title) {MenuRow::Begin, nullptr, title}
#define MENU_SHOWN_BY(title, slot) {MenuRow::Begin, nullptr, title, &T::slot}
#define ENTRY(member) {MenuRow::Entry, &A::member}
#define SEPARATOR {MenuRow::Separator}
#define END {MenuRow::End}
const TarnwickEditor::MenuRow TarnwickEditor::MENUS[] = {
    MENU(QT_TR_NOOP("File")),
        ENTRY(newBuffer), ENTRY(newMelBuffer), ENTRY(newPythonBuffer), SEPARATOR,
        ENTRY(openFile),
        {MenuRow::Begin, nullptr, QT_TR_NOOP("Recent Files"), nullptr, &T::m_recentFilesMenu}, END, SEPARATOR,
        ENTRY(openWorkspace), SEPARATOR,
        ENTRY(addFolderToWorkspace), ENTRY(saveWorkspaceAs), SEPARATOR,
        ENTRY(save), ENTRY(saveAs), ENTRY(saveAll), ENTRY(rename), SEPARATOR,
        ENTRY(saveScriptToShelf), ENTRY(sourceScript), SEPARATOR,
        ENTRY(revertFile), ENTRY(closeFile), ENTRY(closeAllFiles), SEPARATOR,
        ENTRY(saveState),
    END,
    MENU_SHOWN_BY(QT_TR_NOOP("Edit"), OnShowEditMenu),
        ENTRY(undo), ENTRY(redo), SEPARATOR,
        ENTRY(cut), ENTRY(copy), ENTRY(paste), ENTRY(selectAll), SEPARATOR,
        MENU(QT_TR_NOOP("Line")),
            ENTRY(increaseIndent), ENTRY(decreaseIndent),
            ENTRY(copyLineUp), ENTRY(copyLineDown),
            ENTRY(moveLineUp), ENTRY(moveLineDown), ENTRY(deleteLine),
        END,
        MENU(QT_TR_NOOP("Comment")),
            ENTRY(toggleComment), ENTRY(toggleBlockComment),
        END, SEPARATOR,
        ENTRY(convertTabsToSpaces), SEPARATOR,
        ENTRY(find), ENTRY(replace), SEPARATOR,
        ENTRY(findInFiles), ENTRY(replaceInFiles), SEPARATOR,
        ENTRY(insertPath), SEPARATOR,
        ENTRY(clearOutput), SEPARATOR,
        ENTRY(preferences),
    END,
    MENU_SHOWN_BY(QT_TR_NOOP("View"), OnShowViewMenu),
        ENTRY(explorer), ENTRY(findInFiles), ENTRY(quickHelp), SEPARATOR,
        ENTRY(toggleCodeEditor), ENTRY(toggleOutput), ENTRY(toggleSideBar),
        ENTRY(toggleActivityBar), ENTRY(toggleStatusBar), SEPARATOR,
        ENTRY(toggleCodeEditorLayout), ENTRY(toggleSideBarPosition),
        MENU(QT_TR_NOOP("Output Position")),
            ENTRY(outputTop), ENTRY(outputBottom),
            ENTRY(outputLeft), ENTRY(outputRight),
        END, SEPARATOR,
        ENTRY(renderWhitespace), ENTRY(wordWrap), SEPARATOR,
        ENTRY(increaseFontSize), ENTRY(decreaseFontSize), ENTRY(resetFontSize),
    END,
    MENU(QT_TR_NOOP("Go")),
        MENU(QT_TR_NOOP("Switch Editor")),
            ENTRY(nextEditor), ENTRY(previousEditor), SEPARATOR,
            ENTRY(nextUsedEditor), ENTRY(previousUsedEditor),
        END,
        MENU(QT_TR_NOOP("Switch Group")),
            ENTRY(nextEditorGroup), ENTRY(previousEditorGroup),
        END, SEPARATOR,
        ENTRY(goToFile), ENTRY(goToSymbolInFile), ENTRY(goToLine),
    END,
    MENU(QT_TR_NOOP("Output")),
        MENU_SHOWN_BY(QT_TR_NOOP("Verbosity"), OnShowOutputVerbosityMenu),
            ENTRY(echoAll), ENTRY(normal), ENTRY(minimal),
        END, SEPARATOR,
        ENTRY(lineNumbersInErrors), ENTRY(showStackTrace), SEPARATOR,
        ENTRY(suppressStackWindow), SEPARATOR,
        ENTRY(writeOutputToFile),
    END,
    MENU(QT_TR_NOOP("Command")),
        ENTRY(execute), ENTRY(executeLine), ENTRY(executeAll), SEPARATOR,
        MENU(QT_TR_NOOP("Environment Variables")),
            ENTRY(scriptPath), ENTRY(pluginPath), ENTRY(modulePath),
            ENTRY(shelfPath), ENTRY(bitmapPath), SEPARATOR, ENTRY(pythonPath),
        END, SEPARATOR,
        MENU(QT_TR_NOOP("Python")),
            ENTRY(sysPath), ENTRY(osEnviron), SEPARATOR,
            ENTRY(pythonDir), ENTRY(pythonHelp), SEPARATOR,
            ENTRY(updateModuleState), ENTRY(revertModuleState), SEPARATOR,
            ENTRY(revertModuleStateOnExecute),
        END,
        MENU("Pylint"),
            ENTRY(openPylintrc),
        END,
    END,
    MENU(QT_TR_NOOP("Help")),
        ENTRY(melReference), ENTRY(pythonReference), ENTRY(nodeReference), SEPARATOR,
        ENTRY(about),
    END,
};
#undef MENU
#undef MENU_SHOWN_BY
#undef ENTRY
#undef SEPARATOR
#undef END
// clang-format on

void TarnwickEditor::CreateAction(QAction** action, const QString& text, const QString& statusTip,
    KeyBindings::KeySequenceType binding, bool checkable)
{
    *action = new QAction(text, this);
    (*action)->setStatusTip(statusTip);
    (*action)->setCheckable(checkable);
    m_keyBindings.SetAction(binding, *action);
    addAction(*action);
    (*action)->installEventFilter(this);
}

void TarnwickEditor::CreateActions()
{
    for (const ActionSpec& spec : ACTIONS) {
        const QString text = tr(spec.text);
        QString tip = text;
        if (tip.endsWith(QLatin1String("...")))
            tip.chop(3);
        QAction*& action = m_actions.*spec.member;
        CreateAction(&action, text, tip, spec.binding, spec.kind == ActionKind::Checkable);
        connect(action, &QAction::triggered, this, spec.slot);
    }
    m_actions.newBuffer->setStatusTip(tr("New Buffer"));
    m_actions.moveLineUp->setStatusTip(tr("Move Line Upt")); // the tip has always been spelled so
}

void TarnwickEditor::CreateMenus()
{
    m_menuBar = new QMenuBar(this);
    m_menuBar->setObjectName(QStringLiteral("m_menuBar"));
    // In the window itself, also where the desktop would take menu bars away.
    m_menuBar->setNativeMenuBar(false);
    m_menuBar->installEventFilter(this);
    QList<QMenu*> open;
    for (const MenuRow& row : MENUS) {
        switch (row.kind) {
        case MenuRow::Begin: {
            QMenu* const menu = open.isEmpty() ? m_menuBar->addMenu(tr(row.title))
                                               : open.last()->addMenu(tr(row.title));
            menu->setTearOffEnabled(row.onShow != &T::OnShowOutputVerbosityMenu);
            menu->installEventFilter(this);
            if (row.onShow)
                connect(menu, &QMenu::aboutToShow, this, row.onShow);
            if (row.menu)
                this->*row.menu = menu;
            open.append(menu);
            break;
        }
        case MenuRow::End: open.removeLast(); break;
        case MenuRow::Entry: open.last()->addAction(m_actions.*row.action); break;
        case MenuRow::Separator: open.last()->addSeparator(); break;
        }
    }
    UpdateRecentFilesMenu();
}

void TarnwickEditor::OnShowEditMenu()
{
    RenameFindInFiles(tr("Find in Files"));
}

void TarnwickEditor::OnShowViewMenu()
{
    RenameFindInFiles(tr("Search"));
}

/// One command, which each of its two menus calls by another name.
void TarnwickEditor::RenameFindInFiles(const QString& text)
{
    m_actions.findInFiles->setText(text);
    m_actions.findInFiles->setStatusTip(text);
}

/// A menu that is torn off is a window of its own, and a child of whatever has the menu: this
/// window, the bar or another menu.
void TarnwickEditor::OnMenuChildPolished(QObject* child)
{
    if (child->inherits("QTornOffMenu"))
        LeaveFocusAlone(*static_cast<QWidget*>(child));
}

/// A key may be another one's too: the host's, or the same key of the keyboard by another name. The
/// toolkit asks one after the other then, and would do nothing.
bool TarnwickEditor::RunAmbiguous(QObject* action, const QShortcutEvent& event)
{
    auto* const command = qobject_cast<QAction*>(action);
    if (!command || !event.isAmbiguous())
        return false;
    Logger::Warning(QStringLiteral("Ambiguous hotkey: %1 (%2)")
                        .arg(command->statusTip(), event.key().toString()));
    command->trigger();
    return true;
}

/// The check marks and panes follow the host and the settings each time the window is shown.
void TarnwickEditor::SyncActions()
{
    m_actions.lineNumbersInErrors->setChecked(MayaUtil::LineNumbersInErrorsEnabled());
    m_actions.showStackTrace->setChecked(MayaUtil::ShowStackTraceEnabled());
    m_actions.suppressStackWindow->setChecked(Settings::suppressStackWindow);
    m_actions.revertModuleStateOnExecute->setChecked(Settings::pythonRevertModuleStateOnExecute);
    OnEchoAllCommandsChanged();
    ShowPanes();
    FinishSideBarSlide();
    m_activityBar->setVisible(Settings::activityBarVisible);
    m_statusBar->setVisible(Settings::statusBarVisible);
    UpdateActivityBar();
    UpdatePaneActions();
}
