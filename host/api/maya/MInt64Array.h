#pragma once

#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A growing row of wide whole numbers. A value: copies are independent. Indexing is not checked.
class OPENMAYA_EXPORT MInt64Array
{
public:
    MInt64Array();
    MInt64Array(const MInt64Array& other);
    MInt64Array(const MInt64 source[], unsigned int count);
    explicit MInt64Array(unsigned int initialSize, MInt64 initialValue = 0);
    ~MInt64Array();
    MInt64Array& operator=(const MInt64Array& other);

    MInt64 operator[](unsigned int index) const;
    MInt64& operator[](unsigned int index);

    MStatus copy(const MInt64Array& source);
    MStatus set(MInt64 element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(MInt64 element, unsigned int index);
    MStatus append(MInt64 element);
    MStatus clear();
    MStatus get(MInt64 array[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

    MInt64* begin();
    MInt64* end();
    const MInt64* begin() const;
    const MInt64* end() const;
    const MInt64* cbegin() const;
    const MInt64* cend() const;

    static const char* className();
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MInt64Array& array);

private:
    struct Storage;
    Storage* m_storage;
};

OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MInt64Array& array);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
