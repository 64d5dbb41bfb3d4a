#pragma once

#include "scene/Matrix4.h"
#include "scene/Scene.h"

namespace host::scene {

struct Box
{
    Vector minimum;
    Vector maximum;
    bool isEmpty = true;

    void Add(const Vector& point);
    void Add(const Box& other);
    /// The box around this one after it was moved.
    Box Mapped(const Matrix4& matrix) const;
    QVector<Vector> Corners() const;
};

/// How many parts a shape has. The toy knows them from what made the shape.
struct PartCounts
{
    int vertices = 0;
    int edges = 0;
    int faces = 0;
    int textureVertices = 0;
    int triangles = 0;
};

/// The node that makes a shape's form; null when the shape has none (any more).
Node* MakerOf(const Node& shape);
/// Of the shape alone, in its own space; empty for cameras, lights and the like.
Box ShapeBox(const Scene& scene, const Node& shape);
PartCounts CountParts(const Scene& scene, const Node& shape);
/// Of the node and everything below it, in the world.
Box WorldBox(const Scene& scene, const Node& node);
/// Moves the form of a shape within its transform.
void ReshapeBy(Scene& scene, Node& shape, const Matrix4& matrix);
/// Keeps the form of a shape whose maker goes away.
void KeepForm(Scene& scene, Node& shape);

} // namespace host::scene
