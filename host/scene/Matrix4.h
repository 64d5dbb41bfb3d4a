#pragma once

#include "engine/Value.h"

#include <array>

namespace host::scene {

/// The order in which the rotations about the axes are applied, as the attribute "rotateOrder"
/// counts them.
enum class RotateOrder { Xyz, Yzx, Zxy, Xzy, Yxz, Zyx };

/// A four by four matrix for row vectors: the translation is the last row, and what is applied
/// first stands on the left of a product.
class Matrix4
{
public:
    Matrix4(); ///< leaves everything where it is

    static Matrix4 Translation(const Vector& offset);
    static Matrix4 Scaling(const Vector& factors);
    static Matrix4 Shearing(const Vector& shear);
    /// Angles in degrees.
    static Matrix4 Rotation(const Vector& angles, RotateOrder order);
    /// Sixteen numbers row by row; the neutral matrix when there are others.
    static Matrix4 FromCells(const QVector<double>& cells);

    double& At(int row, int column) { return m_cells[static_cast<size_t>(row * 4 + column)]; }
    double At(int row, int column) const { return m_cells[static_cast<size_t>(row * 4 + column)]; }
    QVector<double> Cells() const;
    Matrix ToMatrix() const { return {4, 4, Cells()}; }

    Vector Map(const Vector& point) const;
    Vector MapDirection(const Vector& direction) const;
    Matrix4 operator*(const Matrix4& later) const;
    /// The neutral matrix when there is no inverse (a scale of 0).
    Matrix4 Inverted() const;
    Vector GetTranslation() const { return {At(3, 0), At(3, 1), At(3, 2)}; }

private:
    std::array<double, 16> m_cells{};
};

/// What a matrix does, step by step: shear and scale, then rotate, then translate.
struct Decomposition
{
    Vector translation;
    Vector rotation; ///< degrees
    Vector scale{1, 1, 1};
    Vector shear;
};

Decomposition Decompose(const Matrix4& matrix, RotateOrder order);

Vector operator+(const Vector& a, const Vector& b);
Vector operator-(const Vector& a, const Vector& b);
Vector operator*(const Vector& vector, double factor);

} // namespace host::scene
