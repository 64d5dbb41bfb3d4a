#pragma once

#include "scene/Matrix4.h"
#include "scene/Scene.h"

namespace host::scene {

/// Moves and turns a joint so that it stands in the world as given; the turn goes into its
/// orientation, its rotation stays.
void PlaceJoint(Scene& scene, Node& joint, const Matrix4& world);
/// "xyz": the first axis of the joint points at its first child, the second as much as it can where
/// `secondary` ("yup", "zdown" ...; "none" leaves it to the joint) says. "none" aligns it with its
/// parent. What is below stays where it is. False when the words mean nothing.
bool OrientJoint(Scene& scene, Node& joint, const QString& axes, const QString& secondary);
/// How a joint stands on the other side of a plane through the origin, across which the axis
/// (0 to 2) leads. With `behavior` equal rotations are mirrored, too.
Matrix4 Mirrored(const Matrix4& world, int axis, bool behavior);

} // namespace host::scene
