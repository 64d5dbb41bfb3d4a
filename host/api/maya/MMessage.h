#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <cstdint>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Names a registered callback; 0 is none.
typedef std::intptr_t MCallbackId;

/// Base of the classes that register callbacks. A callback is a plain function; its client data
/// stays the caller's. All of a plug-in's callbacks have to be removed before it is unloaded. Main
/// thread only.
class OPENMAYA_EXPORT MMessage
{
public:
    enum Action { kDefaultAction = 0, kDoNotDoAction, kDoAction };

    typedef void (*MBasicFunction)(void* clientData);
    typedef void (*MStringFunction)(const MString& text, void* clientData);
    typedef void (*MStringIntBoolIntFunction)(
        const MString& text, unsigned int id, bool state, unsigned int type, void* clientData);

    /// kInvalidParameter for an id that never was one, kFailure for one removed before. A callback
    /// may remove itself and others.
    static MStatus removeCallback(MCallbackId id);
    static MStatus removeCallbacks(MCallbackIdArray& ids);
    /// Of the callback that this thread runs; 0 outside of callbacks.
    static MCallbackId currentCallbackId(MStatus* ReturnStatus = nullptr);

    static const char* className();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
