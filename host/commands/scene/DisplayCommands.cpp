// What is shown, and what watches something else: visibility, views, tools, constraints.

#include "commands/scene/SceneCommands.h"
#include "scene/Transforms.h"

namespace host::commands {

using namespace scene;

namespace {

Plug Visibility(Node& node)
{
    return Plug::Find(node, QStringLiteral("visibility"));
}

Outcome Hide(Call& call)
{
    Scene& scene = Scene::Current();
    FoundItems found;
    if (call.Has("all")) {
        for (Node* node : scene.Root().Children())
            found.items += Item{node->shared_from_this(), {}, false};
    } else {
        found = Targets(call);
    }
    if (found.error)
        return *found.error;
    scene.lastHidden.clear();
    for (Node* node : found.Nodes()) {
        if (!node->IsDag() || !Visibility(*node).IsSettable())
            continue;
        scene.SetValue(Visibility(*node), false);
        scene.lastHidden += node->shared_from_this();
    }
    if (!call.Has("returnHidden"))
        scene.Select({});
    return {};
}

void Show(Node& node)
{
    Scene& scene = Scene::Current();
    if (Visibility(node).IsSettable() && !scene.GetValue(Visibility(node)).ToBool())
        scene.SetValue(Visibility(node), true);
}

Outcome ShowHidden(Call& call)
{
    Scene& scene = Scene::Current();
    if (call.Has("lastHidden")) {
        for (const NodePointer& node : qAsConst(scene.lastHidden)) {
            if (node->IsInScene())
                Show(*node);
        }
        return {};
    }
    QVector<Node*> nodes;
    if (call.Has("all")) {
        QVector<Node*> tree;
        scene.Root().CollectTree(tree);
        for (Node* node : tree.mid(1)) {
            if (!node->IsDefault())
                nodes += node;
        }
    } else {
        const FoundItems found = Targets(call);
        if (found.error)
            return *found.error;
        nodes = found.Nodes();
    }
    for (Node* node : qAsConst(nodes)) {
        if (!node->IsDag())
            continue;
        Show(*node);
        const bool above = call.Has("above");
        for (Node* parent = node->GetParent(); above && parent && parent->GetParent();
             parent = parent->GetParent())
            Show(*parent);
    }
    return {};
}

Outcome ViewFit(Call& call)
{
    const FoundItems found
        = call.GetObjects().isEmpty() ? FoundItems() : FindAll(call.ObjectTexts());
    return found.error ? Outcome(*found.error) : Outcome();
}

bool IsCamera(const Node& node)
{
    if (node.GetType().Is("camera"))
        return true;
    for (const Node* shape : node.Shapes()) {
        if (shape->GetType().Is("camera"))
            return true;
    }
    return false;
}

Outcome LookThrough(Call& call)
{
    Scene& scene = Scene::Current();
    if (call.IsQuery())
        return scene.viewCamera;
    const FoundItems found = FindAll({call.ObjectTexts().value(call.GetObjects().size() - 1)});
    if (found.error)
        return *found.error;
    if (!IsCamera(*found.items.first().node))
        return Error{QStringLiteral("'%1' is no camera.").arg(call.ObjectText())};
    scene.viewCamera = scene.DisplayName(*found.items.first().node);
    return {};
}

Outcome SetTool(Call& call)
{
    Scene::Current().tool = call.ObjectText();
    return {};
}

Outcome CurrentTool(Call&)
{
    return Scene::Current().tool;
}

Outcome ReferenceQuery(Call& call)
{
    const FoundItems found = FindAll({call.ObjectText()});
    if (found.error)
        return *found.error;
    if (call.Has("isNodeReferenced"))
        return false;
    return Error{QStringLiteral("'%1' is not from a reference.").arg(call.ObjectText())};
}

// Constraints: nodes that say who follows whom. Following itself is for real hosts.

/// What flags say about how to follow is kept under their names.
void KeepSettings(const Call& call, Node& constraint)
{
    Scene& scene = Scene::Current();
    for (const char* flag : {"offset", "aimVector", "upVector", "worldUpVector"}) {
        const bool known = call.GetCommand().FindFlag(QLatin1String(flag));
        if (known && call.Has(flag) && Plug::Find(constraint, QLatin1String(flag)).IsValid()) {
            SetTriple(scene, constraint, flag,
                {call.Float(flag, 0), call.Float(flag, 1), call.Float(flag, 2)});
        }
    }
    const Plug type = Plug::Find(constraint, QStringLiteral("worldUpType"));
    if (type.IsValid() && call.Has("worldUpType"))
        scene.SetValue(type, type.attribute->EnumNumber(call.Text("worldUpType")).value_or(0));
}

Outcome CreateConstraint(const Call& call, const QVector<Node*>& nodes)
{
    Scene& scene = Scene::Current();
    const QString type = call.GetCommand().GetName();
    Node* follower = nodes.last();
    const NewName name
        = NameFor(call, follower->GetName() + QLatin1Char('_') + type + QLatin1Char('1'));
    if (name.error)
        return *name.error;
    Node& constraint = scene.Create(*NodeType::Find(type), name.name, follower);
    KeepSettings(call, constraint);
    const Plug list = Plug::Find(constraint, QStringLiteral("target"));
    for (int i = 0; i + 1 < nodes.size(); ++i) {
        scene.Connect(Plug::Find(*nodes[i], QStringLiteral("message")), list.Element(i));
        auto weight = std::make_shared<Attribute>();
        weight->longName = QStringLiteral("%1W%2").arg(nodes[i]->GetName()).arg(i);
        weight->longName.replace(QLatin1Char(':'), QLatin1Char('_'));
        weight->shortName = QStringLiteral("w%1").arg(i);
        weight->type = AttributeType::Find(QStringLiteral("double"));
        weight->defaultValue = call.Has("weight") ? call.Float("weight") : 1.0;
        weight->minimum = 0;
        weight->isKeyable = true;
        weight->isDynamic = true;
        scene.AddAttribute(constraint, weight);
    }
    SelectNodes({&constraint});
    return StringList{scene.DisplayName(constraint)};
}

Node* ConstraintOf(const Node& node, const QString& type)
{
    if (node.GetType().GetName() == type)
        return const_cast<Node*>(&node);
    for (Node* child : node.Children()) {
        if (child->GetType().GetName() == type)
            return child;
    }
    return nullptr;
}

StringList TargetNames(const Node& constraint)
{
    StringList names;
    for (const ConnectionPointer& connection : constraint.GetIncoming()) {
        if (connection->destinationKey.startsWith(QLatin1String("target[")))
            names += Scene::Current().DisplayName(*connection->source);
    }
    return names;
}

StringList WeightNames(const Node& constraint)
{
    StringList names;
    for (const auto& attribute : constraint.GetDynamicAttributes().TopLevel())
        names += attribute->longName;
    return names;
}

Plug WeightPlug(Node& constraint, int index)
{
    return Plug::Find(constraint, QStringLiteral("w%1").arg(index));
}

/// Numbers of the targets among the nodes; of all targets when only the follower is named.
QVector<int> TargetNumbers(Node& constraint, const QVector<Node*>& nodes)
{
    QVector<int> numbers;
    for (const int index : constraint.Indices(QStringLiteral("target"))) {
        const ConnectionPointer target
            = constraint.IncomingTo(QStringLiteral("target[%1]").arg(index));
        const bool counts = target && WeightPlug(constraint, index).IsValid();
        if (counts && (nodes.size() < 2 || nodes.mid(0, nodes.size() - 1).contains(target->source)))
            numbers += index;
    }
    return numbers;
}

Outcome Weights(Node& constraint, const QVector<Node*>& nodes)
{
    FloatList weights;
    for (const int index : TargetNumbers(constraint, nodes))
        weights += Scene::Current().GetValue(WeightPlug(constraint, index)).ToFloat();
    return weights.size() == 1 ? Outcome(weights.first()) : Outcome(weights);
}

Outcome ChangeConstraint(const Call& call, Node& constraint, const QVector<Node*>& nodes)
{
    Scene& scene = Scene::Current();
    KeepSettings(call, constraint);
    for (const int index : TargetNumbers(constraint, nodes)) {
        if (call.Has("weight"))
            scene.SetValue(WeightPlug(constraint, index), call.Float("weight"));
        if (!call.Has("remove"))
            continue;
        scene.RemoveAttribute(constraint, *WeightPlug(constraint, index).attribute);
        scene.RemoveElement(Plug::Find(constraint, QStringLiteral("target")).Element(index));
    }
    if (TargetNumbers(constraint, {}).isEmpty())
        scene.Delete({&constraint});
    return {};
}

Outcome Constraint(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    const QVector<Node*> nodes = found.Nodes();
    const QString type = call.GetCommand().GetName();
    if (!call.IsCreate()) {
        const Node* constraint = ConstraintOf(*nodes.last(), type);
        if (!constraint)
            return call.IsQuery() ? Outcome() : Outcome(NoMatch(type));
        if (call.IsQuery() && call.Has("targetList"))
            return TargetNames(*constraint);
        if (call.IsQuery() && call.Has("weight"))
            return Weights(const_cast<Node&>(*constraint), nodes);
        if (call.IsQuery() && call.Has("weightAliasList"))
            return WeightNames(*constraint);
        if (call.IsQuery())
            return Scene::Current().DisplayName(*constraint);
        return ChangeConstraint(call, const_cast<Node&>(*constraint), nodes);
    }
    for (const Node* node : nodes) {
        if (!node->GetType().IsTransform())
            return Error{
                QStringLiteral("'%1' is no transform.").arg(Scene::Current().DisplayName(*node))};
    }
    if (nodes.size() < 2)
        return Error{QStringLiteral("Select what to follow, and what follows last.")};
    return CreateConstraint(call, nodes);
}

const CommandRow COMMANDS[] = {
    {"hide", "none", "", "[String...]",
        "all/all - c; clearLastHidden/clh - c; clearSelection/cs - c; returnHidden/rh - c", Hide},
    {"showHidden", "none", "", "[String...]",
        "above/a - c; all/all - c; below/b - c; lastHidden/lh - c", ShowHidden},
    {"viewFit", "none", "", "[String...]",
        "all/all - c; allObjects/alo - c; animate/an B c; fitFactor/f float c", ViewFit},
    {"lookThru", "any", "Q", "[String] [String]",
        "farClip/fc float c; nearClip/nc float c; shadingDisplay/sd B c", LookThrough},
    {"setToolTo", "none", "", "String", "", SetTool},
    {"currentCtx", "string", "", "", "", CurrentTool},
    {"referenceQuery", "any", "", "String",
        "filename/f - c; isNodeReferenced/inr - c; namespace/ns - c; referenceNode/rfn - c",
        ReferenceQuery},
};

const char* const CONSTRAINT_FLAGS
    = "maintainOffset/mo - c; name/n str c; remove/rm - e; targetList/tl - q; weight/w float cqe;"
      "weightAliasList/wal - q; offset/o float float float ce";

const CommandRow CONSTRAINTS[] = {
    {"parentConstraint", "string[]", "QE", "[String...]",
        "skipRotate/sr str cm; skipTranslate/st str cm", Constraint},
    {"pointConstraint", "string[]", "QE", "[String...]", "skip/sk str cm", Constraint},
    {"orientConstraint", "string[]", "QE", "[String...]", "skip/sk str cm", Constraint},
    {"scaleConstraint", "string[]", "QE", "[String...]", "skip/sk str cm", Constraint},
    {"aimConstraint", "string[]", "QE", "[String...]",
        "aimVector/aim float float float c; skip/sk str cm; upVector/u float float float c;"
        "worldUpObject/wuo str c; worldUpType/wut str c; worldUpVector/wu float float float c",
        Constraint},
    {"poleVectorConstraint", "string[]", "QE", "[String...]", "", Constraint},
};

} // namespace

void RegisterSceneDisplay(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
    for (const CommandRow& row : CONSTRAINTS)
        RegisterSceneCommand(registry, row, CONSTRAINT_FLAGS);
}

} // namespace host::commands
