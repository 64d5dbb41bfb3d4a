#pragma once

#include "settings/KeyOwners.h"

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QStringList>

class QAction;
class QSettings;

/// One keyboard command: what it is called, which keys it has by default and which are in force.
struct KeyBinding
{
    int id = 0;
    QString label; ///< shown to people
    QString name; ///< key in the bindings file
    QList<QKeySequence> defaultSequences;
    QList<QKeySequence> userSequences;
    QAction* action = nullptr; ///< not owned; null until SetAction
    bool fixed = false; ///< the user's sequences are ignored

    const QList<QKeySequence>& GetSequencesInForce() const
    {
        return fixed ? defaultSequences : userSequences;
    }
};

/// The table of every keyboard command of the editor window. A member of the window; interface
/// thread only. The ids are the places in the table, counted from 1.
class KeyBindings
{
public:
    enum KeySequenceType : int {
        // clang-format off
        None = 0,
        NewBuffer, NewMelBuffer, NewPythonBuffer, OpenFile, ReopenClosedFile,
        Save, SaveAs, SaveAll, Rename, SaveScriptToShelf, SourceScript,
        RevertFile, CloseFile, CloseAllFiles, SaveState,
        OpenWorkspace, SaveWorkspaceAs, AddFolderToWorkspace,
        Undo, Redo, Cut, Copy, Paste, SelectAll,
        Find, Replace, FindInFiles, ReplaceInFiles, FindNext, FindPrevious,
        SelectAndFindNext, SelectAndFindPrevious, FindInFilesNext, FindInFilesPrevious,
        ReplaceNext, ReplaceAll,
        IncreaseIndent, DecreaseIndent, CopyLineUp, CopyLineDown, MoveLineUp, MoveLineDown,
        DeleteLine, ToggleComment, ToggleBlockComment, ConvertTabsToSpaces, InsertPath,
        ClearOutput, Preferences, IncreaseFontSize, DecreaseFontSize, ResetFontSize,
        ToggleEchoAllCommands, ToggleLineNumbersInErrors, ToggleShowStackTrace,
        ToggleSuppressStackWindow, ToggleWriteOutputToFile,
        Execute, ExecuteAlt, ExecuteLine, ExecuteAll,
        ToggleRenderWhitespace, ToggleWordWrap, ToggleCodeEditor, ToggleOutput, ToggleSideBar,
        ToggleActivityBar, ToggleStatusBar, ToggleCodeEditorLayout, ToggleSidebarPosition,
        Explorer, QuickHelp, NextEditor, PreviousEditor, NextUsedEditor, PreviousUsedEditor,
        NextEditorGroup, PreviousEditorGroup, GotoFile, GotoSymbolInFile, GotoLine,
        CommandReference, PythonSelectionDir, PythonSelectionHelp, PythonUpdateModuleState,
        PythonRevertModuleState, PythonRevertModuleStateOnExecute, Escape,
        // clang-format on
    };

    KeyBindings();

    const QList<KeyBinding>& GetKeySequences() const { return m_bindings; }

    /// Attaches an action; id 0 and unknown ids are ignored. Update gives it its keys.
    void SetAction(int id, QAction* action);
    /// The first sequence in force that no earlier binding has; empty when there is none or the id
    /// is unknown.
    QKeySequence GetShortcut(int id) const;
    /// "label (shortcut)", or the label alone when nothing is bound.
    QString GetToolTip(int id, const QString& label) const;

    /// Gives every attached action its keys. Of two commands with the same key the one with the
    /// lower id keeps it; the other is named in a warning, once, and has the key again as soon as
    /// it is free. Escape is never anybody's.
    void Update();
    /// False takes every key away; true gives them back.
    void SetBindingsEnabled(bool enabled);
    /// Takes the user's sequences of the records given, by id.
    void UpdateUserSequences(const QList<KeyBinding>& bindings);

    void ReadUserKeyBindings();
    void WriteUserKeyBindings() const;
    static QString GetUserKeyBindingsPath();

    /// As the keys are before any command took its own. Escape is never free: widgets close with it
    /// whatever is bound.
    static KeyOwners FreeKeys();
    /// As they are once every command has taken its own, in the order of the list.
    static KeyOwners OwnersOf(const QList<KeyBinding>& bindings);

private:
    void InitializeBindings();
    KeyBinding& InitializeBinding(int id, const QString& label, const QString& name,
        const QKeySequence& sequence, bool fixed);
    static void AppendBinding(KeyBinding& binding, const QKeySequence& sequence);
    static QList<QKeySequence> TakeSequences(
        const KeyBinding& binding, KeyOwners& owners, QStringList& duplicates);
    /// What cannot be parsed is left out and told in `unknown`.
    void ReadKeyBinding(QSettings& settings, KeyBinding& binding, QStringList& unknown);
    void WriteKeyBinding(QSettings& settings, const KeyBinding& binding) const;

    QList<KeyBinding> m_bindings;
    KeyOwners m_owners = FreeKeys(); ///< of the keys that actions got
    QStringList m_duplicates; ///< what the last update had to tell
};
