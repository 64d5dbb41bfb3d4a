#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>

#include <iosfwd>

#define MVector_kTol 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A direction with a length. Vectors are rows: one times a matrix is the vector moved by it.
class OPENMAYA_EXPORT MVector
{
public:
    enum Axis { kXaxis = 0, kYaxis, kZaxis, kWaxis };

    MVector();
    MVector(const MVector& other);
    MVector(const MPoint& point);
    MVector(double xx, double yy, double zz = 0.0);
    MVector(const double coordinates[3]);
    MVector(const float coordinates[3]);
    ~MVector();
    MVector& operator=(const MVector& other);

    // The index runs from 0 to 2 and is not checked.
    double operator()(unsigned int i) const;
    double& operator()(unsigned int i);
    double operator[](unsigned int i) const;
    double& operator[](unsigned int i);

    MVector& operator+=(const MVector& other);
    MVector operator+(const MVector& other) const;
    MVector& operator-=(const MVector& other);
    MVector operator-(const MVector& other) const;
    MVector operator-() const;
    MVector& operator*=(double scalar);
    MVector operator*(double scalar) const;
    MVector& operator/=(double scalar);
    MVector operator/(double scalar) const;
    /// The dot product.
    double operator*(const MVector& other) const;
    /// The cross product.
    MVector operator^(const MVector& other) const;
    MVector& operator*=(const MMatrix& matrix);
    MVector operator*(const MMatrix& matrix) const;
    bool operator==(const MVector& other) const;
    bool operator!=(const MVector& other) const;

    MStatus get(double coordinates[3]) const;
    double length() const;
    /// The null vector stays what it is.
    MVector normal() const;
    MStatus normalize();
    /// In radians.
    double angle(const MVector& other) const;
    bool isEquivalent(const MVector& other, double tolerance = MVector_kTol) const;
    bool isParallel(const MVector& other, double tolerance = MVector_kTol) const;

    friend OPENMAYA_EXPORT MVector operator*(int scalar, const MVector& vector);
    friend OPENMAYA_EXPORT MVector operator*(double scalar, const MVector& vector);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MVector& vector);

    static const MVector zero;
    static const MVector one;
    static const MVector xAxis;
    static const MVector yAxis;
    static const MVector zAxis;
    static const MVector xNegAxis;
    static const MVector yNegAxis;
    static const MVector zNegAxis;

    double x;
    double y;
    double z;
};

OPENMAYA_EXPORT MVector operator*(int scalar, const MVector& vector);
OPENMAYA_EXPORT MVector operator*(double scalar, const MVector& vector);
OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MVector& vector);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
