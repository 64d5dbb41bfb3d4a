#include "settings/Settings.h"

#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "settings/StoredOption.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

const QString Settings::CONFIG_FILE_NAME = QStringLiteral("tarnwickEditor2.ini");
const QString Settings::PREFS_DIRECTORY_NAME = QStringLiteral("tarnwickEditor2");
const QString Settings::INTERNAL_BUFFERS_DIRECTORY_NAME = QStringLiteral("internalBuffers");
const QString Settings::TEMP_DIRECTORY_NAME = QStringLiteral("temp");
const QString Settings::WORKSPACES_DIRECTORY_NAME = QStringLiteral("workspaces");
const QString Settings::DEFAULT_WORKSPACE_FILE_NAME = QStringLiteral("default");
const QString Settings::WORKSPACE_EXTENSION = QStringLiteral(".te2-workspace");
const QString Settings::APPLICATION_TITLE = QStringLiteral("Tarnwick Editor 2");
const QString Settings::APPLICATION_NAME = QStringLiteral("TarnwickEditor2");
const QString Settings::MEL_COMMAND = QStringLiteral("tarnwickEditor2");
const QString Settings::VERSION_STRING = QStringLiteral("2.6.4");
const QString Settings::PATH_SEP = QStringLiteral(":");

namespace {

using S = Settings;

// clang-format off
const StoredOption OPTIONS[] = {
    {"main", "windowGeometry",                 &S::windowGeometry},
    {"main", "recentFiles",                    &S::recentFiles},
    {"main", "codeEditorVisible",              &S::codeEditorVisible},
    {"main", "outputVisible",                  &S::outputVisible},
    {"main", "sideBarVisible",                 &S::sideBarVisible},
    {"main", "openEditorsVisible",             &S::openEditorsVisible},
    {"main", "outlineVisible",                 &S::outlineVisible},
    {"main", "activityBarVisible",             &S::activityBarVisible},
    {"main", "statusBarVisible",               &S::statusBarVisible},
    {"main", "statusBarInterpreterVisible",    &S::statusBarInterpreterVisible},
    {"main", "statusBarErrorCountVisible",     &S::statusBarErrorCountVisible},
    {"main", "statusBarLineMessageVisible",    &S::statusBarLineMessageVisible},
    {"main", "showCodeEditorExecuteBtn",       &S::showCodeEditorExecuteBtn},
    {"main", "showCodeEditorExecuteAllBtn",    &S::showCodeEditorExecuteAllBtn},
    {"main", "showCodeEditorExecuteLineBtn",   &S::showCodeEditorExecuteLineBtn},
    {"main", "codeEditorOrientVertical",       &S::codeEditorOrientVertical},
    {"main", "outputState",                    &S::outputState},
    {"main", "outputOrientVertical",           &S::outputOrientVertical},
    {"main", "outputTopLeft",                  &S::outputTopLeft},
    {"main", "sideBarState",                   &S::sideBarState},
    {"main", "sideBarLeft",                    &S::sideBarLeft},
    {"main", "explorerState",                  &S::explorerState},
    {"main", "workspaceExpanded",              &S::workspaceExpanded},
    {"main", "outlineExpanded",                &S::outlineExpanded},
    {"main", "openEditorsExpanded",            &S::openEditorsExpanded},
    {"main", "renderWhitespace",               &S::renderWhitespace},
    {"main", "renderEndOfLine",                &S::renderEndOfLine},
    {"main", "wordWrapEnabled",                &S::wordWrapEnabled},
    {"main", "suppressStackWindow",            &S::suppressStackWindow},
    {"main", "codeEditorZoom",                 &S::codeEditorZoom},
    {"main", "outputZoom",                     &S::outputZoom},
    {"main", "insertPathAbsolute",             &S::insertPathAbsolute},

    {"tabs", "tabDetails",                     &S::tabDetails},
    {"tabs", "tabBarScrolling",                &S::tabBarScrolling},
    {"tabs", "activeTabViewIndex",             &S::activeTabViewIndex},

    {"outline", "outlineHideImports",          &S::outlineHideImports},
    {"outline", "outlineHideMain",             &S::outlineHideMain},
    {"outline", "outlineHideGlobalProcs",      &S::outlineHideGlobalProcs},
    {"outline", "outlineHideGlobalVariables",  &S::outlineHideGlobalVariables},
    {"outline", "outlineHideProcs",            &S::outlineHideProcs},

    {"preferences", "saveAllOnExecute",                       &S::saveAllOnExecute},
    {"preferences", "saveAllOnExit",                          &S::saveAllOnExit},
    {"preferences", "overrideScriptEditorButton",             &S::overrideScriptEditorButton},
    {"preferences", "checkForModifiedFiles",                  &S::checkForModifiedFiles},
    // The key keeps its capital U: files that exist are written so.
    {"preferences", "alwaysShowEditorAndOutputOnStartUp",     &S::alwaysShowEditorAndOutputOnStartup},
    {"preferences", "showUnsavedFileDialogOnMayaExit",        &S::showUnsavedFileDialogOnMayaExit},
    {"preferences", "showConfirmDialogOnInternalBufferClose", &S::showConfirmDialogOnInternalBufferClose},
    {"preferences", "utf8FileEncodingForReadWrite",           &S::utf8FileEncodingForReadWrite},
    {"preferences", "showTabBar",                             &S::showTabBar},
    {"preferences", "showCloseButtonOnTabs",                  &S::showCloseButtonOnTabs},
    {"preferences", "showTabBarMiniToolbar",                  &S::showTabBarMiniToolbar},
    {"preferences", "lockTabPositions",                       &S::lockTabPositions},
    {"preferences", "mouseWheelChangesActiveTab",             &S::mouseWheelChangesActiveTab},
    {"preferences", "tabsSizeDefault",                        &S::tabsSizeDefault},
    {"preferences", "tabsSizeMel",                            &S::tabsSizeMel},
    {"preferences", "tabsSizePython",                         &S::tabsSizePython},
    {"preferences", "tabsInsertSpacesDefault",                &S::tabsInsertSpacesDefault},
    {"preferences", "tabsAutoIndentDefault",                  &S::tabsAutoIndentDefault},
    {"preferences", "tabsUseDefaultsMel",                     &S::tabsUseDefaultsMel},
    {"preferences", "tabsInsertSpacesMel",                    &S::tabsInsertSpacesMel},
    {"preferences", "tabsAutoIndentMel",                      &S::tabsAutoIndentMel},
    {"preferences", "tabsUseDefaultsPython",                  &S::tabsUseDefaultsPython},
    {"preferences", "tabsInsertSpacesPython",                 &S::tabsInsertSpacesPython},
    {"preferences", "tabsAutoIndentPython",                   &S::tabsAutoIndentPython},
    {"preferences", "codeEditorFontFamily",                   FontFamily{&S::codeEditorFont}},
    {"preferences", "codeEditorFontSize",                     FontSize{&S::codeEditorFont}},
    {"preferences", "codeEditorBackspaceToTabStop",           &S::codeEditorBackspaceToTabStop},
    {"preferences", "codeEditorDisplayIndentationGuides",     &S::codeEditorDisplayIndentationGuides},
    {"preferences", "codeEditorMouseWheelChangesFontSize",    &S::codeEditorMouseWheelChangesFontSize},
    {"preferences", "codeEditorMatchedSelectionWordsOnly",    &S::codeEditorMatchedSelectionWordsOnly},
    {"preferences", "outputFontFamily",                       FontFamily{&S::outputFont}},
    {"preferences", "outputFontSize",                         FontSize{&S::outputFont}},
    {"preferences", "outputBufferSize",                       &S::outputBufferSize},
    {"preferences", "outputMinimalTrace",                     &S::outputMinimalTrace},
    {"preferences", "outputDisableEchoAllOnStartup",          &S::outputDisableEchoAllOnStartup},
    {"preferences", "outputMouseWheelChangesFontSize",        &S::outputMouseWheelChangesFontSize},
    {"preferences", "outputDoubleClickIncludesDollarSign",    &S::outputDoubleClickIncludesDollarSign},
    {"preferences", "outputSyntaxHighlightingEnabled",        &S::outputSyntaxHighlightingEnabled},
    {"preferences", "outputMatchedSelectionWordsOnly",        &S::outputMatchedSelectionWordsOnly},
    {"preferences", "outputWordWrapEnabled",                  &S::outputWordWrapEnabled},
    {"preferences", "melDisplayErrors",                       &S::melDisplayErrors},
    {"preferences", "melSmartIndent",                         &S::melSmartIndent},
    {"preferences", "melIndentToParentheses",                 &S::melIndentToParentheses},
    {"preferences", "melInsertClosingParentheses",            &S::melInsertClosingParentheses},
    {"preferences", "melInsertClosingQuotes",                 &S::melInsertClosingQuotes},
    {"preferences", "melDoubleClickIncludesDollarSign",       &S::melDoubleClickIncludesDollarSign},
    {"preferences", "melAutoCompleteToQuickHelp",             &S::melAutoCompleteToQuickHelp},
    {"preferences", "melCompleteOnUser",                      &S::melCompleteOnUser},
    {"preferences", "melCompleteOnLetters",                   &S::melCompleteOnLetters},
    {"preferences", "melTrimTrailingWhiteSpacesOnSave",       &S::melTrimTrailingWhiteSpacesOnSave},
    {"preferences", "melEnsureNewLineAtEofOnSave",            &S::melEnsureNewLineAtEofOnSave},
    {"preferences", "pythonDisplayErrors",                    &S::pythonDisplayErrors},
    {"preferences", "pythonSmartIndent",                      &S::pythonSmartIndent},
    {"preferences", "pythonIndentToParentheses",              &S::pythonIndentToParentheses},
    {"preferences", "pythonInsertClosingParentheses",         &S::pythonInsertClosingParentheses},
    {"preferences", "pythonInsertClosingQuotes",              &S::pythonInsertClosingQuotes},
    {"preferences", "pythonHideCompiledFiles",                &S::pythonHideCompiledFiles},
    {"preferences", "pythonAutoCompleteToQuickHelp",          &S::pythonAutoCompleteToQuickHelp},
    {"preferences", "pythonConfirmOverwriteModuleState",      &S::pythonConfirmOverwriteModuleState},
    {"preferences", "pythonDisableRevertModuleStateOnExecuteOnStartup",
        &S::pythonDisableRevertModuleStateOnExecuteOnStartup},
    {"preferences", "pythonRevertModuleStateOnExecute",       &S::pythonRevertModuleStateOnExecute},
    {"preferences", "pythonCompleteOnUser",                   &S::pythonCompleteOnUser},
    {"preferences", "pythonCompleteOnLetters",                &S::pythonCompleteOnLetters},
    {"preferences", "pythonCompleteOnDot",                    &S::pythonCompleteOnDot},
    {"preferences", "pythonIncludeKeywords",                  &S::pythonIncludeKeywords},
    {"preferences", "pythonIncludeBuiltins",                  &S::pythonIncludeBuiltins},
    {"preferences", "pythonTrimTrailingWhiteSpacesOnSave",    &S::pythonTrimTrailingWhiteSpacesOnSave},
    {"preferences", "pythonEnsureNewLineAtEofOnSave",         &S::pythonEnsureNewLineAtEofOnSave},
    {"preferences", "pythonImportPyMelOnLoad",                &S::pythonImportPyMelOnLoad},
    {"preferences", "pythonForcedImports",                    &S::pythonForcedImports},
    {"preferences", "pylintEnabled",                          &S::pylintEnabled},
    {"preferences", "pylintPath",                             &S::pylintPath},
    {"preferences", "pylintPythonHomePath",                   &S::pylintPythonHomePath},
    {"preferences", "pylintConfigPath",                       &S::pylintConfigPath},
    {"preferences", "pylintAdditionalImportPaths",            &S::pylintAdditionalPythonPaths},
    {"preferences", "pylintUseMinimalCheckers",               &S::pylintUseMinimalCheckers},
    {"preferences", "pylintShowErrors",                       &S::pylintShowErrors},
};
// clang-format on

const QString VERSION_KEY = QStringLiteral("main/version");
const QString WORKSPACE_PATH_KEY = QStringLiteral("workspace/workspacePath");
const QString WORKSPACE_STATE_KEY = QStringLiteral("workspace/workspaceState");
const QString OUTLINE_STATE_KEY = QStringLiteral("outline/outlineState");
const QString EXECUTE_ON_IDLE_KEY = QStringLiteral("preferences/executeScriptOnIdle");

/// Releases whose interpreter may not be entered from inside an event.
bool HostPrefersIdleExecution()
{
    const QString version = MayaUtil::GetMayaVersionString();
    return version.startsWith(QLatin1String("2018")) || version.startsWith(QLatin1String("2019"));
}

QString MakeDirectory(const QString& path, const char* failure)
{
    if (!path.isEmpty() && !QDir(path).exists() && !QDir().mkpath(path))
        Logger::Error(QString::fromLatin1(failure));
    return path;
}

QString SubDirectory(const QString& name, const char* failure)
{
    return MakeDirectory(
        QStringLiteral("%1/%2").arg(Settings::GetUserConfigDirectory(), name), failure);
}

void ReadWorkspace(const QSettings& ini)
{
    Settings::workspacePath = ini.value(WORKSPACE_PATH_KEY, Settings::workspacePath).toString();
    if (!Settings::workspacePath.isEmpty() && QDir::isRelativePath(Settings::workspacePath)) {
        Settings::workspacePath = QStringLiteral("%1/%2").arg(
            Settings::GetWorkspacesDirectoryPath(), Settings::workspacePath);
    }
    if (ini.contains(WORKSPACE_STATE_KEY))
        Settings::RestoreWorkspaceState(ini.value(WORKSPACE_STATE_KEY).toByteArray());
}

/// Inside the workspaces folder the path is stored relative, so that the preferences can move.
QString StoredWorkspacePath()
{
    const QString folder = Settings::GetWorkspacesDirectoryPath() + QLatin1Char('/');
    return Settings::workspacePath.startsWith(folder) ? Settings::workspacePath.mid(folder.size())
                                                      : Settings::workspacePath;
}

void ApplyStartRules()
{
    // Every start begins with reverting off, unless the user asked to keep it.
    if (Settings::pythonDisableRevertModuleStateOnExecuteOnStartup)
        Settings::pythonRevertModuleStateOnExecute = false;
    const bool oneIsHidden = !Settings::codeEditorVisible || !Settings::outputVisible;
    if (Settings::alwaysShowEditorAndOutputOnStartup && oneIsHidden) {
        Settings::outputState.clear();
        Settings::codeEditorVisible = true;
        Settings::outputVisible = true;
    } else if (!Settings::codeEditorVisible && !Settings::outputVisible) {
        Settings::codeEditorVisible = true;
    }
}

} // namespace

QString Settings::GetUserConfigDirectory()
{
    QString prefs = MayaUtil::GetMayaPrefsDirectory();
    if (prefs.isEmpty()) {
        Logger::Error("Failed to retrieve Maya prefs directory");
        return {};
    }
    if (!prefs.endsWith(QLatin1Char('/')))
        prefs += QLatin1Char('/');
    const QString path = QFileInfo(QStringLiteral("%1%2").arg(prefs, PREFS_DIRECTORY_NAME)).absoluteFilePath();
    return MakeDirectory(path, "Failed to create user config directory");
}

QString Settings::GetUserConfigPath()
{
    const QString directory = GetUserConfigDirectory();
    if (directory.isEmpty())
        return {};
    return QFileInfo(directory + QLatin1Char('/') + CONFIG_FILE_NAME).absoluteFilePath();
}

QString Settings::GetInternalBufferDirectoryPath()
{
    return SubDirectory(INTERNAL_BUFFERS_DIRECTORY_NAME, "Failed to create internal buffer directory");
}

QString Settings::GetTempDirectoryPath()
{
    return SubDirectory(TEMP_DIRECTORY_NAME, "Failed to create temp directory");
}

QString Settings::GetWorkspacesDirectoryPath()
{
    return SubDirectory(WORKSPACES_DIRECTORY_NAME, "Failed to create workspaces directory");
}

QString Settings::GetDefaultWorkspacePath()
{
    return QStringLiteral("%1/%2%3").arg(
        GetWorkspacesDirectoryPath(), DEFAULT_WORKSPACE_FILE_NAME, WORKSPACE_EXTENSION);
}

QString Settings::GetWorkspacePath()
{
    return workspacePath.isEmpty() ? GetDefaultWorkspacePath() : workspacePath;
}

QFont Settings::GetDefaultFont()
{
    QFont font(QStringLiteral("Liberation Mono"), 9, QFont::Normal, false);
    font.setStyleHint(QFont::TypeWriter);
    return font;
}

void Settings::ReadUserConfig()
{
    executeScriptOnIdle = HostPrefersIdleExecution();
    const QString path = GetUserConfigPath();
    if (path.isEmpty())
        return;
    const QSettings ini(path, QSettings::IniFormat);
    for (const StoredOption& option : OPTIONS)
        option.Read(ini);
    ReadWorkspace(ini);
    if (ini.contains(OUTLINE_STATE_KEY))
        RestoreOutlineExpandedState(ini.value(OUTLINE_STATE_KEY).toByteArray());
    executeScriptOnIdle = ini.value(EXECUTE_ON_IDLE_KEY, executeScriptOnIdle).toBool();
    ApplyStartRules();
}

void Settings::WriteUserConfig()
{
    const QString path = GetUserConfigPath();
    if (path.isEmpty())
        return;
    QSettings ini(path, QSettings::IniFormat);
    ini.setValue(VERSION_KEY, CONFIG_FILE_VERSION);
    for (const StoredOption& option : OPTIONS)
        option.Write(ini);
    ini.setValue(WORKSPACE_PATH_KEY, StoredWorkspacePath());
    ini.setValue(WORKSPACE_STATE_KEY, GetWorkspaceState());
    ini.setValue(OUTLINE_STATE_KEY, GetOutlineExpandedState());
    if (HostPrefersIdleExecution())
        ini.setValue(EXECUTE_ON_IDLE_KEY, executeScriptOnIdle);
    ini.sync();
    if (ini.status() != QSettings::NoError)
        Logger::Error(QStringLiteral("Failed to write settings: %1").arg(path));
}

void Settings::AddRecentFile(const QString& path)
{
    if (path.isEmpty())
        return;
    recentFiles.removeOne(path);
    recentFiles.prepend(path);
    UpdateRecentFiles(numRecentFiles);
    WriteUserConfig();
}

void Settings::UpdateRecentFiles(int count)
{
    const bool inRange = count >= MINIMUM_RECENT_FILES && count <= MAXIMUM_RECENT_FILES;
    numRecentFiles = inRange ? count : DEFAULT_NUM_RECENT_FILES;
    while (recentFiles.size() > numRecentFiles)
        recentFiles.removeLast();
}

void Settings::ClearRecentFiles()
{
    recentFiles.clear();
}
