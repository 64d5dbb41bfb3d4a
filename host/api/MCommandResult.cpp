#include "api/ApiAccess.h"
#include "api/StatusDetails.h"
#include "api/ValueReading.h"

#include <maya/MCommandResult.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::Value;
using host::api::Report;

namespace {

template <typename T>
MStatus Read(const Value& value, T& result)
{
    return host::api::ReadResult(value, result) ? MS::kSuccess : MS::kFailure;
}

} // namespace

struct MCommandResult::Result
{
    Value value;
};

MCommandResult::MCommandResult(MStatus* ReturnStatus)
    : m_result(new Result)
{
    Report(ReturnStatus, MS::kSuccess);
}

MCommandResult::~MCommandResult()
{
    delete m_result;
}

MCommandResult::Type MCommandResult::resultType(MStatus* ReturnStatus) const
{
    Report(ReturnStatus, MS::kSuccess);
    switch (m_result->value.GetKind()) {
    case Value::Kind::None: return kInvalid;
    case Value::Kind::Bool:
    case Value::Kind::Int: return kInt;
    case Value::Kind::Float: return kDouble;
    case Value::Kind::String: return kString;
    case Value::Kind::Vector: return kVector;
    case Value::Kind::Matrix: return kMatrix;
    case Value::Kind::IntArray: return kIntArray;
    case Value::Kind::FloatArray: return kDoubleArray;
    case Value::Kind::StringArray: return kStringArray;
    case Value::Kind::VectorArray: return kVectorArray;
    }
    return kInvalid;
}

MStatus MCommandResult::getResult(int& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MInt64& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MIntArray& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(double& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MDoubleArray& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MString& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MStringArray& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MInt64Array& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MVector& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MVectorArray& result) const
{
    return Read(m_result->value, result);
}

MStatus MCommandResult::getResult(MDoubleArray& result, int& numRows, int& numColumns) const
{
    if (m_result->value.GetKind() != Value::Kind::Matrix)
        return MS::kFailure;
    const auto& matrix = m_result->value.Get<host::Matrix>();
    result.clear();
    for (const double cell : matrix.cells)
        result.append(cell);
    numRows = matrix.rows;
    numColumns = matrix.columns;
    return MS::kSuccess;
}

MString MCommandResult::stringResult(MStatus* ReturnStatus) const
{
    MString result;
    Report(ReturnStatus, getResult(result));
    return result;
}

const char* MCommandResult::className()
{
    return "MCommandResult";
}

void ApiAccess::SetValue(MCommandResult& result, const Value& value)
{
    result.m_result->value = value;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
