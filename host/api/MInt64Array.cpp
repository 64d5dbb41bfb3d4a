#include <maya/MInt64Array.h>

#include <algorithm>
#include <ostream>
#include <vector>

#define ARRAY MInt64Array
#define ELEMENT MInt64
#define ARGUMENT MInt64
#include "api/ArrayMembers.inc"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MStatus MInt64Array::copy(const MInt64Array& source)
{
    *this = source;
    return MS::kSuccess;
}

const char* MInt64Array::className()
{
    return "MInt64Array";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
