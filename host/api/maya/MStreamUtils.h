#pragma once

#include <maya/MApiNamespace.h>

#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The process's output streams as the host sees them.
class OPENMAYA_EXPORT MStreamUtils
{
public:
    static std::ostream& stdOutStream();
    static std::ostream& stdErrorStream();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
