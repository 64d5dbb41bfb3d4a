#include <maya/MMatrix.h>

#include <cmath>
#include <ostream>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

constexpr unsigned int SIZE = 4;

/// Of the square that is left without a row and a column.
double Minor(const MMatrix& matrix, unsigned int row, unsigned int column)
{
    double left[3][3];
    for (unsigned int i = 0; i < 3; ++i) {
        for (unsigned int j = 0; j < 3; ++j)
            left[i][j] = matrix(i < row ? i : i + 1, j < column ? j : j + 1);
    }
    return left[0][0] * (left[1][1] * left[2][2] - left[1][2] * left[2][1])
        - left[0][1] * (left[1][0] * left[2][2] - left[1][2] * left[2][0])
        + left[0][2] * (left[1][0] * left[2][1] - left[1][1] * left[2][0]);
}

double Cofactor(const MMatrix& matrix, unsigned int row, unsigned int column)
{
    const double minor = Minor(matrix, row, column);
    return (row + column) % 2 == 0 ? minor : -minor;
}

} // namespace

const MMatrix MMatrix::identity;

MMatrix::MMatrix()
{
    setToIdentity();
}

MMatrix::MMatrix(const MMatrix& other) = default;
MMatrix::~MMatrix() = default;
MMatrix& MMatrix::operator=(const MMatrix& other) = default;

MMatrix::MMatrix(const double rows[4][4])
{
    for (unsigned int i = 0; i < SIZE * SIZE; ++i)
        matrix[i / SIZE][i % SIZE] = rows[i / SIZE][i % SIZE];
}

MMatrix::MMatrix(const float rows[4][4])
{
    for (unsigned int i = 0; i < SIZE * SIZE; ++i)
        matrix[i / SIZE][i % SIZE] = rows[i / SIZE][i % SIZE];
}

double MMatrix::operator()(unsigned int row, unsigned int column) const
{
    return matrix[row][column];
}

double& MMatrix::operator()(unsigned int row, unsigned int column)
{
    return matrix[row][column];
}

const double* MMatrix::operator[](unsigned int row) const
{
    return matrix[row];
}

MStatus MMatrix::get(double rows[4][4]) const
{
    for (unsigned int i = 0; i < SIZE * SIZE; ++i)
        rows[i / SIZE][i % SIZE] = matrix[i / SIZE][i % SIZE];
    return MS::kSuccess;
}

MMatrix MMatrix::transpose() const
{
    MMatrix result;
    for (unsigned int i = 0; i < SIZE * SIZE; ++i)
        result(i / SIZE, i % SIZE) = matrix[i % SIZE][i / SIZE];
    return result;
}

MMatrix& MMatrix::setToIdentity()
{
    for (unsigned int i = 0; i < SIZE * SIZE; ++i)
        matrix[i / SIZE][i % SIZE] = i / SIZE == i % SIZE ? 1 : 0;
    return *this;
}

MMatrix& MMatrix::setToProduct(const MMatrix& left, const MMatrix& right)
{
    return *this = left * right;
}

MMatrix& MMatrix::operator+=(const MMatrix& right)
{
    for (unsigned int i = 0; i < SIZE * SIZE; ++i)
        matrix[i / SIZE][i % SIZE] += right.matrix[i / SIZE][i % SIZE];
    return *this;
}

MMatrix MMatrix::operator+(const MMatrix& right) const
{
    return MMatrix(*this) += right;
}

MMatrix& MMatrix::operator-=(const MMatrix& right)
{
    return *this += right * -1.0;
}

MMatrix MMatrix::operator-(const MMatrix& right) const
{
    return MMatrix(*this) -= right;
}

MMatrix& MMatrix::operator*=(const MMatrix& right)
{
    return *this = *this * right;
}

MMatrix MMatrix::operator*(const MMatrix& right) const
{
    MMatrix result;
    for (unsigned int row = 0; row < SIZE; ++row) {
        for (unsigned int column = 0; column < SIZE; ++column) {
            double sum = 0;
            for (unsigned int i = 0; i < SIZE; ++i)
                sum += matrix[row][i] * right.matrix[i][column];
            result(row, column) = sum;
        }
    }
    return result;
}

MMatrix& MMatrix::operator*=(double scalar)
{
    for (auto& row : matrix) {
        for (double& cell : row)
            cell *= scalar;
    }
    return *this;
}

MMatrix MMatrix::operator*(double scalar) const
{
    return MMatrix(*this) *= scalar;
}

bool MMatrix::operator==(const MMatrix& other) const
{
    return isEquivalent(other, 0);
}

bool MMatrix::operator!=(const MMatrix& other) const
{
    return !(*this == other);
}

MMatrix MMatrix::inverse() const
{
    const double determinant = det4x4();
    return determinant == 0 ? *this : adjoint() * (1 / determinant);
}

MMatrix MMatrix::adjoint() const
{
    MMatrix result;
    for (unsigned int i = 0; i < SIZE * SIZE; ++i)
        result(i / SIZE, i % SIZE) = Cofactor(*this, i % SIZE, i / SIZE);
    return result;
}

double MMatrix::det4x4() const
{
    double sum = 0;
    for (unsigned int column = 0; column < SIZE; ++column)
        sum += matrix[0][column] * Cofactor(*this, 0, column);
    return sum;
}

double MMatrix::det3x3() const
{
    return Minor(*this, 3, 3);
}

bool MMatrix::isEquivalent(const MMatrix& other, double tolerance) const
{
    for (unsigned int i = 0; i < SIZE * SIZE; ++i) {
        const double difference = matrix[i / SIZE][i % SIZE] - other.matrix[i / SIZE][i % SIZE];
        if (!(std::abs(difference) <= tolerance))
            return false;
    }
    return true;
}

bool MMatrix::isSingular() const
{
    return std::abs(det4x4()) <= MMatrix_kTol;
}

std::ostream& operator<<(std::ostream& stream, const MMatrix& matrix)
{
    stream << '[';
    for (unsigned int row = 0; row < SIZE; ++row) {
        stream << (row > 0 ? ", [" : "[");
        for (unsigned int column = 0; column < SIZE; ++column)
            stream << (column > 0 ? ", " : "") << matrix(row, column);
        stream << ']';
    }
    return stream << ']';
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
