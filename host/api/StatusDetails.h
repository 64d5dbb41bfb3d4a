#pragma once

#include <maya/MStatus.h>

/// Says more than a status code: which phrase its error string carries.
namespace host::api {

enum class StatusDetail : unsigned char { None, AlreadyExists, DoesNotExist, WrongThread };

MStatus DetailedStatus(MStatus::MStatusCode code, StatusDetail detail);

/// Fills an out-parameter that may be null.
inline void Report(MStatus* target, const MStatus& status)
{
    if (target)
        *target = status;
}

} // namespace host::api
