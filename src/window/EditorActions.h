#pragma once

class QAction;

/// The commands of the editor window, one action each. All are made by the window, which owns them,
/// before anything else asks for one.
struct EditorActions
{
    // File
    QAction* newBuffer = nullptr;
    QAction* newMelBuffer = nullptr;
    QAction* newPythonBuffer = nullptr;
    QAction* openFile = nullptr;
    QAction* reopenClosedFile = nullptr;
    QAction* clearRecentFiles = nullptr;
    QAction* save = nullptr;
    QAction* saveAs = nullptr;
    QAction* saveAll = nullptr;
    QAction* rename = nullptr;
    QAction* revertFile = nullptr;
    QAction* closeFile = nullptr;
    QAction* closeAllFiles = nullptr;
    QAction* saveState = nullptr;
    QAction* openWorkspace = nullptr;
    QAction* addFolderToWorkspace = nullptr;
    QAction* saveWorkspaceAs = nullptr;
    QAction* saveScriptToShelf = nullptr;
    QAction* sourceScript = nullptr;

    // Edit
    QAction* undo = nullptr;
    QAction* redo = nullptr;
    QAction* cut = nullptr;
    QAction* copy = nullptr;
    QAction* paste = nullptr;
    QAction* selectAll = nullptr;
    QAction* increaseIndent = nullptr;
    QAction* decreaseIndent = nullptr;
    QAction* copyLineUp = nullptr;
    QAction* copyLineDown = nullptr;
    QAction* moveLineUp = nullptr;
    QAction* moveLineDown = nullptr;
    QAction* deleteLine = nullptr;
    QAction* toggleComment = nullptr;
    QAction* toggleBlockComment = nullptr;
    QAction* convertTabsToSpaces = nullptr;
    QAction* insertPath = nullptr;
    QAction* find = nullptr;
    QAction* replace = nullptr;
    QAction* findInFiles = nullptr;
    QAction* replaceInFiles = nullptr;
    QAction* findNext = nullptr;
    QAction* findPrevious = nullptr;
    QAction* selectAndFindNext = nullptr;
    QAction* selectAndFindPrevious = nullptr;
    QAction* findInFilesNext = nullptr;
    QAction* findInFilesPrevious = nullptr;
    QAction* replaceNext = nullptr;
    QAction* replaceAll = nullptr;
    QAction* clearOutput = nullptr;
    QAction* preferences = nullptr;

    // View
    QAction* renderWhitespace = nullptr;
    QAction* wordWrap = nullptr;
    QAction* toggleCodeEditor = nullptr;
    QAction* toggleOutput = nullptr;
    QAction* toggleSideBar = nullptr;
    QAction* quickHelp = nullptr;
    QAction* explorer = nullptr;
    QAction* toggleActivityBar = nullptr;
    QAction* toggleStatusBar = nullptr;
    QAction* toggleCodeEditorLayout = nullptr;
    QAction* toggleSideBarPosition = nullptr;
    QAction* outputTop = nullptr;
    QAction* outputBottom = nullptr;
    QAction* outputLeft = nullptr;
    QAction* outputRight = nullptr;
    QAction* increaseFontSize = nullptr;
    QAction* decreaseFontSize = nullptr;
    QAction* resetFontSize = nullptr;

    // Output
    QAction* echoAll = nullptr;
    QAction* normal = nullptr;
    QAction* minimal = nullptr;
    QAction* echoAllCommands = nullptr;
    QAction* lineNumbersInErrors = nullptr;
    QAction* showStackTrace = nullptr;
    QAction* suppressStackWindow = nullptr;
    QAction* writeOutputToFile = nullptr;

    // Command and Go
    QAction* execute = nullptr;
    QAction* executeAlt = nullptr;
    QAction* executeLine = nullptr;
    QAction* executeAll = nullptr;
    QAction* nextEditor = nullptr;
    QAction* previousEditor = nullptr;
    QAction* nextUsedEditor = nullptr;
    QAction* previousUsedEditor = nullptr;
    QAction* nextEditorGroup = nullptr;
    QAction* previousEditorGroup = nullptr;
    QAction* goToFile = nullptr;
    QAction* goToSymbolInFile = nullptr;
    QAction* goToLine = nullptr;

    // Environment variables and Python
    QAction* scriptPath = nullptr;
    QAction* pluginPath = nullptr;
    QAction* modulePath = nullptr;
    QAction* shelfPath = nullptr;
    QAction* bitmapPath = nullptr;
    QAction* pythonPath = nullptr;
    QAction* sysPath = nullptr;
    QAction* osEnviron = nullptr;
    QAction* pythonDir = nullptr;
    QAction* pythonHelp = nullptr;
    QAction* updateModuleState = nullptr;
    QAction* revertModuleState = nullptr;
    QAction* revertModuleStateOnExecute = nullptr;
    QAction* openPylintrc = nullptr;

    // Help
    QAction* commandReference = nullptr;
    QAction* melReference = nullptr;
    QAction* pythonReference = nullptr;
    QAction* nodeReference = nullptr;
    QAction* about = nullptr;
};
