// Where things stand: move, rotate, scale, xform.

#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"
#include "scene/Shapes.h"
#include "scene/Transforms.h"

namespace host::commands {

using namespace scene;

namespace {

/// The transforms that are to be moved; a shape stands for its transform.
struct FoundTransforms
{
    QVector<Node*> nodes;
    std::optional<Error> error;
};

FoundTransforms TransformsOf(const FoundItems& found)
{
    FoundTransforms transforms{{}, found.error};
    for (const Item& item : found.items) {
        Node* node = item.node.get();
        if (node->IsShape())
            node = node->GetParent();
        if (item.isComponent) {
            transforms.error
                = Error{QStringLiteral("Components of this host's scene cannot be moved: %1")
                            .arg(Scene::Current().DisplayName(item))};
        } else if (!node->GetType().IsTransform()) {
            transforms.error = Error{QStringLiteral("'%1' is no transform.").arg(node->GetName())};
        }
        if (transforms.error)
            return transforms;
        if (!transforms.nodes.contains(node))
            transforms.nodes += node;
    }
    return transforms;
}

/// Which of the three numbers a command speaks of, and what they are.
struct Numbers
{
    bool given[3] = {false, false, false};
    double values[3] = {0, 0, 0};

    Vector Over(const Vector& other) const
    {
        return {given[0] ? values[0] : other.x, given[1] ? values[1] : other.y,
            given[2] ? values[2] : other.z};
    }
    Vector Else(double number) const { return Over({number, number, number}); }
};

struct ReadNumbers
{
    Numbers numbers;
    QStringList names;
    std::optional<Error> error;
};

/// The axes that the flags single out, each with its own number or all with the one that is there.
ReadNumbers Read(const Call& call, const char* const (&axes)[3], const char* const (&pair)[3])
{
    const NumbersAndNames split = SplitNumbers(call);
    ReadNumbers read{{}, split.names, std::nullopt};
    bool single = false;
    for (int axis = 0; axis < 3; ++axis) {
        read.numbers.given[axis] = call.Has(axes[axis]);
        single = single || read.numbers.given[axis];
    }
    for (int i = 0; i < 3; ++i) {
        if (!call.Has(pair[i]))
            continue;
        single = true;
        for (int axis = 0; axis < 3; ++axis)
            read.numbers.given[axis] = read.numbers.given[axis] || axis != 2 - i;
    }
    int next = 0;
    for (int axis = 0; axis < 3; ++axis) {
        if (!single)
            read.numbers.given[axis] = true;
        if (!read.numbers.given[axis])
            continue;
        read.numbers.values[axis] = split.numbers.value(next, split.numbers.value(0));
        ++next;
    }
    const int wanted = single ? 1 : 3;
    if (split.numbers.size() < wanted) {
        read.error = Error{QStringLiteral("%1 needs %2 numbers; found %3.")
                               .arg(call.GetCommand().GetName())
                               .arg(single ? next : 3)
                               .arg(split.numbers.size())};
    }
    return read;
}

/// The flags that single out axes.
struct AxisFlags
{
    const char* axes[3];
    const char* pairs[3];
};

constexpr AxisFlags MOVE_AXES{{"moveX", "moveY", "moveZ"}, {"moveXY", "moveXZ", "moveYZ"}};
constexpr AxisFlags ROTATE_AXES{
    {"rotateX", "rotateY", "rotateZ"}, {"rotateXY", "rotateXZ", "rotateYZ"}};
constexpr AxisFlags SCALE_AXES{{"scaleX", "scaleY", "scaleZ"}, {"scaleXY", "scaleXZ", "scaleYZ"}};

/// What is below a node that moves stays where it is in the world.
class ChildKeeper
{
public:
    ChildKeeper(const Call& call, const Node& node)
    {
        if (!call.Has("preserveChildPosition"))
            return;
        for (Node* child : node.Children()) {
            if (child->GetType().IsTransform())
                m_places += qMakePair(child, WorldMatrix(Scene::Current(), *child));
        }
    }
    void Restore() const
    {
        for (const auto& [child, matrix] : m_places)
            SetWorldMatrix(Scene::Current(), *child, matrix);
    }

private:
    QVector<QPair<Node*, Matrix4>> m_places;
};

/// Moves the node so that what stood at the point (in the world) stands there again.
void KeepPoint(Node& node, const Vector& point, const Matrix4& before)
{
    Scene& scene = Scene::Current();
    const Vector moved = WorldMatrix(scene, node).Map(before.Inverted().Map(point));
    SetTriple(scene, node, "translate",
        GetTriple(scene, node, "translate")
            + ParentMatrix(scene, node).Inverted().MapDirection(point - moved));
}

/// Calls `change(node, numbers)` for each of the transforms that are named, or selected.
template <typename Change>
Outcome ForEachTransform(const Call& call, const AxisFlags& flags, Change change)
{
    const ReadNumbers read = Read(call, flags.axes, flags.pairs);
    if (read.error)
        return *read.error;
    const FoundTransforms found = TransformsOf(Targets(read.names));
    if (found.error)
        return *found.error;
    const bool turns = call.GetCommand().FindFlag(QStringLiteral("pivot"));
    for (Node* node : found.nodes) {
        const ChildKeeper children(call, *node);
        const Matrix4 before = WorldMatrix(Scene::Current(), *node);
        change(*node, read.numbers);
        if (turns && call.Has("pivot"))
            KeepPoint(*node,
                {call.Float("pivot", 0), call.Float("pivot", 1), call.Float("pivot", 2)}, before);
        children.Restore();
    }
    return {};
}

void MoveOne(const Call& call, Node& node, const Numbers& numbers)
{
    Scene& scene = Scene::Current();
    const Vector translate = GetTriple(scene, node, "translate");
    if (call.Has("relative")) {
        Vector offset = numbers.Else(0);
        if (call.Has("objectSpace"))
            offset = LocalMatrix(scene, node).MapDirection(offset);
        else if (!call.Has("localSpace"))
            offset = ParentMatrix(scene, node).Inverted().MapDirection(offset);
        SetTriple(scene, node, "translate", translate + offset);
        return;
    }
    if (call.Has("localSpace") || call.Has("objectSpace")) {
        SetTriple(scene, node, "translate", numbers.Over(translate));
        return;
    }
    // Absolute: the pivot comes to stand there.
    const Vector pivot = WorldPivot(scene, node);
    const Vector offset = numbers.Over(pivot) - pivot;
    SetTriple(scene, node, "translate",
        translate + ParentMatrix(scene, node).Inverted().MapDirection(offset));
}

Outcome Move(Call& call)
{
    return ForEachTransform(
        call, MOVE_AXES, [&](Node& node, const Numbers& numbers) { MoveOne(call, node, numbers); });
}

/// A turn in the world, about the node's own pivot.
void TurnInWorld(Node& node, const Matrix4& turn, bool absolute)
{
    Scene& scene = Scene::Current();
    const Vector pivot = WorldPivot(scene, node);
    Matrix4 matrix = WorldMatrix(scene, node);
    if (absolute) {
        Decomposition parts = Decompose(matrix, RotateOrder::Xyz);
        matrix = Matrix4::Scaling(parts.scale) * Matrix4::Shearing(parts.shear) * turn;
    } else {
        matrix = matrix * turn;
    }
    const Vector moved = matrix.Map(GetTriple(scene, node, "rotatePivot"));
    SetWorldMatrix(scene, node, matrix * Matrix4::Translation(pivot - moved));
}

void RotateOne(const Call& call, Node& node, const Numbers& numbers)
{
    Scene& scene = Scene::Current();
    const RotateOrder order = GetRotateOrder(scene, node);
    const Vector now = GetTriple(scene, node, "rotate");
    if (call.Has("worldSpace")) {
        TurnInWorld(
            node, Matrix4::Rotation(numbers.Else(0), RotateOrder::Xyz), !call.Has("relative"));
    } else if (!call.Has("relative")) {
        SetTriple(scene, node, "rotate", numbers.Over(now));
    } else if (call.Has("euler")) {
        SetTriple(scene, node, "rotate", now + numbers.Else(0));
    } else {
        const Matrix4 turned = Matrix4::Rotation(numbers.Else(0),
                                   call.Has("forceOrderXYZ") ? RotateOrder::Xyz : order)
            * Matrix4::Rotation(now, order);
        SetTriple(scene, node, "rotate", Decompose(turned, order).rotation);
    }
}

Outcome Rotate(Call& call)
{
    return ForEachTransform(call, ROTATE_AXES,
        [&](Node& node, const Numbers& numbers) { RotateOne(call, node, numbers); });
}

void ScaleOne(const Call& call, Node& node, const Numbers& numbers)
{
    Scene& scene = Scene::Current();
    const Vector now = GetTriple(scene, node, "scale");
    const Vector factors = numbers.Else(1);
    const Vector scaled = call.Has("relative")
        ? Vector{now.x * factors.x, now.y * factors.y, now.z * factors.z}
        : numbers.Over(now);
    SetTriple(scene, node, "scale", scaled);
}

Outcome Scale(Call& call)
{
    return ForEachTransform(call, SCALE_AXES,
        [&](Node& node, const Numbers& numbers) { ScaleOne(call, node, numbers); });
}

// xform

FloatList ToList(const Vector& vector)
{
    return {vector.x, vector.y, vector.z};
}

FloatList ToList(const Box& box)
{
    return ToList(box.minimum) + ToList(box.maximum);
}

Vector VectorOf(const Call& call, const char* flag)
{
    return {call.Float(flag, 0), call.Float(flag, 1), call.Float(flag, 2)};
}

Outcome QueryTransform(const Call& call, const Node& node)
{
    const Scene& scene = Scene::Current();
    const bool world = call.Has("worldSpace");
    const Matrix4 matrix = world ? WorldMatrix(scene, node) : LocalMatrix(scene, node);
    const auto triple = [&](const char* name) { return GetTriple(scene, node, name); };
    const auto pivot
        = [&](const char* name) { return ToList(world ? matrix.Map(triple(name)) : triple(name)); };
    if (call.Has("matrix"))
        return matrix.Cells();
    if (call.Has("translation")) {
        const Vector translate = triple("translate");
        return ToList(world ? ParentMatrix(scene, node).Map(translate) : translate);
    }
    if (call.Has("rotation")) {
        return ToList(
            world ? Decompose(matrix, GetRotateOrder(scene, node)).rotation : triple("rotate"));
    }
    if (call.Has("scale"))
        return ToList(world ? Decompose(matrix, RotateOrder::Xyz).scale : triple("scale"));
    if (call.Has("shear"))
        return ToList(triple("shear"));
    if (call.Has("rotateAxis"))
        return ToList(triple("rotateAxis"));
    if (call.Has("rotatePivot"))
        return pivot("rotatePivot");
    if (call.Has("scalePivot"))
        return pivot("scalePivot");
    if (call.Has("pivots"))
        return pivot("rotatePivot") + pivot("scalePivot");
    if (call.Has("boundingBox"))
        return ToList(WorldBox(scene, node));
    static const char* const ORDERS[] = {"xyz", "yzx", "zxy", "xzy", "yxz", "zyx"};
    if (call.Has("rotateOrder"))
        return QString::fromLatin1(ORDERS[static_cast<int>(GetRotateOrder(scene, node))]);
    return Error{QStringLiteral("xform: Say what to query.")};
}

/// A pivot is given in the node's own space or in the world.
void SetPivot(const Call& call, Node& node, const char* name, const Vector& place)
{
    Scene& scene = Scene::Current();
    const bool world = call.Has("worldSpace");
    SetTriple(scene, node, name, world ? WorldMatrix(scene, node).Inverted().Map(place) : place);
}

void SetTranslation(const Call& call, Node& node)
{
    Scene& scene = Scene::Current();
    const Matrix4 parent = ParentMatrix(scene, node);
    const Vector given = VectorOf(call, "translation");
    const Vector now = GetTriple(scene, node, "translate");
    const bool world = call.Has("worldSpace");
    if (call.Has("relative"))
        SetTriple(scene, node, "translate",
            now + (world ? parent.Inverted().MapDirection(given) : given));
    else
        SetTriple(scene, node, "translate", world ? parent.Inverted().Map(given) : given);
}

void SetRotation(const Call& call, Node& node)
{
    Scene& scene = Scene::Current();
    const Vector given = VectorOf(call, "rotation");
    if (call.Has("worldSpace"))
        TurnInWorld(
            node, Matrix4::Rotation(given, GetRotateOrder(scene, node)), !call.Has("relative"));
    else
        SetTriple(scene, node, "rotate",
            call.Has("relative") ? GetTriple(scene, node, "rotate") + given : given);
}

void SetScale(const Call& call, Node& node)
{
    Scene& scene = Scene::Current();
    const Vector given = VectorOf(call, "scale");
    const Vector now = GetTriple(scene, node, "scale");
    SetTriple(scene, node, "scale",
        call.Has("relative") ? Vector{now.x * given.x, now.y * given.y, now.z * given.z} : given);
}

void SetPivots(const Call& call, Node& node)
{
    Scene& scene = Scene::Current();
    if (call.Has("centerPivots")) {
        const Box box = WorldBox(scene, node);
        if (!box.isEmpty) {
            const Vector middle
                = WorldMatrix(scene, node).Inverted().Map((box.minimum + box.maximum) * 0.5);
            SetTriple(scene, node, "rotatePivot", middle);
            SetTriple(scene, node, "scalePivot", middle);
        }
    }
    if (call.Has("pivots") || call.Has("rotatePivot"))
        SetPivot(call, node, "rotatePivot",
            VectorOf(call, call.Has("pivots") ? "pivots" : "rotatePivot"));
    if (call.Has("pivots") || call.Has("scalePivot"))
        SetPivot(
            call, node, "scalePivot", VectorOf(call, call.Has("pivots") ? "pivots" : "scalePivot"));
}

void SetMatrix(const Call& call, Node& node)
{
    QVector<double> cells;
    for (int i = 0; i < 16; ++i)
        cells += call.Float("matrix", i);
    const Matrix4 given = Matrix4::FromCells(cells);
    Scene& scene = Scene::Current();
    if (call.Has("worldSpace"))
        SetWorldMatrix(scene, node, given);
    else
        SetLocalMatrix(scene, node, given);
}

void SetTransform(const Call& call, Node& node)
{
    Scene& scene = Scene::Current();
    SetPivots(call, node);
    if (call.Has("rotateOrder")) {
        const QStringList orders
            = QStringLiteral("xyz yzx zxy xzy yxz zyx").split(QLatin1Char(' '));
        const int order = orders.indexOf(call.Text("rotateOrder"));
        scene.SetValue(Plug::Find(node, QStringLiteral("rotateOrder")), qMax(0, order));
    }
    if (call.Has("matrix"))
        SetMatrix(call, node);
    if (call.Has("translation"))
        SetTranslation(call, node);
    if (call.Has("rotation"))
        SetRotation(call, node);
    if (call.Has("scale"))
        SetScale(call, node);
    if (call.Has("rotateAxis"))
        SetTriple(scene, node, "rotateAxis", VectorOf(call, "rotateAxis"));
    if (call.Has("shear"))
        SetTriple(scene, node, "shear", VectorOf(call, "shear"));
    if (call.Has("zeroTransformPivots")) {
        SetTriple(scene, node, "rotatePivot", {});
        SetTriple(scene, node, "scalePivot", {});
    }
}

Outcome Transform(Call& call)
{
    const FoundTransforms found = TransformsOf(Targets(call));
    if (found.error)
        return *found.error;
    if (call.IsQuery())
        return QueryTransform(call, *found.nodes.first());
    for (Node* node : found.nodes)
        SetTransform(call, *node);
    return {};
}

void ResetTransform(const Call& call, Node& node)
{
    constexpr struct
    {
        const char* flag;
        const char* attribute;
        double neutral;
    } PARTS[] = {{"translate", "translate", 0}, {"rotate", "rotate", 0}, {"scale", "scale", 1}};
    const bool all = !call.Has("translate") && !call.Has("rotate") && !call.Has("scale");
    for (const auto& part : PARTS) {
        const double n = part.neutral;
        if (all || (call.Has(part.flag) && call.Bool(part.flag)))
            SetTriple(Scene::Current(), node, part.attribute, {n, n, n});
    }
}

/// Takes a transform back to nothing. With `apply` all that hangs on it stays where it is: the
/// transforms below take over what it did, and so do the shapes.
void Freeze(const Call& call, Node& node)
{
    Scene& scene = Scene::Current();
    const bool apply = call.Has("apply") && call.Bool("apply");
    const Matrix4 before = LocalMatrix(scene, node);
    QVector<QPair<Node*, Matrix4>> below;
    for (Node* child : node.Children())
        below += qMakePair(child, WorldMatrix(scene, *child));
    ResetTransform(call, node);
    if (!apply)
        return;
    const Matrix4 change = before * LocalMatrix(scene, node).Inverted();
    for (const auto& [child, matrix] : qAsConst(below)) {
        if (child->IsShape())
            ReshapeBy(scene, *child, change);
        else
            SetWorldMatrix(scene, *child, matrix);
    }
}

Outcome MakeIdentity(Call& call)
{
    const FoundTransforms found = TransformsOf(Targets(call));
    if (found.error)
        return *found.error;
    for (Node* node : found.nodes)
        Freeze(call, *node);
    return {};
}

Outcome ExactBox(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    Box box;
    for (const Node* node : found.Nodes())
        box.Add(WorldBox(Scene::Current(), *node));
    return ToList(box);
}

const CommandRow COMMANDS[] = {
    {"move", "none", "", "[Any...]",
        "absolute/a - c; localSpace/ls - c; moveX/x - c; moveXY/xy - c; moveXYZ/xyz - c;"
        "moveXZ/xz - c; moveY/y - c; moveYZ/yz - c; moveZ/z - c; objectSpace/os - c; relative/r - "
        "c;"
        "preserveChildPosition/pcp - c; rotatePivotRelative/rpr - c;"
        "worldSpace/ws - c; worldSpaceDistance/wd - c",
        Move},
    {"rotate", "none", "", "[Any...]",
        "absolute/a - c; euler/eu - c; forceOrderXYZ/fo - c; objectSpace/os - c;"
        "pivot/p length length length c; preserveChildPosition/pcp - c; relative/r - c; rotateX/x "
        "- c;"
        "rotateXY/xy - c; rotateXYZ/xyz - c; rotateXZ/xz - c; rotateY/y - c; rotateYZ/yz - c;"
        "rotateZ/z - c; worldSpace/ws - c",
        Rotate},
    {"scale", "none", "", "[Any...]",
        "absolute/a - c; pivot/p length length length c; preserveChildPosition/pcp - c; relative/r "
        "- c;"
        "scaleX/x - c; scaleXY/xy - c; scaleXYZ/xyz - c;"
        "scaleXZ/xz - c; scaleY/y - c; scaleYZ/yz - c; scaleZ/z - c",
        Scale},
    {"xform", "any", "Q", "[String...]",
        "absolute/a - c; boundingBox/bb - q; centerPivots/cp - c; euler/eu - c;"
        "matrix/m float float float float float float float float float float float float float "
        "float float float cq;"
        "objectSpace/os - cq; pivots/piv length length length cq; preserve/p B c; relative/r - c;"
        "rotateAxis/ra angle angle angle cq; rotateOrder/roo str cq; rotatePivot/rp length length "
        "length cq;"
        "rotation/ro angle angle angle cq; scale/s float float float cq;"
        "scalePivot/sp length length length cq; shear/sh float float float cq;"
        "translation/t length length length cq; worldSpace/ws - cq; zeroTransformPivots/ztp - c",
        Transform},
    {"makeIdentity", "none", "", "[String...]",
        "apply/a B c; normal/n int c; preserveNormals/pn B c; rotate/r B c; scale/s B c;"
        "translate/t B c",
        MakeIdentity},
    {"exactWorldBoundingBox", "float[]", "", "[String...]",
        "calculateExactly/ce - c; ignoreInvisible/ii - c", ExactBox},
};

} // namespace

void RegisterSceneTransforms(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
