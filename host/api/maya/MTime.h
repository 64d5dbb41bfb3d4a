#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A time in a unit: hours to milliseconds, or frames at a rate. A value.
class OPENMAYA_EXPORT MTime
{
public:
    enum Unit {
        kInvalid = 0,
        kHours,
        kMinutes,
        kSeconds,
        kMilliseconds,
        kGames, ///< 15 frames a second
        kFilm, ///< 24
        kPALFrame, ///< 25
        kNTSCFrame, ///< 30
        kShowScan, ///< 48
        kPALField, ///< 50
        kNTSCField ///< 60
    };

    MTime();
    MTime(const MTime& other);
    MTime(double value, Unit unit = MTime::kFilm);
    ~MTime();
    MTime& operator=(const MTime& other);

    Unit unit() const;
    double value() const;
    double as(Unit otherUnit) const;
    /// The value becomes that of the same time in the unit.
    MStatus setUnit(Unit newUnit);
    MStatus setValue(double newValue);

    bool operator==(const MTime& other) const;
    bool operator!=(const MTime& other) const;
    bool operator<=(const MTime& other) const;
    bool operator>=(const MTime& other) const;
    bool operator<(const MTime& other) const;
    bool operator>(const MTime& other) const;
    // The result has the unit of the left side.
    MTime operator+(const MTime& other) const;
    MTime& operator+=(const MTime& other);
    MTime operator-(const MTime& other) const;
    MTime& operator-=(const MTime& other);
    MTime operator*(double scalar) const;
    MTime operator/(double scalar) const;

private:
    double m_value;
    Unit m_unit;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
