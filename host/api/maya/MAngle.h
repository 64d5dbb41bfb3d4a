#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An angle in a unit. The host itself counts in radians. A value.
class OPENMAYA_EXPORT MAngle
{
public:
    enum Unit { kInvalid = 0, kRadians, kDegrees, kAngMinutes, kAngSeconds };

    MAngle();
    MAngle(const MAngle& other);
    MAngle(double value, Unit unit);
    ~MAngle();
    MAngle& operator=(const MAngle& other);

    Unit unit() const;
    double value() const;
    double as(Unit otherUnit) const;
    double asRadians() const;
    double asDegrees() const;
    double asAngMinutes() const;
    double asAngSeconds() const;
    /// The value becomes that of the same angle in the unit.
    MStatus setUnit(Unit newUnit);
    MStatus setValue(double newValue);

    static Unit internalUnit();

private:
    double m_value;
    Unit m_unit;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
