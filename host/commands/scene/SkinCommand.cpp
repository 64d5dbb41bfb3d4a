// Joints take hold of forms. Who holds what is kept; how much of it is not.

#include "commands/scene/DeformerTargets.h"
#include "scene/Deformers.h"
#include "scene/Transforms.h"

namespace host::commands {

using namespace scene;

namespace {

Plug List(Node& skin, const char* name)
{
    return Plug::Find(skin, QLatin1String(name));
}

QVector<Node*> Influences(const Node& skin)
{
    QMap<int, Node*> influences;
    const QVector<int> indices = skin.Indices(QStringLiteral("matrix"));
    for (const int index : indices) {
        const ConnectionPointer source = skin.IncomingTo(QStringLiteral("matrix[%1]").arg(index));
        if (source)
            influences.insert(index, source->source);
    }
    return influences.values().toVector();
}

void AddInfluence(Node& skin, Node& joint)
{
    Scene& scene = Scene::Current();
    if (Influences(skin).contains(&joint))
        return;
    const int index = skin.NextIndex(QStringLiteral("matrix"));
    scene.Connect(
        Plug::Find(joint, QStringLiteral("worldMatrix[0]")), List(skin, "matrix").Element(index));
    // Where it stood when it took hold.
    scene.SetValue(List(skin, "bindPreMatrix").Element(index),
        WorldMatrix(scene, joint).Inverted().ToMatrix());
}

std::optional<Error> RemoveInfluence(Node& skin, Node& joint)
{
    for (const ConnectionPointer& connection : skin.GetIncoming()) {
        if (connection->source != &joint
            || !connection->destinationKey.startsWith(QLatin1String("matrix[")))
            continue;
        const Plug matrix = Plug::FromKey(skin, connection->destinationKey);
        Scene::Current().RemoveElement(matrix);
        return std::nullopt;
    }
    return Error{QStringLiteral("'%1' is no influence of '%2'.")
                     .arg(Scene::Current().DisplayName(joint), skin.GetName())};
}

/// Flags that stand for attributes of the node.
constexpr struct
{
    const char* flag;
    const char* attribute;
} ATTRIBUTES[] = {
    {"dropoffRate", "dropoffRate"},
    {"maximumInfluences", "maxInfluences"},
    {"normalizeWeights", "normalizeWeights"},
    {"obeyMaxInfluences", "maintainMaxInfluences"},
    {"skinMethod", "skinningMethod"},
    {"weightDistribution", "weightDistribution"},
};

std::optional<Error> Change(const Call& call, Node& skin)
{
    Scene& scene = Scene::Current();
    for (const char* flag : {"addInfluence", "removeInfluence"}) {
        for (const QString& name : call.Texts(flag)) {
            const FoundItems found = FindAll({name});
            if (found.error)
                return found.error;
            Node& joint = *found.items.first().node;
            if (qstrcmp(flag, "removeInfluence") == 0) {
                if (const auto error = RemoveInfluence(skin, joint))
                    return error;
            } else if (joint.GetType().IsTransform()) {
                AddInfluence(skin, joint);
            } else {
                return Error{QStringLiteral("'%1' is no transform.").arg(name)};
            }
        }
    }
    for (const auto& row : ATTRIBUTES) {
        if (call.Has(row.flag))
            scene.SetValue(List(skin, row.attribute), call.Argument(row.flag));
    }
    EditDeformer(call, skin);
    if (call.Has("unbind")) {
        BypassDeformer(scene, skin);
        scene.Delete({&skin});
    }
    return std::nullopt;
}

Outcome Query(const Call& call, Node& skin)
{
    if (const auto answer = QueryDeformer(call, skin))
        return *answer;
    for (const auto& row : ATTRIBUTES) {
        if (call.Has(row.flag))
            return Scene::Current().GetValue(List(skin, row.attribute));
    }
    return DisplayNames(Influences(skin));
}

/// The joints among the nodes; with those below them unless just these are meant.
QVector<Node*> JointsOf(const Call& call, const QVector<Node*>& nodes)
{
    QVector<Node*> joints;
    for (Node* node : nodes) {
        if (!node->GetType().Is("joint"))
            continue;
        QVector<Node*> tree{node};
        if (!call.Has("toSelectedBones")) {
            tree.clear();
            node->CollectTree(tree);
        }
        for (Node* below : qAsConst(tree)) {
            if (below->GetType().Is("joint") && !joints.contains(below))
                joints += below;
        }
    }
    return joints;
}

Outcome Bind(const Call& call)
{
    Scene& scene = Scene::Current();
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    const QVector<Node*> joints = JointsOf(call, found.Nodes());
    QVector<Item> others;
    for (const Item& item : found.items) {
        if (!item.node->GetType().Is("joint"))
            others += item;
    }
    const FoundShapes shapes = ShapesToDeform(others);
    if (joints.isEmpty())
        return Error{QStringLiteral("skinCluster: No joint is named or selected.")};
    if (shapes.error)
        return *shapes.error;
    for (const Node* shape : shapes.shapes) {
        for (const Node* deformer : DeformersOf(*shape)) {
            if (deformer->GetType().Is("skinCluster"))
                return Error{QStringLiteral("The skin on %1 was already bound.")
                                 .arg(scene.DisplayName(*shape->GetParent()))};
        }
    }
    const NewName name = NameFor(call, QStringLiteral("skinCluster1"));
    if (name.error)
        return *name.error;
    Node& skin = CreateDeformer("skinCluster", name.name, shapes.shapes);
    for (Node* joint : joints)
        AddInfluence(skin, *joint);
    if (const auto error = Change(call, skin))
        return *error;
    return StringList{scene.DisplayName(skin)};
}

Outcome SkinCluster(Call& call)
{
    if (call.IsCreate())
        return Bind(call);
    Node* skin = nullptr;
    if (const auto error = FindDeformer(call, "skinCluster", skin))
        return *error;
    if (call.IsQuery())
        return Query(call, *skin);
    const auto error = Change(call, *skin);
    return error ? Outcome(*error) : Outcome();
}

const CommandRow COMMANDS[] = {
    {"skinCluster", "any", "QE", "[String...]",
        "addInfluence/ai str em; bindMethod/bm int c; dropoffRate/dr float ceq; envelope/en float "
        "cqe;"
        "geometry/g - q; ignoreHierarchy/ih - c; influence/inf - q; maximumInfluences/mi int cqe;"
        "name/n str c; normalizeWeights/nw int cqe; obeyMaxInfluences/omi B cqe;"
        "removeInfluence/ri str em; removeUnusedInfluence/rui B c; skinMethod/sm int cqe;"
        "toSelectedBones/tsb - c; unbind/ub - e; weightDistribution/wd int cqe",
        SkinCluster},
};

} // namespace

void RegisterSceneSkins(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
