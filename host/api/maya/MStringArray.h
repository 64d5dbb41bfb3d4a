#pragma once

#include <maya/MStatus.h>
#include <maya/MString.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A growing row of texts. A value: copies are independent. Indexing is not checked.
class OPENMAYA_EXPORT MStringArray
{
public:
    MStringArray();
    MStringArray(const MStringArray& other);
    MStringArray(const MString source[], unsigned int count);
    MStringArray(const char* source[], unsigned int count);
    MStringArray(unsigned int initialSize, const MString& initialValue);
    ~MStringArray();
    MStringArray& operator=(const MStringArray& other);

    MString operator[](unsigned int index) const;
    MString& operator[](unsigned int index);

    MStatus set(const MString& element, unsigned int index);
    MStatus set(char* element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(const MString& element, unsigned int index);
    MStatus append(const MString& element);
    MStatus clear();
    MStatus get(MString array[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;
    /// -1 when absent.
    int indexOf(const MString& element) const;

    MString* begin();
    MString* end();
    const MString* begin() const;
    const MString* end() const;
    const MString* cbegin() const;
    const MString* cend() const;

    static const char* className();
    friend OPENMAYA_EXPORT std::ostream& operator<<(
        std::ostream& stream, const MStringArray& array);

private:
    struct Storage;
    Storage* m_storage;
};

OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MStringArray& array);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
