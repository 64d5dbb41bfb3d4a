#pragma once

#include <maya/MMessage.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Callbacks for what the host prints. They run on the thread that prints, in the order they were
/// added.
class OPENMAYA_EXPORT MCommandMessage : public MMessage
{
public:
    enum MessageType { kHistory = 0, kDisplay, kInfo, kWarning, kError, kResult, kStackTrace };
    enum ProcType { kMELProc = 0, kMELCommand };

    typedef void (*MMessageFunction)(
        const MString& message, MCommandMessage::MessageType messageType, void* clientData);
    /// True in `filterOutput` keeps the message out of the host's own windows.
    typedef void (*MMessageFilterFunction)(const MString& message,
        MCommandMessage::MessageType messageType, bool& filterOutput, void* clientData);

    static MCallbackId addCommandOutputCallback(
        MMessageFunction func, void* clientData = nullptr, MStatus* ReturnStatus = nullptr);
    static MCallbackId addCommandOutputFilterCallback(
        MMessageFilterFunction func, void* clientData = nullptr, MStatus* ReturnStatus = nullptr);
    /// For each command that MEL runs, before it does; slows everything down.
    static MCallbackId addCommandCallback(MMessage::MStringFunction func,
        void* clientData = nullptr, MStatus* ReturnStatus = nullptr);
    /// At the beginning (`state` is true) and end of each call in MEL: the name, an id that both
    /// have, and a ProcType.
    static MCallbackId addProcCallback(
        MMessage::MStringIntBoolIntFunction func, void* clientData, MStatus* ReturnStatus);

    static const char* className();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
