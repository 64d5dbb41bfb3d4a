#pragma once

#include "scene/Node.h"

namespace host::scene {

/// An attribute of a certain node, or one element of it. A plain value; the node must be alive.
struct Plug
{
    Node* node = nullptr;
    const Attribute* attribute = nullptr;
    /// Long name with the elements on the way: "translateX", "input[2]", "inputs[0].color".
    QString key;

    bool IsValid() const { return node && attribute; }
    /// The whole of a multi, not one of its elements.
    bool IsWholeMulti() const { return attribute->isMulti && !key.endsWith(QLatin1Char(']')); }
    bool HasChildren() const { return attribute->type->storage == Storage::Children; }
    /// Empty for anything but compounds, and for the whole of a multi.
    QVector<Plug> Children() const;
    /// Invalid for an attribute that is no child.
    Plug Parent() const;
    Plug Element(int index) const;
    Plug Sibling(const QString& longName) const;

    bool IsLocked() const;
    bool IsKeyable() const;
    bool IsInChannelBox() const;
    /// Nobody else decides about its value, other than keys.
    bool IsSettable() const;
    /// The connection into it or into a compound around it; null when there is none.
    ConnectionPointer Incoming() const;

    bool operator==(const Plug& other) const { return node == other.node && key == other.key; }

    /// Reads "tx", "translate.tx", "inputs[2].color"; an element that is not named is the first.
    static Plug Find(Node& node, const QString& path);
    /// One that is known to be there by its key.
    static Plug FromKey(Node& node, const QString& key) { return Find(node, key); }
};

} // namespace host::scene
