#include "api/UnitValues.h"

#include <maya/MAngle.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

constexpr double RADIANS_IN_DEGREE = 0.017453292519943295;

/// In radians.
constexpr host::api::UnitRow UNITS[] = {
    {MAngle::kRadians, 1.0},
    {MAngle::kDegrees, RADIANS_IN_DEGREE},
    {MAngle::kAngMinutes, RADIANS_IN_DEGREE / 60},
    {MAngle::kAngSeconds, RADIANS_IN_DEGREE / 3600},
};

double Size(MAngle::Unit unit)
{
    return host::api::SizeOf(UNITS, unit);
}

} // namespace

MAngle::MAngle()
    : MAngle(0, kRadians)
{ }

MAngle::MAngle(const MAngle& other) = default;
MAngle::~MAngle() = default;
MAngle& MAngle::operator=(const MAngle& other) = default;

MAngle::MAngle(double value, Unit unit)
    : m_value(value)
    , m_unit(unit)
{ }

MAngle::Unit MAngle::unit() const
{
    return m_unit;
}

double MAngle::value() const
{
    return m_value;
}

double MAngle::as(Unit otherUnit) const
{
    return host::api::Converted(m_value, Size(m_unit), Size(otherUnit));
}

MStatus MAngle::setUnit(Unit newUnit)
{
    if (Size(newUnit) == 0)
        return MS::kInvalidParameter;
    m_value = as(newUnit);
    m_unit = newUnit;
    return MS::kSuccess;
}

MStatus MAngle::setValue(double newValue)
{
    m_value = newValue;
    return MS::kSuccess;
}

double MAngle::asRadians() const
{
    return as(kRadians);
}

double MAngle::asDegrees() const
{
    return as(kDegrees);
}

double MAngle::asAngMinutes() const
{
    return as(kAngMinutes);
}

double MAngle::asAngSeconds() const
{
    return as(kAngSeconds);
}

MAngle::Unit MAngle::internalUnit()
{
    return kRadians;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
