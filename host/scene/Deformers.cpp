#include "scene/Deformers.h"

#include <algorithm>

namespace host::scene {

namespace {

const QString INPUT = QStringLiteral("inputGeometry");
const QString OUTPUT = QStringLiteral("outputGeometry");
const QString HANDLES = QStringLiteral("handles");

/// "outputGeometry[2]" belongs to "inputGeometry[2]".
QString InputKey(const QString& outputKey)
{
    return INPUT + outputKey.mid(OUTPUT.size());
}

} // namespace

bool IsDeformer(const Node& node)
{
    return node.GetType().Is("geometryFilter");
}

Plug FormInput(Node& shape)
{
    const Plug mesh = Plug::Find(shape, QStringLiteral("inMesh"));
    return mesh.IsValid() ? mesh : Plug::Find(shape, QStringLiteral("create"));
}

ConnectionPointer BehindDeformers(ConnectionPointer connection)
{
    while (connection && IsDeformer(*connection->source))
        connection = connection->source->IncomingTo(InputKey(connection->sourceKey));
    return connection;
}

QVector<Node*> DeformersOf(const Node& shape)
{
    QVector<Node*> deformers;
    const Plug input = FormInput(const_cast<Node&>(shape));
    ConnectionPointer connection = input.IsValid() ? shape.IncomingTo(input.key) : nullptr;
    while (connection && IsDeformer(*connection->source)) {
        deformers += connection->source;
        connection = connection->source->IncomingTo(InputKey(connection->sourceKey));
    }
    return deformers;
}

QVector<Node*> DeformedShapes(const Node& deformer)
{
    QVector<Node*> shapes;
    for (const int index : deformer.Indices(OUTPUT)) {
        const QString key = QStringLiteral("%1[%2]").arg(OUTPUT).arg(index);
        const auto& outgoing = deformer.GetOutgoing();
        const auto found = std::find_if(outgoing.begin(), outgoing.end(),
            [&](const auto& entry) { return entry.second->sourceKey == key; });
        if (found == outgoing.end())
            continue;
        Node* next = found->second->destination;
        if (next->IsShape())
            shapes += next;
        else if (IsDeformer(*next))
            shapes += DeformedShapes(*next);
    }
    return shapes;
}

void InsertDeformer(Scene& scene, Node& deformer, Node& shape)
{
    const Plug input = FormInput(shape);
    if (!input.IsValid())
        return;
    const int index = deformer.NextIndex(OUTPUT);
    if (const ConnectionPointer before = shape.IncomingTo(input.key)) {
        scene.Connect(Plug::FromKey(*before->source, before->sourceKey),
            Plug::Find(deformer, INPUT).Element(index));
    }
    scene.Connect(Plug::Find(deformer, OUTPUT).Element(index), input);
}

void BypassDeformer(Scene& scene, Node& deformer)
{
    const auto outgoing = deformer.GetOutgoing();
    for (const auto& [serial, connection] : outgoing) {
        if (!connection->sourceKey.startsWith(OUTPUT))
            continue;
        const ConnectionPointer before = deformer.IncomingTo(InputKey(connection->sourceKey));
        const Plug behind = Plug::FromKey(*connection->destination, connection->destinationKey);
        if (before)
            scene.Connect(Plug::FromKey(*before->source, before->sourceKey), behind);
        else
            scene.Disconnect(connection);
    }
}

void AddHandle(Scene& scene, Node& handle, Node& deformer)
{
    const Plug list = Plug::Find(deformer, HANDLES);
    scene.Connect(
        Plug::Find(handle, QStringLiteral("message")), list.Element(deformer.NextIndex(list.key)));
}

QVector<Node*> PartnersOf(const Node& node)
{
    QVector<Node*> partners;
    for (const ConnectionPointer& connection : node.GetIncoming()) {
        if (connection->destinationKey.startsWith(HANDLES))
            partners += connection->source;
    }
    QVector<Node*> tree;
    node.CollectTree(tree);
    for (const Node* below : qAsConst(tree)) {
        for (const auto& [serial, connection] : below->GetOutgoing()) {
            if (connection->destinationKey.startsWith(HANDLES))
                partners += connection->destination;
        }
    }
    return partners;
}

} // namespace host::scene
