#include <maya/MStringArray.h>

#include <algorithm>
#include <ostream>
#include <vector>

#define ARRAY MStringArray
#define ELEMENT MString
#define ARGUMENT const MString&
#include "api/ArrayMembers.inc"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MStringArray::MStringArray(const char* source[], unsigned int count)
    : MStringArray()
{
    m_storage->items.assign(source, source + count);
}

MStatus MStringArray::set(char* element, unsigned int index)
{
    return set(MString(element), index);
}

int MStringArray::indexOf(const MString& element) const
{
    const MString* found = std::find(begin(), end(), element);
    return found == end() ? -1 : static_cast<int>(found - begin());
}

const char* MStringArray::className()
{
    return "MStringArray";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
