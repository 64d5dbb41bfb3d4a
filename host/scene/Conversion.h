#pragma once

#include "scene/Attribute.h"

namespace host::scene {

/// A value as an attribute of that storage keeps it; None where it cannot be.
Value Converted(const Value& value, Storage storage);

} // namespace host::scene
