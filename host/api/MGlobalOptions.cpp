#include "api/Conversions.h"
#include "engine/Engine.h"

#include <maya/MGlobal.h>

// Option variables.

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::Engine;
using host::Value;
using host::api::ToMString;
using host::api::ToQString;

namespace {

/// The variable's value; None when it does not exist, which `exists` (may be null) tells too.
Value Variable(const MString& name, bool* exists)
{
    const QString key = ToQString(name);
    const bool found = Engine::Exists() && Engine::Current().optionVars.Contains(key);
    if (exists)
        *exists = found;
    return found ? Engine::Current().optionVars.Get(key) : Value();
}

bool Set(const MString& name, const Value& value)
{
    if (!Engine::Exists() || name.length() == 0)
        return false;
    Engine::Current().optionVars.Set(ToQString(name), value);
    return true;
}

template <typename T>
bool GetInto(T found, bool exists, T& value)
{
    if (exists)
        value = found;
    return exists;
}

} // namespace

int MGlobal::optionVarIntValue(const MString& name, bool* exists)
{
    const Value value = Variable(name, exists);
    return value.IsNumber() ? value.ToInt() : 0;
}

double MGlobal::optionVarDoubleValue(const MString& name, bool* exists)
{
    const Value value = Variable(name, exists);
    return value.IsNumber() ? value.ToFloat() : 0;
}

MString MGlobal::optionVarStringValue(const MString& name, bool* exists)
{
    const Value value = Variable(name, exists);
    return value.IsString() ? ToMString(value.Get<QString>()) : MString();
}

bool MGlobal::setOptionVarValue(const MString& name, int value)
{
    return Set(name, value);
}

bool MGlobal::setOptionVarValue(const MString& name, double value)
{
    return Set(name, value);
}

bool MGlobal::setOptionVarValue(const MString& name, MString value)
{
    return Set(name, ToQString(value));
}

bool MGlobal::optionVarExists(const MString& name)
{
    return !Variable(name, nullptr).IsNone();
}

void MGlobal::removeOptionVar(const MString& name)
{
    if (Engine::Exists())
        Engine::Current().optionVars.Remove(ToQString(name));
}

bool MGlobal::getOptionVarValue(const MString& name, int& value)
{
    bool exists = false;
    const int found = optionVarIntValue(name, &exists);
    return GetInto(found, exists, value);
}

bool MGlobal::getOptionVarValue(const MString& name, double& value)
{
    bool exists = false;
    const double found = optionVarDoubleValue(name, &exists);
    return GetInto(found, exists, value);
}

bool MGlobal::getOptionVarValue(const MString& name, MString& value)
{
    bool exists = false;
    const MString found = optionVarStringValue(name, &exists);
    return GetInto(found, exists, value);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
