#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Base of the commands that plug-ins add. The host makes one object per call with the creator
/// function, runs doIt, and owns the object: it dies at once unless isUndoable, else when its entry
/// leaves the undo queue. It has to be the first base class. Main thread only.
class OPENMAYA_EXPORT MPxCommand
{
public:
    enum MResultType { kLong = 0, kDouble, kString, kNoArg };

    MPxCommand();
    virtual ~MPxCommand();
    MPxCommand(const MPxCommand&) = delete;
    MPxCommand& operator=(const MPxCommand&) = delete;

    /// A failing status raises an error in the calling script; say why before.
    virtual MStatus doIt(const MArgList& args);
    virtual MStatus undoIt();
    virtual MStatus redoIt();
    virtual bool isUndoable() const;
    virtual bool hasSyntax() const;

    /// The command's own syntax as the host keeps it.
    MSyntax syntax() const;
    bool isHistoryOn() const;
    MStatus setHistoryOn(bool state);
    MString commandString() const;
    MStatus setCommandString(const MString& text);
    MStatus setUndoable(bool state);

    static void displayInfo(const MString& text);
    static void displayWarning(const MString& text, bool showLineNumber = false);
    static void displayError(const MString& text, bool showLineNumber = false);

    /// The result of the call that is running.
    static void clearResult();
    static void setResult(unsigned int value);
    static void setResult(int value);
    static void setResult(double value);
    static void setResult(bool value);
    static void setResult(const char* value);
    static void setResult(const MString& value);
    static void setResult(const MIntArray& value);
    static void setResult(const MDoubleArray& value);
    static void setResult(const MStringArray& value);
    /// Makes the result an array; what setResult put there is lost.
    static void appendToResult(int value);
    static void appendToResult(double value);
    static void appendToResult(bool value);
    static void appendToResult(const char* value);
    static void appendToResult(const MString& value);
    static void appendToResult(const MStringArray& value);

    static bool isCurrentResultArray();
    /// Of an array: the type of its elements.
    static MResultType currentResultType();
    static MStatus getCurrentResult(int& value);
    static MStatus getCurrentResult(double& value);
    static MStatus getCurrentResult(MString& value);
    static MStatus getCurrentResult(MIntArray& value);
    static MStatus getCurrentResult(MDoubleArray& value);
    static MStatus getCurrentResult(MStringArray& value);
    static int currentIntResult(MStatus* ReturnStatus = nullptr);
    static double currentDoubleResult(MStatus* ReturnStatus = nullptr);
    static MString currentStringResult(MStatus* ReturnStatus = nullptr);

    static const char* className();

private:
    friend class ApiAccess;

    struct State;
    State* m_state;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
