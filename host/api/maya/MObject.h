#pragma once

#include <maya/MFn.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A handle to something the host owns; here always a plug-in. Cheap to copy. Not to be kept
/// beyond the call that gave it.
class OPENMAYA_EXPORT MObject
{
public:
    MObject();
    MObject(const MObject& other);
    ~MObject();
    MObject& operator=(const MObject& other);

    bool operator==(const MObject& other) const;
    bool operator!=(const MObject& other) const;

    bool isNull() const;
    bool hasFn(MFn::Type filter) const;
    MFn::Type apiType() const;
    const char* apiTypeStr() const;

    static MObject kNullObj;

private:
    friend class ApiAccess;

    void* m_pointer = nullptr; ///< not owned
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
