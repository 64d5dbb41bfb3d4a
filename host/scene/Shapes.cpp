#include "scene/Shapes.h"

#include "scene/Deformers.h"
#include "scene/Transforms.h"

#include <algorithm>

namespace host::scene {

namespace {

double Number(const Scene& scene, const Node& node, const char* name)
{
    const Plug plug = Plug::Find(const_cast<Node&>(node), QLatin1String(name));
    return plug.IsValid() ? scene.GetValue(plug).ToFloat() : 0;
}

int Whole(const Scene& scene, const Node& node, const char* name)
{
    return static_cast<int>(Number(scene, node, name));
}

/// Half the size of what a node makes, along its own axis (up) and across.
Vector HalfSize(const Scene& scene, const Node& maker)
{
    const NodeType& type = maker.GetType();
    const auto number = [&](const char* name) { return Number(scene, maker, name); };
    const double radius = number("radius");
    if (type.Is("polyCube"))
        return {number("width") / 2, number("height") / 2, number("depth") / 2};
    if (type.Is("polyPlane"))
        return {number("width") / 2, 0, number("height") / 2};
    if (type.Is("makeNurbPlane"))
        return {number("width") / 2, 0, number("width") * number("lengthRatio") / 2};
    if (type.Is("polyCylinder") || type.Is("polyCone"))
        return {radius, number("height") / 2, radius};
    if (type.Is("makeNurbCylinder") || type.Is("makeNurbCone"))
        return {radius, radius * number("heightRatio") / 2, radius};
    if (type.Is("makeNurbCircle"))
        return {radius, 0, radius};
    const double section
        = type.Is("polyTorus") ? number("sectionRadius") : radius * number("heightRatio");
    if (type.Is("polyTorus") || type.Is("makeNurbTorus"))
        return {radius + section, section, radius + section};
    return {radius, radius, radius};
}

/// The half size with the axis of the maker pointing where it does, for the main axes.
Vector Turned(const Scene& scene, const Node& maker, const Vector& half)
{
    const char* name = maker.GetType().Is("makeNurbCircle") ? "normal" : "axis";
    const Vector axis = GetTriple(scene, maker, name);
    const double x = std::abs(axis.x);
    const double y = std::abs(axis.y);
    const double z = std::abs(axis.z);
    if (x > y && x > z)
        return {half.y, half.x, half.z};
    if (z > y && z > x)
        return {half.x, half.z, half.y};
    return half;
}

PartCounts GridCounts(int columns, int rows)
{
    PartCounts counts;
    counts.vertices = (columns + 1) * (rows + 1);
    counts.edges = columns * (rows + 1) + rows * (columns + 1);
    counts.faces = columns * rows;
    counts.textureVertices = counts.vertices;
    counts.triangles = counts.faces * 2;
    return counts;
}

PartCounts CubeCounts(int width, int height, int depth)
{
    PartCounts counts;
    counts.faces = 2 * (width * height + height * depth + depth * width);
    counts.vertices = counts.faces + 2;
    counts.edges = counts.faces * 2;
    counts.textureVertices = (2 * height + 2 * depth + 1) * (width + 1) + 2 * depth * (height + 1);
    counts.triangles = counts.faces * 2;
    return counts;
}

PartCounts SphereCounts(int around, int high)
{
    PartCounts counts;
    counts.vertices = around * (high - 1) + 2;
    counts.faces = around * high;
    counts.edges = counts.vertices + counts.faces - 2;
    counts.textureVertices = (around + 1) * (high - 1) + 2 * around;
    counts.triangles = 2 * around * (high - 1);
    return counts;
}

/// A tube with `caps` rings in each of its ends; 0 closes them with one face.
PartCounts CylinderCounts(int around, int high, int caps)
{
    PartCounts counts;
    const int ends = caps > 0 ? 2 : 0;
    counts.vertices = around * (high + 1) + ends * (around * (caps - 1) + 1);
    counts.faces = around * high + (caps > 0 ? ends * around * caps : 2);
    counts.edges = counts.vertices + counts.faces - 2;
    counts.textureVertices = (around + 1) * (high + 1) + 2 * (around + (caps > 0 ? 1 : 0));
    counts.triangles
        = 2 * around * high + (caps > 0 ? ends * around * (2 * caps - 1) : 2 * (around - 2));
    return counts;
}

PartCounts ConeCounts(int around, int high, int caps)
{
    PartCounts counts;
    const int base = caps > 0 ? around * (caps - 1) + 1 : 0;
    counts.vertices = around * high + 1 + base;
    counts.faces = around * high + (caps > 0 ? around * caps : 1);
    counts.edges = counts.vertices + counts.faces - 2;
    counts.textureVertices = (around + 1) * high + around + around;
    counts.triangles = around * (2 * high - 1) + (caps > 0 ? around * (2 * caps - 1) : around - 2);
    return counts;
}

PartCounts TorusCounts(int around, int section)
{
    PartCounts counts;
    counts.vertices = around * section;
    counts.faces = counts.vertices;
    counts.edges = counts.vertices * 2;
    counts.textureVertices = (around + 1) * (section + 1);
    counts.triangles = counts.faces * 2;
    return counts;
}

/// Counts of more than this many parts in a row would not fit into numbers any more.
constexpr int MOST_PARTS = 10000;

PartCounts MadeCounts(const Scene& scene, const Node& maker)
{
    const NodeType& type = maker.GetType();
    const auto number
        = [&](const char* name) { return std::clamp(Whole(scene, maker, name), 0, MOST_PARTS); };
    if (type.Is("polyCube")) {
        return CubeCounts(
            number("subdivisionsWidth"), number("subdivisionsHeight"), number("subdivisionsDepth"));
    }
    if (type.Is("polyPlane"))
        return GridCounts(number("subdivisionsWidth"), number("subdivisionsHeight"));
    const int around = number("subdivisionsAxis");
    const int high = number("subdivisionsHeight");
    if (type.Is("polySphere"))
        return SphereCounts(around, high);
    if (type.Is("polyCylinder"))
        return CylinderCounts(around, high, number("subdivisionsCaps"));
    if (type.Is("polyCone"))
        return ConeCounts(around, high, number("subdivisionsCap"));
    return type.Is("polyTorus") ? TorusCounts(around, high) : PartCounts();
}

Box BoxAround(const Vector& middle, const Vector& half)
{
    Box box;
    box.Add(middle - half);
    box.Add(middle + half);
    return box;
}

} // namespace

void Box::Add(const Vector& point)
{
    if (isEmpty) {
        minimum = point;
        maximum = point;
        isEmpty = false;
        return;
    }
    minimum = {
        std::min(minimum.x, point.x), std::min(minimum.y, point.y), std::min(minimum.z, point.z)};
    maximum = {
        std::max(maximum.x, point.x), std::max(maximum.y, point.y), std::max(maximum.z, point.z)};
}

void Box::Add(const Box& other)
{
    if (other.isEmpty)
        return;
    Add(other.minimum);
    Add(other.maximum);
}

QVector<Vector> Box::Corners() const
{
    QVector<Vector> corners;
    for (int i = 0; i < 8; ++i) {
        corners += Vector{i & 1 ? maximum.x : minimum.x, i & 2 ? maximum.y : minimum.y,
            i & 4 ? maximum.z : minimum.z};
    }
    return corners;
}

Box Box::Mapped(const Matrix4& matrix) const
{
    Box box;
    if (isEmpty)
        return box;
    for (const Vector& corner : Corners())
        box.Add(matrix.Map(corner));
    return box;
}

Node* MakerOf(const Node& shape)
{
    for (const char* input : {"inMesh", "create"}) {
        if (const auto connection = BehindDeformers(shape.IncomingTo(QLatin1String(input))))
            return connection->source;
    }
    return nullptr;
}

namespace {

/// What was done to the form after it was made.
Matrix4 StoredMatrix(const Scene& scene, const Node& shape)
{
    const Plug plug = Plug::Find(const_cast<Node&>(shape), QStringLiteral("storedMatrix"));
    const Value value = plug.IsValid() ? scene.GetStored(plug) : Value();
    return value.GetKind() == Value::Kind::Matrix ? Matrix4::FromCells(value.Get<Matrix>().cells)
                                                  : Matrix4();
}

Box MadeBox(const Scene& scene, const Node& shape)
{
    if (const Node* maker = MakerOf(shape)) {
        const Vector middle = maker->GetType().Is("makeNurbCircle")
            ? GetTriple(scene, *maker, "center")
            : GetTriple(scene, *maker, "pivot");
        return BoxAround(middle, Turned(scene, *maker, HalfSize(scene, *maker)));
    }
    const Vector size = GetTriple(scene, shape, "storedSize");
    return BoxAround(GetTriple(scene, shape, "storedOffset"), size * 0.5);
}

} // namespace

void ReshapeBy(Scene& scene, Node& shape, const Matrix4& matrix)
{
    const Plug plug = Plug::Find(shape, QStringLiteral("storedMatrix"));
    if (plug.IsValid())
        scene.SetValue(plug, (StoredMatrix(scene, shape) * matrix).ToMatrix());
}

Box ShapeBox(const Scene& scene, const Node& shape)
{
    if (shape.GetType().Is("locator")) {
        return BoxAround(
            GetTriple(scene, shape, "localPosition"), GetTriple(scene, shape, "localScale"));
    }
    if (!shape.FindAttribute(QStringLiteral("storedSize")))
        return {};
    return MadeBox(scene, shape).Mapped(StoredMatrix(scene, shape));
}

PartCounts CountParts(const Scene& scene, const Node& shape)
{
    if (const Node* maker = MakerOf(shape))
        return MadeCounts(scene, *maker);
    PartCounts counts;
    const Vector stored = GetTriple(scene, shape, "storedCounts");
    counts.vertices = static_cast<int>(stored.x);
    counts.edges = static_cast<int>(stored.y);
    counts.faces = static_cast<int>(stored.z);
    counts.textureVertices = counts.vertices;
    // Every face of n edges makes n - 2 triangles, and closed forms use each edge twice.
    counts.triangles = qMax(0, 2 * (counts.edges - counts.faces));
    return counts;
}

Box WorldBox(const Scene& scene, const Node& node)
{
    Box box;
    QVector<Node*> tree;
    node.CollectTree(tree);
    for (const Node* below : qAsConst(tree)) {
        if (below->IsShape())
            box.Add(ShapeBox(scene, *below).Mapped(WorldMatrix(scene, *below)));
    }
    return box;
}

void KeepForm(Scene& scene, Node& shape)
{
    if (!MakerOf(shape) || !shape.FindAttribute(QStringLiteral("storedSize")))
        return;
    const Box box = MadeBox(scene, shape);
    const PartCounts counts = CountParts(scene, shape);
    SetTriple(scene, shape, "storedSize", box.maximum - box.minimum);
    SetTriple(scene, shape, "storedOffset", (box.maximum + box.minimum) * 0.5);
    SetTriple(scene, shape, "storedCounts",
        {double(counts.vertices), double(counts.edges), double(counts.faces)});
}

} // namespace host::scene
