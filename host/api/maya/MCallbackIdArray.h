#pragma once

#include <maya/MMessage.h>
#include <maya/MStatus.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A growing row of callback ids. A value: copies are independent. Indexing is not checked.
class OPENMAYA_EXPORT MCallbackIdArray
{
public:
    MCallbackIdArray();
    MCallbackIdArray(const MCallbackIdArray& other);
    MCallbackIdArray(const MCallbackId source[], unsigned int count);
    explicit MCallbackIdArray(unsigned int initialSize, MCallbackId initialValue = 0);
    ~MCallbackIdArray();
    MCallbackIdArray& operator=(const MCallbackIdArray& other);

    MCallbackId operator[](unsigned int index) const;
    MCallbackId& operator[](unsigned int index);

    MStatus copy(const MCallbackIdArray& source);
    MStatus set(MCallbackId element, unsigned int index);
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    MStatus remove(unsigned int index);
    MStatus insert(MCallbackId element, unsigned int index);
    MStatus append(MCallbackId element);
    MStatus clear();
    MStatus get(MCallbackId array[]) const;
    void setSizeIncrement(unsigned int newIncrement);
    unsigned int sizeIncrement() const;

    MCallbackId* begin();
    MCallbackId* end();
    const MCallbackId* begin() const;
    const MCallbackId* end() const;
    const MCallbackId* cbegin() const;
    const MCallbackId* cend() const;

    static const char* className();
    friend OPENMAYA_EXPORT std::ostream& operator<<(
        std::ostream& stream, const MCallbackIdArray& array);

private:
    struct Storage;
    Storage* m_storage;
};

OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& stream, const MCallbackIdArray& array);

OPENMAYA_MAJOR_NAMESPACE_CLOSE
