#pragma once

#include "scene/Scene.h"

namespace host::scene {

/// The value that a node works out for one of its outputs; None for attributes that are just kept.
Value Computed(const Scene& scene, const Plug& plug);

} // namespace host::scene
