#include "scene/Evaluation.h"

#include "scene/AnimationCurve.h"
#include "scene/Shapes.h"
#include "scene/Transforms.h"

#include <algorithm>
#include <cmath>

namespace host::scene {

namespace {

double Number(const Scene& scene, const Plug& plug, const QString& name)
{
    const Plug other = plug.Sibling(name);
    return other.IsValid() ? scene.GetValue(other).ToFloat() : 0;
}

double Number(const Scene& scene, const Plug& plug, const char* name)
{
    return Number(scene, plug, QString::fromLatin1(name));
}

double Component(const Vector& vector, QChar axis)
{
    return axis == QLatin1Char('X') ? vector.x : axis == QLatin1Char('Y') ? vector.y : vector.z;
}

Value ComputeDag(const Scene& scene, const Plug& plug)
{
    const Node& node = *plug.node;
    const QString& name = plug.attribute->longName;
    if (name == QLatin1String("matrix"))
        return LocalMatrix(scene, node).ToMatrix();
    if (name == QLatin1String("inverseMatrix"))
        return LocalMatrix(scene, node).Inverted().ToMatrix();
    if (name == QLatin1String("worldMatrix"))
        return WorldMatrix(scene, node).ToMatrix();
    if (name == QLatin1String("worldInverseMatrix"))
        return WorldMatrix(scene, node).Inverted().ToMatrix();
    if (name == QLatin1String("parentMatrix"))
        return ParentMatrix(scene, node).ToMatrix();
    if (name == QLatin1String("parentInverseMatrix"))
        return ParentMatrix(scene, node).Inverted().ToMatrix();
    if (name.startsWith(QLatin1String("worldPosition")) && !plug.HasChildren()) {
        const Vector place = WorldMatrix(scene, node).Map(GetTriple(scene, node, "localPosition"));
        return Component(place, name.at(name.size() - 1));
    }
    if (name == QLatin1String("distance")) {
        return (GetTriple(scene, node, "endPoint") - GetTriple(scene, node, "startPoint")).Length();
    }
    if (!name.startsWith(QLatin1String("boundingBox")) || plug.HasChildren())
        return {};
    const Box box = node.IsShape()
        ? ShapeBox(scene, node)
        : WorldBox(scene, node).Mapped(ParentMatrix(scene, node).Inverted());
    const Vector size = box.maximum - box.minimum;
    const Vector& wanted = name.contains(QLatin1String("Min")) ? box.minimum
        : name.contains(QLatin1String("Max"))                  ? box.maximum
                                                               : size;
    return Component(wanted, name.at(name.size() - 1));
}

Value ComputeCurve(const Scene& scene, const Plug& plug)
{
    if (plug.attribute->longName != QLatin1String("output"))
        return {};
    const Plug input = plug.Sibling(QStringLiteral("input"));
    const double time = input.Incoming() ? scene.GetValue(input).ToFloat() : scene.EvaluationTime();
    return AnimationCurve::Of(scene, *plug.node).ValueAt(time);
}

double Calculated(int operation, double a, double b)
{
    switch (operation) {
    case 1: return a * b;
    case 2: return b == 0 ? 0 : a / b;
    case 3: return std::pow(a, b);
    default: return a;
    }
}

bool Compared(int operation, double a, double b)
{
    const bool answers[] = {a == b, a != b, a > b, a >= b, a < b, a <= b};
    return answers[std::clamp(operation, 0, 5)];
}

/// The part of a name that says which child of a triple it is: "X" of "outputX".
QString Ending(const Plug& plug)
{
    return plug.attribute->parent
        ? plug.attribute->longName.mid(plug.attribute->parent->longName.size())
        : QString();
}

Value ComputeUtility(const Scene& scene, const Plug& plug)
{
    const NodeType& type = plug.node->GetType();
    const QString end = Ending(plug);
    const auto number
        = [&](const char* name) { return Number(scene, plug, QString::fromLatin1(name) + end); };
    const int operation = static_cast<int>(Number(scene, plug, "operation"));
    if (type.Is("multiplyDivide"))
        return Calculated(operation, number("input1"), number("input2"));
    if (type.Is("reverse"))
        return 1 - number("input");
    if (type.Is("clamp"))
        return std::max(number("min"), std::min(number("max"), number("input")));
    if (type.Is("addDoubleLinear"))
        return number("input1") + number("input2");
    if (type.Is("multDoubleLinear"))
        return number("input1") * number("input2");
    if (type.Is("unitConversion"))
        return number("input") * Number(scene, plug, "conversionFactor");
    if (type.Is("condition")) {
        const bool holds = Compared(
            operation, Number(scene, plug, "firstTerm"), Number(scene, plug, "secondTerm"));
        return number(holds ? "colorIfTrue" : "colorIfFalse");
    }
    if (type.Is("blendColors")) {
        const double share = Number(scene, plug, "blender");
        return number("color1") * share + number("color2") * (1 - share);
    }
    if (type.Is("setRange") || type.Is("remapValue")) {
        const bool range = type.Is("setRange");
        const double from = number(range ? "oldMin" : "inputMin");
        const double to = number(range ? "oldMax" : "inputMax");
        const double low = number(range ? "min" : "outputMin");
        const double high = number(range ? "max" : "outputMax");
        const double input = number(range ? "value" : "inputValue");
        const double share = to == from ? 0 : std::clamp((input - from) / (to - from), 0.0, 1.0);
        return low + (high - low) * share;
    }
    return {};
}

Value ComputeSum(const Scene& scene, const Plug& plug)
{
    const QString end = Ending(plug);
    const bool triple = plug.attribute->longName.startsWith(QLatin1String("output3D"));
    const QString input = triple ? QStringLiteral("input3D") : QStringLiteral("input1D");
    const int operation = static_cast<int>(Number(scene, plug, "operation"));
    const QVector<int> indices = plug.node->Indices(input);
    double sum = 0;
    for (int i = 0; i < indices.size(); ++i) {
        const QString child = triple ? QLatin1Char('.') + input + end : QString();
        const double value
            = Number(scene, plug, QStringLiteral("%1[%2]").arg(input).arg(indices[i]) + child);
        sum += operation == 2 && i > 0 ? -value : value;
    }
    return operation == 3 && !indices.isEmpty() ? sum / indices.size() : sum;
}

Value ComputeExpression(const Scene& scene, const Plug& plug)
{
    if (!scene.runExpression || !plug.key.startsWith(QLatin1String("output[")))
        return {};
    return scene.runExpression(*plug.node, plug.key.midRef(7, plug.key.size() - 8).toInt());
}

Value ComputeWeighted(const Scene& scene, const Plug& plug)
{
    double sum = 0;
    for (const int index : plug.node->Indices(QStringLiteral("input"))) {
        sum += Number(scene, plug, QStringLiteral("input[%1]").arg(index))
            * Number(scene, plug, QStringLiteral("weight[%1]").arg(index));
    }
    return sum;
}

Value ComputeMatrix(const Scene& scene, const Plug& plug)
{
    const NodeType& type = plug.node->GetType();
    const auto matrixOf = [&](const QString& name) {
        const Value value = scene.GetValue(plug.Sibling(name));
        return value.GetKind() == Value::Kind::Matrix
            ? Matrix4::FromCells(value.Get<Matrix>().cells)
            : Matrix4();
    };
    if (type.Is("multMatrix")) {
        Matrix4 product;
        for (const int index : plug.node->Indices(QStringLiteral("matrixIn")))
            product = product * matrixOf(QStringLiteral("matrixIn[%1]").arg(index));
        return product.ToMatrix();
    }
    const auto triple = [&](const char* name) { return GetTriple(scene, *plug.node, name); };
    if (type.Is("composeMatrix")) {
        return (Matrix4::Scaling(triple("inputScale"))
            * Matrix4::Rotation(triple("inputRotate"), RotateOrder::Xyz)
            * Matrix4::Translation(triple("inputTranslate")))
            .ToMatrix();
    }
    if (type.Is("distanceBetween")) {
        const Vector from = matrixOf(QStringLiteral("inMatrix1")).Map(triple("point1"));
        const Vector to = matrixOf(QStringLiteral("inMatrix2")).Map(triple("point2"));
        return (to - from).Length();
    }
    if (plug.HasChildren())
        return {};
    const int order = static_cast<int>(Number(scene, plug, "inputRotateOrder"));
    const Decomposition parts = Decompose(
        matrixOf(QStringLiteral("inputMatrix")), static_cast<RotateOrder>(std::clamp(order, 0, 5)));
    const QString& name = plug.attribute->parent->longName;
    const Vector& wanted = name.endsWith(QLatin1String("Translate")) ? parts.translation
        : name.endsWith(QLatin1String("Rotate"))                     ? parts.rotation
                                                                     : parts.scale;
    const QString axis = Ending(plug);
    return axis == QLatin1String("X") ? wanted.x : axis == QLatin1String("Y") ? wanted.y : wanted.z;
}

} // namespace

Value Computed(const Scene& scene, const Plug& plug)
{
    const NodeType& type = plug.node->GetType();
    if (type.Is("time") && plug.attribute->longName == QLatin1String("outTime"))
        return scene.EvaluationTime();
    if (plug.attribute->isWritable)
        return {};
    if (type.IsDag())
        return ComputeDag(scene, plug);
    if (type.Is("animCurve"))
        return ComputeCurve(scene, plug);
    if (type.Is("multMatrix") || type.Is("composeMatrix") || type.Is("decomposeMatrix")
        || type.Is("distanceBetween"))
        return ComputeMatrix(scene, plug);
    if (plug.HasChildren())
        return {};
    if (type.Is("expression"))
        return ComputeExpression(scene, plug);
    if (type.Is("blendWeighted"))
        return ComputeWeighted(scene, plug);
    if (type.Is("plusMinusAverage"))
        return ComputeSum(scene, plug);
    if (type.Is("lambert") && plug.attribute->longName.startsWith(QLatin1String("outColor")))
        return Number(scene, plug, QStringLiteral("color") + Ending(plug));
    return ComputeUtility(scene, plug);
}

} // namespace host::scene
