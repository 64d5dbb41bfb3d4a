#include "scene/Joints.h"

#include "scene/Transforms.h"

#include <cmath>

namespace host::scene {

namespace {

constexpr double TOO_SHORT = 1e-9;

double Dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector Cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vector Unit(const Vector& vector)
{
    const double length = vector.Length();
    return length < TOO_SHORT ? Vector() : vector * (1 / length);
}

Matrix4 RotationOf(const Matrix4& matrix)
{
    return Matrix4::Rotation(Decompose(matrix, RotateOrder::Xyz).rotation, RotateOrder::Xyz);
}

Node* FirstChild(const Node& joint)
{
    for (Node* child : joint.Children()) {
        if (child->GetType().Is("joint"))
            return child;
    }
    return nullptr;
}

/// The direction that "yup" or "zdown" means; nothing where it is left open.
std::optional<Vector> Upwards(const QString& secondary)
{
    const double sign = secondary.endsWith(QLatin1String("down")) ? -1 : 1;
    switch (secondary.isEmpty() ? 0 : secondary.at(0).toLatin1()) {
    case 'x': return Vector{sign, 0, 0};
    case 'y': return Vector{0, sign, 0};
    case 'z': return Vector{0, 0, sign};
    default: return std::nullopt;
    }
}

/// Rows are the axes of the joint in the world.
Matrix4 Aimed(
    const Matrix4& now, const int (&order)[3], const Vector& aim, const QString& secondary)
{
    const int second = order[1];
    Vector up = Upwards(secondary).value_or(
        Vector{now.At(second, 0), now.At(second, 1), now.At(second, 2)});
    Vector side = up - aim * Dot(up, aim);
    if (side.Length() < TOO_SHORT) {
        up = std::abs(aim.y) < 0.9 ? Vector{0, 1, 0} : Vector{0, 0, 1};
        side = up - aim * Dot(up, aim);
    }
    Vector rows[3];
    rows[order[0]] = aim;
    rows[second] = Unit(side);
    const bool even = (order[0] + 1) % 3 == second;
    rows[order[2]] = Cross(aim, rows[second]) * (even ? 1 : -1);
    Matrix4 matrix;
    for (int row = 0; row < 3; ++row) {
        matrix.At(row, 0) = rows[row].x;
        matrix.At(row, 1) = rows[row].y;
        matrix.At(row, 2) = rows[row].z;
    }
    return matrix;
}

/// The three axes that a word such as "yzx" names; false for other words.
bool ReadOrder(const QString& axes, int (&order)[3])
{
    bool named[3] = {false, false, false};
    for (int i = 0; i < 3 && axes.size() == 3; ++i) {
        order[i] = axes.at(i).toLatin1() - 'x';
        if (order[i] < 0 || order[i] > 2)
            return false;
        named[order[i]] = true;
    }
    return named[0] && named[1] && named[2];
}

} // namespace

void PlaceJoint(Scene& scene, Node& joint, const Matrix4& world)
{
    const Matrix4 parent = ParentMatrix(scene, joint);
    const Matrix4 local = world * parent.Inverted();
    SetTriple(scene, joint, "translate", parent.Inverted().Map(world.GetTranslation()));
    const Matrix4 own = Matrix4::Rotation(GetTriple(scene, joint, "rotateAxis"), RotateOrder::Xyz)
        * Matrix4::Rotation(GetTriple(scene, joint, "rotate"), GetRotateOrder(scene, joint));
    SetTriple(scene, joint, "jointOrient",
        Decompose(own.Inverted() * RotationOf(local), RotateOrder::Xyz).rotation);
}

bool OrientJoint(Scene& scene, Node& joint, const QString& axes, const QString& secondary)
{
    int order[3] = {0, 1, 2};
    const bool aligns = axes == QLatin1String("none");
    const bool known = secondary.isEmpty() || secondary == QLatin1String("none")
        || (Upwards(secondary)
            && (secondary.endsWith(QLatin1String("up"))
                || secondary.endsWith(QLatin1String("down"))));
    if ((!aligns && !ReadOrder(axes, order)) || !known)
        return false;
    const Node* child = FirstChild(joint);
    if (!aligns && !child)
        return true;
    const Matrix4 now = WorldMatrix(scene, joint);
    const Vector aim = aligns
        ? Vector()
        : Unit(WorldMatrix(scene, *child).GetTranslation() - now.GetTranslation());
    QVector<QPair<Node*, Matrix4>> below;
    for (Node* each : joint.Children()) {
        if (each->GetType().IsTransform())
            below += qMakePair(each, WorldMatrix(scene, *each));
    }
    SetTriple(scene, joint, "rotate", {});
    if (aligns) {
        SetTriple(scene, joint, "jointOrient", {});
    } else if (aim.Length() > 0) {
        PlaceJoint(scene, joint,
            Aimed(now, order, aim, secondary) * Matrix4::Translation(now.GetTranslation()));
    }
    for (const auto& [node, matrix] : qAsConst(below)) {
        if (node->GetType().Is("joint"))
            PlaceJoint(scene, *node, matrix);
        else
            SetWorldMatrix(scene, *node, matrix);
    }
    return true;
}

Matrix4 Mirrored(const Matrix4& world, int axis, bool behavior)
{
    Matrix4 mirrored = world;
    mirrored.At(3, axis) = -mirrored.At(3, axis);
    for (int row = 0; behavior && row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            mirrored.At(row, column) *= column == axis ? 1 : -1;
    }
    return mirrored;
}

} // namespace host::scene
