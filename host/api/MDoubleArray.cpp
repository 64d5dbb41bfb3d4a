#include <maya/MDoubleArray.h>

#include <algorithm>
#include <ostream>
#include <vector>

#define ARRAY MDoubleArray
#define ELEMENT double
#define ARGUMENT double
#include "api/ArrayMembers.inc"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MStatus MDoubleArray::copy(const MDoubleArray& source)
{
    *this = source;
    return MS::kSuccess;
}

MDoubleArray::MDoubleArray(const float source[], unsigned int count)
    : MDoubleArray()
{
    m_storage->items.assign(source, source + count);
}

MStatus MDoubleArray::set(float element, unsigned int index)
{
    return set(static_cast<double>(element), index);
}

MStatus MDoubleArray::get(float array[]) const
{
    std::transform(
        begin(), end(), array, [](double element) { return static_cast<float>(element); });
    return MS::kSuccess;
}

const char* MDoubleArray::className()
{
    return "MDoubleArray";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
