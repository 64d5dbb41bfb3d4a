#pragma once

#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Base of the function sets: what can be done with the object that it is attached to.
class OPENMAYA_EXPORT MFnBase
{
public:
    MFnBase();
    virtual ~MFnBase();

    virtual MFn::Type type() const;
    bool hasObj(MFn::Type type) const;
    bool hasObj(const MObject& object) const;
    MObject object(MStatus* ReturnStatus = nullptr) const;
    /// kInvalidParameter when the function set does not fit the object.
    virtual MStatus setObject(MObject& object);
    virtual MStatus setObject(const MObject& object);

protected:
    MFnBase(const MFnBase&) = default;
    MFnBase& operator=(const MFnBase&) = default;

private:
    MObject m_object;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
