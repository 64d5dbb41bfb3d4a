#include "scene/Plug.h"

#include "scene/Scene.h"

namespace host::scene {

namespace {

/// The key of an attribute whose elements on the way are `indices`, by long name.
QString KeyOf(const Attribute& attribute, const QHash<QString, int>& indices, bool last)
{
    const Attribute* multi = attribute.MultiAncestor();
    QString key = attribute.longName;
    if (multi && multi != &attribute)
        key = KeyOf(*multi, indices, false) + QLatin1Char('.') + key;
    const bool isElement = attribute.isMulti && (!last || indices.contains(attribute.longName));
    if (isElement)
        key += QStringLiteral("[%1]").arg(indices.value(attribute.longName));
    return key;
}

Plug ChildOf(const Plug& plug, const Attribute& child)
{
    const bool named = plug.key.contains(QLatin1Char('['));
    return {
        plug.node, &child, named ? plug.key + QLatin1Char('.') + child.longName : child.longName};
}

} // namespace

Plug Plug::Find(Node& node, const QString& path)
{
    const QString first = path.section(QLatin1Char('.'), 0, 0);
    const QString aliased = node.GetAliases().value(first);
    if (!aliased.isEmpty() && aliased != first)
        return Find(node, aliased + path.mid(first.size()));
    QHash<QString, int> indices;
    const Attribute* attribute = nullptr;
    for (const QString& part : path.split(QLatin1Char('.'))) {
        const int open = part.indexOf(QLatin1Char('['));
        const Attribute* found = node.FindAttribute(part.left(open));
        // "t.tx" is fine, "t.rx" is not.
        if (!found || (attribute && found->parent != attribute))
            return {};
        attribute = found;
        if (open < 0)
            continue;
        bool isNumber = false;
        const int index = part.midRef(open + 1, part.size() - open - 2).toInt(&isNumber);
        if (!isNumber || index < 0 || !part.endsWith(QLatin1Char(']')) || !attribute->isMulti)
            return {};
        indices.insert(attribute->longName, index);
    }
    if (!attribute)
        return {};
    return {&node, attribute, KeyOf(*attribute, indices, true)};
}

QVector<Plug> Plug::Children() const
{
    QVector<Plug> plugs;
    if (IsWholeMulti())
        return plugs;
    for (const auto& child : attribute->children)
        plugs += ChildOf(*this, *child);
    return plugs;
}

Plug Plug::Parent() const
{
    if (!attribute || !attribute->parent)
        return {};
    const Attribute& parent = *attribute->parent;
    const int dot = key.lastIndexOf(QLatin1Char('.'));
    return {node, &parent, dot < 0 ? parent.longName : key.left(dot)};
}

Plug Plug::Element(int index) const
{
    return {node, attribute, key + QStringLiteral("[%1]").arg(index)};
}

Plug Plug::Sibling(const QString& longName) const
{
    return Find(*node, longName);
}

bool Plug::IsLocked() const
{
    return node->GetState(key).locked || (attribute->parent && Parent().IsLocked());
}

bool Plug::IsKeyable() const
{
    return node->GetState(key).keyable.value_or(attribute->isKeyable);
}

bool Plug::IsInChannelBox() const
{
    return node->GetState(key).inChannelBox.value_or(attribute->isInChannelBox);
}

bool Plug::IsSettable() const
{
    return attribute->isWritable && !IsLocked() && (!Incoming() || Scene::IsKeyedOnly(*this));
}

ConnectionPointer Plug::Incoming() const
{
    for (Plug plug = *this; plug.IsValid(); plug = plug.Parent()) {
        if (const ConnectionPointer connection = node->IncomingTo(plug.key))
            return connection;
    }
    return nullptr;
}

} // namespace host::scene
