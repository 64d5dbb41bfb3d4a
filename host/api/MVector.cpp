#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <algorithm>
#include <cmath>
#include <ostream>

OPENMAYA_MAJOR_NAMESPACE_OPEN

const MVector MVector::zero(0, 0, 0);
const MVector MVector::one(1, 1, 1);
const MVector MVector::xAxis(1, 0, 0);
const MVector MVector::yAxis(0, 1, 0);
const MVector MVector::zAxis(0, 0, 1);
const MVector MVector::xNegAxis(-1, 0, 0);
const MVector MVector::yNegAxis(0, -1, 0);
const MVector MVector::zNegAxis(0, 0, -1);

MVector::MVector()
    : MVector(0, 0, 0)
{ }

MVector::MVector(const MVector& other) = default;
MVector::~MVector() = default;
MVector& MVector::operator=(const MVector& other) = default;

MVector::MVector(const MPoint& point)
    : MVector(point.x, point.y, point.z)
{ }

MVector::MVector(double xx, double yy, double zz)
    : x(xx)
    , y(yy)
    , z(zz)
{ }

MVector::MVector(const double coordinates[3])
    : MVector(coordinates[0], coordinates[1], coordinates[2])
{ }

MVector::MVector(const float coordinates[3])
    : MVector(coordinates[0], coordinates[1], coordinates[2])
{ }

double MVector::operator()(unsigned int i) const
{
    return i == 0 ? x : i == 1 ? y : z;
}

double& MVector::operator()(unsigned int i)
{
    return i == 0 ? x : i == 1 ? y : z;
}

double MVector::operator[](unsigned int i) const
{
    return (*this)(i);
}

double& MVector::operator[](unsigned int i)
{
    return (*this)(i);
}

MVector& MVector::operator+=(const MVector& other)
{
    return *this = *this + other;
}

MVector MVector::operator+(const MVector& other) const
{
    return {x + other.x, y + other.y, z + other.z};
}

MVector& MVector::operator-=(const MVector& other)
{
    return *this = *this - other;
}

MVector MVector::operator-(const MVector& other) const
{
    return {x - other.x, y - other.y, z - other.z};
}

MVector MVector::operator-() const
{
    return {-x, -y, -z};
}

MVector& MVector::operator*=(double scalar)
{
    return *this = *this * scalar;
}

MVector MVector::operator*(double scalar) const
{
    return {x * scalar, y * scalar, z * scalar};
}

MVector& MVector::operator/=(double scalar)
{
    return *this = *this / scalar;
}

MVector MVector::operator/(double scalar) const
{
    return {x / scalar, y / scalar, z / scalar};
}

double MVector::operator*(const MVector& other) const
{
    return x * other.x + y * other.y + z * other.z;
}

MVector MVector::operator^(const MVector& other) const
{
    return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
}

MVector& MVector::operator*=(const MMatrix& matrix)
{
    return *this = *this * matrix;
}

MVector MVector::operator*(const MMatrix& matrix) const
{
    MVector result;
    for (unsigned int column = 0; column < 3; ++column)
        result[column] = x * matrix(0, column) + y * matrix(1, column) + z * matrix(2, column);
    return result;
}

bool MVector::operator==(const MVector& other) const
{
    return x == other.x && y == other.y && z == other.z;
}

bool MVector::operator!=(const MVector& other) const
{
    return !(*this == other);
}

MStatus MVector::get(double coordinates[3]) const
{
    for (unsigned int i = 0; i < 3; ++i)
        coordinates[i] = (*this)[i];
    return MS::kSuccess;
}

double MVector::length() const
{
    return std::sqrt(*this * *this);
}

MVector MVector::normal() const
{
    const double size = length();
    return size > 0 ? *this / size : *this;
}

MStatus MVector::normalize()
{
    *this = normal();
    return MS::kSuccess;
}

double MVector::angle(const MVector& other) const
{
    const double lengths = length() * other.length();
    return lengths > 0 ? std::acos(std::clamp(*this * other / lengths, -1.0, 1.0)) : 0;
}

bool MVector::isEquivalent(const MVector& other, double tolerance) const
{
    const MVector difference = *this - other;
    return std::abs(difference.x) <= tolerance && std::abs(difference.y) <= tolerance
        && std::abs(difference.z) <= tolerance;
}

bool MVector::isParallel(const MVector& other, double tolerance) const
{
    return 1 - std::abs(normal() * other.normal()) <= tolerance;
}

MVector operator*(int scalar, const MVector& vector)
{
    return vector * scalar;
}

MVector operator*(double scalar, const MVector& vector)
{
    return vector * scalar;
}

std::ostream& operator<<(std::ostream& stream, const MVector& vector)
{
    return stream << '[' << vector.x << ", " << vector.y << ", " << vector.z << ']';
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
