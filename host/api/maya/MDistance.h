#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A length in a unit. The host itself counts in centimetres. A value.
class OPENMAYA_EXPORT MDistance
{
public:
    enum Unit {
        kInvalid = 0,
        kInches,
        kFeet,
        kYards,
        kMiles,
        kMillimeters,
        kCentimeters,
        kKilometers,
        kMeters
    };

    MDistance();
    MDistance(const MDistance& other);
    MDistance(double value, Unit unit);
    ~MDistance();
    MDistance& operator=(const MDistance& other);

    Unit unit() const;
    double value() const;
    double as(Unit otherUnit) const;
    double asInches() const;
    double asFeet() const;
    double asYards() const;
    double asMiles() const;
    double asMillimeters() const;
    double asCentimeters() const;
    double asKilometers() const;
    double asMeters() const;
    /// The value becomes that of the same length in the unit.
    MStatus setUnit(Unit newUnit);
    MStatus setValue(double newValue);

    static Unit internalUnit();

private:
    double m_value;
    Unit m_unit;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
