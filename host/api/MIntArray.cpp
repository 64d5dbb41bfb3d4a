#include <maya/MIntArray.h>

#include <algorithm>
#include <ostream>
#include <vector>

#define ARRAY MIntArray
#define ELEMENT int
#define ARGUMENT int
#include "api/ArrayMembers.inc"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MStatus MIntArray::copy(const MIntArray& source)
{
    *this = source;
    return MS::kSuccess;
}

const char* MIntArray::className()
{
    return "MIntArray";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
