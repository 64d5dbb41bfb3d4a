#include <maya/MVectorArray.h>

#include <algorithm>
#include <ostream>
#include <vector>

#define ARRAY MVectorArray
#define ELEMENT MVector
#define ARGUMENT const MVector&
#include "api/ArrayMembers.inc"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MStatus MVectorArray::copy(const MVectorArray& source)
{
    *this = source;
    return MS::kSuccess;
}

const char* MVectorArray::className()
{
    return "MVectorArray";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
