#include "commands/scene/DeformerTargets.h"

#include "scene/Deformers.h"

namespace host::commands {

using namespace scene;

namespace {

Plug Envelope(Node& deformer)
{
    return Plug::Find(deformer, QStringLiteral("envelope"));
}

} // namespace

FoundShapes ShapesToDeform(const QVector<Item>& items)
{
    FoundShapes found;
    for (const Item& item : items) {
        QVector<Node*> tree;
        item.node->CollectTree(tree);
        for (Node* node : qAsConst(tree)) {
            const bool fits = node->IsShape() && FormInput(*node).IsValid();
            if (fits && !found.shapes.contains(node))
                found.shapes += node;
        }
    }
    if (found.shapes.isEmpty())
        found.error = Error{QStringLiteral("No deformable objects selected.")};
    return found;
}

std::optional<Error> FindDeformer(const Call& call, const char* type, Node*& deformer)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return found.error;
    for (Node* node : found.Nodes()) {
        QVector<Node*> candidates{node};
        candidates += DeformersOf(*node);
        for (const Node* shape : node->Shapes())
            candidates += DeformersOf(*shape);
        for (Node* candidate : qAsConst(candidates)) {
            if (candidate->GetType().Is(type)) {
                deformer = candidate;
                return std::nullopt;
            }
        }
    }
    return Error{QStringLiteral("No object matches name: %1 (of the type %2)")
                     .arg(Scene::Current().DisplayName(found.items.first()), QLatin1String(type)),
        ErrorKind::Value};
}

Node& CreateDeformer(const char* type, const QString& name, const QVector<Node*>& shapes)
{
    Scene& scene = Scene::Current();
    Node& deformer = scene.Create(*NodeType::Find(QLatin1String(type)), name);
    for (Node* shape : shapes)
        InsertDeformer(scene, deformer, *shape);
    return deformer;
}

Node& CreateHandle(Node& deformer, const char* shape, const QString& name)
{
    Scene& scene = Scene::Current();
    Node& handle = scene.Create(
        *NodeType::Find(QStringLiteral("transform")), scene.Names().UnusedName(name));
    scene.Create(*NodeType::Find(QLatin1String(shape)), ShapeName(handle.GetName()), &handle);
    AddHandle(scene, handle, deformer);
    return handle;
}

std::optional<Outcome> QueryDeformer(const Call& call, Node& deformer)
{
    if (call.Has("geometry"))
        return Outcome(DisplayNames(DeformedShapes(deformer)));
    if (call.Has("envelope"))
        return Outcome(Scene::Current().GetValue(Envelope(deformer)));
    return std::nullopt;
}

void EditDeformer(const Call& call, Node& deformer)
{
    if (call.Has("envelope"))
        Scene::Current().SetValue(Envelope(deformer), call.Float("envelope"));
}

} // namespace host::commands
