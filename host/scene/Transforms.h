#pragma once

#include "scene/Matrix4.h"
#include "scene/Scene.h"

namespace host::scene {

/// The three numbers of an attribute such as "translate"; zeros where there is none.
Vector GetTriple(const Scene& scene, const Node& node, const char* name);
void SetTriple(Scene& scene, Node& node, const char* name, const Vector& value);

RotateOrder GetRotateOrder(const Scene& scene, const Node& node);
/// From the node's own space into that of its parent. A shape leaves everything where it is.
Matrix4 LocalMatrix(const Scene& scene, const Node& node);
/// From the node's own space into the world.
Matrix4 WorldMatrix(const Scene& scene, const Node& node);
/// From the space in which the node is placed into the world.
Matrix4 ParentMatrix(const Scene& scene, const Node& node);
/// Moves, turns and scales a transform so that its local matrix is as given.
void SetLocalMatrix(Scene& scene, Node& node, const Matrix4& matrix);
void SetWorldMatrix(Scene& scene, Node& node, const Matrix4& matrix);
/// Where the rotate pivot stands in the world.
Vector WorldPivot(const Scene& scene, const Node& node);

} // namespace host::scene
