#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A growing row of numbers. A value: copies are independent. Indexing is not checked.
class OPENMAYA_EXPORT MDoubleArray
{
public:
    MDoubleArray();
    MDoubleArray(const MDoubleArray& other);
    MDoubleArray(const double source[], unsigned int count);
    MDoubleArray(const float source[], unsigned int count);
    explicit MDoubleArray(unsigned int initialSize, double initialValue = 0);
    ~MDoubleArray();
    MDoubleArray& operator=(const MDoubleArray& other);

    double operator[](unsigned int index) const;
    double& operator[](unsigned int index);

    MStatus copy(const MDoubleArray& source);
    MStatus set(double element, unsigned int index);
    MStatus set(float element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(double element, unsigned int index);
    MStatus append(double element);
    MStatus clear();
    MStatus get(double array[]) const;
    MStatus get(float array[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

    double* begin();
    double* end();
    const double* begin() const;
    const double* end() const;
    const double* cbegin() const;
    const double* cend() const;

    static const char* className();
    friend OPENMAYA_EXPORT std::ostream& operator<<(
        std::ostream& stream, const MDoubleArray& array);

private:
    struct Storage;
    Storage* m_storage;
};

OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MDoubleArray& array);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
