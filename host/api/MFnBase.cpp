#include "api/StatusDetails.h"

#include <maya/MFnBase.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

MFnBase::MFnBase() = default;
MFnBase::~MFnBase() = default;

MFn::Type MFnBase::type() const
{
    return MFn::kBase;
}

bool MFnBase::hasObj(MFn::Type type) const
{
    return m_object.hasFn(type);
}

bool MFnBase::hasObj(const MObject& object) const
{
    return object.hasFn(type());
}

MObject MFnBase::object(MStatus* ReturnStatus) const
{
    host::api::Report(ReturnStatus, m_object.isNull() ? MS::kFailure : MS::kSuccess);
    return m_object;
}

MStatus MFnBase::setObject(MObject& object)
{
    return setObject(static_cast<const MObject&>(object));
}

MStatus MFnBase::setObject(const MObject& object)
{
    if (!object.hasFn(type()))
        return MS::kInvalidParameter;
    m_object = object;
    return MS::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
