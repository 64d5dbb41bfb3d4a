#pragma once

#include <maya/MStatus.h>
#include <maya/MVector.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A growing row of vectors. A value: copies are independent. Indexing is not checked.
class OPENMAYA_EXPORT MVectorArray
{
public:
    MVectorArray();
    MVectorArray(const MVectorArray& other);
    MVectorArray(const MVector source[], unsigned int count);
    explicit MVectorArray(unsigned int initialSize, const MVector& initialValue = MVector::zero);
    ~MVectorArray();
    MVectorArray& operator=(const MVectorArray& other);

    MVector operator[](unsigned int index) const;
    MVector& operator[](unsigned int index);

    MStatus copy(const MVectorArray& source);
    MStatus set(const MVector& element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MVector& element, unsigned int index);
    MStatus append(const MVector& element);
    MStatus clear();
    MStatus get(MVector array[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

    MVector* begin();
    MVector* end();
    const MVector* begin() const;
    const MVector* end() const;
    const MVector* cbegin() const;
    const MVector* cend() const;

    static const char* className();
    friend OPENMAYA_EXPORT std::ostream& operator<<(
        std::ostream& stream, const MVectorArray& array);

private:
    struct Storage;
    Storage* m_storage;
};

OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MVectorArray& array);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
