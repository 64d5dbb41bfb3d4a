#pragma once

#include "scene/Scene.h"

namespace host::scene {

// Deformers stand between what makes a form and the shape that shows it. They are kept, connected
// and asked about; the form stays as it was made.

bool IsDeformer(const Node& node);
/// The attribute through which the shape gets its form; invalid for shapes that are not made.
Plug FormInput(Node& shape);
/// Follows a connection back past all deformers; null when nothing stands before them.
ConnectionPointer BehindDeformers(ConnectionPointer connection);
/// The shape's deformers, the last one first.
QVector<Node*> DeformersOf(const Node& shape);
/// In the order in which they were added.
QVector<Node*> DeformedShapes(const Node& deformer);

/// Puts the deformer right before the shape.
void InsertDeformer(Scene& scene, Node& deformer, Node& shape);
/// Joins what stands before and behind it, so that it can go.
void BypassDeformer(Scene& scene, Node& deformer);
/// Notes that a transform (or its shape) steers the deformer and goes with it.
void AddHandle(Scene& scene, Node& handle, Node& deformer);
/// What steers a deformer, and the deformers that a node or what is below it steers.
QVector<Node*> PartnersOf(const Node& node);

} // namespace host::scene
