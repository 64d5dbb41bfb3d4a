#pragma once

#include <maya/MStatus.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A growing row of whole numbers. A value: copies are independent. Indexing is not checked.
class OPENMAYA_EXPORT MIntArray
{
public:
    MIntArray();
    MIntArray(const MIntArray& other);
    MIntArray(const int source[], unsigned int count);
    explicit MIntArray(unsigned int initialSize, int initialValue = 0);
    ~MIntArray();
    MIntArray& operator=(const MIntArray& other);

    int operator[](unsigned int index) const;
    int& operator[](unsigned int index);

    MStatus copy(const MIntArray& source);
    MStatus set(int element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(int element, unsigned int index);
    MStatus append(int element);
    MStatus clear();
    MStatus get(int array[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

    int* begin();
    int* end();
    const int* begin() const;
    const int* end() const;
    const int* cbegin() const;
    const int* cend() const;

    static const char* className();
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MIntArray& array);

private:
    struct Storage;
    Storage* m_storage;
};

OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MIntArray& array);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
