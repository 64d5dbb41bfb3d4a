#include "api/Conversions.h"
#include "api/StatusDetails.h"

#include <maya/MCommonSystemUtils.h>
#include <maya/MStreamUtils.h>

#include <QDir>

#include <cstdlib>
#include <iostream>

// MCommonSystemUtils and MStreamUtils.

OPENMAYA_MAJOR_NAMESPACE_OPEN

MString MCommonSystemUtils::getEnv(const MString& variable, MStatus* ReturnStatus)
{
    MString value;
    host::api::Report(ReturnStatus, getEnv(variable, value));
    return value;
}

MStatus MCommonSystemUtils::getEnv(const MString& variable, MString& value)
{
    const char* found = std::getenv(variable.asChar());
    value = found;
    return found ? MS::kSuccess : MS::kFailure;
}

MStatus MCommonSystemUtils::makeDirectory(const MString& path)
{
    const QString directory = host::api::ToQString(path);
    if (directory.isEmpty())
        return MS::kInvalidParameter;
    return QDir().mkpath(directory) ? MS::kSuccess : MS::kFailure;
}

std::ostream& MStreamUtils::stdOutStream()
{
    return std::cout;
}

std::ostream& MStreamUtils::stdErrorStream()
{
    return std::cerr;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
