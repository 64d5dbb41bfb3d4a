#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>

#include <iosfwd>

#define MPoint_kTol 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A place; `w` is 1 unless it was projected.
class OPENMAYA_EXPORT MPoint
{
public:
    MPoint();
    MPoint(const MPoint& other);
    MPoint(const MVector& vector);
    MPoint(double xx, double yy, double zz = 0.0, double ww = 1.0);
    MPoint(const double coordinates[4]);
    MPoint(const float coordinates[4]);
    ~MPoint();
    MPoint& operator=(const MPoint& other);

    // The index runs from 0 to 3 and is not checked.
    double operator()(unsigned int i) const;
    double& operator()(unsigned int i);
    double operator[](unsigned int i) const;
    double& operator[](unsigned int i);

    MVector operator-(const MPoint& other) const;
    MPoint operator+(const MVector& vector) const;
    MPoint operator-(const MVector& vector) const;
    MPoint& operator+=(const MVector& vector);
    MPoint& operator-=(const MVector& vector);
    /// Scales the place and leaves `w` alone.
    MPoint operator*(double scalar) const;
    MPoint operator/(double scalar) const;
    MPoint operator*(const MMatrix& matrix) const;
    MPoint& operator*=(const MMatrix& matrix);
    bool operator==(const MPoint& other) const;
    bool operator!=(const MPoint& other) const;

    MStatus get(double coordinates[4]) const;
    /// Divides everything by `w`.
    MPoint& cartesianize();
    /// Divides all but `w` by it.
    MPoint& rationalize();
    /// Multiplies all but `w` by it.
    MPoint& homogenize();
    double distanceTo(const MPoint& other) const;
    bool isEquivalent(const MPoint& other, double tolerance = MPoint_kTol) const;

    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MPoint& point);

    static const MPoint origin;

    double x;
    double y;
    double z;
    double w;
};

OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MPoint& point);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
