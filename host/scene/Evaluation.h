#pragma once

#include "scene/Scene.h"

namespace host::scene {

/// The value that a node works out for one of its outputs; None for attributes that are just kept.
Value Computed(const Scene& scene, const Plug& plug);
/// The value of a curve of keys (time, value, time, value ...) by straight lines between them.
double CurveValue(const QVector<double>& keys, double time);

} // namespace host::scene
