#pragma once

#include "scene/Node.h"

namespace host::scene {

/// What a name in a command means: a node, or a part of one. A part is an attribute ("translateX")
/// or a component ("vtx[0:3]").
struct Item
{
    NodePointer node;
    QString part; ///< empty for the node itself
    bool isComponent = false;

    bool IsNode() const { return part.isEmpty(); }
    bool IsPlug() const { return !part.isEmpty() && !isComponent; }
    bool operator==(const Item& other) const { return node == other.node && part == other.part; }
};

inline uint qHash(const Item& item, uint seed = 0)
{
    return ::qHash(item.node.get(), seed) ^ ::qHash(item.part, seed);
}

} // namespace host::scene
