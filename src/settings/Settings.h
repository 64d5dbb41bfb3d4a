#pragma once

#include <QByteArray>
#include <QFont>
#include <QList>
#include <QMultiHash>
#include <QRect>
#include <QRegExp>
#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <atomic>

/// Every user option and what the window remembers, with the defaults right here. Read directly by
/// everybody; ReadUserConfig and WriteUserConfig move the stored ones between these members and the
/// user's configuration file. Interface thread only, `traceHideAll` aside.
class Settings
{
public:
    // Fixed at build time
    static constexpr int CONFIG_FILE_VERSION = 1;
    static const QString CONFIG_FILE_NAME;
    static const QString PREFS_DIRECTORY_NAME;
    static const QString INTERNAL_BUFFERS_DIRECTORY_NAME;
    static const QString TEMP_DIRECTORY_NAME;
    static const QString WORKSPACES_DIRECTORY_NAME;
    static const QString DEFAULT_WORKSPACE_FILE_NAME;
    static const QString WORKSPACE_EXTENSION;
    static const QString APPLICATION_TITLE;
    static const QString APPLICATION_NAME;
    static const QString MEL_COMMAND;
    static const QString VERSION_STRING;
    static const QString PATH_SEP;
    static constexpr int MINIMUM_FONT_SIZE = 6; ///< points, zoom included
    static constexpr int MAXIMUM_FONT_SIZE = 24;
    static constexpr int MINIMUM_RECENT_FILES = 0;
    static constexpr int MAXIMUM_RECENT_FILES = 10;
    static constexpr int DEFAULT_NUM_RECENT_FILES = 8;
    static constexpr int NUM_CODE_EDITOR_GROUPS = 3;

    // Places. Directories are made when they are missing. Empty when the host has no preferences
    // directory.
    static QString GetUserConfigDirectory();
    static QString GetUserConfigPath();
    static QString GetInternalBufferDirectoryPath();
    static QString GetTempDirectoryPath();
    static QString GetWorkspacesDirectoryPath();
    static QString GetDefaultWorkspacePath();
    /// The workspace in use.
    static QString GetWorkspacePath();
    static QFont GetDefaultFont();

    // The configuration file
    /// Overlays the members with the file. What is absent or does not parse stays as it is.
    static void ReadUserConfig();
    /// Nothing is written while another process owns the file. False when the disk did not take it.
    static bool WriteUserConfig();
    /// Every stored option, and the number of recent files, as a first start has them.
    static void ResetToDefaults();
    /// What a first start has for the option of that key; invalid for what is no option of the
    /// file or has no fixed default.
    static QVariant GetDefault(const QString& key);
    /// Whether the file keeps the option of that key: some hosts have no use for some of them.
    static bool IsStored(const QString& key);

    // Recent files, the latest first
    /// Puts the path at the front and writes the configuration.
    static void AddRecentFile(const QString& path);
    /// Trims the list to `count` entries; a count out of range means the default number.
    static void UpdateRecentFiles(int count);
    static void ClearRecentFiles();
    /// Adds what this process has opened to the file's list, also of a file that another one owns.
    static void MergeRecentFiles();

    // Expanded states as they are stored
    /// The 16-byte hashes of `workspaceExpandedFolderHashes`, one after the other.
    static QByteArray GetWorkspaceState();
    static void RestoreWorkspaceState(const QByteArray& state);
    static QByteArray GetOutlineExpandedState();
    static void RestoreOutlineExpandedState(QByteArray state);

    // Window layout and view toggles
    inline static QRect windowGeometry; ///< of the floating window; empty until there was one
    inline static QStringList recentFiles;
    inline static bool codeEditorVisible = true;
    inline static bool outputVisible = true;
    inline static bool sideBarVisible = true;
    inline static bool openEditorsVisible = true;
    inline static bool outlineVisible = true;
    inline static bool activityBarVisible = true;
    inline static bool statusBarVisible = true;
    inline static bool statusBarInterpreterVisible = true;
    inline static bool statusBarErrorCountVisible = true;
    inline static bool statusBarLineMessageVisible = true;
    inline static bool showCodeEditorExecuteBtn = true;
    inline static bool showCodeEditorExecuteAllBtn = true;
    inline static bool showCodeEditorExecuteLineBtn = true;
    inline static bool codeEditorOrientVertical = false;
    inline static QByteArray outputState; ///< of the splitter beside the output panel
    inline static bool outputOrientVertical = true;
    inline static bool outputTopLeft = true;
    inline static QByteArray sideBarState;
    inline static bool sideBarLeft = true;
    inline static QByteArray explorerState;
    inline static bool workspaceExpanded = true;
    inline static bool outlineExpanded = true;
    inline static bool openEditorsExpanded = true;
    inline static bool renderWhitespace = false;
    inline static bool renderEndOfLine = false;
    inline static bool wordWrapEnabled = false;
    inline static bool suppressStackWindow = true;
    inline static int codeEditorZoom = 0; ///< points added to the font's size
    inline static int outputZoom = 0;
    inline static bool insertPathAbsolute = true;

    // Open tabs
    inline static QStringList tabDetails;
    inline static QStringList tabBarScrolling;
    inline static int activeTabViewIndex = 0;

    // Workspace and outline
    inline static QString workspacePath; ///< absolute; empty for the default workspace
    inline static bool outlineHideImports = true;
    inline static bool outlineHideMain = false;
    inline static bool outlineHideGlobalProcs = false;
    inline static bool outlineHideGlobalVariables = false;
    inline static bool outlineHideProcs = false;

    // Preferences: general
    inline static bool saveAllOnExecute = true;
    inline static bool saveAllOnExit = true;
    inline static bool overrideScriptEditorButton = true;
    inline static bool checkForModifiedFiles = true;
    inline static bool alwaysShowEditorAndOutputOnStartup = true;
    inline static bool showUnsavedFileDialogOnMayaExit = true;
    inline static bool showConfirmDialogOnInternalBufferClose = true;
    inline static bool utf8FileEncodingForReadWrite = false;
    /// On for hosts that need it; ReadUserConfig knows them by their version.
    inline static bool executeScriptOnIdle = false;

    // Preferences: tab bar and tab stops
    inline static bool showTabBar = true;
    inline static bool showCloseButtonOnTabs = true;
    inline static bool showTabBarMiniToolbar = false;
    inline static bool lockTabPositions = false;
    inline static bool mouseWheelChangesActiveTab = false;
    inline static int tabsSizeDefault = 4; ///< columns
    inline static int tabsSizeMel = 4;
    inline static int tabsSizePython = 4;
    inline static bool tabsInsertSpacesDefault = true;
    inline static bool tabsAutoIndentDefault = true;
    inline static bool tabsUseDefaultsMel = true;
    inline static bool tabsInsertSpacesMel = true;
    inline static bool tabsAutoIndentMel = true;
    inline static bool tabsUseDefaultsPython = true;
    inline static bool tabsInsertSpacesPython = true;
    inline static bool tabsAutoIndentPython = true;

    // Preferences: code editor
    inline static QFont codeEditorFont = GetDefaultFont();
    inline static bool codeEditorBackspaceToTabStop = true;
    inline static bool codeEditorDisplayIndentationGuides = true;
    inline static bool codeEditorMouseWheelChangesFontSize = true;
    inline static bool codeEditorMatchedSelectionWordsOnly = false;

    // Preferences: output
    inline static QFont outputFont = GetDefaultFont();
    inline static int outputBufferSize = 3000; ///< lines
    inline static bool outputMinimalTrace = false;
    inline static bool outputDisableEchoAllOnStartup = false;
    inline static bool outputMouseWheelChangesFontSize = true;
    inline static bool outputDoubleClickIncludesDollarSign = true;
    inline static bool outputSyntaxHighlightingEnabled = true;
    inline static bool outputMatchedSelectionWordsOnly = false;
    inline static bool outputWordWrapEnabled = false;

    // Preferences: MEL
    inline static bool melDisplayErrors = true;
    inline static bool melSmartIndent = true;
    inline static bool melInsertClosingParentheses = true;
    inline static bool melInsertClosingQuotes = true;
    inline static bool melDoubleClickIncludesDollarSign = true;
    inline static bool melAutoCompleteToQuickHelp = true;
    inline static bool melCompleteOnUser = true;
    inline static bool melCompleteOnLetters = true;
    inline static bool melIndentToParentheses = false;
    inline static bool melTrimTrailingWhiteSpacesOnSave = false;
    inline static bool melEnsureNewLineAtEofOnSave = false;

    // Preferences: Python
    inline static bool pythonDisplayErrors = true;
    inline static bool pythonSmartIndent = true;
    inline static bool pythonInsertClosingParentheses = true;
    inline static bool pythonInsertClosingQuotes = true;
    inline static bool pythonHideCompiledFiles = true;
    inline static bool pythonAutoCompleteToQuickHelp = true;
    inline static bool pythonConfirmOverwriteModuleState = true;
    inline static bool pythonDisableRevertModuleStateOnExecuteOnStartup = true;
    inline static bool pythonCompleteOnUser = true;
    inline static bool pythonCompleteOnLetters = true;
    inline static bool pythonCompleteOnDot = true;
    inline static bool pythonIncludeKeywords = true;
    inline static bool pythonIncludeBuiltins = true;
    inline static bool pythonIndentToParentheses = false;
    inline static bool pythonTrimTrailingWhiteSpacesOnSave = false;
    inline static bool pythonEnsureNewLineAtEofOnSave = false;
    inline static bool pythonImportPyMelOnLoad = false;
    inline static bool pythonRevertModuleStateOnExecute = false;
    inline static QString pythonForcedImports;

    // Preferences: pylint
    inline static bool pylintEnabled = false;
    inline static QString pylintPath;
    inline static QString pylintPythonHomePath;
    inline static QString pylintConfigPath;
    inline static QString pylintAdditionalPythonPaths; ///< parted by PATH_SEP
    inline static bool pylintUseMinimalCheckers = true;
    inline static bool pylintShowErrors = false;

    // Not stored under a key of their own
    inline static bool ownsUserConfig = true; ///< no other process writes the configuration file
    inline static QString defaultMelBufferLabel = QStringLiteral("MEL");
    inline static QString defaultPythonBufferLabel = QStringLiteral("Python");
    inline static QString defaultTextBufferLabel = QStringLiteral("Text");
    inline static double customScaleValue = 1.0;
    inline static int numRecentFiles = DEFAULT_NUM_RECENT_FILES;
    inline static QList<QByteArray> workspaceExpandedFolderHashes; ///< 16 bytes each
    inline static QMultiHash<QString, QString> outlineExpandedHash; ///< file path to node paths
    inline static QStringList workspaceFolders;
    inline static bool searchViewActive = false;
    inline static QRegularExpression globalSearchRegEx;
    inline static bool globalSearchUsesExpression = false; ///< it was typed as one
    inline static QString globalSearchReplaceText;
    inline static QStringList globalSearchIncludePaths;
    inline static QList<QRegExp> globalSearchIncludePatterns;
    inline static QStringList globalSearchExcludePaths;
    inline static QList<QRegExp> globalSearchExcludePatterns;
    inline static QStringList pythonParsedForcedImports;
    inline static QString pylintPythonPath;
    inline static bool insertPathForwardSlashes = true;
    inline static bool insertPathEscapeBackslashes = false;
    inline static bool overwriteEnabled = false;
    inline static int uniqueIdCounter = 0;
    // Stretch factors of the panels
    inline static int mainWindowSize = 3;
    inline static int codeEditorSize = 2;
    inline static int outputSize = 1;
    inline static int sideBarSize = 1;
    /// While true the console shows nothing of what the host prints: how hidden commands are run.
    /// Read on every thread that prints.
    inline static std::atomic<bool> traceHideAll{false};

private:
    // What other processes have made of the file's list of recent files since this one saw it
    static void TakeOtherRecentFiles(const QStringList& stored);
    static void NoteStoredRecentFiles(const QStringList& stored);
    static void ForgetStoredRecentFiles();
};
