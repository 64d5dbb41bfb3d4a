#include "api/ApiAccess.h"

#include <maya/MObject.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

MObject MObject::kNullObj;

MObject::MObject() = default;
MObject::MObject(const MObject& other) = default;
MObject::~MObject() = default;
MObject& MObject::operator=(const MObject& other) = default;

bool MObject::operator==(const MObject& other) const
{
    return m_pointer == other.m_pointer;
}

bool MObject::operator!=(const MObject& other) const
{
    return m_pointer != other.m_pointer;
}

bool MObject::isNull() const
{
    return m_pointer == nullptr;
}

bool MObject::hasFn(MFn::Type filter) const
{
    return !isNull() && (filter == MFn::kBase || filter == MFn::kPlugin);
}

MFn::Type MObject::apiType() const
{
    return isNull() ? MFn::kInvalid : MFn::kPlugin;
}

const char* MObject::apiTypeStr() const
{
    return isNull() ? "kInvalid" : "kPlugin";
}

host::Plugin* ApiAccess::PluginOf(const MObject& object)
{
    return static_cast<host::Plugin*>(object.m_pointer);
}

MObject ApiAccess::ObjectOf(host::Plugin* plugin)
{
    MObject object;
    object.m_pointer = plugin;
    return object;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
