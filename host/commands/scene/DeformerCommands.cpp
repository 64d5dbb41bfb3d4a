// Clusters, lattices, shapes to blend and the like: kept and connected, not worked out.

#include "commands/scene/DeformerTargets.h"
#include "commands/scene/SetMembership.h"
#include "scene/Deformers.h"
#include "scene/Shapes.h"
#include "scene/Transforms.h"

namespace host::commands {

using namespace scene;

namespace {

struct Begun
{
    FoundItems items;
    QVector<Node*> shapes;
    QString name;
    std::optional<Error> error;
};

/// What every deformer begins with: shapes and a name of its own.
Begun Begin(const Call& call, const QString& usual)
{
    Begun begun{Targets(call), {}, {}, std::nullopt};
    begun.error = begun.items.error;
    const FoundShapes found = ShapesToDeform(begun.items.items);
    if (!begun.error)
        begun.error = found.error;
    begun.shapes = found.shapes;
    const NewName name = NameFor(call, usual);
    if (!begun.error)
        begun.error = name.error;
    begun.name = name.name;
    return begun;
}

Box BoxOf(const QVector<Node*>& shapes)
{
    Box box;
    for (const Node* shape : shapes)
        box.Add(WorldBox(Scene::Current(), *shape));
    return box;
}

Vector Middle(const Box& box)
{
    return (box.minimum + box.maximum) * 0.5;
}

/// Existing deformers are asked about and changed the same way, whatever they are.
Outcome Existing(const Call& call, const char* type)
{
    Node* deformer = nullptr;
    if (const auto error = FindDeformer(call, type, deformer))
        return *error;
    if (call.IsQuery()) {
        if (const auto answer = QueryDeformer(call, *deformer))
            return *answer;
        const Plug plug = Plug::Find(*deformer, call.GivenFlags().value(0));
        return plug.IsValid() ? Outcome(Scene::Current().GetValue(plug)) : Outcome();
    }
    EditDeformer(call, *deformer);
    return Scene::Current().DisplayName(*deformer);
}

/// The parts that a cluster holds, as a set of the same name.
void NoteParts(const Node& deformer, const QVector<Item>& items)
{
    Scene& scene = Scene::Current();
    Node* set = nullptr;
    for (const Item& item : items) {
        if (!item.isComponent)
            continue;
        if (!set) {
            set = &scene.Create(*NodeType::Find(QStringLiteral("objectSet")),
                scene.Names().UnusedName(deformer.GetName() + QLatin1String("Set")));
        }
        AddToSet(*set, item);
    }
}

Outcome Cluster(Call& call)
{
    if (!call.IsCreate())
        return Existing(call, "cluster");
    Scene& scene = Scene::Current();
    const Begun begun = Begin(call, QStringLiteral("cluster1"));
    if (begun.error)
        return *begun.error;
    const Vector middle = Middle(BoxOf(begun.shapes));
    Node& cluster = CreateDeformer("cluster", begun.name, begun.shapes);
    NoteParts(cluster, begun.items.items);
    Node& handle
        = CreateHandle(cluster, "clusterHandle", cluster.GetName() + QLatin1String("Handle"));
    Node& shape = *handle.Shapes().first();
    SetTriple(scene, shape, "origin", middle);
    SetTriple(scene, handle, "rotatePivot", middle);
    SetTriple(scene, handle, "scalePivot", middle);
    scene.SetValue(Plug::Find(cluster, QStringLiteral("relative")), call.Has("relative"));
    scene.Connect(Plug::Find(handle, QStringLiteral("worldMatrix[0]")),
        Plug::Find(cluster, QStringLiteral("matrix")));
    EditDeformer(call, cluster);
    SelectNodes({&handle});
    return DisplayNames({&cluster, &handle});
}

void SetDivisions(const Call& call, Node& ffd, Node& lattice)
{
    constexpr struct
    {
        const char* flag;
        const char* attributes[3];
        bool ofLattice;
    } ROWS[] = {
        {"divisions", {"sDivisions", "tDivisions", "uDivisions"}, true},
        {"ldivisions", {"localInfluenceS", "localInfluenceT", "localInfluenceU"}, false},
    };
    for (const auto& row : ROWS) {
        Node& node = row.ofLattice ? *lattice.Shapes().first() : ffd;
        for (int i = 0; call.Has(row.flag) && i < 3; ++i)
            Scene::Current().SetValue(
                Plug::Find(node, QLatin1String(row.attributes[i])), qMax(2, call.Int(row.flag, i)));
    }
}

Outcome Lattice(Call& call)
{
    if (!call.IsCreate())
        return Existing(call, "ffd");
    Scene& scene = Scene::Current();
    const Begun begun = Begin(call, QStringLiteral("ffd1"));
    if (begun.error)
        return *begun.error;
    const Box box = BoxOf(begun.shapes);
    Node& ffd = CreateDeformer("ffd", begun.name, begun.shapes);
    Node& lattice = CreateHandle(ffd, "lattice", ffd.GetName() + QLatin1String("Lattice"));
    Node& base = CreateHandle(ffd, "baseLattice", ffd.GetName() + QLatin1String("Base"));
    const char* const inputs[] = {"deformedLattice", "baseLattice"};
    Node* const nodes[] = {&lattice, &base};
    for (int i = 0; i < 2; ++i) {
        if (call.Has("objectCentered") && call.Bool("objectCentered")) {
            SetTriple(scene, *nodes[i], "translate", Middle(box));
            SetTriple(scene, *nodes[i], "scale", box.maximum - box.minimum);
        }
        scene.Connect(Plug::Find(*nodes[i]->Shapes().first(), QStringLiteral("latticeOutput")),
            Plug::Find(ffd, QLatin1String(inputs[i])));
    }
    SetDivisions(call, ffd, lattice);
    EditDeformer(call, ffd);
    SelectNodes({&lattice});
    return DisplayNames({&ffd, &lattice, &base});
}

Outcome NonLinear(Call& call)
{
    if (!call.IsCreate())
        return Existing(call, "nonLinear");
    const QString type = call.Text("type");
    const QString kind = QLatin1String("deform") + type.left(1).toUpper() + type.mid(1).toLower();
    if (type.isEmpty() || !NodeType::Find(kind))
        return Error{QStringLiteral("nonLinear: Unknown type: %1").arg(type)};
    Scene& scene = Scene::Current();
    const Begun begun = Begin(call, type + QLatin1Char('1'));
    if (begun.error)
        return *begun.error;
    const Box box = BoxOf(begun.shapes);
    Node& deformer = CreateDeformer("nonLinear", begun.name, begun.shapes);
    Node& handle = CreateHandle(
        deformer, kind.toLatin1().constData(), deformer.GetName() + QLatin1String("Handle"));
    const double half = (box.maximum.y - box.minimum.y) / 2;
    SetTriple(scene, handle, "translate", Middle(box));
    SetTriple(scene, handle, "scale", {half, half, half});
    scene.Connect(Plug::Find(handle, QStringLiteral("worldMatrix[0]")),
        Plug::Find(deformer, QStringLiteral("matrix")));
    EditDeformer(call, deformer);
    SelectNodes({&handle});
    return DisplayNames({&deformer, &handle});
}

// Shapes to blend

Plug Weight(Node& blend, int index)
{
    return Plug::Find(blend, QStringLiteral("weight")).Element(index);
}

std::optional<Error> AddTarget(Node& blend, int index, Node& target)
{
    Scene& scene = Scene::Current();
    const FoundShapes found = ShapesToDeform({Item{target.shared_from_this(), {}, false}});
    if (found.error)
        return found.error;
    Node& shape = *found.shapes.first();
    const char* output = shape.GetType().Is("mesh") ? "worldMesh" : "worldSpace";
    scene.Connect(Plug::Find(shape, QLatin1String(output)).Element(0),
        Plug::Find(blend, QStringLiteral("inputTarget")).Element(index));
    scene.SetValue(Weight(blend, index), 0.0);
    QString alias = target.GetName().section(QLatin1Char(':'), -1);
    if (blend.FindAttribute(alias) || blend.GetAliases().contains(alias))
        alias += QString::number(index);
    scene.SetAlias(Weight(blend, index), alias);
    return std::nullopt;
}

std::optional<Error> ChangeTargets(const Call& call, Node& blend)
{
    Scene& scene = Scene::Current();
    for (int use = 0; use < call.UseCount("target"); ++use) {
        const FoundItems found = FindAll({call.Text("target", 2, use)});
        if (found.error)
            return found.error;
        const int index = qMax(0, call.Int("target", 1, use));
        if (const auto error = AddTarget(blend, index, *found.items.first().node))
            return error;
    }
    for (int use = 0; use < call.UseCount("weight"); ++use) {
        const int index = call.Int("weight", 0, use);
        if (!blend.Indices(QStringLiteral("weight")).contains(index))
            return Error{QStringLiteral("blendShape: There is no target %1.").arg(index)};
        scene.SetValue(Weight(blend, index), call.Float("weight", 1, use));
    }
    EditDeformer(call, blend);
    return std::nullopt;
}

Outcome QueryBlend(const Call& call, Node& blend)
{
    if (const auto answer = QueryDeformer(call, blend))
        return *answer;
    const QVector<int> indices = blend.Indices(QStringLiteral("weight"));
    StringList targets;
    FloatList weights;
    for (const int index : indices) {
        targets += blend.GetAliases().key(Weight(blend, index).key);
        weights += Scene::Current().GetValue(Weight(blend, index)).ToFloat();
    }
    if (call.Has("weightCount"))
        return indices.size();
    return call.Has("weight") ? Outcome(weights) : Outcome(targets);
}

Outcome BlendShape(Call& call)
{
    Scene& scene = Scene::Current();
    if (!call.IsCreate()) {
        Node* blend = nullptr;
        if (const auto error = FindDeformer(call, "blendShape", blend))
            return *error;
        if (call.IsQuery())
            return QueryBlend(call, *blend);
        const auto error = ChangeTargets(call, *blend);
        return error ? Outcome(*error) : Outcome(StringList{scene.DisplayName(*blend)});
    }
    const FoundItems found = Targets(call);
    const NewName name = NameFor(call, QStringLiteral("blendShape1"));
    if (found.error || name.error)
        return found.error ? *found.error : *name.error;
    QVector<Node*> nodes = found.Nodes();
    const FoundShapes base = ShapesToDeform({found.items.last()});
    if (base.error)
        return *base.error;
    nodes.removeLast();
    Node& blend = CreateDeformer("blendShape", name.name, base.shapes);
    for (int i = 0; i < nodes.size(); ++i) {
        if (const auto error = AddTarget(blend, i, *nodes[i]))
            return *error;
    }
    if (const auto error = ChangeTargets(call, blend))
        return *error;
    return StringList{scene.DisplayName(blend)};
}

const char* const FLAGS = "envelope/en float cqe; geometry/g - q; name/n str c;"
                          "after/af - c; before/bf - c; frontOfChain/foc - c; parallel/par - c;"
                          "split/sp - c";

const CommandRow COMMANDS[] = {
    {"cluster", "string[]", "QE", "[String...]", "relative/rel - c", Cluster},
    {"lattice", "string[]", "QE", "[String...]",
        "divisions/dv int int int c; ldivisions/ldv int int int c; objectCentered/oc B c", Lattice},
    {"nonLinear", "string[]", "QE", "[String...]", "type/typ str c", NonLinear},
    {"blendShape", "any", "QE", "[String...]",
        "origin/o str c; target/t str int str float cqem; topologyCheck/tc B c;"
        "weight/w int float cqem; weightCount/wc - q",
        BlendShape},
};

} // namespace

void RegisterSceneDeformers(CommandRegistry& registry)
{
    for (const CommandRow& row : COMMANDS)
        RegisterSceneCommand(registry, row, FLAGS);
}

} // namespace host::commands
