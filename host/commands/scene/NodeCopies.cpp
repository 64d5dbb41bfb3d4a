#include "commands/scene/NodeCopies.h"

#include "commands/scene/SceneCommands.h"
#include "commands/scene/SetMembership.h"
#include "scene/Deformers.h"
#include "scene/Shapes.h"

namespace host::commands {

using namespace scene;

namespace {

void CopyValues(Node& from, Node& to)
{
    Scene& scene = Scene::Current();
    for (const auto& attribute : from.GetDynamicAttributes().TopLevel())
        scene.AddAttribute(to, attribute);
    for (const QString& key : from.ValueKeys()) {
        const Plug plug = Plug::FromKey(to, key);
        if (plug.IsValid() && plug.attribute->type->storage != Storage::None)
            scene.SetValue(plug, *from.FindValue(key));
    }
    const auto states = from.GetStates();
    for (auto state = states.begin(); state != states.end(); ++state)
        scene.SetState(Plug::FromKey(to, state.key()), state.value());
}

/// What flows into the original at this moment becomes the copy's own value.
void KeepFlowing(Node& from, Node& to)
{
    Scene& scene = Scene::Current();
    for (const ConnectionPointer& connection : from.GetIncoming()) {
        const Plug plug = Plug::FromKey(from, connection->destinationKey);
        const bool keeps = plug.IsValid() && plug.attribute->type->storage != Storage::None;
        const Value value = keeps ? scene.GetValue(plug) : Value();
        if (!value.IsNone())
            scene.SetValue(Plug::FromKey(to, plug.key), value);
    }
}

void ShareInputs(Node& from, Node& to)
{
    for (const ConnectionPointer& connection : from.GetIncoming().values()) {
        Scene::Current().Connect(Plug::FromKey(*connection->source, connection->sourceKey),
            Plug::FromKey(to, connection->destinationKey));
    }
}

void CopyMaker(Node& shape, Node& copy)
{
    Scene& scene = Scene::Current();
    Node* maker = MakerOf(shape);
    if (!maker)
        return;
    Node& other = scene.Create(maker->GetType(), scene.Names().UnusedName(maker->GetName()));
    CopyValues(*maker, other);
    const ConnectionPointer made = BehindDeformers(shape.IncomingTo(FormInput(shape).key));
    scene.Connect(Plug::FromKey(other, made->sourceKey), FormInput(copy));
}

void CopyForm(Node& shape, Node& copy, const CopyOptions& options)
{
    Scene& scene = Scene::Current();
    for (Node* set : SetsOf(shape)) {
        if (set->GetType().Is("shadingEngine"))
            AddToSet(*set, {copy.shared_from_this(), {}, false});
    }
    if (!copy.FindAttribute(QStringLiteral("storedSize")) || !MakerOf(shape))
        return;
    if (options.upstream) {
        CopyMaker(shape, copy);
        return;
    }
    // The copy has the form, but nothing that makes it.
    ShareInputs(shape, copy);
    KeepForm(scene, copy);
    for (const ConnectionPointer& connection : copy.GetIncoming().values()) {
        if (!options.inputs)
            scene.Disconnect(connection);
    }
}

QString ChildName(const Node& child, const Node& parentCopy, const CopyOptions& options)
{
    // "box" and its "boxShape" stay a pair.
    if (child.IsShape() && child.GetName() == ShapeName(child.GetParent()->GetName()))
        return ShapeName(parentCopy.GetName());
    return options.renameChildren ? Scene::Current().Names().UnusedName(child.GetName())
                                  : child.GetName();
}

} // namespace

Node& CopyTree(Node& root, const QString& name, const CopyOptions& options, QVector<Node*>& copies)
{
    Scene& scene = Scene::Current();
    QVector<Node*> originals;
    root.CollectTree(originals);
    QHash<const Node*, Node*> copyOf;
    for (Node* node : qAsConst(originals)) {
        Node* parent = node == &root ? root.GetParent() : copyOf.value(node->GetParent());
        const bool wanted = node == &root || !options.parentOnly
            || (node->IsShape() && node->GetParent() == &root);
        if (!wanted || (node != &root && !parent))
            continue;
        const QString wantedName = node == &root ? name : ChildName(*node, *parent, options);
        Node& copy = scene.Create(node->GetType(), wantedName, parent);
        copyOf.insert(node, &copy);
        copies += &copy;
        CopyValues(*node, copy);
        if (node->IsShape())
            CopyForm(*node, copy, options);
        else if (options.inputs)
            ShareInputs(*node, copy);
        else
            KeepFlowing(*node, copy);
    }
    return *copies.first();
}

} // namespace host::commands
