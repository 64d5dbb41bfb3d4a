// Values of attributes, and what flows between them.

#include "scene/Conversion.h"
#include "scene/Evaluation.h"
#include "scene/Scene.h"

#include <algorithm>

namespace host::scene {

namespace {

/// Connections in a circle end here; each step back is one call.
constexpr int MAXIMUM_FLOW = 200;

Value Gathered(const Scene& scene, const QVector<Plug>& plugs)
{
    FloatList floats;
    IntList ints;
    bool isWhole = true;
    for (const Plug& plug : plugs) {
        const Value value = scene.GetValue(plug);
        if (value.IsArray() && value.GetKind() == Value::Kind::FloatArray) {
            floats += value.Get<FloatList>();
            isWhole = false;
            continue;
        }
        if (!value.IsNumber())
            continue;
        isWhole = isWhole && !value.IsFloat();
        floats += value.ToFloat();
        ints += value.ToInt();
    }
    if (floats.isEmpty())
        return {};
    return isWhole ? Value(ints) : Value(floats);
}

QVector<Plug> Elements(const Plug& plug)
{
    QVector<Plug> plugs;
    for (const int index : plug.node->Indices(plug.key))
        plugs += plug.Element(index);
    return plugs;
}

/// Position among its parent's children; -1 for an attribute that has no parent.
int ChildIndex(const Attribute& attribute)
{
    if (!attribute.parent)
        return -1;
    const auto& children = attribute.parent->children;
    for (int i = 0; i < children.size(); ++i) {
        if (children[i]->longName == attribute.longName)
            return i;
    }
    return -1;
}

/// What flows into an attribute, directly or through the compound around it; invalid for nothing.
Plug SourceOf(const Plug& plug)
{
    if (const ConnectionPointer connection = plug.node->IncomingTo(plug.key))
        return Plug::FromKey(*connection->source, connection->sourceKey);
    const Plug parent = plug.Parent();
    if (!parent.IsValid())
        return {};
    const ConnectionPointer connection = plug.node->IncomingTo(parent.key);
    if (!connection)
        return {};
    const Plug source = Plug::FromKey(*connection->source, connection->sourceKey);
    return source.IsValid() ? source.Children().value(ChildIndex(*plug.attribute)) : Plug();
}

} // namespace

Value Scene::GetValue(const Plug& plug) const
{
    static int depth = 0;
    struct Deeper
    {
        Deeper() { ++depth; }
        ~Deeper() { --depth; }
    } const deeper;
    const bool isHeld = !askedTime && !m_held.isEmpty()
        && m_held.contains(qMakePair(plug.node->m_serial, plug.key));
    if (depth > MAXIMUM_FLOW || isHeld)
        return GetStored(plug);
    const Plug source = SourceOf(plug);
    if (source.IsValid()) {
        const Value flowing = GetValue(source);
        if (!flowing.IsNone())
            return Converted(flowing, plug.attribute->type->storage);
    }
    const Value computed = Computed(*this, plug);
    if (!computed.IsNone())
        return computed;
    if (plug.IsWholeMulti())
        return Gathered(*this, Elements(plug));
    if (plug.HasChildren())
        return Gathered(*this, plug.Children());
    return GetStored(plug);
}

Value Scene::GetStored(const Plug& plug) const
{
    if (plug.HasChildren()) {
        FloatList numbers;
        for (const Plug& child : plug.Children())
            numbers += GetStored(child).ToFloat();
        return numbers;
    }
    const Value* value = plug.node->FindValue(plug.key);
    return value ? *value : plug.attribute->defaultValue;
}

void Scene::ApplyValue(Node& node, const QString& key, const std::optional<Value>& value)
{
    if (value) {
        node.m_values.insert(key, *value);
        node.NoteIndex(key);
    } else {
        node.m_values.remove(key);
    }
    isModified = true;
    ++m_changes;
    if (node.m_type->Is("animCurve"))
        ReleaseDrivenBy(node);
    NoteAttribute(node, key);
}

bool Scene::IsKeyedOnly(const Plug& plug)
{
    const ConnectionPointer connection = plug.node->IncomingTo(plug.key);
    return connection && connection->source->m_type->Is("animCurve");
}

void Scene::SetHeld(const Node& node, const QString& key, bool held)
{
    const auto entry = qMakePair(node.m_serial, key);
    if (held)
        m_held.insert(entry);
    else
        m_held.remove(entry);
}

void Scene::ReleaseDrivenBy(const Node& curve)
{
    for (const auto& [serial, connection] : curve.m_outgoing)
        SetHeld(*connection->destination, connection->destinationKey, false);
}

void Scene::NoteAttribute(Node& node, const QString& key)
{
    watches.Note(NodeChange::AttributeChanged, node, key);
    if (!watches.HasAny(node))
        return;
    for (Plug plug = Plug::FromKey(node, key).Parent(); plug.IsValid(); plug = plug.Parent())
        watches.Note(NodeChange::AttributeChanged, node, plug.key);
}

void Scene::SetValue(const Plug& plug, const Value& value)
{
    if (plug.HasChildren()) {
        const QVector<Plug> children = plug.Children();
        for (int i = 0; i < children.size() && i < value.Count(); ++i)
            SetValue(children[i], value.At(i));
        return;
    }
    ReplaceValue(plug, Converted(value, plug.attribute->type->storage));
}

void Scene::SetText(const Plug& plug, const QString& text)
{
    ReplaceValue(plug, text);
}

void Scene::ReplaceValue(const Plug& plug, const Value& after)
{
    const NodePointer node = plug.node->shared_from_this();
    const Value* found = node->FindValue(plug.key);
    const auto before = found ? std::make_optional(*found) : std::nullopt;
    const bool holds = IsKeyedOnly(plug);
    const bool held = m_held.contains(qMakePair(node->m_serial, plug.key));
    Change(
        [this, node, key = plug.key, after, holds] {
            ApplyValue(*node, key, after);
            SetHeld(*node, key, holds);
        },
        [this, node, key = plug.key, before, held] {
            ApplyValue(*node, key, before);
            SetHeld(*node, key, held);
        });
}

void Scene::ApplyState(Node& node, const QString& key, const PlugState& state)
{
    const bool isPlain = !state.keyable && !state.inChannelBox && !state.locked;
    if (isPlain)
        node.m_states.remove(key);
    else
        node.m_states.insert(key, state);
    isModified = true;
    watches.NoteScene();
}

void Scene::SetState(const Plug& plug, const PlugState& state)
{
    const NodePointer node = plug.node->shared_from_this();
    Change([this, node, key = plug.key, state] { ApplyState(*node, key, state); },
        [this, node, key = plug.key, before = node->GetState(plug.key)] {
            ApplyState(*node, key, before);
        });
}

void Scene::AddAttribute(Node& node, const std::shared_ptr<Attribute>& attribute)
{
    const NodePointer kept = node.shared_from_this();
    Change(
        [this, kept, attribute] {
            kept->m_dynamic.Add(attribute);
            isModified = true;
            watches.Note(NodeChange::AttributeAdded, *kept, attribute->longName);
        },
        [this, kept, attribute] {
            kept->m_dynamic.Remove(attribute->longName);
            isModified = true;
            watches.Note(NodeChange::AttributeDeleted, *kept, attribute->longName);
        });
}

void Scene::ReplaceAttribute(Node& node, const std::shared_ptr<Attribute>& attribute)
{
    const NodePointer kept = node.shared_from_this();
    std::shared_ptr<Attribute> before;
    for (const auto& own : node.m_dynamic.TopLevel()) {
        if (own->longName == attribute->longName)
            before = own;
    }
    const auto apply = [this, kept](const std::shared_ptr<Attribute>& now) {
        kept->m_dynamic.Replace(now);
        isModified = true;
    };
    if (before)
        Change([apply, attribute] { apply(attribute); }, [apply, before] { apply(before); });
}

void Scene::DropValues(Node& node, const QString& key)
{
    const NodePointer kept = node.shared_from_this();
    const auto belongs = [&](const QString& other) {
        return other == key || other.startsWith(key + QLatin1Char('['))
            || other.startsWith(key + QLatin1Char('.'));
    };
    for (const QString& other : node.m_values.keys()) {
        if (!belongs(other))
            continue;
        const Value before = node.m_values.value(other);
        Change([this, kept, other] { ApplyValue(*kept, other, std::nullopt); },
            [this, kept, other, before] { ApplyValue(*kept, other, before); });
    }
}

void Scene::DropConnections(Node& node, const QString& key)
{
    const auto belongs = [&](const QString& other) {
        return other == key || other.startsWith(key + QLatin1Char('['))
            || other.startsWith(key + QLatin1Char('.'));
    };
    for (const ConnectionPointer& connection : node.m_incoming.values()) {
        if (belongs(connection->destinationKey))
            Disconnect(connection);
    }
    const auto outgoing = node.m_outgoing;
    for (const auto& [serial, connection] : outgoing) {
        if (belongs(connection->sourceKey))
            Disconnect(connection);
    }
}

void Scene::RemoveAttribute(Node& node, const Attribute& attribute)
{
    std::shared_ptr<Attribute> kept;
    for (const auto& own : node.m_dynamic.TopLevel()) {
        if (own->longName == attribute.longName)
            kept = own;
    }
    if (!kept)
        return;
    QStringList keys{kept->longName};
    for (const auto& child : qAsConst(kept->children))
        keys += child->longName;
    for (const QString& key : qAsConst(keys)) {
        DropConnections(node, key);
        DropValues(node, key);
        SetState(Plug::FromKey(node, key), {});
    }
    const NodePointer owner = node.shared_from_this();
    Change(
        [this, owner, kept] {
            owner->m_dynamic.Remove(kept->longName);
            isModified = true;
            watches.Note(NodeChange::AttributeDeleted, *owner, kept->longName);
        },
        [this, owner, kept] {
            owner->m_dynamic.Add(kept);
            isModified = true;
            watches.Note(NodeChange::AttributeAdded, *owner, kept->longName);
        });
}

void Scene::RemoveElement(const Plug& element)
{
    DropConnections(*element.node, element.key);
    DropValues(*element.node, element.key);
}

void Scene::SetAlias(const Plug& plug, const QString& alias)
{
    const NodePointer node = plug.node->shared_from_this();
    QMap<QString, QString> aliases = node->m_aliases;
    aliases.remove(aliases.key(plug.key));
    if (!alias.isEmpty())
        aliases.insert(alias, plug.key);
    const auto apply = [this, node](const QMap<QString, QString>& value) {
        node->m_aliases = value;
        isModified = true;
    };
    Change(
        [apply, aliases] { apply(aliases); }, [apply, before = node->m_aliases] { apply(before); });
}

// Connections

void Scene::ApplyConnect(const ConnectionPointer& connection)
{
    Node& source = *connection->source;
    Node& destination = *connection->destination;
    if (destination.m_incoming.contains(connection->destinationKey))
        return;
    source.m_outgoing.emplace(connection->serial, connection);
    source.NoteIndex(connection->sourceKey);
    destination.m_incoming.insert(connection->destinationKey, connection);
    destination.NoteIndex(connection->destinationKey);
    isModified = true;
    ++m_changes;
    watches.Note(NodeChange::ConnectionChanged, source, connection->sourceKey);
    watches.Note(NodeChange::ConnectionChanged, destination, connection->destinationKey);
}

void Scene::ApplyDisconnect(const ConnectionPointer& connection)
{
    Node& source = *connection->source;
    Node& destination = *connection->destination;
    source.m_outgoing.erase(connection->serial);
    if (destination.m_incoming.value(connection->destinationKey) == connection)
        destination.m_incoming.remove(connection->destinationKey);
    isModified = true;
    ++m_changes;
    watches.Note(NodeChange::ConnectionChanged, source, connection->sourceKey);
    watches.Note(NodeChange::ConnectionChanged, destination, connection->destinationKey);
}

void Scene::Connect(const Plug& source, const Plug& destination)
{
    if (const ConnectionPointer before = destination.Incoming())
        Disconnect(before);
    for (const Plug& child : destination.Children()) {
        if (const ConnectionPointer before = child.node->IncomingTo(child.key))
            Disconnect(before);
    }
    const auto connection = std::make_shared<const Connection>(
        Connection{++m_lastConnection, source.node, source.key, destination.node, destination.key});
    // The nodes have to outlive whatever is remembered about them.
    const NodePointer from = source.node->shared_from_this();
    const NodePointer to = destination.node->shared_from_this();
    Change([this, connection, from, to] { ApplyConnect(connection); },
        [this, connection, from, to] { ApplyDisconnect(connection); });
}

void Scene::Disconnect(const ConnectionPointer& connection)
{
    const NodePointer from = connection->source->shared_from_this();
    const NodePointer to = connection->destination->shared_from_this();
    // What flowed last stays as the value.
    const Plug plug = Plug::FromKey(*connection->destination, connection->destinationKey);
    const bool keepsValue = plug.IsValid() && plug.attribute->type->storage != Storage::None
        && plug.attribute->isWritable;
    const Value last = keepsValue ? GetValue(plug) : Value();
    Change([this, connection, from, to] { ApplyDisconnect(connection); },
        [this, connection, from, to] { ApplyConnect(connection); });
    if (!last.IsNone())
        SetValue(plug, last);
}

} // namespace host::scene
