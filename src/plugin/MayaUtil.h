#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <QString>
#include <QStringList>

class QRect;
class QWidget;

/// Every talk with the host: its interpreters, its windows and its vocabulary. All of it is for the
/// main thread, and every request is a MEL or Python command; failures are told by the result only,
/// as the host has shown the reason.
class MayaUtil
{
public:
    // Texts
    static QString ToQString(const MString& text);
    static MString ToMString(const QString& text);

    // Running commands. `display` echoes text and result, `undo` lets the host undo what it did.
    static MStatus ExecuteMel(const MString& text, bool display = false, bool undo = false);
    static MStatus ExecuteMel(const QString& text, bool display = false, bool undo = false);
    static MStatus ExecutePython(const MString& text, bool display = false, bool undo = false);
    static MStatus ExecutePython(const QString& text, bool display = false, bool undo = false);
    /// Nothing that the host prints meanwhile reaches the console.
    static void ExecutePythonHidden(const MString& text);
    static void ExecutePythonHidden(const QString& text);

    // Running commands for their result: true on success. A failure, or a result of another type,
    // leaves `result` as it was.
    static bool ExecuteMelIntResult(
        const MString& text, int& result, bool display = false, bool undo = false);
    static bool ExecuteMelIntResult(
        const QString& text, int& result, bool display = false, bool undo = false);
    static bool ExecuteMelDoubleResult(
        const MString& text, double& result, bool display = false, bool undo = false);
    static bool ExecuteMelDoubleResult(
        const QString& text, double& result, bool display = false, bool undo = false);
    static bool ExecuteMelStringResult(
        const MString& text, MString& result, bool display = false, bool undo = false);
    static bool ExecuteMelStringResult(
        const QString& text, QString& result, bool display = false, bool undo = false);
    static bool ExecuteMelStringArrayResult(
        const MString& text, MStringArray& result, bool display = false, bool undo = false);
    static bool ExecuteMelStringArrayResult(
        const QString& text, QStringList& result, bool display = false, bool undo = false);
    static bool ExecutePythonIntResult(
        const MString& text, int& result, bool display = false, bool undo = false);
    static bool ExecutePythonIntResult(
        const QString& text, int& result, bool display = false, bool undo = false);
    static bool ExecutePythonStringResult(
        const MString& text, MString& result, bool display = false, bool undo = false);
    static bool ExecutePythonStringResult(
        const QString& text, QString& result, bool display = false, bool undo = false);
    static bool ExecutePythonStringArrayResult(
        const MString& text, MStringArray& result, bool display = false, bool undo = false);
    static bool ExecutePythonStringArrayResult(
        const QString& text, QStringList& result, bool display = false, bool undo = false);

    // Scripts and files
    /// Runs an editor's text, echoed; on the host's idle queue when the user wants that.
    static void ExecuteMelScript(const QString& script);
    static void ExecutePythonScript(const QString& script);
    /// Sources a MEL file.
    static MStatus SourceScript(const QString& path);
    /// Whether the statement runs without an exception. It holds no double quotes or backslashes.
    static bool PythonExecStatement(const QString& statement);
    /// Makes the host's last result an empty one, so that a hidden query leaves no trace.
    static void ClearCommandResponse();
    static void ImportPyMel();
    /// Defines the embedded MEL and Python helpers in the host's interpreters.
    static void SourceApplicationScripts();

    // Module state: the names of the modules loaded at one time. Both run when the host is idle.
    static void PythonUpdateModuleState();
    static void PythonRevertModuleState();

    // Switches of the host's script window. Setting takes effect when the host is idle.
    static void SetEchoAllCommandsEnabled(bool on);
    static bool EchoAllCommandsEnabled();
    static void SetLineNumbersInErrorsEnabled(bool on);
    static bool LineNumbersInErrorsEnabled();
    static void SetShowStackTraceEnabled(bool on);
    static bool ShowStackTraceEnabled();
    static void SetSuppressStackWindowEnabled(bool on);

    // The host's own history of output
    static QString GetExistingHistory();
    static void ClearExistingHistory();

    // Shelf, versions, directories, diagnostics
    /// Adds a button that runs `script` to the current shelf, when the host is idle.
    static void SaveScriptToShelf(const QString& label, const QString& script, bool isMel);
    static bool IsBatchMode();
    /// "3.10.8"; asked once. Empty when the interpreter cannot tell.
    static QString GetPythonVersion();
    static QString GetQtVersion();
    static QString GetMayaVersionString();
    static QString GetUserScriptsDirectory();
    static QString GetMayaPrefsDirectory();
    static void PrintPythonPath();
    static void PrintPythonEnviron();
    static void PrintMayaEnvVarPaths(const QString& variableName);
    /// Opens the directory in the desktop's file browser; for a file the one that holds it.
    static void RevealInFolder(const QString& path);

    // Callbacks
    static MStatus AddCallbacks();
    /// Removes every callback of `callbackIds`.
    static MStatus RemoveCallbacks();

    // The workspace control that holds the window
    static QWidget* GetMainWindow();
    /// Null when there is none.
    static QWidget* GetWorkspaceControl();
    static bool WorkspaceControlExists();
    static bool WorkspaceControlVisible();
    static bool WorkspaceControlFloating();
    static bool WorkspaceControlCollapsed();
    /// Makes the control and shows it; its widget. Null when it exists already or cannot be made.
    static QWidget* CreateWorkspaceControl();
    /// Puts `widget` into `control`; null means the control of our name.
    static void SetWorkspaceChild(QWidget* widget, QWidget* control);
    static void SetWorkspaceControlVisible(bool visible);
    /// The title is shown by a floating control only; a docked one bears the application's.
    static void SetWorkspaceLabel(const QString& title);
    /// Gives the floating control's window the stored geometry.
    static void UpdateWorkspaceControlGeometry();
    static void CloseWorkspaceControl();

    // The host's menu, shelf, help and scale
    static void CreateMainMenuItem();
    static void RemoveMainMenuItem();
    /// Lets the host's script editor button open this editor, until it is restored.
    static void OverrideScriptEditorButton();
    static void RestoreScriptEditorButton();
    static void ShowHelp(const QString& topic);
    /// Factor of the host's interface; 1.0 when the host does not scale.
    static double GetCustomScaleValue();

    // Vocabulary. Name lists may hold empty entries.
    static QStringList MelKeywords();
    static void RefreshCommandList();
    static QStringList MelCommands();
    static QStringList MelRunTimeCommands();
    static QStringList MelProcedures();
    static QStringList PythonKeywords();
    static QStringList PythonBuiltins();
    /// Three strings per flag: short name, long name, first argument type (each may be empty).
    static QStringList CommandFlags(const QString& command);
    /// The host's help on a command, with its synopsis and flags; empty for what is no command.
    static QString CommandHelp(const QString& command);
    /// What kind of name the host takes it for, in the host's words.
    static QString WhatIs(const QString& name);
    /// What a run-time command says about itself, and the script that it runs.
    static void RunTimeCommandHelp(const QString& name, QString& annotation, QString& script);
    /// Opens the host's page on a command; an empty name opens the index.
    static void CommandDocumentation(const QString& command, bool python);
    /// What can follow `objectName` and a dot in `source`, or what `source` defines when the name
    /// is empty. The source is escaped for a Python literal in double quotes.
    static void PythonAttributesFromSource(const QString& source, const QString& objectName,
        QStringList& results, bool keywordsAndBuiltins);
    /// What is known of a name in a source, without calling or importing anything: kind, signature,
    /// first paragraph of its documentation, file, line in it and module; empty for nothing. The
    /// source is escaped as above; `line` counts from 1, where the name stands in it.
    static void PythonNameHelp(
        const QString& source, const QString& name, int line, QStringList& results);
    /// Empty when the (escaped) source compiles, otherwise the error's message and line.
    static void PythonSyntaxCheck(const QString& source, QStringList& results);
    /// Re-derives Settings::pylintPythonPath from the host's module search path.
    static void UpdatePylintPythonPath();

    /// Callbacks to remove before the plug-in's code goes away.
    static MCallbackIdArray callbackIds;
};
