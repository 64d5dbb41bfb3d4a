#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The host as a whole: its interpreters, its messages and its option variables. The functions that
/// run something at once and those for option variables belong to the main thread; the ...OnIdle
/// and display... functions may be called from any.
class OPENMAYA_EXPORT MGlobal
{
public:
    enum MMayaState { kInteractive = 0, kBatch, kLibraryApp, kBaseUIMode };
    enum MIdleTaskPriority { kHighIdlePriority = 0, kLowIdlePriority, kVeryLowIdlePriority };
    enum ListAdjustment {
        kReplaceList = 0,
        kXORWithList,
        kAddToList,
        kRemoveFromList,
        kAddToHeadOfList
    };

    static MMayaState mayaState(MStatus* ReturnStatus = nullptr);
    static MString mayaVersion();
    static int apiVersion();
    static bool isUndoing();
    static bool isRedoing();

    // Texts to run. `displayEnabled` shows the text and its result, `undoEnabled` lets undo take
    // back what it did. kFailure when the text raises an error (which has been shown) or when its
    // result does not fit. A bool variable as second argument means `displayEnabled`, an int
    // variable takes the result.
    static MStatus executeCommand(
        const MString& command, bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MCommandResult& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(
        const MString& command, int& result, bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MIntArray& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, double& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MDoubleArray& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MString& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MStringArray& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MString executeCommandStringResult(const MString& command, bool displayEnabled = false,
        bool undoEnabled = false, MStatus* ReturnStatus = nullptr);
    /// Success means that the text waits; its errors are shown when it runs.
    static MStatus executeCommandOnIdle(const MString& command, bool displayEnabled = false);

    static MStatus executePythonCommand(
        const MString& command, bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(
        const MString& command, int& result, bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString& command, MIntArray& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString& command, double& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString& command, MDoubleArray& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString& command, MString& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommand(const MString& command, MStringArray& result,
        bool displayEnabled = false, bool undoEnabled = false);
    static MString executePythonCommandStringResult(const MString& command,
        bool displayEnabled = false, bool undoEnabled = false, MStatus* ReturnStatus = nullptr);
    static MStatus executePythonCommandOnIdle(const MString& command, bool displayEnabled = false);

    /// Calls `function` once the event loop has nothing else to do; not at all when the plug-in it
    /// belongs to is unloaded before.
    static MStatus executeTaskOnIdle(void (*function)(void*), void* clientData = nullptr,
        MIdleTaskPriority priority = kLowIdlePriority);

    /// Runs a MEL file: an absolute path, or a name looked for along the script path.
    static MStatus sourceFile(const MString& fileName);

    // Off the main thread the text appears at the next idle moment.
    static void displayInfo(const MString& text);
    static void displayWarning(const MString& text);
    static void displayError(const MString& text);

    // The scene's selection.
    static MStatus getActiveSelectionList(
        MSelectionList& dest, bool orderedSelectionIfAvailable = false);
    static MStatus setActiveSelectionList(
        const MSelectionList& src, ListAdjustment listAdjustment = kReplaceList);
    /// Adds what a name or pattern means; kInvalidParameter when nothing does.
    static MStatus getSelectionListByName(const MString& name, MSelectionList& list);
    static MStatus selectByName(const MString& name, ListAdjustment listAdjustment = kAddToList);
    static MStatus unselectByName(const MString& name);
    static MStatus clearSelectionList();

    // 0, 0.0 or "" when there is no such variable.
    static int optionVarIntValue(const MString& name, bool* exists = nullptr);
    static double optionVarDoubleValue(const MString& name, bool* exists = nullptr);
    static MString optionVarStringValue(const MString& name, bool* exists = nullptr);
    static bool setOptionVarValue(const MString& name, int value);
    static bool setOptionVarValue(const MString& name, double value);
    static bool setOptionVarValue(const MString& name, MString value);
    static bool optionVarExists(const MString& name);
    static void removeOptionVar(const MString& name);
    OPENMAYA_DEPRECATED(20220000, "use optionVarIntValue")
    static bool getOptionVarValue(const MString& name, int& value);
    OPENMAYA_DEPRECATED(20220000, "use optionVarDoubleValue")
    static bool getOptionVarValue(const MString& name, double& value);
    OPENMAYA_DEPRECATED(20220000, "use optionVarStringValue")
    static bool getOptionVarValue(const MString& name, MString& value);

    static const char* className();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
