#include "scene/Components.h"

#include "scene/Shapes.h"

#include <QRegularExpression>

namespace host::scene {

namespace {

struct Range
{
    int first = 0;
    int last = -1;
};

/// The range between the brackets; `count` stands for "*". An empty range when it is none.
Range ReadRange(const QString& text, int count)
{
    if (text == QLatin1String("*"))
        return {0, count - 1};
    static const QRegularExpression range(QStringLiteral("^(\\d+)(?::(\\d+))?$"));
    const auto match = range.match(text);
    if (!match.hasMatch())
        return {};
    const int first = match.captured(1).toInt();
    return {first, match.capturedLength(2) > 0 ? match.captured(2).toInt() : first};
}

int CountOf(const PartCounts& counts, const QString& kind)
{
    if (kind == QLatin1String("vtx") || kind == QLatin1String("pt"))
        return counts.vertices;
    if (kind == QLatin1String("e"))
        return counts.edges;
    if (kind == QLatin1String("f"))
        return counts.faces;
    return kind == QLatin1String("map") ? counts.textureVertices : 0;
}

/// The node itself when it is a mesh, else its first shape that is.
const Node* MeshOf(const Node& node)
{
    if (node.GetType().Is("mesh"))
        return &node;
    for (const Node* shape : node.Shapes()) {
        if (shape->GetType().Is("mesh"))
            return shape;
    }
    return nullptr;
}

} // namespace

QString LegalComponent(const Scene& scene, const Node& node, const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^(vtx|e|f|map|pt)\\[([^\\]]*)\\]$"));
    const auto match = form.match(text);
    const Node* mesh = match.hasMatch() ? MeshOf(node) : nullptr;
    if (!mesh)
        return {};
    const QString kind = match.captured(1);
    const int count = CountOf(CountParts(scene, *mesh), kind);
    const Range range = ReadRange(match.captured(2), count);
    if (range.last < range.first || range.last >= count)
        return {};
    if (range.first == range.last)
        return QStringLiteral("%1[%2]").arg(kind).arg(range.first);
    return QStringLiteral("%1[%2:%3]").arg(kind).arg(range.first).arg(range.last);
}

QStringList FlattenedComponent(const QString& component)
{
    const int open = component.indexOf(QLatin1Char('['));
    const QString kind = component.left(open);
    const Range range = ReadRange(component.mid(open + 1, component.size() - open - 2), 0);
    QStringList parts;
    for (int i = range.first; i <= range.last; ++i)
        parts += QStringLiteral("%1[%2]").arg(kind).arg(i);
    return parts;
}

int CountComponents(const QString& component)
{
    const int open = component.indexOf(QLatin1Char('['));
    const Range range = ReadRange(component.mid(open + 1, component.size() - open - 2), 0);
    return range.last - range.first + 1;
}

} // namespace host::scene
