#include "commands/scene/SetMembership.h"

namespace host::commands {

using namespace scene;

namespace {

/// A member is a connection into one of the set's lists; a part of a node is the value beside it.
QString ListFor(const Node& node)
{
    return node.IsDag() ? QStringLiteral("dagSetMembers") : QStringLiteral("dnSetMembers");
}

QString OutputFor(const Node& node)
{
    return node.IsDag() ? QStringLiteral("instObjGroups[0]") : QStringLiteral("message");
}

Item MemberAt(const Connection& connection)
{
    const Value* part = connection.destination->FindValue(connection.destinationKey);
    const QString text = part ? part->ToText() : QString();
    return {connection.source->shared_from_this(), text, text.contains(QLatin1Char('['))};
}

/// The connection that makes the item a member; null when it is none.
ConnectionPointer Membership(const Node& set, const Item& item)
{
    for (const auto& [serial, connection] : item.node->GetOutgoing()) {
        const bool lists = connection->destination == &set
            && connection->destinationKey.contains(QLatin1String("SetMembers["));
        if (lists && MemberAt(*connection) == item)
            return connection;
    }
    return nullptr;
}

QVector<Item> ShadedParts(const Item& item)
{
    if (!item.node->GetType().IsTransform() || item.isComponent)
        return {item};
    QVector<Item> parts;
    QVector<Node*> tree;
    item.node->CollectTree(tree);
    for (Node* node : qAsConst(tree)) {
        if (node->GetType().Is("surfaceShape"))
            parts += Item{node->shared_from_this(), {}, false};
    }
    return parts;
}

} // namespace

QVector<Item> SetMembers(const Node& set)
{
    QMap<quint64, Item> members;
    for (const ConnectionPointer& connection : set.GetIncoming()) {
        if (connection->destinationKey.contains(QLatin1String("SetMembers[")))
            members.insert(connection->serial, MemberAt(*connection));
    }
    QVector<Item> ordered;
    for (const Item& item : qAsConst(members))
        ordered += item;
    return ordered;
}

bool IsMember(const Node& set, const Item& item)
{
    return Membership(set, item) != nullptr;
}

void AddToSet(Node& set, const Item& item)
{
    if (IsMember(set, item))
        return;
    Scene& scene = Scene::Current();
    const QString list = ListFor(*item.node);
    const Plug place = Plug::Find(set, list).Element(set.NextIndex(list));
    scene.Connect(Plug::Find(*item.node, OutputFor(*item.node)), place);
    if (!item.part.isEmpty())
        scene.SetText(place, item.part);
}

void RemoveFromSet(Node& set, const Item& item)
{
    const ConnectionPointer connection = Membership(set, item);
    if (!connection)
        return;
    Scene& scene = Scene::Current();
    if (item.part.isEmpty())
        scene.Disconnect(connection);
    else
        scene.RemoveElement(Plug::FromKey(set, connection->destinationKey));
}

QVector<Node*> SetsOf(const Node& node)
{
    QVector<Node*> sets;
    for (const auto& [serial, connection] : node.GetOutgoing()) {
        if (connection->destinationKey.contains(QLatin1String("SetMembers["))
            && !sets.contains(connection->destination))
            sets += connection->destination;
    }
    return sets;
}

void AssignShading(Node& group, const Item& item)
{
    for (const Item& part : ShadedParts(item)) {
        for (Node* set : SetsOf(*part.node)) {
            if (set != &group && set->GetType().Is("shadingEngine") && part.IsNode())
                RemoveFromSet(*set, part);
        }
        AddToSet(group, part);
    }
}

} // namespace host::commands
