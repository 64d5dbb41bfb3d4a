#include "api/UnitValues.h"

#include <maya/MDistance.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

/// In centimetres.
constexpr host::api::UnitRow UNITS[] = {
    {MDistance::kInches, 2.54},
    {MDistance::kFeet, 30.48},
    {MDistance::kYards, 91.44},
    {MDistance::kMiles, 160934.4},
    {MDistance::kMillimeters, 0.1},
    {MDistance::kCentimeters, 1.0},
    {MDistance::kKilometers, 100000.0},
    {MDistance::kMeters, 100.0},
};

double Size(MDistance::Unit unit)
{
    return host::api::SizeOf(UNITS, unit);
}

} // namespace

MDistance::MDistance()
    : MDistance(0, kCentimeters)
{ }

MDistance::MDistance(const MDistance& other) = default;
MDistance::~MDistance() = default;
MDistance& MDistance::operator=(const MDistance& other) = default;

MDistance::MDistance(double value, Unit unit)
    : m_value(value)
    , m_unit(unit)
{ }

MDistance::Unit MDistance::unit() const
{
    return m_unit;
}

double MDistance::value() const
{
    return m_value;
}

double MDistance::as(Unit otherUnit) const
{
    return host::api::Converted(m_value, Size(m_unit), Size(otherUnit));
}

MStatus MDistance::setUnit(Unit newUnit)
{
    if (Size(newUnit) == 0)
        return MS::kInvalidParameter;
    m_value = as(newUnit);
    m_unit = newUnit;
    return MS::kSuccess;
}

MStatus MDistance::setValue(double newValue)
{
    m_value = newValue;
    return MS::kSuccess;
}

double MDistance::asInches() const
{
    return as(kInches);
}

double MDistance::asFeet() const
{
    return as(kFeet);
}

double MDistance::asYards() const
{
    return as(kYards);
}

double MDistance::asMiles() const
{
    return as(kMiles);
}

double MDistance::asMillimeters() const
{
    return as(kMillimeters);
}

double MDistance::asCentimeters() const
{
    return as(kCentimeters);
}

double MDistance::asKilometers() const
{
    return as(kKilometers);
}

double MDistance::asMeters() const
{
    return as(kMeters);
}

MDistance::Unit MDistance::internalUnit()
{
    return kCentimeters;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
