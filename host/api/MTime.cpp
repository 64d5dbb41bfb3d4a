#include "api/UnitValues.h"

#include <maya/MTime.h>

#include <QtGlobal>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

/// In seconds.
constexpr host::api::UnitRow UNITS[] = {
    {MTime::kHours, 3600.0},
    {MTime::kMinutes, 60.0},
    {MTime::kSeconds, 1.0},
    {MTime::kMilliseconds, 0.001},
    {MTime::kGames, 1.0 / 15},
    {MTime::kFilm, 1.0 / 24},
    {MTime::kPALFrame, 1.0 / 25},
    {MTime::kNTSCFrame, 1.0 / 30},
    {MTime::kShowScan, 1.0 / 48},
    {MTime::kPALField, 1.0 / 50},
    {MTime::kNTSCField, 1.0 / 60},
};

double Size(MTime::Unit unit)
{
    return host::api::SizeOf(UNITS, unit);
}

} // namespace

MTime::MTime()
    : MTime(0, kFilm)
{ }

MTime::MTime(const MTime& other) = default;
MTime::~MTime() = default;
MTime& MTime::operator=(const MTime& other) = default;

MTime::MTime(double value, Unit unit)
    : m_value(value)
    , m_unit(unit)
{ }

MTime::Unit MTime::unit() const
{
    return m_unit;
}

double MTime::value() const
{
    return m_value;
}

double MTime::as(Unit otherUnit) const
{
    return host::api::Converted(m_value, Size(m_unit), Size(otherUnit));
}

MStatus MTime::setUnit(Unit newUnit)
{
    if (Size(newUnit) == 0)
        return MS::kInvalidParameter;
    m_value = as(newUnit);
    m_unit = newUnit;
    return MS::kSuccess;
}

MStatus MTime::setValue(double newValue)
{
    m_value = newValue;
    return MS::kSuccess;
}

bool MTime::operator==(const MTime& other) const
{
    return qFuzzyIsNull(other.as(kSeconds) - as(kSeconds));
}

bool MTime::operator!=(const MTime& other) const
{
    return !(*this == other);
}

bool MTime::operator<=(const MTime& other) const
{
    return !(*this > other);
}

bool MTime::operator>=(const MTime& other) const
{
    return !(*this < other);
}

bool MTime::operator<(const MTime& other) const
{
    return *this != other && as(kSeconds) < other.as(kSeconds);
}

bool MTime::operator>(const MTime& other) const
{
    return other < *this;
}

MTime MTime::operator+(const MTime& other) const
{
    return {m_value + other.as(m_unit), m_unit};
}

MTime& MTime::operator+=(const MTime& other)
{
    return *this = *this + other;
}

MTime MTime::operator-(const MTime& other) const
{
    return {m_value - other.as(m_unit), m_unit};
}

MTime& MTime::operator-=(const MTime& other)
{
    return *this = *this - other;
}

MTime MTime::operator*(double scalar) const
{
    return {m_value * scalar, m_unit};
}

MTime MTime::operator/(double scalar) const
{
    return {m_value / scalar, m_unit};
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
