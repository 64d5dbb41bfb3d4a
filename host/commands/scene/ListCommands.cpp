// What is in the scene: ls and its relatives.

#include "commands/Patterns.h"
#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"
#include "scene/Components.h"

#include <QSet>

#include <algorithm>

namespace host::commands {

using namespace scene;

namespace {

bool NumberOf(const Node& node, const char* name)
{
    const Plug plug = Plug::Find(const_cast<Node&>(node), QLatin1String(name));
    return plug.IsValid() && Scene::Current().GetValue(plug).ToBool();
}

bool IsVisible(const Node& node)
{
    if (!node.IsDag())
        return false;
    for (const Node* part = &node; part && part->GetParent(); part = part->GetParent()) {
        if (!NumberOf(*part, "visibility"))
            return false;
    }
    return true;
}

bool IsAssembly(const Node& node)
{
    return node.IsTopLevel();
}

bool IsMaterial(const Node& node)
{
    const NodeType& type = node.GetType();
    return type.Is("lambert") || type.Is("surfaceShader") || type.Is("standardSurface")
        || type.Is("layeredShader") || type.Is("displacementShader");
}

bool IsLeaf(const Node& node)
{
    return node.IsDag() && node.Children().isEmpty();
}

struct Filter
{
    const char* flag;
    bool (*passes)(const Node&);
};

/// Nodes pass when they are of any of the kinds asked for ...
const Filter KINDS[] = {
    {"assemblies", IsAssembly},
    {"cameras", [](const Node& node) { return node.GetType().Is("camera"); }},
    {"containers",
        [](const Node& node) {
            return node.GetType().Is("container") || node.GetType().Is("dagContainer");
        }},
    {"geometry", [](const Node& node) { return node.GetType().Is("geometryShape"); }},
    {"lights", [](const Node& node) { return node.GetType().Is("light"); }},
    {"materials", IsMaterial},
    {"partitions", [](const Node& node) { return node.GetType().Is("partition"); }},
    {"planes", [](const Node& node) { return node.GetType().Is("imagePlane"); }},
    {"references", [](const Node&) { return false; }},
    {"renderGlobals", [](const Node& node) { return node.GetType().Is("renderGlobals"); }},
    {"renderQualities", [](const Node& node) { return node.GetType().Is("renderQuality"); }},
    {"renderResolutions", [](const Node& node) { return node.GetType().Is("resolution"); }},
    {"sets", [](const Node& node) { return node.GetType().Is("objectSet"); }},
    {"shapes", [](const Node& node) { return node.IsShape(); }},
    {"textures", [](const Node& node) { return node.GetType().Is("texture2d"); }},
    {"transforms", [](const Node& node) { return node.GetType().IsTransform(); }},
};

/// ... and of all the states.
const Filter STATES[] = {
    {"dependencyNodes", [](const Node&) { return true; }},
    {"defaultNodes", [](const Node& node) { return node.IsDefault(); }},
    {"dagObjects", [](const Node& node) { return node.IsDag(); }},
    {"ghost", [](const Node& node) { return NumberOf(node, "ghosting"); }},
    {"intermediateObjects", [](const Node& node) { return NumberOf(node, "intermediateObject"); }},
    {"invisible", [](const Node& node) { return node.IsDag() && !IsVisible(node); }},
    {"leaf", IsLeaf},
    {"lockedNodes", [](const Node& node) { return node.IsLocked(); }},
    {"noIntermediate",
        [](const Node& node) { return node.IsDag() && !NumberOf(node, "intermediateObject"); }},
    {"persistentNodes", [](const Node& node) { return !node.IsDefault(); }},
    {"readOnly", [](const Node& node) { return node.IsDefault() || node.IsLocked(); }},
    {"referencedNodes", [](const Node&) { return false; }},
    {"templated", [](const Node& node) { return NumberOf(node, "template"); }},
    {"undeletable", [](const Node& node) { return node.IsDefault() || node.IsLocked(); }},
    {"untemplated", [](const Node& node) { return node.IsDag() && !NumberOf(node, "template"); }},
    {"visible", IsVisible},
};

std::optional<Error> UnknownType(const Call& call)
{
    for (const char* flag : {"type", "exactType", "excludeType"}) {
        for (const QString& name : call.Texts(flag)) {
            if (!NodeType::Find(name))
                return Error{QStringLiteral("Unknown object type: %1").arg(name)};
        }
    }
    return std::nullopt;
}

bool IsOfKind(const Call& call, const Node& node)
{
    bool asked = false;
    for (const QString& name : call.Texts("type")) {
        asked = true;
        if (node.GetType().Is(name))
            return true;
    }
    for (const QString& name : call.Texts("exactType")) {
        asked = true;
        if (node.GetType().GetName() == name)
            return true;
    }
    for (const Filter& kind : KINDS) {
        if (!call.Has(kind.flag))
            continue;
        asked = true;
        if (kind.passes(node))
            return true;
    }
    return !asked;
}

bool Passes(const Call& call, const Node& node)
{
    for (const Filter& state : STATES) {
        if (call.Has(state.flag) && !state.passes(node))
            return false;
    }
    for (const QString& name : call.Texts("excludeType")) {
        if (node.GetType().Is(name))
            return false;
    }
    return IsOfKind(call, node);
}

void AppendNode(QVector<Item>& items, Node* node)
{
    items += Item{node->shared_from_this(), {}, false};
}

QVector<Item> AllItems(const Call& call)
{
    const Scene& scene = Scene::Current();
    QVector<Item> items;
    if (call.Has("dagObjects") || call.Has("assemblies")) {
        QVector<Node*> tree;
        scene.Root().CollectTree(tree);
        for (Node* node : tree.mid(1))
            AppendNode(items, node);
        return items;
    }
    QVector<Node*> nodes = scene.Nodes();
    std::stable_sort(nodes.begin(), nodes.end(),
        [](const Node* a, const Node* b) { return a->GetName() < b->GetName(); });
    for (Node* node : qAsConst(nodes))
        AppendNode(items, node);
    return items;
}

QVector<Item> NamedItems(const QStringList& names, bool everyNamespace)
{
    QVector<Item> items;
    QSet<Item> known;
    for (const QString& name : names) {
        for (const Item& item : FindItems(name, everyNamespace)) {
            if (!known.contains(item))
                items += item;
            known.insert(item);
        }
    }
    return items;
}

/// The items and everything below them.
QVector<Item> WithTrees(const QVector<Item>& items)
{
    QVector<Item> all;
    QSet<const Node*> known;
    for (const Item& item : items) {
        if (!item.node->IsDag())
            continue;
        QVector<Node*> tree;
        item.node->CollectTree(tree);
        for (Node* node : qAsConst(tree)) {
            if (!known.contains(node))
                AppendNode(all, node);
            known.insert(node);
        }
    }
    return all;
}

QVector<Item> Candidates(const Call& call)
{
    const QStringList names = call.ObjectTexts();
    const bool selected = call.Has("selection") || call.Has("orderedSelection");
    if (!selected && names.isEmpty())
        return AllItems(call);
    QVector<Item> items
        = names.isEmpty() ? Scene::Current().Selection() : NamedItems(names, call.Has("recursive"));
    if (selected && !names.isEmpty()) {
        const QVector<Item>& selection = Scene::Current().Selection();
        const QSet<Item> picked(selection.begin(), selection.end());
        items.erase(std::remove_if(items.begin(), items.end(),
                        [&](const Item& item) { return !picked.contains(item); }),
            items.end());
    }
    return call.Has("dagObjects") ? WithTrees(items) : items;
}

QStringList Texts(const Call& call, const Item& item)
{
    const Scene& scene = Scene::Current();
    if (call.Has("objectsOnly") || item.IsNode()) {
        const Item whole{item.node, {}, false};
        if (call.Has("uuid"))
            return {item.node->GetUuid()};
        if (call.Has("shortNames"))
            return {item.node->GetName()};
        return {scene.DisplayName(whole, call.Has("long"))};
    }
    const QString name = call.Has("long") ? item.node->Path() : scene.DisplayName(*item.node);
    QStringList texts;
    const bool flatten = call.Has("flatten") && item.isComponent;
    for (const QString& part : flatten ? FlattenedComponent(item.part) : QStringList{item.part})
        texts += name + QLatin1Char('.') + part;
    return texts;
}

QStringList Cut(const Call& call, const QStringList& names, int step)
{
    const auto count = [&](const char* flag) { return qBound(0, call.Int(flag), names.size()); };
    if (call.Has("head"))
        return names.mid(0, qMin(count("head"), names.size() / step) * step);
    if (call.Has("tail"))
        return names.mid(names.size() - qMin(count("tail"), names.size() / step) * step);
    return names;
}

Outcome List(Call& call)
{
    if (const auto error = UnknownType(call))
        return *error;
    if (call.Has("nodeTypes"))
        return NodeType::CreatableNames();
    QStringList names;
    QSet<const Node*> known;
    const bool showType = call.Has("showType");
    const bool showSpace = call.Has("showNamespace");
    for (const Item& item : Candidates(call)) {
        if (!Passes(call, *item.node))
            continue;
        if (call.Has("objectsOnly") && known.contains(item.node.get()))
            continue;
        known.insert(item.node.get());
        for (const QString& text : Texts(call, item)) {
            names += text;
            if (showType)
                names += item.node->GetType().GetName();
            if (showSpace) {
                const QString space = item.node->Namespace();
                names += space.isEmpty() ? QStringLiteral(":") : space;
            }
        }
    }
    return Cut(call, names, 1 + (showType ? 1 : 0) + (showSpace ? 1 : 0));
}

Outcome ObjectExists(Call& call)
{
    return !FindItems(call.ObjectText()).isEmpty();
}

/// What is left of the objects (or the selection) of certain numbered kinds.
Outcome FilterExpand(Call& call)
{
    static const QHash<int, QString> kinds = {
        {9, QStringLiteral("nurbsCurve")},
        {10, QStringLiteral("nurbsSurface")},
        {12, QStringLiteral("mesh")},
        {22, QStringLiteral("transform")},
    };
    static const QHash<int, QString> components = {
        {31, QStringLiteral("vtx")},
        {32, QStringLiteral("e")},
        {34, QStringLiteral("f")},
        {35, QStringLiteral("map")},
    };
    const FoundItems found = Targets(call);
    if (found.error && !call.GetObjects().isEmpty())
        return *found.error;
    QStringList names;
    const bool expand = !call.Has("expand") || call.Bool("expand");
    for (const Item& item : found.items) {
        for (int use = 0; use < call.UseCount("selectionMask"); ++use) {
            const int mask = call.Int("selectionMask", 0, use);
            const QString kind = components.value(mask);
            const QString prefix = Scene::Current().DisplayName(*item.node) + QLatin1Char('.');
            if (item.isComponent && !kind.isEmpty()
                && item.part.startsWith(kind + QLatin1Char('['))) {
                const QStringList parts
                    = expand ? FlattenedComponent(item.part) : QStringList{item.part};
                for (const QString& part : parts)
                    names += prefix + part;
                continue;
            }
            const QString type = kinds.value(mask);
            const auto isKind = [&](const Node* node) { return node->GetType().Is(type); };
            const QVector<Node*> shapes = item.node->Shapes();
            const bool fits = !type.isEmpty() && item.IsNode()
                && (isKind(item.node.get()) || std::any_of(shapes.begin(), shapes.end(), isKind));
            if (fits)
                names += Scene::Current().DisplayName(item, call.Has("fullPath"));
        }
    }
    return names;
}

const CommandRow COMMANDS[] = {
    {"ls", "string[]", "", "[String...]",
        "absoluteName/an - c; allPaths/ap - c; assemblies/as - c; cameras/ca - c;"
        "containers/con - c; dagObjects/dag - c; defaultNodes/dn - c; dependencyNodes/dep - c;"
        "exactType/et str cm; excludeType/ext str cm; flatten/fl - c; geometry/g - c; ghost/gh - c;"
        "head/hd int c; intermediateObjects/io - c; invisible/iv - c; leaf/lf - c; lights/lt - c;"
        "lockedNodes/ln - c; long/l - c; materials/mat - c; nodeTypes/nt - c; noIntermediate/ni - "
        "c;"
        "objectsOnly/o - c; orderedSelection/os - c; partitions/pr - c; persistentNodes/pn - c;"
        "planes/pl - c; readOnly/ro - c; recursive/r B c; referencedNodes/rn - c; references/rf - "
        "c;"
        "renderGlobals/rg - c; renderQualities/rq - c; renderResolutions/rr - c; selection/sl - c;"
        "sets/set - c; shapes/s - c; shortNames/sn - c; showNamespace/sns - c; showType/st - c;"
        "tail/tl int c; templated/tm - c; textures/tex - c; transforms/tr - c; type/typ str cm;"
        "undeletable/ud - c; untemplated/ut - c; uuid/uid - c; visible/v - c",
        List},
    {"objExists", "bool", "", "String", "", ObjectExists},
    {"filterExpand", "string[]", "", "[String...]",
        "expand/ex B c; fullPath/fp B c; selectionMask/sm int cm", FilterExpand},
};

} // namespace

void RegisterSceneLists(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
