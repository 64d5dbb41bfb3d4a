#pragma once

#include <maya/MStatus.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Environment and directories.
class OPENMAYA_EXPORT MCommonSystemUtils
{
public:
    /// "" and kFailure when the variable is not set.
    static MString getEnv(const MString& variable, MStatus* ReturnStatus = nullptr);
    static MStatus getEnv(const MString& variable, MString& value);
    /// Makes the directory and what is missing above it; success when it exists already.
    static MStatus makeDirectory(const MString& path);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
