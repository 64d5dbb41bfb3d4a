#include "ui/window/SceneWires.h"

#include "engine/Engine.h"
#include "scene/Shapes.h"
#include "scene/Transforms.h"

namespace host::ui {

namespace {

using namespace scene;

constexpr int BOX_EDGES[][2] = {
    {0, 1}, {2, 3}, {4, 5}, {6, 7}, {0, 2}, {1, 3}, {4, 6}, {5, 7}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};

QVector3D ToPoint(const Vector& vector)
{
    return {
        static_cast<float>(vector.x), static_cast<float>(vector.y), static_cast<float>(vector.z)};
}

bool IsShown(const Scene& scene, Node& node)
{
    const Plug plug = Plug::Find(node, QStringLiteral("visibility"));
    return !plug.IsValid() || scene.GetValue(plug).ToBool();
}

/// Three lines through the place of something that has no form.
void AddCross(const Matrix4& matrix, bool isSelected, QVector<SceneWires::Line>& lines)
{
    constexpr double ARM = 0.5;
    for (const Vector& arm : {Vector{ARM, 0, 0}, Vector{0, ARM, 0}, Vector{0, 0, ARM}})
        lines += SceneWires::Line{
            ToPoint(matrix.Map(arm * -1)), ToPoint(matrix.Map(arm)), isSelected};
}

void AddBox(
    const Box& box, const Matrix4& matrix, bool isSelected, QVector<SceneWires::Line>& lines)
{
    const QVector<Vector> corners = box.Corners();
    for (const auto& edge : BOX_EDGES) {
        lines += SceneWires::Line{ToPoint(matrix.Map(corners[edge[0]])),
            ToPoint(matrix.Map(corners[edge[1]])), isSelected};
    }
}

/// A place in the walk down the hierarchy; what is selected above counts for all below.
struct Place
{
    Node* node = nullptr;
    bool isSelected = false;
};

} // namespace

const QVector<SceneWires::Line>& SceneWires::GetLines()
{
    // Without commands there is no scene yet.
    if (m_isCurrent || !Engine::Exists() || !Engine::Current().commandState)
        return m_lines;
    m_isCurrent = true;
    m_lines.clear();
    const Scene& scene = Scene::Current();
    QVector<Place> waiting;
    for (Node* node : scene.Root().Children()) {
        if (!node->IsDefault())
            waiting += Place{node, false};
    }
    int forms = 0;
    while (!waiting.isEmpty() && forms < MAXIMUM_FORMS) {
        const Place place = waiting.takeLast();
        if (!IsShown(scene, *place.node))
            continue;
        const bool isSelected = place.isSelected || scene.IsSelected(*place.node);
        for (Node* child : place.node->Children())
            waiting += Place{child, isSelected};
        if (!place.node->IsShape() && !place.node->GetType().Is("joint"))
            continue;
        ++forms;
        const Matrix4 matrix = WorldMatrix(scene, *place.node);
        const Box box = ShapeBox(scene, *place.node);
        if (box.isEmpty || place.node->GetType().Is("locator"))
            AddCross(matrix, isSelected, m_lines);
        else
            AddBox(box, matrix, isSelected, m_lines);
    }
    return m_lines;
}

} // namespace host::ui
