#include <maya/MCallbackIdArray.h>

#include <algorithm>
#include <ostream>
#include <vector>

#define ARRAY MCallbackIdArray
#define ELEMENT MCallbackId
#define ARGUMENT MCallbackId
#include "api/ArrayMembers.inc"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MStatus MCallbackIdArray::copy(const MCallbackIdArray& source)
{
    *this = source;
    return MS::kSuccess;
}

const char* MCallbackIdArray::className()
{
    return "MCallbackIdArray";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
