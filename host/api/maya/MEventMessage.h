#pragma once

#include <maya/MMessage.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Callbacks for the host's named events, such as "quitApplication".
class OPENMAYA_EXPORT MEventMessage : public MMessage
{
public:
    /// 0 and kUnknownParameter for an event that does not exist.
    static MCallbackId addEventCallback(const MString& event, MMessage::MBasicFunction func,
        void* clientData = nullptr, MStatus* ReturnStatus = nullptr);
    static MStatus getEventNames(MStringArray& names);

    static const char* className();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
