#pragma once

#include <maya/MApiNamespace.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The kinds of things that an MObject can stand for. Only these exist here; numbers beyond the
/// first two differ between releases.
class OPENMAYA_EXPORT MFn
{
public:
    enum Type { kInvalid = 0, kBase = 1, kPlugin };
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
