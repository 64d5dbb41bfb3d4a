#pragma once

#include "scene/Scene.h"

namespace host::commands {

/// What belongs to a set, in the order in which it was added.
QVector<scene::Item> SetMembers(const scene::Node& set);
void AddToSet(scene::Node& set, const scene::Item& item);
void RemoveFromSet(scene::Node& set, const scene::Item& item);
bool IsMember(const scene::Node& set, const scene::Item& item);
/// The sets that the node belongs to.
QVector<scene::Node*> SetsOf(const scene::Node& node);
/// Takes a shape (or the shapes of a transform) out of every other shading group. Each shape is in
/// one of them at most.
void AssignShading(scene::Node& group, const scene::Item& item);

} // namespace host::commands
