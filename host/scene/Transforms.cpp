#include "scene/Transforms.h"

#include <algorithm>
#include <cmath>

namespace host::scene {

namespace {

Plug Find(const Node& node, const char* name)
{
    return Plug::Find(const_cast<Node&>(node), QLatin1String(name));
}

/// Rests such as 1e-17 would be shown.
double Tidy(double number)
{
    const double rounded = std::round(number * 1e12) / 1e12;
    return std::abs(number) < 1e12 ? rounded + 0.0 : number;
}

Vector Tidy(const Vector& vector)
{
    return {Tidy(vector.x), Tidy(vector.y), Tidy(vector.z)};
}

/// What turns besides the attribute "rotate", before it and after it.
struct Extra
{
    Matrix4 before;
    Matrix4 after;
};

Extra ExtraRotation(const Scene& scene, const Node& node)
{
    Extra extra;
    extra.before = Matrix4::Rotation(GetTriple(scene, node, "rotateAxis"), RotateOrder::Xyz);
    if (node.GetType().Is("joint"))
        extra.after = Matrix4::Rotation(GetTriple(scene, node, "jointOrient"), RotateOrder::Xyz);
    return extra;
}

} // namespace

Vector GetTriple(const Scene& scene, const Node& node, const char* name)
{
    const Plug plug = Find(node, name);
    if (!plug.IsValid())
        return {};
    const Value value = scene.GetValue(plug);
    return {value.At(0).ToFloat(), value.At(1).ToFloat(), value.At(2).ToFloat()};
}

void SetTriple(Scene& scene, Node& node, const char* name, const Vector& value)
{
    const Plug plug = Find(node, name);
    const Vector tidy = Tidy(value);
    if (plug.IsValid() && !(GetTriple(scene, node, name) == tidy))
        scene.SetValue(plug, FloatList{tidy.x, tidy.y, tidy.z});
}

RotateOrder GetRotateOrder(const Scene& scene, const Node& node)
{
    const Plug plug = Find(node, "rotateOrder");
    const int order = plug.IsValid() ? scene.GetValue(plug).ToInt() : 0;
    return static_cast<RotateOrder>(std::clamp(order, 0, 5));
}

Matrix4 LocalMatrix(const Scene& scene, const Node& node)
{
    if (!node.GetType().IsTransform() || !node.GetParent())
        return {};
    const auto triple = [&](const char* name) { return GetTriple(scene, node, name); };
    const Extra extra = ExtraRotation(scene, node);
    const Vector scalePivot = triple("scalePivot");
    const Vector rotatePivot = triple("rotatePivot");
    return Matrix4::Translation(scalePivot * -1) * Matrix4::Scaling(triple("scale"))
        * Matrix4::Shearing(triple("shear"))
        * Matrix4::Translation(scalePivot + triple("scalePivotTranslate") - rotatePivot)
        * extra.before * Matrix4::Rotation(triple("rotate"), GetRotateOrder(scene, node))
        * extra.after
        * Matrix4::Translation(rotatePivot + triple("rotatePivotTranslate") + triple("translate"));
}

Matrix4 WorldMatrix(const Scene& scene, const Node& node)
{
    return LocalMatrix(scene, node) * ParentMatrix(scene, node);
}

Matrix4 ParentMatrix(const Scene& scene, const Node& node)
{
    Matrix4 matrix;
    for (const Node* child = &node; child && child->GetParent(); child = child->GetParent()) {
        const Plug inherits = Find(*child, "inheritsTransform");
        if (inherits.IsValid() && !scene.GetValue(inherits).ToBool())
            break;
        matrix = matrix * LocalMatrix(scene, *child->GetParent());
    }
    return matrix;
}

void SetLocalMatrix(Scene& scene, Node& node, const Matrix4& matrix)
{
    const RotateOrder order = GetRotateOrder(scene, node);
    const Extra extra = ExtraRotation(scene, node);
    Decomposition parts = Decompose(matrix, RotateOrder::Xyz);
    const Matrix4 turn = extra.before.Inverted()
        * Matrix4::Rotation(parts.rotation, RotateOrder::Xyz) * extra.after.Inverted();
    parts.rotation = Decompose(turn, order).rotation;
    SetTriple(scene, node, "scale", parts.scale);
    SetTriple(scene, node, "shear", parts.shear);
    SetTriple(scene, node, "rotate", parts.rotation);
    // The pivots shift what is turned and scaled; the translation makes up for it.
    SetTriple(scene, node, "translate", {});
    const Vector rest = matrix.GetTranslation() - LocalMatrix(scene, node).GetTranslation();
    SetTriple(scene, node, "translate", rest);
}

void SetWorldMatrix(Scene& scene, Node& node, const Matrix4& matrix)
{
    SetLocalMatrix(scene, node, matrix * ParentMatrix(scene, node).Inverted());
}

Vector WorldPivot(const Scene& scene, const Node& node)
{
    return WorldMatrix(scene, node).Map(GetTriple(scene, node, "rotatePivot"));
}

} // namespace host::scene
