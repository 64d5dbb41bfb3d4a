// Nodes are made, named, copied and deleted.

#include "commands/scene/NodeCopies.h"
#include "commands/scene/SceneCommands.h"
#include "commands/scene/SetMembership.h"
#include "engine/Engine.h"
#include "scene/Deformers.h"
#include "scene/Shapes.h"

#include <algorithm>

namespace host::commands {

using namespace scene;

namespace {

/// How the transform above a new shape is called where it is not the shape's kind.
QString TransformName(const NodeType& type)
{
    static const QHash<QString, QString> names = {
        {QStringLiteral("mesh"), QStringLiteral("polySurface")},
        {QStringLiteral("nurbsCurve"), QStringLiteral("curve")},
    };
    return names.value(type.GetName(), type.GetName()) + QLatin1Char('1');
}

Node* ParentFor(const Call& call, std::optional<Error>& error)
{
    if (!call.Has("parent"))
        return nullptr;
    const FoundItems found = FindAll({call.Text("parent")});
    error = found.error;
    Node* parent = error ? nullptr : found.items.first().node.get();
    if (parent && !parent->IsDag())
        error = NoMatch(call.Text("parent"));
    return parent;
}

Outcome CreateNode(Call& call)
{
    Scene& scene = Scene::Current();
    const NodeType* type = NodeType::Find(call.ObjectText());
    if (!type || type->IsAbstract())
        return Error{QStringLiteral("Unknown object type: %1").arg(call.ObjectText())};
    std::optional<Error> error;
    Node* parent = ParentFor(call, error);
    if (error)
        return *error;
    if (call.Has("shared")) {
        const QVector<Node*> known = scene.Find(call.Text("name"));
        if (!known.isEmpty() && known.first()->GetType().GetName() == type->GetName())
            return Value();
    }
    QString usual = type->GetName() + QLatin1Char('1');
    if (type->IsShape() && !parent) {
        parent = &scene.Create(*NodeType::Find(QStringLiteral("transform")),
            scene.Names().UnusedName(TransformName(*type)));
        usual = ShapeName(parent->GetName());
    }
    const NewName name = NameFor(call, usual);
    if (name.error)
        return *name.error;
    Node& node = scene.Create(*type, name.name, parent);
    const QString above = call.Has("parent") ? call.Text("parent") : QString();
    scene.NoteImported(
        type->IsDag() ? above + QLatin1Char('|') + call.Text("name") : call.Text("name"), node);
    if (!call.Has("skipSelect"))
        SelectNodes({&node});
    return scene.DisplayName(node);
}

/// Curves and makers of forms that stand before a shape; the shape keeps its form.
QVector<Node*> HistoryOf(const QVector<Node*>& nodes)
{
    QVector<Node*> makers;
    for (Node* node : nodes) {
        QVector<Node*> tree;
        node->CollectTree(tree);
        for (Node* below : qAsConst(tree)) {
            if (Node* maker = MakerOf(*below)) {
                KeepForm(Scene::Current(), *below);
                makers += maker;
            }
            makers += DeformersOf(*below);
        }
    }
    return makers;
}

/// Curves of keys over time, and of those that follow other attributes where these are meant, too.
QVector<Node*> ChannelsOf(const Call& call, const QVector<Node*>& nodes)
{
    const bool overTime = !call.Has("timeAnimationCurves") || call.Bool("timeAnimationCurves");
    const bool driven
        = !call.Has("unitlessAnimationCurves") || call.Bool("unitlessAnimationCurves");
    const QStringList names = call.Texts("attribute");
    QVector<Node*> curves;
    for (const Node* node : nodes) {
        for (const ConnectionPointer& connection : node->GetIncoming()) {
            const Attribute* attribute = node->FindAttribute(connection->destinationKey);
            const bool named = names.isEmpty()
                || (attribute
                    && (names.contains(attribute->longName)
                        || names.contains(attribute->shortName)));
            const NodeType& type = connection->source->GetType();
            const bool follows = type.GetName().startsWith(QLatin1String("animCurveU"));
            if (named && type.Is("animCurve") && (follows ? driven : overTime))
                curves += connection->source;
        }
    }
    return curves;
}

QVector<Node*> ConstraintsBelow(const QVector<Node*>& nodes)
{
    QVector<Node*> constraints;
    for (const Node* node : nodes) {
        for (Node* child : node->Children()) {
            if (child->GetType().Is("constraint"))
                constraints += child;
        }
    }
    return constraints;
}

QVector<Node*> WithAncestors(const QVector<Node*>& nodes, bool keepNodes)
{
    QVector<Node*> all = keepNodes ? nodes : QVector<Node*>();
    for (Node* node : nodes) {
        while (node->GetParent() && !node->IsTopLevel())
            node = node->GetParent();
        all += node;
    }
    return all;
}

/// What the flag "hierarchy" adds to the nodes themselves.
QVector<Node*> InHierarchy(const QVector<Node*>& nodes, const QString& extent)
{
    if (extent == QLatin1String("above") || extent == QLatin1String("both"))
        return WithAncestors(nodes, true);
    return nodes;
}

std::optional<Error> LockedError(const QVector<Node*>& nodes)
{
    for (const Node* node : nodes) {
        if (node->IsLocked()) {
            return Error{QStringLiteral("Cannot delete locked node '%1'.")
                             .arg(Scene::Current().DisplayName(*node))};
        }
    }
    return std::nullopt;
}

/// What may go: the nodes that every scene has stay, with a warning.
QVector<Node*> Deletable(const QVector<Node*>& nodes)
{
    QVector<Node*> deletable;
    QStringList kept;
    for (Node* node : nodes) {
        if (node->IsDefault())
            kept += node->GetName();
        else
            deletable += node;
    }
    if (!kept.isEmpty()) {
        Engine::Current().output.Warning(
            QStringLiteral("Nodes that belong to every scene were not deleted: %1")
                .arg(kept.join(QLatin1Char(' '))));
    }
    return deletable;
}

/// Members of sets that are named as "box.f[0]" or as attributes are no nodes to delete.
std::optional<Error> PartError(const QVector<Item>& items)
{
    for (const Item& item : items) {
        if (!item.IsNode()) {
            return Error{QStringLiteral("Only whole nodes can be deleted: %1")
                             .arg(Scene::Current().DisplayName(item))};
        }
    }
    return std::nullopt;
}

/// Deformers and what steers them go together.
QVector<Node*> Partners(const QVector<Node*>& nodes)
{
    QVector<Node*> partners;
    for (const Node* node : nodes) {
        for (Node* partner : PartnersOf(*node)) {
            partners += partner;
            partners += PartnersOf(*partner);
        }
    }
    return partners;
}

Outcome Delete(Call& call)
{
    Scene& scene = Scene::Current();
    QVector<Node*> nodes;
    if (call.Has("all")) {
        for (Node* node : scene.Root().Children()) {
            if (!node->IsDefault())
                nodes += node;
        }
    } else {
        const FoundItems found = Targets(call);
        if (found.error)
            return *found.error;
        if (const auto error = PartError(found.items))
            return *error;
        nodes = found.Nodes();
    }
    const bool parts = call.Has("constructionHistory") || call.Has("constraints");
    if (call.Has("channels")) {
        nodes = ChannelsOf(call, nodes);
    } else if (parts) {
        const QVector<Node*> owners = std::exchange(nodes, {});
        if (call.Has("constructionHistory"))
            nodes += HistoryOf(owners);
        if (call.Has("constraints"))
            nodes += ConstraintsBelow(owners);
    } else if (call.Has("hierarchy")) {
        nodes = InHierarchy(nodes, call.Text("hierarchy"));
    }
    nodes += Partners(nodes);
    if (const auto error = LockedError(nodes))
        return *error;
    const QVector<Node*> deletable = Deletable(nodes);
    for (Node* node : deletable) {
        if (IsDeformer(*node))
            BypassDeformer(scene, *node);
    }
    scene.Delete(deletable);
    return {};
}

/// A shape that is called after its transform goes on being so.
void RenameShape(Node& transform, const QString& before)
{
    for (Node* shape : transform.Shapes()) {
        if (shape->GetName() == ShapeName(before)) {
            Scene::Current().Rename(*shape, ShapeName(transform.GetName()));
            return;
        }
    }
}

Outcome RenameOne(Call& call, Node& node, const QString& wanted)
{
    if (node.IsDefault() || node.IsLocked())
        return Error{QStringLiteral("Cannot rename a read only node.")};
    const NewName name = NameFor(wanted, node.GetName());
    if (name.error || wanted.isEmpty())
        return name.error.value_or(Error{QStringLiteral("New name has no legal characters.")});
    const QString before = node.GetName();
    Scene::Current().Rename(node, name.name);
    if (!call.Has("ignoreShape") && node.GetType().IsTransform())
        RenameShape(node, before);
    return Scene::Current().DisplayName(node);
}

Outcome Rename(Call& call)
{
    if (call.Has("uuid"))
        return Error{QStringLiteral("rename: The unique ids of nodes stay as they are here.")};
    const QStringList objects = call.ObjectTexts();
    const QStringList names = objects.size() > 1 ? objects.mid(0, 1) : QStringList();
    const FoundItems found = Targets(names);
    if (found.error)
        return *found.error;
    Outcome outcome;
    for (Node* node : found.Nodes()) {
        outcome = RenameOne(call, *node, objects.last());
        if (!outcome.Ok())
            break;
    }
    return outcome;
}

Outcome NodeTypeOf(Call& call)
{
    if (call.Has("isTypeName")) {
        const NodeType* type = NodeType::Find(call.ObjectText());
        if (call.Has("derived"))
            return type ? type->DerivedNames() : StringList();
        if (call.Has("inherited"))
            return type ? type->GetLineage() : StringList();
        return type ? type->GetName() : QString();
    }
    const FoundItems found = FindAll({call.ObjectText()});
    if (found.error)
        return *found.error;
    const NodeType& type = found.items.first().node->GetType();
    // The API calls a mesh "kMesh".
    if (call.Has("apiType"))
        return QLatin1Char('k') + type.GetName().left(1).toUpper() + type.GetName().mid(1);
    if (call.Has("inherited"))
        return type.GetLineage();
    if (call.Has("derived"))
        return type.DerivedNames();
    return type.GetName();
}

Outcome ObjectType(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    const NodeType& type = found.items.first().node->GetType();
    if (call.Has("isAType"))
        return type.Is(call.Text("isAType"));
    if (call.Has("isType"))
        return type.GetName() == call.Text("isType");
    return type.GetName();
}

Outcome Duplicate(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    CopyOptions options;
    options.parentOnly = call.Has("parentOnly");
    options.inputs = call.Has("inputConnections");
    options.upstream = call.Has("upstreamNodes");
    options.renameChildren = call.Has("renameChildren");
    QVector<Node*> roots;
    QVector<Node*> copies;
    const QStringList names = call.Texts("name");
    for (Node* node : found.Nodes()) {
        const NewName name = NameFor(names.value(roots.size()), node->GetName());
        if (name.error)
            return *name.error;
        QVector<Node*> tree;
        roots += &CopyTree(*node, name.name, options, tree);
        copies += tree;
    }
    SelectNodes(roots);
    return DisplayNames(
        call.Has("renameChildren") && !call.Has("returnRootsOnly") ? copies : roots);
}

Outcome LockNode(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    IntList states;
    for (Node* node : found.Nodes()) {
        states += node->IsLocked() ? 1 : 0;
        if (!call.IsQuery())
            Scene::Current().SetLocked(*node, !call.Has("lock") || call.Bool("lock"));
    }
    return call.IsQuery() ? Outcome(states) : Outcome();
}

Outcome AllNodeTypes(Call&)
{
    return NodeType::CreatableNames();
}

/// By the rooms of the shader editor.
Outcome ListNodeTypes(Call& call)
{
    static const QHash<QString, QString> rooms = {
        {QStringLiteral("shader"), QStringLiteral("lambert")},
        {QStringLiteral("texture"), QStringLiteral("texture2d")},
        {QStringLiteral("light"), QStringLiteral("light")},
        {QStringLiteral("utility"), QStringLiteral("shadingDependNode")},
        {QStringLiteral("geometry"), QStringLiteral("geometryShape")},
    };
    const QString base = rooms.value(call.ObjectText().section(QLatin1Char('/'), 0, 0));
    StringList names;
    for (const QString& name : NodeType::CreatableNames()) {
        const NodeType& type = *NodeType::Find(name);
        const bool utility = base != QLatin1String("shadingDependNode")
            || (!type.Is("lambert") && !type.Is("texture2d"));
        if (!base.isEmpty() && type.Is(base) && utility)
            names += name;
    }
    return names;
}

const CommandRow COMMANDS[] = {
    {"createNode", "string", "", "String",
        "name/n str c; parent/p str c; shared/s - c; skipSelect/ss - c", CreateNode},
    {"delete", "none", "", "[String...]",
        "all/all - c; attribute/at str cm; channels/c - c; constraints/cn - c;"
        "constructionHistory/ch - c; controlPoints/cp B c; hierarchy/hi str c; shape/s B c;"
        "timeAnimationCurves/tac B c; unitlessAnimationCurves/uac B c",
        Delete},
    {"rename", "string", "", "String [String]", "ignoreShape/ignoreShape - c; uuid/uid - c",
        Rename},
    {"nodeType", "any", "", "String",
        "apiType/api - c; derived/d - c; inherited/i - c; isTypeName/itn - c; ufeRuntimeName/urn - "
        "c",
        NodeTypeOf},
    {"objectType", "any", "", "[String]", "isAType/isa str c; isType/i str c", ObjectType},
    {"duplicate", "string[]", "", "[String...]",
        "inputConnections/ic - c; name/n str cm; parentOnly/po - c; renameChildren/rc - c;"
        "returnRootsOnly/rr - c; smartTransform/st - c; upstreamNodes/un - c",
        Duplicate},
    {"lockNode", "any", "Q", "[String...]", "ignoreComponents/ic B c; lock/l B cq", LockNode},
    {"allNodeTypes", "string[]", "", "", "includeAbstract/ia - c", AllNodeTypes},
    {"listNodeTypes", "string[]", "", "String", "exclude/ex str c", ListNodeTypes},
};

} // namespace

void RegisterSceneNodes(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
