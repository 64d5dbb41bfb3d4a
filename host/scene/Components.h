#pragma once

#include "scene/Scene.h"

namespace host::scene {

/// A component as it is remembered, such as "vtx[0:7]" for "vtx[*]"; empty when the node has no
/// such part.
QString LegalComponent(const Scene& scene, const Node& node, const QString& text);
/// "vtx[0:2]" taken apart: "vtx[0]", "vtx[1]", "vtx[2]".
QStringList FlattenedComponent(const QString& component);
/// Number of single components in one text.
int CountComponents(const QString& component);

} // namespace host::scene
