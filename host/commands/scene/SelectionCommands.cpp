// What is selected.

#include "commands/scene/SceneCommands.h"
#include "commands/scene/SetMembership.h"
#include "engine/Engine.h"

#include <algorithm>

namespace host::commands {

using namespace scene;

namespace {

/// What "-all" takes: everything that a person made and can see, not the cameras that are always
/// there.
QVector<Item> AllObjects()
{
    QVector<Item> items;
    for (Node* node : Scene::Current().Root().Children()) {
        if (!node->IsDefault())
            items += Item{node->shared_from_this(), {}, false};
    }
    return items;
}

QVector<Item> EveryNode()
{
    QVector<Item> items;
    for (Node* node : Scene::Current().Nodes())
        items += Item{node->shared_from_this(), {}, false};
    return items;
}

QVector<Item> WithHierarchy(const QVector<Item>& items)
{
    QVector<Item> all;
    QSet<const Node*> known;
    for (const Item& item : items) {
        QVector<Node*> tree;
        item.node->CollectTree(tree);
        for (Node* node : qAsConst(tree)) {
            if (!known.contains(node))
                all += Item{node->shared_from_this(), {}, false};
            known.insert(node);
        }
    }
    return all;
}

/// A set stands for its members unless it is meant itself.
QVector<Item> WithMembers(const QVector<Item>& items)
{
    QVector<Item> all;
    for (const Item& item : items) {
        if (item.IsNode() && item.node->GetType().Is("objectSet"))
            all += SetMembers(*item.node);
        else
            all += item;
    }
    return all;
}

QVector<Item> Without(const QVector<Item>& items, const QVector<Item>& gone)
{
    const QSet<Item> dropped(gone.begin(), gone.end());
    QVector<Item> left;
    std::copy_if(items.begin(), items.end(), std::back_inserter(left),
        [&](const Item& item) { return !dropped.contains(item); });
    return left;
}

QVector<Item> Once(const QVector<Item>& items)
{
    QVector<Item> once;
    QSet<Item> known;
    for (const Item& item : items) {
        if (!known.contains(item))
            once += item;
        known.insert(item);
    }
    return once;
}

QVector<Item> Combined(const Call& call, const QVector<Item>& before, const QVector<Item>& items)
{
    if (call.Has("addFirst"))
        return items + Without(before, items);
    if (call.Has("deselect"))
        return Without(before, items);
    if (call.Has("toggle"))
        return Without(before, items) + Without(items, before);
    return items;
}

Outcome Select(Call& call)
{
    Scene& scene = Scene::Current();
    if (call.Has("clear")) {
        scene.Select({});
        return {};
    }
    FoundItems found;
    if (call.Has("allDependencyNodes"))
        found.items = EveryNode();
    else if (call.Has("all") || call.Has("allDagObjects"))
        found.items = AllObjects();
    else if (call.GetObjects().isEmpty())
        found.items = scene.Selection();
    else
        found = FindAll(call.ObjectTexts());
    if (found.error)
        return *found.error;
    if (!call.Has("noExpand"))
        found.items = WithMembers(found.items);
    if (call.Has("hierarchy"))
        found.items = WithHierarchy(found.items);
    found.items = Once(found.items);
    // A list that is held here would have to be copied to be added to.
    if (call.Has("add"))
        scene.AddToSelection(found.items);
    else
        scene.Select(Combined(call, scene.Selection(), found.items));
    return {};
}

Node* Neighbour(const Node& node, int step)
{
    const QVector<Node*> siblings = node.GetParent()->Children();
    const int count = siblings.size();
    return siblings[(siblings.indexOf(const_cast<Node*>(&node)) + step + count) % count];
}

Node* Walked(Node* node, const QString& direction)
{
    if (direction == QLatin1String("up"))
        return node->IsTopLevel() ? node : node->GetParent();
    if (direction == QLatin1String("down")) {
        const QVector<Node*> children = node->Children();
        return children.isEmpty() ? node : children.first();
    }
    return Neighbour(*node, direction == QLatin1String("left") ? -1 : 1);
}

Outcome PickWalk(Call& call)
{
    const QString direction
        = call.Has("direction") ? call.Text("direction").toLower() : QStringLiteral("right");
    if (!QStringList{QStringLiteral("up"), QStringLiteral("down"), QStringLiteral("left"),
            QStringLiteral("right")}
             .contains(direction))
        return Error{QStringLiteral("Invalid direction: %1").arg(direction)};
    const FoundItems found = Targets(call);
    if (found.error)
        return call.GetObjects().isEmpty() ? Outcome(StringList()) : Outcome(*found.error);
    QVector<Node*> reached;
    for (Node* node : found.Nodes()) {
        Node* next = node->IsDag() ? Walked(node, direction) : node;
        if (!reached.contains(next))
            reached += next;
    }
    SelectNodes(reached);
    return DisplayNames(reached);
}

/// What a person may pick is no matter of scripts: they select what they name.
Outcome AcceptSelectMode(Call&)
{
    return {};
}

const CommandRow COMMANDS[] = {
    {"select", "none", "", "[String...]",
        "add/add - c; addFirst/af - c; all/all - c; allDagObjects/ado - c; allDependencyNodes/adn "
        "- c; clear/cl - c; deselect/d - c; hierarchy/hi - c;"
        "noExpand/ne - c; replace/r - c; toggle/tgl - c",
        Select},
    {"pickWalk", "string[]", "", "[String...]", "direction/d str c; type/typ str c", PickWalk},
    {"selectMode", "none", "", "",
        "component/co - c; hierarchical/h - c; leaf/l - c; object/o - c; preset/p - c; root/r - c;"
        "template/t - c",
        AcceptSelectMode},
    {"selectType", "none", "", "",
        "allComponents/alc B c; allObjects/alo B c; camera/ca B c; curve/c B c; edge/eg B c;"
        "facet/fc B c; handle/ha B c; joint/j B c; light/lt B c; locator/lo B c;"
        "nurbsCurve/nc B c; nurbsSurface/ns B c; objectComponent/ocm B c; polymesh/p B c;"
        "polymeshEdge/pe B c; polymeshFace/pf B c; polymeshVertex/pv B c; vertex/v B c",
        AcceptSelectMode},
};

} // namespace

void RegisterSceneSelection(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
