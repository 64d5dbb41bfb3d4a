// Chains of joints: handles for them, and their mirrored copies. No solver moves them.

#include "commands/scene/NodeCopies.h"
#include "commands/scene/RigTables.h"
#include "commands/scene/SceneCommands.h"
#include "scene/Joints.h"
#include "scene/Transforms.h"

namespace host::commands {

using namespace scene;

namespace {

Node* SourceOf(const Node& node, const char* attribute)
{
    const ConnectionPointer connection = node.IncomingTo(QLatin1String(attribute));
    return connection ? connection->source : nullptr;
}

void Join(Node& from, const char* output, Node& to, const char* input)
{
    Scene::Current().Connect(
        Plug::Find(from, QLatin1String(output)), Plug::Find(to, QLatin1String(input)));
}

struct Ends
{
    Node* start = nullptr;
    Node* end = nullptr;
    std::optional<Error> error;
};

/// Named by flags, or the two joints that are named or selected.
Ends EndsOf(const Call& call)
{
    Ends ends;
    QStringList names = call.ObjectTexts();
    if (call.Has("startJoint") && call.Has("endEffector"))
        names = QStringList{call.Text("startJoint"), call.Text("endEffector")};
    const FoundItems found = Targets(names);
    const QVector<Node*> nodes = found.Nodes();
    ends.error = found.error;
    if (!ends.error && nodes.size() != 2)
        ends.error = Error{QStringLiteral("ikHandle: A chain has a start joint and an end.")};
    if (ends.error)
        return ends;
    ends.start = nodes[0];
    ends.end = nodes[1];
    const bool joins = ends.start->GetType().Is("joint") && ends.end->GetType().IsTransform()
        && ends.end->IsBelow(*ends.start);
    if (!joins) {
        ends.error
            = Error{QStringLiteral("ikHandle: '%1' is not below the joint '%2'.")
                        .arg(DisplayNames({ends.end}).first(), DisplayNames({ends.start}).first())};
    }
    return ends;
}

Node& SolverNamed(const QString& name)
{
    Scene& scene = Scene::Current();
    for (Node* node : scene.Find(name)) {
        if (node->GetType().GetName() == name)
            return *node;
    }
    return scene.Create(*NodeType::Find(name), name);
}

Node& CreateEffector(Node& end)
{
    Scene& scene = Scene::Current();
    Node& effector = scene.Create(*NodeType::Find(QStringLiteral("ikEffector")),
        scene.Names().UnusedName(QStringLiteral("effector1")), end.GetParent());
    for (const char* axis : {"translateX", "translateY", "translateZ"})
        Join(end, axis, effector, axis);
    return effector;
}

std::optional<Error> UseCurve(const Call& call, Node& handle)
{
    const FoundItems found = FindAll({call.Text("curve")});
    if (found.error)
        return found.error;
    Node* curve = found.items.first().node.get();
    if (!curve->Shapes().isEmpty())
        curve = curve->Shapes().first();
    if (!curve->GetType().Is("nurbsCurve"))
        return Error{QStringLiteral("'%1' is no curve.").arg(call.Text("curve"))};
    Scene::Current().Connect(Plug::Find(*curve, QStringLiteral("worldSpace[0]")),
        Plug::Find(handle, QStringLiteral("inCurve")));
    return std::nullopt;
}

std::optional<Error> ChangeHandle(const Call& call, Node& handle)
{
    Scene& scene = Scene::Current();
    if (call.Has("solver")) {
        const NodeType* solver = NodeType::Find(call.Text("solver"));
        if (!solver || !solver->Is("ikSolver") || solver->IsAbstract())
            return Error{QStringLiteral("ikHandle: Unknown solver: %1").arg(call.Text("solver"))};
        Join(SolverNamed(call.Text("solver")), "message", handle, "ikSolver");
    }
    for (const char* flag : {"priority", "weight"}) {
        if (call.Has(flag))
            scene.SetValue(Plug::Find(handle, QLatin1String(flag)), call.Argument(flag));
    }
    if (call.Has("sticky")) {
        scene.SetValue(Plug::Find(handle, QStringLiteral("stickiness")),
            call.Text("sticky") == QLatin1String("sticky") ? 1 : 0);
    }
    return call.Has("curve") ? UseCurve(call, handle) : std::nullopt;
}

Outcome CreateHandle(const Call& call)
{
    Scene& scene = Scene::Current();
    const Ends ends = EndsOf(call);
    if (ends.error)
        return *ends.error;
    const NewName name = NameFor(call, QStringLiteral("ikHandle1"));
    if (name.error)
        return *name.error;
    if (call.Text("solver") == QLatin1String("ikSplineSolver") && !call.Has("curve"))
        return Error{QStringLiteral("ikHandle: Say along which curve: this host makes none.")};
    Node& effector = ends.end->GetType().Is("ikEffector") ? *ends.end : CreateEffector(*ends.end);
    Node& handle = scene.Create(*NodeType::Find(QStringLiteral("ikHandle")), name.name);
    SetTriple(scene, handle, "translate", WorldMatrix(scene, *ends.end).GetTranslation());
    Join(*ends.start, "message", handle, "startJoint");
    Join(effector, "handlePath[0]", handle, "endEffector");
    if (!call.Has("solver"))
        Join(SolverNamed(QStringLiteral("ikRPsolver")), "message", handle, "ikSolver");
    if (const auto error = ChangeHandle(call, handle))
        return *error;
    SelectNodes({&handle});
    return DisplayNames({&handle, &effector});
}

/// From the start joint to the one above the effector.
StringList JointNames(const Node& handle)
{
    QVector<Node*> joints;
    const Node* effector = SourceOf(handle, "endEffector");
    Node* start = SourceOf(handle, "startJoint");
    for (Node* node = effector ? effector->GetParent() : nullptr; node && node->GetParent();
         node = node->GetParent()) {
        joints.prepend(node);
        if (node == start)
            return DisplayNames(joints);
    }
    return {};
}

Outcome QueryHandle(const Call& call, const Node& handle)
{
    constexpr struct
    {
        const char* flag;
        const char* attribute;
    } ENDS[] = {{"startJoint", "startJoint"}, {"endEffector", "endEffector"},
        {"solver", "ikSolver"}, {"curve", "inCurve"}};
    for (const auto& end : ENDS) {
        const Node* source = call.Has(end.flag) ? SourceOf(handle, end.attribute) : nullptr;
        if (call.Has(end.flag))
            return source ? Scene::Current().DisplayName(*source) : QString();
    }
    const auto number = [&](const char* name) {
        return Scene::Current().GetValue(
            Plug::Find(const_cast<Node&>(handle), QLatin1String(name)));
    };
    if (call.Has("priority"))
        return number("priority");
    if (call.Has("weight"))
        return number("weight");
    if (call.Has("sticky"))
        return number("stickiness").ToBool() ? QStringLiteral("sticky") : QStringLiteral("off");
    return JointNames(handle);
}

Outcome IkHandle(Call& call)
{
    if (call.IsCreate())
        return CreateHandle(call);
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    Node& handle = *found.items.first().node;
    if (!handle.GetType().Is("ikHandle"))
        return Error{QStringLiteral("'%1' is no handle.").arg(DisplayNames({&handle}).first())};
    if (call.IsQuery())
        return QueryHandle(call, handle);
    const auto error = ChangeHandle(call, handle);
    return error ? Outcome(*error) : Outcome();
}

// Mirrored copies

QString MirroredName(const Call& call, const QString& name)
{
    QString mirrored = name;
    const QString wanted = call.Text("searchReplace", 0);
    const int place = wanted.isEmpty() ? -1 : mirrored.indexOf(wanted);
    if (place >= 0)
        mirrored.replace(place, wanted.size(), call.Text("searchReplace", 1));
    return Scene::Current().Names().UnusedName(NameIndex::LegalName(mirrored));
}

Outcome MirrorJoint(Call& call)
{
    Scene& scene = Scene::Current();
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    const int axis = call.Has("mirrorXY") ? 2 : call.Has("mirrorXZ") ? 1 : 0;
    QVector<Node*> mirrored;
    for (Node* root : found.Nodes()) {
        if (!root->GetType().Is("joint"))
            return Error{QStringLiteral("'%1' is no joint.").arg(DisplayNames({root}).first())};
        QVector<Node*> originals;
        root->CollectTree(originals);
        QVector<Node*> copies;
        CopyTree(*root, MirroredName(call, root->GetName()), {}, copies);
        for (int i = 0; i < copies.size(); ++i) {
            if (i > 0)
                scene.Rename(*copies[i], MirroredName(call, originals[i]->GetName()));
            if (!copies[i]->GetType().Is("joint"))
                continue;
            PlaceJoint(scene, *copies[i],
                Mirrored(WorldMatrix(scene, *originals[i]), axis, call.Has("mirrorBehavior")));
            mirrored += copies[i];
        }
    }
    SelectNodes(mirrored.mid(0, 1));
    return DisplayNames(mirrored);
}

const CommandRow COMMANDS[] = {
    {"ikHandle", "any", "QE", "[String...]",
        "createCurve/ccv B c; curve/c str cqe; endEffector/ee str cq; jointList/jl - q; name/n str "
        "c;"
        "parentCurve/pcv B c; priority/p int cqe; rootOnCurve/roc B c; setupForRPsolver/srp - e;"
        "simplifyCurve/scv B c; solver/sol str cqe; startJoint/sj str cq; sticky/s str cqe;"
        "weight/w float cqe",
        IkHandle},
    {"mirrorJoint", "string[]", "", "[String...]",
        "mirrorBehavior/mb - c; mirrorXY/mxy - c; mirrorXZ/mxz - c; mirrorYZ/myz - c;"
        "searchReplace/sr str str c",
        MirrorJoint},
};

} // namespace

void RegisterSceneChains(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
