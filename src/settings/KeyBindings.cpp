#include "settings/KeyBindings.h"

#include "plugin/Logger.h"
#include "settings/IniFile.h"
#include "settings/Settings.h"

#include <QAction>
#include <QSet>
#include <QSettings>

#include <iterator>

namespace {

using K = KeyBindings;

struct BindingRow
{
    int id;
    const char* label;
    const char* name;
    const char* sequences; ///< portable texts parted by "|"; empty: see `standard`
    QKeySequence::StandardKey standard; ///< NO_STANDARD for none
    bool fixed;
};

constexpr auto NO_STANDARD = QKeySequence::UnknownKey;

// clang-format off
constexpr BindingRow BINDINGS[] = {
    {K::NewBuffer,                        "New Buffer",                            "newBuffer",                        "",                                   QKeySequence::New,       false},
    {K::NewMelBuffer,                     "New MEL Buffer",                        "newMelBuffer",                     "Ctrl+Alt+N",                         NO_STANDARD,             false},
    {K::NewPythonBuffer,                  "New Python Buffer",                     "newPythonBuffer",                  "Ctrl+Shift+N",                       NO_STANDARD,             false},
    {K::OpenFile,                         "Open File",                             "openFile",                         "",                                   QKeySequence::Open,      true},
    {K::ReopenClosedFile,                 "Reopen Closed File",                    "reopenClosedFile",                 "Ctrl+Shift+T",                       NO_STANDARD,             false},
    {K::Save,                             "Save",                                  "save",                             "",                                   QKeySequence::Save,      true},
    {K::SaveAs,                           "Save As",                               "saveAs",                           "",                                   NO_STANDARD,             false},
    {K::SaveAll,                          "Save All",                              "saveAll",                          "Ctrl+Shift+S",                       NO_STANDARD,             false},
    {K::Rename,                           "Rename",                                "rename",                           "",                                   NO_STANDARD,             false},
    {K::SaveScriptToShelf,                "Save Script to Shelf",                  "saveScriptToShelf",                "",                                   NO_STANDARD,             false},
    {K::SourceScript,                     "Source Script",                         "sourceScript",                     "",                                   NO_STANDARD,             false},
    {K::RevertFile,                       "Revert File",                           "revertFile",                       "",                                   NO_STANDARD,             false},
    {K::CloseFile,                        "Close File",                            "closeFile",                        "Ctrl+W",                             NO_STANDARD,             false},
    {K::CloseAllFiles,                    "Close All Files",                       "closeAllFiles",                    "",                                   NO_STANDARD,             false},
    {K::SaveState,                        "Save State",                            "saveState",                        "",                                   NO_STANDARD,             false},
    {K::OpenWorkspace,                    "Open Workspace",                        "openWorkspace",                    "",                                   NO_STANDARD,             false},
    {K::SaveWorkspaceAs,                  "Save Workspace As",                     "saveWorkspaceAs",                  "",                                   NO_STANDARD,             false},
    {K::AddFolderToWorkspace,             "Add Folder to Workspace",               "addFolderToWorkspace",             "",                                   NO_STANDARD,             false},
    {K::Undo,                             "Undo",                                  "undo",                             "",                                   QKeySequence::Undo,      true},
    {K::Redo,                             "Redo",                                  "redo",                             "",                                   QKeySequence::Redo,      true},
    {K::Cut,                              "Cut",                                   "cut",                              "",                                   QKeySequence::Cut,       true},
    {K::Copy,                             "Copy",                                  "copy",                             "",                                   QKeySequence::Copy,      true},
    {K::Paste,                            "Paste",                                 "paste",                            "",                                   QKeySequence::Paste,     true},
    {K::SelectAll,                        "Select All",                            "selectAll",                        "",                                   QKeySequence::SelectAll, true},
    {K::Find,                             "Find",                                  "find",                             "Ctrl+F",                             NO_STANDARD,             false},
    {K::Replace,                          "Replace",                               "replace",                          "Ctrl+H",                             NO_STANDARD,             false},
    {K::FindInFiles,                      "Find in Files",                         "findInFiles",                      "Ctrl+Shift+F",                       NO_STANDARD,             false},
    {K::ReplaceInFiles,                   "Replace In Files",                      "replaceInFiles",                   "Ctrl+Shift+H",                       NO_STANDARD,             false},
    {K::FindNext,                         "Find Next",                             "findNext",                         "F3",                                 NO_STANDARD,             false},
    {K::FindPrevious,                     "Find Previous",                         "findPrevious",                     "Shift+F3",                           NO_STANDARD,             false},
    {K::SelectAndFindNext,                "Select and Find Next",                  "selectAndFindNext",                "Ctrl+F3",                            NO_STANDARD,             false},
    {K::SelectAndFindPrevious,            "Select and Find Previous",              "selectAndFindPrevious",            "Ctrl+Shift+F3",                      NO_STANDARD,             false},
    {K::FindInFilesNext,                  "Find in Files Next",                    "findInFilesNext",                  "F4",                                 NO_STANDARD,             false},
    {K::FindInFilesPrevious,              "Find in Files Previous",                "findInFilesPrevious",              "Shift+F4",                           NO_STANDARD,             false},
    {K::ReplaceNext,                      "Replace Next",                          "replaceNext",                      "",                                   NO_STANDARD,             false},
    {K::ReplaceAll,                       "Replace All",                           "replaceAll",                       "",                                   NO_STANDARD,             false},
    {K::IncreaseIndent,                   "Increase Indent",                       "increaseIndent",                   "Ctrl+]",                             NO_STANDARD,             false},
    {K::DecreaseIndent,                   "Decrease Indent",                       "decreaseIndent",                   "Ctrl+[",                             NO_STANDARD,             false},
    {K::CopyLineUp,                       "Copy Line Up",                          "copyLineUp",                       "Alt+Shift+Up",                       NO_STANDARD,             false},
    {K::CopyLineDown,                     "Copy Line Down",                        "copyLineDown",                     "Alt+Shift+Down",                     NO_STANDARD,             false},
    {K::MoveLineUp,                       "Move Line Up",                          "moveLineUp",                       "Alt+Up",                             NO_STANDARD,             false},
    {K::MoveLineDown,                     "Move Line Down",                        "moveLineDown",                     "Alt+Down",                           NO_STANDARD,             false},
    {K::DeleteLine,                       "Delete Line",                           "deleteLine",                       "Ctrl+Shift+K",                       NO_STANDARD,             false},
    {K::ToggleComment,                    "Toggle Comment",                        "toggleComment",                    "Ctrl+/",                             NO_STANDARD,             false},
    {K::ToggleBlockComment,               "Toggle Block Comment",                  "toggleBlockComment",               "Ctrl+Shift+/",                       NO_STANDARD,             false},
    {K::ConvertTabsToSpaces,              "Convert Tabs to Spaces",                "convertTabsToSpaces",              "",                                   NO_STANDARD,             false},
    {K::InsertPath,                       "Insert Path",                           "insertPath",                       "",                                   NO_STANDARD,             false},
    {K::ClearOutput,                      "Clear Output",                          "clearOutput",                      "Ctrl+Shift+1",                       NO_STANDARD,             false},
    {K::Preferences,                      "Preferences",                           "preferences",                      "Ctrl+Shift+P",                       NO_STANDARD,             false},
    {K::IncreaseFontSize,                 "Increase Font Size",                    "increaseFontSize",                 "Ctrl+=",                             NO_STANDARD,             false},
    {K::DecreaseFontSize,                 "Decrease Font Size",                    "decreaseFontSize",                 "Ctrl+-",                             NO_STANDARD,             false},
    {K::ResetFontSize,                    "Reset Font Size",                       "resetFontSize",                    "Ctrl+0",                             NO_STANDARD,             false},
    {K::ToggleEchoAllCommands,            "Toggle Echo All Commands",              "toggleEchoAllCommands",            "",                                   NO_STANDARD,             false},
    {K::ToggleLineNumbersInErrors,        "Toggle Line Numbers in Errors",         "toggleLineNumbersInErrors",        "",                                   NO_STANDARD,             false},
    {K::ToggleShowStackTrace,             "Toggle Show Stack Trace",               "toggleShowStackTrace",             "",                                   NO_STANDARD,             false},
    {K::ToggleSuppressStackWindow,        "Toggle Suppress Stack Window",          "toggleSuppressStackWindow",        "",                                   NO_STANDARD,             false},
    {K::ToggleWriteOutputToFile,          "Toggle Write Output to File",           "toggleWriteOutputToFile",          "",                                   NO_STANDARD,             false},
    {K::Execute,                          "Execute",                               "execute",                          "Ctrl+Return|Ctrl+Enter|Enter",       NO_STANDARD,             true},
    {K::ExecuteAlt,                       "Execute",                               "executeAlt",                       "",                                   NO_STANDARD,             false},
    {K::ExecuteLine,                      "Execute Line",                          "executeLine",                      "Ctrl+Alt+Return|Ctrl+Alt+Enter",     NO_STANDARD,             false},
    {K::ExecuteAll,                       "Execute All",                           "executeAll",                       "Ctrl+Shift+Return|Ctrl+Shift+Enter", NO_STANDARD,             false},
    {K::ToggleRenderWhitespace,           "Toggle Render Whitespace",              "toggleRenderWhitespace",           "",                                   NO_STANDARD,             false},
    {K::ToggleWordWrap,                   "Toggle Word Wrap",                      "toggleWordWrap",                   "",                                   NO_STANDARD,             false},
    {K::ToggleCodeEditor,                 "Toggle Code Editor",                    "toggleCodeEditor",                 "Ctrl+K",                             NO_STANDARD,             false},
    {K::ToggleOutput,                     "Toggle Output",                         "toggleOutput",                     "Ctrl+J",                             NO_STANDARD,             false},
    {K::ToggleSideBar,                    "Toggle Side Bar",                       "toggleSideBar",                    "Ctrl+B",                             NO_STANDARD,             false},
    {K::ToggleActivityBar,                "Toggle Activity Bar",                   "toggleActivityBar",                "",                                   NO_STANDARD,             false},
    {K::ToggleStatusBar,                  "Toggle Status Bar",                     "toggleStatusBar",                  "",                                   NO_STANDARD,             false},
    {K::ToggleCodeEditorLayout,           "Toggle Code Editor Layout",             "toggleCodeEditorLayout",           "Alt+Shift+1",                        NO_STANDARD,             false},
    {K::ToggleSidebarPosition,            "Toggle Sidebar Position",               "toggleSidebarPosition",            "",                                   NO_STANDARD,             false},
    {K::Explorer,                         "Explorer",                              "explorer",                         "Ctrl+Shift+E",                       NO_STANDARD,             false},
    {K::QuickHelp,                        "Quick Help",                            "quickHelp",                        "Ctrl+Shift+Q",                       NO_STANDARD,             false},
    {K::NextEditor,                       "Next Editor",                           "nextEditor",                       "Ctrl+PgDown",                        NO_STANDARD,             false},
    {K::PreviousEditor,                   "Previous Editor",                       "previousEditor",                   "Ctrl+PgUp",                          NO_STANDARD,             false},
    {K::NextUsedEditor,                   "Next Used Editor",                      "nextUsedEditor",                   "Ctrl+Tab",                           NO_STANDARD,             false},
    {K::PreviousUsedEditor,               "Previous Used Editor",                  "previousUsedEditor",               "Ctrl+Shift+Tab",                     NO_STANDARD,             false},
    {K::NextEditorGroup,                  "Next Editor Group",                     "nextEditorGroup",                  "Ctrl+Shift+PgDown",                  NO_STANDARD,             false},
    {K::PreviousEditorGroup,              "Previous Editor Group",                 "previousEditorGroup",              "Ctrl+Shift+PgUp",                    NO_STANDARD,             false},
    {K::GotoFile,                         "Go to File",                            "gotoFile",                         "Ctrl+P",                             NO_STANDARD,             false},
    {K::GotoSymbolInFile,                 "Go to Symbol in File",                  "gotoSymbolInFile",                 "Ctrl+Shift+O",                       NO_STANDARD,             false},
    {K::GotoLine,                         "Go to Line",                            "gotoLine",                         "Ctrl+G",                             NO_STANDARD,             false},
    {K::CommandReference,                 "Command Reference",                     "commandReference",                 "",                                   NO_STANDARD,             false},
    {K::PythonSelectionDir,               "Python Selection dir( )",               "pythonSelectionDir",               "",                                   NO_STANDARD,             false},
    {K::PythonSelectionHelp,              "Python Selection help( )",              "pythonSelectionHelp",              "",                                   NO_STANDARD,             false},
    {K::PythonUpdateModuleState,          "Python Update Module State",            "pythonUpdateModuleState",          "",                                   NO_STANDARD,             false},
    {K::PythonRevertModuleState,          "Python Revert Module State",            "pythonRevertModuleState",          "",                                   NO_STANDARD,             false},
    {K::PythonRevertModuleStateOnExecute, "Python Revert Module State on Execute", "pythonRevertModuleStateOnExecute", "",                                   NO_STANDARD,             false},
    {K::Escape,                           "Reserved",                              "escape",                           "Esc",                                NO_STANDARD,             true},
};
// clang-format on

constexpr bool IdsAreConsecutive()
{
    int expected = 1;
    for (const BindingRow& row : BINDINGS) {
        if (row.id != expected++)
            return false;
    }
    return true;
}
static_assert(
    IdsAreConsecutive(), "a row's place is its id: keep the rows in the enumeration's order");
static_assert(std::size(BINDINGS) == K::Escape, "every id has a row");

QString GroupName()
{
    return QStringLiteral("user_bindings");
}

bool IsKnown(const QKeySequence& sequence)
{
    for (int i = 0; i < sequence.count(); ++i) {
        if ((sequence[i] & ~Qt::KeyboardModifierMask) == Qt::Key_unknown)
            return false;
    }
    return true;
}

/// Stands for a key that is not in the file, which an empty list cannot.
QString UndefinedKey()
{
    return QStringLiteral("UndefinedKey");
}

} // namespace

KeyBindings::KeyBindings()
{
    InitializeBindings();
}

void KeyBindings::InitializeBindings()
{
    m_bindings.reserve(static_cast<int>(std::size(BINDINGS)));
    for (const BindingRow& row : BINDINGS) {
        const QStringList texts = QString::fromLatin1(row.sequences).split(QLatin1Char('|'));
        const QKeySequence first = row.standard == NO_STANDARD
            ? QKeySequence(texts.first(), QKeySequence::PortableText)
            : QKeySequence(row.standard);
        KeyBinding& binding = InitializeBinding(row.id, QString::fromLatin1(row.label),
            QString::fromLatin1(row.name), first, row.fixed);
        for (const QString& text : texts.mid(1))
            AppendBinding(binding, QKeySequence(text, QKeySequence::PortableText));
    }
}

KeyBinding& KeyBindings::InitializeBinding(
    int id, const QString& label, const QString& name, const QKeySequence& sequence, bool fixed)
{
    KeyBinding binding;
    binding.id = id;
    binding.label = label;
    binding.name = name;
    if (!sequence.isEmpty())
        binding.defaultSequences.append(sequence);
    binding.userSequences.append(sequence);
    binding.fixed = fixed;
    m_bindings.append(binding);
    return m_bindings.last();
}

void KeyBindings::AppendBinding(KeyBinding& binding, const QKeySequence& sequence)
{
    binding.defaultSequences.append(sequence);
    binding.userSequences.append(sequence);
}

void KeyBindings::SetAction(int id, QAction* action)
{
    if (id >= 1 && id <= m_bindings.size())
        m_bindings[id - 1].action = action;
}

QKeySequence KeyBindings::GetShortcut(int id) const
{
    if (id < 1 || id > m_bindings.size())
        return {};
    for (const QKeySequence& sequence : m_bindings[id - 1].GetSequencesInForce()) {
        // What another command has got does not lead here.
        if (!sequence.isEmpty() && !m_owners.IsTakenFrom(id, sequence))
            return sequence;
    }
    return {};
}

QString KeyBindings::GetToolTip(int id, const QString& label) const
{
    const QKeySequence shortcut = GetShortcut(id);
    return shortcut.isEmpty()
        ? label
        : QStringLiteral("%1 (%2)").arg(label, shortcut.toString(QKeySequence::NativeText));
}

KeyOwners KeyBindings::FreeKeys()
{
    KeyOwners owners;
    owners.Take(QKeySequence(Qt::Key_Escape), Escape);
    return owners;
}

KeyOwners KeyBindings::OwnersOf(const QList<KeyBinding>& bindings)
{
    KeyOwners owners = FreeKeys();
    for (const KeyBinding& binding : bindings) {
        const QList<QKeySequence>& sequences = binding.GetSequencesInForce();
        for (auto it = sequences.rbegin(); it != sequences.rend(); ++it) {
            if (!it->isEmpty() && !owners.IsTakenFrom(binding.id, *it))
                owners.Take(*it, binding.id);
        }
    }
    return owners;
}

void KeyBindings::Update()
{
    KeyOwners owners = FreeKeys();
    QStringList duplicates;
    for (const KeyBinding& binding : qAsConst(m_bindings)) {
        if (binding.action)
            binding.action->setShortcuts(TakeSequences(binding, owners, duplicates));
    }
    m_owners = owners;
    // The bindings come and go with the focus: what is known need not be told each time.
    for (const QString& duplicate : qAsConst(duplicates)) {
        if (!m_duplicates.contains(duplicate))
            Logger::Warning(duplicate);
    }
    m_duplicates = duplicates;
}

/// The sequences of the binding that nobody has before it, which are its own from now on.
QList<QKeySequence> KeyBindings::TakeSequences(
    const KeyBinding& binding, KeyOwners& owners, QStringList& duplicates)
{
    QList<QKeySequence> sequences = binding.GetSequencesInForce();
    for (int i = sequences.size() - 1; i >= 0; --i) {
        const QKeySequence sequence = sequences[i];
        const bool isTaken = owners.IsTakenFrom(binding.id, sequence);
        // The toolkit would take a sequence that is there twice for an ambiguous one.
        if (!sequence.isEmpty() && !isTaken && sequences.indexOf(sequence) == i)
            continue;
        sequences.removeAt(i);
        if (isTaken) {
            duplicates += QStringLiteral("Duplicate hotkey detected: %1 (%2)")
                              .arg(binding.label, sequence.toString());
        }
    }
    for (const QKeySequence& sequence : qAsConst(sequences))
        owners.Take(sequence, binding.id);
    return sequences;
}

void KeyBindings::SetBindingsEnabled(bool enabled)
{
    if (enabled) {
        Update();
        return;
    }
    for (const KeyBinding& binding : qAsConst(m_bindings)) {
        if (binding.action)
            binding.action->setShortcuts(QList<QKeySequence>());
    }
}

void KeyBindings::UpdateUserSequences(const QList<KeyBinding>& bindings)
{
    for (const KeyBinding& edited : bindings) {
        if (edited.id >= 1 && edited.id <= m_bindings.size())
            m_bindings[edited.id - 1].userSequences = edited.userSequences;
    }
    Update();
}

QString KeyBindings::GetUserKeyBindingsPath()
{
    return Settings::GetUserConfigDirectory() + QStringLiteral("/tarnwickEditor2_bindings.ini");
}

void KeyBindings::ReadUserKeyBindings()
{
    QSettings settings(GetUserKeyBindingsPath(), QSettings::IniFormat);
    IniFile::KeepWhatCannotBeRead(settings);
    settings.beginGroup(GroupName());
    QStringList unknown;
    for (KeyBinding& binding : m_bindings)
        ReadKeyBinding(settings, binding, unknown);
    if (!unknown.isEmpty()) {
        Logger::Warning(QStringLiteral("Hotkeys that cannot be read: %1")
                            .arg(unknown.join(QLatin1String(", "))));
        IniFile::KeepCopy(settings);
    }
    Update();
}

void KeyBindings::ReadKeyBinding(QSettings& settings, KeyBinding& binding, QStringList& unknown)
{
    const QStringList texts
        = settings.value(binding.name, QStringList(UndefinedKey())).toStringList();
    if (texts.contains(UndefinedKey())) {
        binding.userSequences = binding.defaultSequences;
        return;
    }
    binding.userSequences.clear();
    for (const QString& text : texts) {
        if (text.isEmpty())
            continue;
        const QKeySequence sequence(text, QKeySequence::NativeText);
        if (IsKnown(sequence))
            binding.userSequences.append(sequence);
        else
            unknown += QStringLiteral("%1 (%2)").arg(binding.label, text);
    }
}

void KeyBindings::WriteUserKeyBindings() const
{
    if (Settings::GetUserConfigDirectory().isEmpty())
        return;
    QSettings settings(GetUserKeyBindingsPath(), QSettings::IniFormat);
    settings.beginGroup(GroupName());
    for (const KeyBinding& binding : m_bindings)
        WriteKeyBinding(settings, binding);
    IniFile::Finish(settings, QStringLiteral("Failed to write key bindings: %1"));
}

void KeyBindings::WriteKeyBinding(QSettings& settings, const KeyBinding& binding) const
{
    QStringList texts;
    for (const QKeySequence& sequence : binding.userSequences) {
        if (!sequence.isEmpty())
            texts.append(sequence.toString(QKeySequence::PortableText));
    }
    // An empty text says that the user took the key away; without it the default would come back.
    if (texts.isEmpty())
        texts.append(QString());
    settings.setValue(binding.name, texts);
}
