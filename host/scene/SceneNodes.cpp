// Nodes come, go, and change their names and places.

#include "engine/Engine.h"
#include "scene/Scene.h"

#include <QUuid>

#include <algorithm>

namespace host::scene {

namespace {

/// What only exists to feed others, and goes with the last of them.
bool IsFeeder(const Node& node)
{
    const NodeType& type = node.GetType();
    return type.Is("abstractBaseCreate") || type.Is("animCurve") || type.Is("unitConversion")
        || type.Is("groupId") || type.Is("groupParts") || type.Is("geometryFilter")
        || type.Is("blendWeighted") || type.Is("expression");
}

QString NewUuid()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

} // namespace

void Scene::Attach(const NodePointer& node, Node* parent, qint64 order)
{
    if (node->m_isInScene)
        return;
    if (parent && !parent->m_isInScene)
        parent = m_root.get();
    node->m_name = m_names.UniqueName(node->m_name, parent);
    node->m_parent = parent;
    if (parent) {
        auto& siblings = parent->m_children;
        if (siblings.count(order))
            order = siblings.rbegin()->first + 1;
        node->m_order = order;
        siblings.emplace(order, node.get());
    }
    m_names.Add(*node);
    m_nodes.emplace(node->m_serial, node);
    m_byUuid.insert(node->m_uuid, node.get());
    node->m_isInScene = true;
    isModified = true;
    ++m_changes;
    ++m_counts[&node->GetType()];
    ++m_treeRevision;
    watches.NoteScene();
    if (node->IsDag())
        watches.NoteEvent(QStringLiteral("DagObjectCreated"));
}

void Scene::Detach(const NodePointer& node)
{
    if (!node->m_isInScene)
        return;
    m_names.Remove(*node);
    if (node->m_parent)
        node->m_parent->m_children.erase(node->m_order);
    m_nodes.erase(node->m_serial);
    m_byUuid.remove(node->m_uuid);
    node->m_isInScene = false;
    isModified = true;
    ++m_changes;
    --m_counts[&node->GetType()];
    ++m_treeRevision;
    watches.Note(NodeChange::Deleted, *node);
}

Node& Scene::Create(const NodeType& type, const QString& wanted, Node* parent)
{
    const bool inSpace = wanted.contains(QLatin1Char(':')) || currentNamespace.isEmpty();
    const QString name = inSpace ? wanted : currentNamespace + QLatin1Char(':') + wanted;
    RequireNamespace(name.section(QLatin1Char(':'), 0, -2));
    if (type.IsDag() && !parent)
        parent = m_root.get();
    if (!type.IsDag())
        parent = nullptr;
    auto node = std::make_shared<Node>(type, ++m_lastSerial, NewUuid());
    node->m_name = m_names.UniqueName(name, parent);
    const qint64 order
        = parent && !parent->m_children.empty() ? parent->m_children.rbegin()->first + 1 : 0;
    const NodePointer keptParent = parent ? parent->shared_from_this() : nullptr;
    Change([this, node, keptParent, order] { Attach(node, keptParent.get(), order); },
        [this, node] { Detach(node); });
    return *node;
}

/// The nodes, what is below them, and what feeds nobody else.
QVector<Node*> Scene::WithOrphans(const QVector<Node*>& nodes) const
{
    QVector<Node*> doomed;
    QSet<const Node*> known;
    for (const Node* node : nodes) {
        QVector<Node*> tree;
        node->CollectTree(tree);
        for (Node* below : qAsConst(tree)) {
            if (!known.contains(below))
                doomed += below;
            known.insert(below);
        }
    }
    for (int i = 0; i < doomed.size(); ++i) {
        for (const ConnectionPointer& connection : doomed[i]->m_incoming) {
            Node* source = connection->source;
            const bool feedsOthers
                = std::any_of(source->m_outgoing.begin(), source->m_outgoing.end(),
                    [&](const auto& entry) { return !known.contains(entry.second->destination); });
            if (known.contains(source) || feedsOthers || !IsFeeder(*source))
                continue;
            doomed += source;
            known.insert(source);
        }
    }
    return doomed;
}

void Scene::Delete(const QVector<Node*>& nodes)
{
    const QVector<Node*> doomed = WithOrphans(nodes);
    const bool anySelected = std::any_of(
        doomed.begin(), doomed.end(), [this](const Node* node) { return IsSelected(*node); });
    if (anySelected) {
        const QSet<const Node*> gone(doomed.begin(), doomed.end());
        QVector<Item> left;
        for (const Item& item : qAsConst(m_selection)) {
            if (!gone.contains(item.node.get()))
                left += item;
        }
        Select(left);
    }
    for (auto node = doomed.rbegin(); node != doomed.rend(); ++node)
        DeleteOne(**node);
}

void Scene::DeleteOne(Node& node)
{
    for (const ConnectionPointer& connection : node.m_incoming.values())
        Disconnect(connection);
    const auto outgoing = node.m_outgoing;
    for (const auto& [serial, connection] : outgoing)
        Disconnect(connection);
    const NodePointer kept = node.shared_from_this();
    const NodePointer parent = node.m_parent ? node.m_parent->shared_from_this() : nullptr;
    const qint64 order = node.m_order;
    Change([this, kept] { Detach(kept); },
        [this, kept, parent, order] { Attach(kept, parent.get(), order); });
}

void Scene::ApplyName(Node& node, const QString& name)
{
    if (!node.m_isInScene)
        return;
    m_names.Remove(node);
    node.m_name = m_names.UniqueName(name, node.m_parent, &node);
    m_names.Add(node);
    isModified = true;
    ++m_treeRevision;
    watches.Note(NodeChange::Renamed, node);
    watches.NoteEvent(QStringLiteral("NameChanged"));
}

void Scene::Rename(Node& node, const QString& wanted)
{
    const QString name = m_names.UniqueName(wanted, node.m_parent, &node);
    if (name == node.m_name)
        return;
    RequireNamespace(name.section(QLatin1Char(':'), 0, -2));
    const NodePointer kept = node.shared_from_this();
    Change([this, kept, name] { ApplyName(*kept, name); },
        [this, kept, before = node.m_name] { ApplyName(*kept, before); });
}

void Scene::MoveTo(Node& node, Node& parent, qint64 order, const QString& name)
{
    if (!node.m_isInScene || !parent.m_isInScene)
        return;
    m_names.Remove(node);
    node.m_parent->m_children.erase(node.m_order);
    auto& siblings = parent.m_children;
    if (siblings.count(order))
        order = siblings.rbegin()->first + 1;
    node.m_parent = &parent;
    node.m_order = order;
    siblings.emplace(order, &node);
    node.m_name = m_names.UniqueName(name, &parent);
    m_names.Add(node);
    isModified = true;
    ++m_changes;
    ++m_treeRevision;
    watches.Note(NodeChange::ConnectionChanged, node);
}

void Scene::SetParent(Node& node, Node& parent)
{
    const NodePointer kept = node.shared_from_this();
    const NodePointer from = node.m_parent->shared_from_this();
    const NodePointer to = parent.shared_from_this();
    const qint64 order = parent.m_children.empty() ? 0 : parent.m_children.rbegin()->first + 1;
    const QString name = m_names.UniqueName(node.m_name, &parent, &node);
    Change([this, kept, to, order, name] { MoveTo(*kept, *to, order, name); },
        [this, kept, from, before = node.m_order, oldName = node.m_name] {
            MoveTo(*kept, *from, before, oldName);
        });
}

void Scene::Reorder(Node& parent, const QVector<Node*>& first)
{
    QVector<Node*> order = first;
    const QSet<Node*> named(first.begin(), first.end());
    const QVector<Node*> before = parent.Children();
    for (Node* child : before) {
        if (!named.contains(child))
            order += child;
    }
    const auto apply = [this](const NodePointer& kept, const QVector<NodePointer>& children) {
        kept->m_children.clear();
        for (const NodePointer& child : children) {
            if (child->m_parent != kept.get() || !child->m_isInScene)
                continue;
            child->m_order = static_cast<qint64>(kept->m_children.size());
            kept->m_children.emplace(child->m_order, child.get());
        }
        isModified = true;
        ++m_treeRevision;
        watches.NoteScene();
    };
    const auto share = [](const QVector<Node*>& nodes) {
        QVector<NodePointer> pointers;
        for (Node* node : nodes)
            pointers += node->shared_from_this();
        return pointers;
    };
    const NodePointer kept = parent.shared_from_this();
    Change([apply, kept, order = share(order)] { apply(kept, order); },
        [apply, kept, before = share(before)] { apply(kept, before); });
}

void Scene::SetLocked(Node& node, bool locked)
{
    const NodePointer kept = node.shared_from_this();
    Change([kept, locked] { kept->m_isLocked = locked; },
        [kept, before = node.m_isLocked] { kept->m_isLocked = before; });
}

} // namespace host::scene
