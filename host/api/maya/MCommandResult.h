#pragma once

#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Takes the result of a command whatever its type is. Made by the caller and filled by
/// MGlobal::executeCommand.
class OPENMAYA_EXPORT MCommandResult
{
public:
    enum Type {
        kInvalid = 0,
        kInt,
        kInt64,
        kIntArray,
        kInt64Array,
        kDouble,
        kDoubleArray,
        kString,
        kStringArray,
        kVector,
        kVectorArray,
        kMatrix,
        kMatrixArray
    };

    MCommandResult(MStatus* ReturnStatus = nullptr);
    virtual ~MCommandResult();
    MCommandResult(const MCommandResult&) = delete;
    MCommandResult& operator=(const MCommandResult&) = delete;

    /// kInvalid when the command gave nothing back.
    Type resultType(MStatus* ReturnStatus = nullptr) const;

    /// kFailure when the result is of another type and does not convert.
    MStatus getResult(int& result) const;
    MStatus getResult(MInt64& result) const;
    MStatus getResult(MIntArray& result) const;
    MStatus getResult(double& result) const;
    MStatus getResult(MDoubleArray& result) const;
    MStatus getResult(MString& result) const;
    MStatus getResult(MInt64Array& result) const;
    MStatus getResult(MStringArray& result) const;
    MStatus getResult(MVector& result) const;
    MStatus getResult(MVectorArray& result) const;
    /// The cells of a matrix, row by row.
    MStatus getResult(MDoubleArray& result, int& numRows, int& numColumns) const;
    MString stringResult(MStatus* ReturnStatus = nullptr) const;

    static const char* className();

private:
    friend class ApiAccess;

    struct Result;
    Result* m_result;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
