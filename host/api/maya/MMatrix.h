#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>

#include <iosfwd>

#define MMatrix_kTol 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Four rows of four numbers, for vectors that are rows. Rows and columns run from 0 to 3 and are
/// not checked.
class OPENMAYA_EXPORT MMatrix
{
public:
    /// The identity.
    MMatrix();
    MMatrix(const MMatrix& other);
    MMatrix(const double rows[4][4]);
    MMatrix(const float rows[4][4]);
    ~MMatrix();
    MMatrix& operator=(const MMatrix& other);

    double operator()(unsigned int row, unsigned int column) const;
    double& operator()(unsigned int row, unsigned int column);
    const double* operator[](unsigned int row) const;

    MStatus get(double rows[4][4]) const;
    MMatrix transpose() const;
    MMatrix& setToIdentity();
    MMatrix& setToProduct(const MMatrix& left, const MMatrix& right);

    MMatrix& operator+=(const MMatrix& right);
    MMatrix operator+(const MMatrix& right) const;
    MMatrix& operator-=(const MMatrix& right);
    MMatrix operator-(const MMatrix& right) const;
    MMatrix& operator*=(const MMatrix& right);
    MMatrix operator*(const MMatrix& right) const;
    MMatrix& operator*=(double scalar);
    MMatrix operator*(double scalar) const;
    bool operator==(const MMatrix& other) const;
    bool operator!=(const MMatrix& other) const;

    /// The matrix itself when it has none.
    MMatrix inverse() const;
    MMatrix adjoint() const;
    double det4x4() const;
    double det3x3() const;
    bool isEquivalent(const MMatrix& other, double tolerance = MMatrix_kTol) const;
    bool isSingular() const;

    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MMatrix& matrix);

    static const MMatrix identity;

    double matrix[4][4];
};

OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MMatrix& matrix);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
