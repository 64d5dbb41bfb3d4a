// Who stands below whom.

#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"
#include "scene/Shapes.h"
#include "scene/Transforms.h"

#include <algorithm>

namespace host::commands {

using namespace scene;

namespace {

std::optional<Error> PlaceError(const Node& node, const Node& parent)
{
    const Scene& scene = Scene::Current();
    if (!node.IsDag() || !parent.IsDag())
        return Error{QStringLiteral("'%1' has no place in the hierarchy.")
                         .arg(scene.DisplayName(node.IsDag() ? parent : node))};
    if (node.IsDefault())
        return Error{QStringLiteral("'%1' belongs to every scene and stays where it is.")
                         .arg(node.GetName())};
    if (parent.IsShape())
        return Error{QStringLiteral("'%1' is a shape and cannot have children.")
                         .arg(scene.DisplayName(parent))};
    if (&node == &parent)
        return Error{QStringLiteral("Cannot parent an object to itself.")};
    if (parent.IsBelow(node))
        return Error{QStringLiteral("Cannot parent an object to one of its children.")};
    return std::nullopt;
}

/// Moves a node below another one; without `relative` it stays where it is in the world.
void Place(Node& node, Node& parent, bool relative)
{
    Scene& scene = Scene::Current();
    const Matrix4 before = ParentMatrix(scene, node);
    scene.SetParent(node, parent);
    if (relative || !node.GetType().IsTransform()
        || ParentMatrix(scene, node).Cells() == before.Cells())
        return;
    SetWorldMatrix(scene, node, LocalMatrix(scene, node) * before);
}

std::optional<Error> ParentOne(const Call& call, Node& node, Node& parent, Item& placed)
{
    const Scene& scene = Scene::Current();
    if (const auto error = PlaceError(node, parent))
        return error;
    if (node.IsShape() && !call.Has("shape"))
        return Error{QStringLiteral("'%1' is a shape: use -shape to give it another parent.")
                         .arg(scene.DisplayName(node))};
    placed = {node.shared_from_this(), {}, false};
    if (node.GetParent() != &parent) {
        Place(node, parent, call.Has("relative"));
        return std::nullopt;
    }
    Engine::Current().output.Warning(&parent == &scene.Root()
            ? QStringLiteral("Object, '%1', skipped.  It is already a child of the world.")
                  .arg(scene.DisplayName(node))
            : QStringLiteral("Object, '%1', skipped.  It is already a child of the parent, '%2'.")
                  .arg(scene.DisplayName(node), scene.DisplayName(parent)));
    return std::nullopt;
}

Outcome Parent(Call& call)
{
    if (call.Has("addObject") || call.Has("removeObject"))
        return Error{QStringLiteral("Nodes of this host's scene have one parent each.")};
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    Scene& scene = Scene::Current();
    QVector<Node*> nodes = found.Nodes();
    Node* parent = &scene.Root();
    if (!call.Has("world")) {
        if (nodes.size() < 2)
            return Error{QStringLiteral("Select the objects to parent, and the parent last.")};
        parent = nodes.takeLast();
    }
    QVector<Node*> moved;
    for (Node* node : qAsConst(nodes)) {
        Item placed;
        if (const auto error = ParentOne(call, *node, *parent, placed))
            return *error;
        moved += placed.node.get();
    }
    SelectNodes(moved);
    return DisplayNames(moved);
}

Node* CommonParent(const QVector<Node*>& nodes)
{
    Node* parent = nodes.isEmpty() ? nullptr : nodes.first()->GetParent();
    for (const Node* node : nodes) {
        if (node->GetParent() != parent)
            return &Scene::Current().Root();
    }
    return parent ? parent : &Scene::Current().Root();
}

/// The pivots of a new group stand in the middle of what is in it.
void CenterPivots(Node& group)
{
    Scene& scene = Scene::Current();
    const Box box = WorldBox(scene, group);
    if (box.isEmpty)
        return;
    const Vector middle
        = WorldMatrix(scene, group).Inverted().Map((box.minimum + box.maximum) * 0.5);
    SetTriple(scene, group, "rotatePivot", middle);
    SetTriple(scene, group, "scalePivot", middle);
}

/// The new node, or one that the flag names.
std::optional<Error> FindGroup(const Call& call, const QVector<Node*>& members, Node*& group)
{
    Scene& scene = Scene::Current();
    if (call.Has("useAsGroup")) {
        const FoundItems found = FindAll({call.Text("useAsGroup")});
        if (found.error)
            return found.error;
        group = found.items.first().node.get();
        return std::nullopt;
    }
    Node* parent = call.Has("world") ? &scene.Root() : CommonParent(members);
    if (call.Has("parent")) {
        const FoundItems found = FindAll({call.Text("parent")});
        if (found.error)
            return found.error;
        parent = found.items.first().node.get();
    }
    const NewName name = NameFor(call, QStringLiteral("group1"));
    if (name.error)
        return name.error;
    group = &scene.Create(*NodeType::Find(QStringLiteral("transform")), name.name, parent);
    return std::nullopt;
}

Outcome Group(Call& call)
{
    QVector<Node*> members;
    if (!call.Has("empty")) {
        const FoundItems found = Targets(call);
        if (found.error)
            return *found.error;
        members = found.Nodes();
    }
    for (Node*& member : members) {
        if (member->IsShape())
            member = member->GetParent();
    }
    Node* group = nullptr;
    if (const auto error = FindGroup(call, members, group))
        return *error;
    for (Node* member : qAsConst(members)) {
        if (const auto error = PlaceError(*member, *group))
            return *error;
        Place(*member, *group, call.Has("relative"));
    }
    if (!members.isEmpty() && !call.Has("useAsGroup"))
        CenterPivots(*group);
    SelectNodes({group});
    return Scene::Current().DisplayName(*group);
}

Outcome Ungroup(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    QVector<Node*> freed;
    for (Node* group : found.Nodes()) {
        if (!group->GetType().IsTransform() || !group->Shapes().isEmpty() || group->IsDefault()) {
            return Error{
                QStringLiteral("'%1' is no group.").arg(Scene::Current().DisplayName(*group))};
        }
        Node* parent = call.Has("world") ? &Scene::Current().Root() : group->GetParent();
        for (Node* child : group->Children()) {
            Place(*child, *parent, call.Has("relative"));
            freed += child;
        }
        Scene::Current().Delete({group});
    }
    SelectNodes(freed);
    return {};
}

QVector<Node*> Ancestors(const Node& node)
{
    QVector<Node*> nodes;
    for (Node* parent = node.GetParent(); parent && parent->GetParent();
         parent = parent->GetParent())
        nodes += parent;
    return nodes;
}

/// Children after what is below them, the way it has always been listed.
void CollectDescendants(const Node& node, QVector<Node*>& nodes)
{
    QVector<Node*> tree;
    node.CollectTree(tree);
    std::reverse(tree.begin(), tree.end());
    tree.removeLast();
    nodes += tree;
}

QVector<Node*> RelativesOf(const Call& call, const Node& node)
{
    if (call.Has("allParents") || call.Has("parent")) {
        const QVector<Node*> parents = Ancestors(node);
        return parents.mid(0, 1);
    }
    QVector<Node*> nodes;
    if (call.Has("allDescendents"))
        CollectDescendants(node, nodes);
    else
        nodes = call.Has("shapes") ? node.Shapes() : node.Children();
    return nodes;
}

bool IsWanted(const Call& call, const Node& node)
{
    const Plug intermediate
        = Plug::Find(const_cast<Node&>(node), QStringLiteral("intermediateObject"));
    if (call.Has("noIntermediate") && Scene::Current().GetValue(intermediate).ToBool())
        return false;
    if (call.Has("shapes") && !node.IsShape())
        return false;
    const QStringList types = call.Texts("type");
    return types.isEmpty() || std::any_of(types.begin(), types.end(), [&](const QString& type) {
        return node.GetType().Is(type);
    });
}

Outcome ListRelatives(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return call.GetObjects().isEmpty() ? Outcome(StringList()) : Outcome(*found.error);
    QVector<Node*> relatives;
    QSet<const Node*> known;
    for (const Node* node : found.Nodes()) {
        if (!node->IsDag())
            continue;
        for (Node* relative : RelativesOf(call, *node)) {
            if (!known.contains(relative) && IsWanted(call, *relative))
                relatives += relative;
            known.insert(relative);
        }
    }
    if (call.Has("fullPath") || call.Has("path"))
        return DisplayNames(relatives, call.Has("fullPath"));
    StringList names;
    for (const Node* node : qAsConst(relatives))
        names += node->GetName();
    return names;
}

/// Where among its siblings a node goes; -1 when no flag says so.
int NewPlace(const Call& call, int now, int last)
{
    if (call.Has("front"))
        return 0;
    if (call.Has("back"))
        return last;
    const int step = qBound(-last, call.Int("relative"), last);
    return call.Has("relative") ? qBound(0, now + step, last) : now;
}

Outcome Reorder(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    for (Node* node : found.Nodes()) {
        if (!node->IsDag())
            return NoMatch(node->GetName());
        QVector<Node*> siblings = node->GetParent()->Children();
        const int now = siblings.indexOf(node);
        siblings.move(now, NewPlace(call, now, siblings.size() - 1));
        Scene::Current().Reorder(*node->GetParent(), siblings);
    }
    return DisplayNames(found.Nodes());
}

const CommandRow COMMANDS[] = {
    {"parent", "string[]", "", "[String...]",
        "absolute/a - c; addObject/add - c; noConnections/nc - c; noInvScale/nis - c; relative/r - "
        "c;"
        "removeObject/rm - c; shape/s - c; world/w - c",
        Parent},
    {"group", "string", "", "[String...]",
        "absolute/a - c; empty/em - c; name/n str c; parent/p str c; relative/r - c;"
        "useAsGroup/uag str c; world/w - c",
        Group},
    {"ungroup", "none", "", "[String...]", "absolute/a - c; relative/r - c; world/w - c", Ungroup},
    {"listRelatives", "string[]", "", "[String...]",
        "allDescendents/ad - c; allParents/ap - c; children/c - c; fullPath/f - c;"
        "noIntermediate/ni - c; parent/p - c; path/pa - c; shapes/s - c; type/typ str cm",
        ListRelatives},
    {"reorder", "string[]", "", "[String...]", "back/b - c; front/f - c; relative/r int c",
        Reorder},
};

} // namespace

void RegisterSceneHierarchy(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
