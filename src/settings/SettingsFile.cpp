// The user's configuration file: one table says what it holds.

#include "plugin/MayaUtil.h"
#include "settings/IniFile.h"
#include "settings/IniValues.h"
#include "settings/Settings.h"

#include <QDir>
#include <QLockFile>
#include <QSettings>
#include <QVector>

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <variant>

namespace {

const QString RECENT_FILES_KEY = QStringLiteral("main/recentFiles");
const QString WRITE_FAILURE = QStringLiteral("Failed to write user config: %1");

/// A key with rules of its own. `read` gets what is stored under a key that is there.
struct Special
{
    void (*read)(const QVariant& stored);
    /// An invalid value keeps the key out of the file.
    QVariant (*write)();
    QVariant (*standard)() = nullptr; ///< null when there is no fixed default
};

using OptionRef
    = std::variant<bool*, int*, QString*, QStringList*, QByteArray*, QRect*, const Special*>;

struct Option
{
    const char* group;
    const char* key;
    OptionRef value;
};

QString WorkspacesPrefix()
{
    const QString directory = Settings::GetWorkspacesDirectoryPath();
    return directory.isEmpty() ? QString() : directory + QLatin1Char('/');
}

void ReadWorkspacePath(const QVariant& stored)
{
    QString path;
    if (!IniValues::Parse(stored, path))
        return;
    if (!path.isEmpty() && QDir::isRelativePath(path))
        path = QStringLiteral("%1/%2").arg(Settings::GetWorkspacesDirectoryPath(), path);
    Settings::workspacePath = path;
}

/// A workspace in our own folder is stored by its name, so that it is found when the preferences
/// move.
QVariant WrittenWorkspacePath()
{
    const QString prefix = WorkspacesPrefix();
    const bool isOurs = !prefix.isEmpty() && Settings::workspacePath.startsWith(prefix);
    return isOurs ? Settings::workspacePath.mid(prefix.size()) : Settings::workspacePath;
}

void ReadFontFamily(QFont& font, const QVariant& stored)
{
    QString family;
    if (IniValues::Parse(stored, family) && !family.isEmpty())
        font.setFamily(family);
}

void ReadFontSize(QFont& font, const QVariant& stored)
{
    int points = 0;
    // The toolkit knows no font without a size.
    if (IniValues::Parse(stored, points) && points > 0)
        font.setPointSize(points);
}

void ReadState(void (*restore)(const QByteArray&), const QVariant& stored)
{
    QByteArray state;
    if (IniValues::Parse(stored, state))
        restore(state);
}

void RestoreOutline(const QByteArray& state)
{
    Settings::RestoreOutlineExpandedState(state);
}

bool HostNeedsIdleExecution()
{
    const QString version = MayaUtil::GetMayaVersionString();
    return version.startsWith(QLatin1String("2018")) || version.startsWith(QLatin1String("2019"));
}

QVariant WrittenExecuteOnIdle()
{
    return HostNeedsIdleExecution() ? QVariant(Settings::executeScriptOnIdle) : QVariant();
}

using S = Settings;

// clang-format off
constexpr Special WORKSPACE_PATH {ReadWorkspacePath, WrittenWorkspacePath};
constexpr Special WORKSPACE_STATE {
    [](const QVariant& stored) { ReadState(S::RestoreWorkspaceState, stored); },
    [] { return QVariant(S::GetWorkspaceState()); }};
constexpr Special OUTLINE_STATE {
    [](const QVariant& stored) { ReadState(RestoreOutline, stored); },
    [] { return QVariant(S::GetOutlineExpandedState()); }};
constexpr Special EDITOR_FONT_FAMILY {
    [](const QVariant& stored) { ReadFontFamily(S::codeEditorFont, stored); },
    [] { return QVariant(S::codeEditorFont.family()); },
    [] { return QVariant(S::GetDefaultFont().family()); }};
constexpr Special EDITOR_FONT_SIZE {
    [](const QVariant& stored) { ReadFontSize(S::codeEditorFont, stored); },
    [] { return QVariant(S::codeEditorFont.pointSize()); },
    [] { return QVariant(S::GetDefaultFont().pointSize()); }};
constexpr Special OUTPUT_FONT_FAMILY {
    [](const QVariant& stored) { ReadFontFamily(S::outputFont, stored); },
    [] { return QVariant(S::outputFont.family()); },
    [] { return QVariant(S::GetDefaultFont().family()); }};
constexpr Special OUTPUT_FONT_SIZE {
    [](const QVariant& stored) { ReadFontSize(S::outputFont, stored); },
    [] { return QVariant(S::outputFont.pointSize()); },
    [] { return QVariant(S::GetDefaultFont().pointSize()); }};
constexpr Special EXECUTE_ON_IDLE {
    [](const QVariant& stored) { IniValues::Parse(stored, S::executeScriptOnIdle); },
    WrittenExecuteOnIdle,
    [] { return QVariant(HostNeedsIdleExecution()); }};

// Every stored option, in the order in which it is read.
const Option OPTIONS[] = {
    {"main", "windowGeometry",              &S::windowGeometry},
    {"main", "recentFiles",                 &S::recentFiles},
    {"main", "codeEditorVisible",           &S::codeEditorVisible},
    {"main", "outputVisible",               &S::outputVisible},
    {"main", "sideBarVisible",              &S::sideBarVisible},
    {"main", "openEditorsVisible",          &S::openEditorsVisible},
    {"main", "outlineVisible",              &S::outlineVisible},
    {"main", "activityBarVisible",          &S::activityBarVisible},
    {"main", "statusBarVisible",            &S::statusBarVisible},
    {"main", "statusBarInterpreterVisible", &S::statusBarInterpreterVisible},
    {"main", "statusBarErrorCountVisible",  &S::statusBarErrorCountVisible},
    {"main", "statusBarLineMessageVisible", &S::statusBarLineMessageVisible},
    {"main", "showCodeEditorExecuteBtn",    &S::showCodeEditorExecuteBtn},
    {"main", "showCodeEditorExecuteAllBtn", &S::showCodeEditorExecuteAllBtn},
    {"main", "showCodeEditorExecuteLineBtn", &S::showCodeEditorExecuteLineBtn},
    {"main", "codeEditorOrientVertical",    &S::codeEditorOrientVertical},
    {"main", "outputState",                 &S::outputState},
    {"main", "outputOrientVertical",        &S::outputOrientVertical},
    {"main", "outputTopLeft",               &S::outputTopLeft},
    {"main", "sideBarState",                &S::sideBarState},
    {"main", "sideBarLeft",                 &S::sideBarLeft},
    {"main", "explorerState",               &S::explorerState},
    {"main", "workspaceExpanded",           &S::workspaceExpanded},
    {"main", "outlineExpanded",             &S::outlineExpanded},
    {"main", "openEditorsExpanded",         &S::openEditorsExpanded},
    {"main", "renderWhitespace",            &S::renderWhitespace},
    {"main", "renderEndOfLine",             &S::renderEndOfLine},
    {"main", "wordWrapEnabled",             &S::wordWrapEnabled},
    {"main", "suppressStackWindow",         &S::suppressStackWindow},
    {"main", "codeEditorZoom",              &S::codeEditorZoom},
    {"main", "outputZoom",                  &S::outputZoom},
    {"main", "insertPathAbsolute",          &S::insertPathAbsolute},

    {"tabs", "tabDetails",                  &S::tabDetails},
    {"tabs", "tabBarScrolling",             &S::tabBarScrolling},
    {"tabs", "activeTabViewIndex",          &S::activeTabViewIndex},

    {"workspace", "workspacePath",          &WORKSPACE_PATH},
    {"workspace", "workspaceState",         &WORKSPACE_STATE},

    {"outline", "outlineHideImports",         &S::outlineHideImports},
    {"outline", "outlineHideMain",            &S::outlineHideMain},
    {"outline", "outlineHideGlobalProcs",     &S::outlineHideGlobalProcs},
    {"outline", "outlineHideGlobalVariables", &S::outlineHideGlobalVariables},
    {"outline", "outlineHideProcs",           &S::outlineHideProcs},
    {"outline", "outlineState",               &OUTLINE_STATE},

    {"preferences", "saveAllOnExecute",           &S::saveAllOnExecute},
    {"preferences", "saveAllOnExit",              &S::saveAllOnExit},
    {"preferences", "overrideScriptEditorButton", &S::overrideScriptEditorButton},
    {"preferences", "checkForModifiedFiles",      &S::checkForModifiedFiles},
    // The key has a capital U where the member has none: files are out there that spell it so.
    {"preferences", "alwaysShowEditorAndOutputOnStartUp", &S::alwaysShowEditorAndOutputOnStartup},
    {"preferences", "showUnsavedFileDialogOnMayaExit",        &S::showUnsavedFileDialogOnMayaExit},
    {"preferences", "showConfirmDialogOnInternalBufferClose", &S::showConfirmDialogOnInternalBufferClose},
    {"preferences", "utf8FileEncodingForReadWrite", &S::utf8FileEncodingForReadWrite},
    {"preferences", "executeScriptOnIdle",          &EXECUTE_ON_IDLE},
    {"preferences", "showTabBar",                   &S::showTabBar},
    {"preferences", "showCloseButtonOnTabs",        &S::showCloseButtonOnTabs},
    {"preferences", "showTabBarMiniToolbar",        &S::showTabBarMiniToolbar},
    {"preferences", "lockTabPositions",             &S::lockTabPositions},
    {"preferences", "mouseWheelChangesActiveTab",   &S::mouseWheelChangesActiveTab},
    {"preferences", "tabsSizeDefault",              &S::tabsSizeDefault},
    {"preferences", "tabsSizeMel",                  &S::tabsSizeMel},
    {"preferences", "tabsSizePython",               &S::tabsSizePython},
    {"preferences", "tabsInsertSpacesDefault",      &S::tabsInsertSpacesDefault},
    {"preferences", "tabsAutoIndentDefault",        &S::tabsAutoIndentDefault},
    {"preferences", "tabsUseDefaultsMel",           &S::tabsUseDefaultsMel},
    {"preferences", "tabsInsertSpacesMel",          &S::tabsInsertSpacesMel},
    {"preferences", "tabsAutoIndentMel",            &S::tabsAutoIndentMel},
    {"preferences", "tabsUseDefaultsPython",        &S::tabsUseDefaultsPython},
    {"preferences", "tabsInsertSpacesPython",       &S::tabsInsertSpacesPython},
    {"preferences", "tabsAutoIndentPython",         &S::tabsAutoIndentPython},
    {"preferences", "codeEditorFontFamily",         &EDITOR_FONT_FAMILY},
    {"preferences", "codeEditorFontSize",           &EDITOR_FONT_SIZE},
    {"preferences", "codeEditorBackspaceToTabStop", &S::codeEditorBackspaceToTabStop},
    {"preferences", "codeEditorDisplayIndentationGuides",   &S::codeEditorDisplayIndentationGuides},
    {"preferences", "codeEditorMouseWheelChangesFontSize",  &S::codeEditorMouseWheelChangesFontSize},
    {"preferences", "codeEditorMatchedSelectionWordsOnly",  &S::codeEditorMatchedSelectionWordsOnly},
    {"preferences", "outputFontFamily",              &OUTPUT_FONT_FAMILY},
    {"preferences", "outputFontSize",                &OUTPUT_FONT_SIZE},
    {"preferences", "outputBufferSize",              &S::outputBufferSize},
    {"preferences", "outputMinimalTrace",            &S::outputMinimalTrace},
    {"preferences", "outputDisableEchoAllOnStartup", &S::outputDisableEchoAllOnStartup},
    {"preferences", "outputMouseWheelChangesFontSize",      &S::outputMouseWheelChangesFontSize},
    {"preferences", "outputDoubleClickIncludesDollarSign",  &S::outputDoubleClickIncludesDollarSign},
    {"preferences", "outputSyntaxHighlightingEnabled",      &S::outputSyntaxHighlightingEnabled},
    {"preferences", "outputMatchedSelectionWordsOnly",      &S::outputMatchedSelectionWordsOnly},
    {"preferences", "outputWordWrapEnabled",                &S::outputWordWrapEnabled},
    {"preferences", "melDisplayErrors",                 &S::melDisplayErrors},
    {"preferences", "melSmartIndent",                   &S::melSmartIndent},
    {"preferences", "melInsertClosingParentheses",      &S::melInsertClosingParentheses},
    {"preferences", "melInsertClosingQuotes",           &S::melInsertClosingQuotes},
    {"preferences", "melDoubleClickIncludesDollarSign", &S::melDoubleClickIncludesDollarSign},
    {"preferences", "melAutoCompleteToQuickHelp",       &S::melAutoCompleteToQuickHelp},
    {"preferences", "melCompleteOnUser",                &S::melCompleteOnUser},
    {"preferences", "melCompleteOnLetters",             &S::melCompleteOnLetters},
    {"preferences", "melIndentToParentheses",           &S::melIndentToParentheses},
    {"preferences", "melTrimTrailingWhiteSpacesOnSave", &S::melTrimTrailingWhiteSpacesOnSave},
    {"preferences", "melEnsureNewLineAtEofOnSave",      &S::melEnsureNewLineAtEofOnSave},
    {"preferences", "pythonDisplayErrors",              &S::pythonDisplayErrors},
    {"preferences", "pythonSmartIndent",                &S::pythonSmartIndent},
    {"preferences", "pythonInsertClosingParentheses",   &S::pythonInsertClosingParentheses},
    {"preferences", "pythonInsertClosingQuotes",        &S::pythonInsertClosingQuotes},
    {"preferences", "pythonHideCompiledFiles",          &S::pythonHideCompiledFiles},
    {"preferences", "pythonAutoCompleteToQuickHelp",    &S::pythonAutoCompleteToQuickHelp},
    {"preferences", "pythonConfirmOverwriteModuleState", &S::pythonConfirmOverwriteModuleState},
    {"preferences", "pythonDisableRevertModuleStateOnExecuteOnStartup", &S::pythonDisableRevertModuleStateOnExecuteOnStartup},
    {"preferences", "pythonCompleteOnUser",             &S::pythonCompleteOnUser},
    {"preferences", "pythonCompleteOnLetters",          &S::pythonCompleteOnLetters},
    {"preferences", "pythonCompleteOnDot",              &S::pythonCompleteOnDot},
    {"preferences", "pythonIncludeKeywords",            &S::pythonIncludeKeywords},
    {"preferences", "pythonIncludeBuiltins",            &S::pythonIncludeBuiltins},
    {"preferences", "pythonIndentToParentheses",        &S::pythonIndentToParentheses},
    {"preferences", "pythonTrimTrailingWhiteSpacesOnSave", &S::pythonTrimTrailingWhiteSpacesOnSave},
    {"preferences", "pythonEnsureNewLineAtEofOnSave",   &S::pythonEnsureNewLineAtEofOnSave},
    {"preferences", "pythonImportPyMelOnLoad",          &S::pythonImportPyMelOnLoad},
    {"preferences", "pythonRevertModuleStateOnExecute", &S::pythonRevertModuleStateOnExecute},
    {"preferences", "pythonForcedImports",              &S::pythonForcedImports},
    {"preferences", "pylintEnabled",                    &S::pylintEnabled},
    {"preferences", "pylintPath",                       &S::pylintPath},
    {"preferences", "pylintPythonHomePath",             &S::pylintPythonHomePath},
    {"preferences", "pylintConfigPath",                 &S::pylintConfigPath},
    {"preferences", "pylintAdditionalImportPaths",      &S::pylintAdditionalPythonPaths},
    {"preferences", "pylintUseMinimalCheckers",         &S::pylintUseMinimalCheckers},
    {"preferences", "pylintShowErrors",                 &S::pylintShowErrors},
};
// clang-format on

QString FullKey(const Option& option)
{
    return QLatin1String(option.group) + QLatin1Char('/') + QLatin1String(option.key);
}

void Read(const QVariant& stored, const OptionRef& value)
{
    std::visit(
        [&stored](auto* member) {
            if constexpr (std::is_same_v<decltype(member), const Special*>)
                member->read(stored);
            else
                IniValues::Parse(stored, *member);
        },
        value);
}

QVariant Written(const OptionRef& value)
{
    return std::visit(
        [](const auto* member) -> QVariant {
            if constexpr (std::is_same_v<decltype(member), const Special*>)
                return member->write();
            else
                return QVariant::fromValue(*member);
        },
        value);
}

/// The plain options as the compiler set them: taken before anybody can have changed one. Special
/// ones have an invalid value here.
const QVector<QVariant> DEFAULTS = [] {
    QVector<QVariant> values;
    for (const Option& option : OPTIONS) {
        const bool special = std::holds_alternative<const Special*>(option.value);
        values.append(special ? QVariant() : Written(option.value));
    }
    return values;
}();

/// Cleared when the defaults that depend on the host's version have to be taken again.
bool hostDefaultsTaken = false;

void TakeHostDefaults()
{
    if (hostDefaultsTaken)
        return;
    hostDefaultsTaken = true;
    Settings::executeScriptOnIdle = HostNeedsIdleExecution();
}

void RestoreDefault(const OptionRef& value, const QVariant& standard)
{
    std::visit(
        [&standard](auto* member) {
            using Type = std::remove_pointer_t<decltype(member)>;
            if constexpr (!std::is_same_v<Type, const Special>)
                *member = standard.value<Type>();
        },
        value);
}

const Option* FindOption(const QString& key)
{
    const auto found = std::find_if(std::begin(OPTIONS), std::end(OPTIONS),
        [&key](const Option& option) { return key == QLatin1String(option.key); });
    return found == std::end(OPTIONS) ? nullptr : found;
}

/// Held while the file is read and written again: what another process writes in between would be
/// lost. Nobody waits for long.
class WriteLock
{
public:
    explicit WriteLock(const QString& path)
        : m_lock(path + QStringLiteral(".write.lock"))
    {
        m_lock.setStaleLockTime(STALE_AFTER);
        m_lock.tryLock(PATIENCE);
    }

private:
    static constexpr int STALE_AFTER = 5000; // ms
    static constexpr int PATIENCE = 500; // ms

    QLockFile m_lock;
};

QStringList StoredRecentFiles(const QSettings& ini)
{
    QStringList stored;
    IniValues::Parse(ini.value(RECENT_FILES_KEY), stored);
    return stored;
}

void ReadOptions(const QSettings& ini)
{
    IniFile::KeepWhatCannotBeRead(ini);
    for (const Option& option : OPTIONS) {
        const QString key = FullKey(option);
        if (ini.contains(key))
            Read(ini.value(key), option.value);
    }
}

/// Somebody who hid both panels must find one at the next start.
void ApplyVisibilityRules()
{
    if (Settings::alwaysShowEditorAndOutputOnStartup) {
        if (Settings::codeEditorVisible && Settings::outputVisible)
            return;
        Settings::outputState.clear();
        Settings::codeEditorVisible = true;
        Settings::outputVisible = true;
    } else if (!Settings::codeEditorVisible && !Settings::outputVisible) {
        Settings::codeEditorVisible = true;
    }
}

} // namespace

void Settings::ReadUserConfig()
{
    TakeHostDefaults();
    const QString path = GetUserConfigPath();
    if (!path.isEmpty()) {
        const QSettings ini(path, QSettings::IniFormat);
        ReadOptions(ini);
        NoteStoredRecentFiles(StoredRecentFiles(ini));
    }
    if (pythonDisableRevertModuleStateOnExecuteOnStartup)
        pythonRevertModuleStateOnExecute = false;
    ApplyVisibilityRules();
}

bool Settings::WriteUserConfig()
{
    const QString path = GetUserConfigPath();
    if (path.isEmpty() || !ownsUserConfig)
        return true;
    const WriteLock lock(path);
    QSettings ini(path, QSettings::IniFormat);
    TakeOtherRecentFiles(StoredRecentFiles(ini));
    ini.setValue(QStringLiteral("main/version"), CONFIG_FILE_VERSION);
    for (const Option& option : OPTIONS) {
        const QVariant value = Written(option.value);
        if (value.isValid())
            ini.setValue(FullKey(option), value);
    }
    NoteStoredRecentFiles(recentFiles);
    return IniFile::Finish(ini, WRITE_FAILURE);
}

void Settings::MergeRecentFiles()
{
    const QString path = GetUserConfigPath();
    if (path.isEmpty())
        return;
    const WriteLock lock(path);
    QSettings ini(path, QSettings::IniFormat);
    const QStringList stored = StoredRecentFiles(ini);
    TakeOtherRecentFiles(stored);
    if (recentFiles == stored)
        return;
    ini.setValue(RECENT_FILES_KEY, recentFiles);
    NoteStoredRecentFiles(recentFiles);
    IniFile::Finish(ini, WRITE_FAILURE);
}

QVariant Settings::GetDefault(const QString& key)
{
    const Option* const option = FindOption(key);
    if (!option)
        return {};
    const auto* const special = std::get_if<const Special*>(&option->value);
    if (!special)
        return DEFAULTS[static_cast<int>(option - OPTIONS)];
    return (*special)->standard ? (*special)->standard() : QVariant();
}

bool Settings::IsStored(const QString& key)
{
    const Option* const option = FindOption(key);
    return option && Written(option->value).isValid();
}

void Settings::ResetToDefaults()
{
    for (size_t i = 0; i < std::size(OPTIONS); ++i)
        RestoreDefault(OPTIONS[i].value, DEFAULTS[static_cast<int>(i)]);
    workspacePath.clear();
    workspaceExpandedFolderHashes.clear();
    outlineExpandedHash.clear();
    codeEditorFont = GetDefaultFont();
    outputFont = GetDefaultFont();
    numRecentFiles = DEFAULT_NUM_RECENT_FILES;
    executeScriptOnIdle = false;
    hostDefaultsTaken = false;
    ownsUserConfig = true;
    ForgetStoredRecentFiles();
}
