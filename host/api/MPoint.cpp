#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <cmath>
#include <ostream>

OPENMAYA_MAJOR_NAMESPACE_OPEN

const MPoint MPoint::origin(0, 0, 0);

MPoint::MPoint()
    : MPoint(0, 0, 0)
{ }

MPoint::MPoint(const MPoint& other) = default;
MPoint::~MPoint() = default;
MPoint& MPoint::operator=(const MPoint& other) = default;

MPoint::MPoint(const MVector& vector)
    : MPoint(vector.x, vector.y, vector.z)
{ }

MPoint::MPoint(double xx, double yy, double zz, double ww)
    : x(xx)
    , y(yy)
    , z(zz)
    , w(ww)
{ }

MPoint::MPoint(const double coordinates[4])
    : MPoint(coordinates[0], coordinates[1], coordinates[2], coordinates[3])
{ }

MPoint::MPoint(const float coordinates[4])
    : MPoint(coordinates[0], coordinates[1], coordinates[2], coordinates[3])
{ }

double MPoint::operator()(unsigned int i) const
{
    return i == 0 ? x : i == 1 ? y : i == 2 ? z : w;
}

double& MPoint::operator()(unsigned int i)
{
    return i == 0 ? x : i == 1 ? y : i == 2 ? z : w;
}

double MPoint::operator[](unsigned int i) const
{
    return (*this)(i);
}

double& MPoint::operator[](unsigned int i)
{
    return (*this)(i);
}

MVector MPoint::operator-(const MPoint& other) const
{
    return {x - other.x, y - other.y, z - other.z};
}

MPoint MPoint::operator+(const MVector& vector) const
{
    return {x + vector.x, y + vector.y, z + vector.z, w};
}

MPoint MPoint::operator-(const MVector& vector) const
{
    return *this + -vector;
}

MPoint& MPoint::operator+=(const MVector& vector)
{
    return *this = *this + vector;
}

MPoint& MPoint::operator-=(const MVector& vector)
{
    return *this = *this - vector;
}

MPoint MPoint::operator*(double scalar) const
{
    return {x * scalar, y * scalar, z * scalar, w};
}

MPoint MPoint::operator/(double scalar) const
{
    return *this * (1 / scalar);
}

MPoint MPoint::operator*(const MMatrix& matrix) const
{
    MPoint result;
    for (unsigned int column = 0; column < 4; ++column) {
        result[column] = x * matrix(0, column) + y * matrix(1, column) + z * matrix(2, column)
            + w * matrix(3, column);
    }
    return result;
}

MPoint& MPoint::operator*=(const MMatrix& matrix)
{
    return *this = *this * matrix;
}

bool MPoint::operator==(const MPoint& other) const
{
    return x == other.x && y == other.y && z == other.z && w == other.w;
}

bool MPoint::operator!=(const MPoint& other) const
{
    return !(*this == other);
}

MStatus MPoint::get(double coordinates[4]) const
{
    for (unsigned int i = 0; i < 4; ++i)
        coordinates[i] = (*this)[i];
    return MS::kSuccess;
}

MPoint& MPoint::cartesianize()
{
    rationalize();
    w = w != 0 ? 1 : 0;
    return *this;
}

MPoint& MPoint::rationalize()
{
    if (w != 0)
        *this = *this / w;
    return *this;
}

MPoint& MPoint::homogenize()
{
    return *this = *this * w;
}

double MPoint::distanceTo(const MPoint& other) const
{
    return (*this - other).length();
}

bool MPoint::isEquivalent(const MPoint& other, double tolerance) const
{
    return (*this - other).isEquivalent(MVector::zero, tolerance)
        && std::abs(w - other.w) <= tolerance;
}

std::ostream& operator<<(std::ostream& stream, const MPoint& point)
{
    return stream << '[' << point.x << ", " << point.y << ", " << point.z << ", " << point.w << ']';
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
