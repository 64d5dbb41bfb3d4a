#include "scene/Matrix4.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace host::scene {

namespace {

/// Axes in the order in which the rotation is applied, by RotateOrder.
constexpr int AXES[][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 0}};
constexpr double SMALLEST = 1e-12;

Matrix4 AxisRotation(int axis, double degrees)
{
    const double sine = std::sin(qDegreesToRadians(degrees));
    const double cosine = std::cos(qDegreesToRadians(degrees));
    const int first = (axis + 1) % 3;
    const int second = (axis + 2) % 3;
    Matrix4 matrix;
    matrix.At(first, first) = cosine;
    matrix.At(first, second) = sine;
    matrix.At(second, first) = -sine;
    matrix.At(second, second) = cosine;
    return matrix;
}

double Component(const Vector& vector, int axis)
{
    return axis == 0 ? vector.x : axis == 1 ? vector.y : vector.z;
}

double& Component(Vector& vector, int axis)
{
    return axis == 0 ? vector.x : axis == 1 ? vector.y : vector.z;
}

double Dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector Cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// Takes away what two rows have in common; its share is the shear between them.
double Separate(Vector& row, const Vector& unit)
{
    const double shared = Dot(row, unit);
    row = row - unit * shared;
    return shared;
}

/// Brings a row to length 1 and gives the length it had.
double Normalize(Vector& row)
{
    const double length = row.Length();
    if (length > SMALLEST)
        row = row * (1 / length);
    return length;
}

/// Angles of a matrix whose rows are unit vectors at right angles, about the axes i, j and k in
/// turn.
Vector FirstAngles(const Matrix4& matrix, int i, int j, int k)
{
    const double sign = (j - i + 3) % 3 == 1 ? 1 : -1;
    const double sine = std::clamp(-sign * matrix.At(i, k), -1.0, 1.0);
    const auto angle = [](double y, double x) { return qRadiansToDegrees(std::atan2(y, x)); };
    Vector angles;
    Component(angles, j) = qRadiansToDegrees(std::asin(sine));
    if (std::abs(sine) < 1 - SMALLEST) {
        Component(angles, i) = angle(sign * matrix.At(j, k), matrix.At(k, k));
        Component(angles, k) = angle(sign * matrix.At(i, j), matrix.At(i, i));
    } else {
        // The first and the last axis have become one: the first takes the whole turn.
        Component(angles, i) = angle(-sign * matrix.At(k, j), matrix.At(j, j));
    }
    return angles;
}

double Flipped(double angle)
{
    return angle > 0 ? angle - 180 : angle + 180;
}

double Effort(const Vector& angles)
{
    return std::abs(angles.x) + std::abs(angles.y) + std::abs(angles.z);
}

/// Two sets of angles turn the same way; this is the smaller one: 0 120 0 rather than 180 60 180.
Vector Angles(const Matrix4& matrix, RotateOrder order)
{
    const auto& axes = AXES[static_cast<int>(order)];
    const Vector first = FirstAngles(matrix, axes[0], axes[1], axes[2]);
    Vector second = first;
    Component(second, axes[0]) = Flipped(Component(first, axes[0]));
    Component(second, axes[2]) = Flipped(Component(first, axes[2]));
    const double middle = Component(first, axes[1]);
    Component(second, axes[1]) = middle >= 0 ? 180 - middle : -180 - middle;
    return Effort(second) < Effort(first) - 1e-9 ? second : first;
}

} // namespace

Vector operator+(const Vector& a, const Vector& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Vector operator-(const Vector& a, const Vector& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Vector operator*(const Vector& vector, double factor)
{
    return {vector.x * factor, vector.y * factor, vector.z * factor};
}

Matrix4::Matrix4()
{
    for (int i = 0; i < 4; ++i)
        At(i, i) = 1;
}

Matrix4 Matrix4::Translation(const Vector& offset)
{
    Matrix4 matrix;
    for (int axis = 0; axis < 3; ++axis)
        matrix.At(3, axis) = Component(offset, axis);
    return matrix;
}

Matrix4 Matrix4::Scaling(const Vector& factors)
{
    Matrix4 matrix;
    for (int axis = 0; axis < 3; ++axis)
        matrix.At(axis, axis) = Component(factors, axis);
    return matrix;
}

Matrix4 Matrix4::Shearing(const Vector& shear)
{
    Matrix4 matrix;
    matrix.At(1, 0) = shear.x;
    matrix.At(2, 0) = shear.y;
    matrix.At(2, 1) = shear.z;
    return matrix;
}

Matrix4 Matrix4::Rotation(const Vector& angles, RotateOrder order)
{
    Matrix4 matrix;
    for (const int axis : AXES[static_cast<int>(order)])
        matrix = matrix * AxisRotation(axis, Component(angles, axis));
    return matrix;
}

Matrix4 Matrix4::FromCells(const QVector<double>& cells)
{
    Matrix4 matrix;
    if (cells.size() == 16)
        std::copy(cells.begin(), cells.end(), matrix.m_cells.begin());
    return matrix;
}

QVector<double> Matrix4::Cells() const
{
    return QVector<double>(m_cells.begin(), m_cells.end());
}

Vector Matrix4::MapDirection(const Vector& d) const
{
    return {d.x * At(0, 0) + d.y * At(1, 0) + d.z * At(2, 0),
        d.x * At(0, 1) + d.y * At(1, 1) + d.z * At(2, 1),
        d.x * At(0, 2) + d.y * At(1, 2) + d.z * At(2, 2)};
}

Vector Matrix4::Map(const Vector& point) const
{
    return MapDirection(point) + GetTranslation();
}

Matrix4 Matrix4::operator*(const Matrix4& later) const
{
    Matrix4 product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0;
            for (int i = 0; i < 4; ++i)
                sum += At(row, i) * later.At(i, column);
            product.At(row, column) = sum;
        }
    }
    return product;
}

Matrix4 Matrix4::Inverted() const
{
    const Vector rows[] = {{At(0, 0), At(0, 1), At(0, 2)}, {At(1, 0), At(1, 1), At(1, 2)},
        {At(2, 0), At(2, 1), At(2, 2)}};
    const double determinant = Dot(rows[0], Cross(rows[1], rows[2]));
    if (std::abs(determinant) < SMALLEST)
        return {};
    Matrix4 inverse;
    for (int i = 0; i < 3; ++i) {
        const Vector column = Cross(rows[(i + 1) % 3], rows[(i + 2) % 3]) * (1 / determinant);
        for (int axis = 0; axis < 3; ++axis)
            inverse.At(axis, i) = Component(column, axis);
    }
    const Vector offset = inverse.MapDirection(GetTranslation()) * -1;
    for (int axis = 0; axis < 3; ++axis)
        inverse.At(3, axis) = Component(offset, axis);
    return inverse;
}

Decomposition Decompose(const Matrix4& matrix, RotateOrder order)
{
    Vector rows[3];
    for (int i = 0; i < 3; ++i)
        rows[i] = {matrix.At(i, 0), matrix.At(i, 1), matrix.At(i, 2)};
    Decomposition parts;
    parts.translation = matrix.GetTranslation();
    parts.scale.x = Normalize(rows[0]);
    parts.shear.x = Separate(rows[1], rows[0]);
    parts.scale.y = Normalize(rows[1]);
    parts.shear.y = Separate(rows[2], rows[0]);
    parts.shear.z = Separate(rows[2], rows[1]);
    parts.scale.z = Normalize(rows[2]);
    // Row i of the whole is (scale, then shear) times the rotation.
    if (std::abs(parts.scale.y) > SMALLEST)
        parts.shear.x /= parts.scale.y;
    if (std::abs(parts.scale.z) > SMALLEST) {
        parts.shear.y /= parts.scale.z;
        parts.shear.z /= parts.scale.z;
    }
    if (Dot(rows[0], Cross(rows[1], rows[2])) < 0) {
        parts.scale = parts.scale * -1;
        for (Vector& row : rows)
            row = row * -1;
    }
    Matrix4 rotation;
    for (int i = 0; i < 3; ++i) {
        for (int axis = 0; axis < 3; ++axis)
            rotation.At(i, axis) = Component(rows[i], axis);
    }
    parts.rotation = Angles(rotation, order);
    return parts;
}

} // namespace host::scene
