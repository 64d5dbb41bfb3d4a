// Expressions: small scripts that set attributes as time goes on, and what runs them again.

#include "commands/Session.h"
#include "commands/scene/SceneCommands.h"
#include "scene/ExpressionText.h"

namespace host::commands {

using namespace scene;

namespace {

Plug TextOf(Node& node)
{
    return Plug::Find(node, QStringLiteral("expression"));
}

void DropConnections(Node& node)
{
    Scene& scene = Scene::Current();
    for (const ConnectionPointer& connection : node.GetIncoming().values())
        scene.Disconnect(connection);
    const auto outgoing = node.GetOutgoing();
    for (const auto& [serial, connection] : outgoing)
        scene.Disconnect(connection);
}

/// An attribute can be set by one thing only.
std::optional<Error> TakenError(const ExpressionParts& parts)
{
    const Scene& scene = Scene::Current();
    if (!parts.unknown.isEmpty()) {
        return Error{
            QStringLiteral("Attribute not found or variable missing '$': %1.").arg(parts.unknown)};
    }
    for (const Plug& output : parts.outputs) {
        if (output.Incoming()) {
            return Error{QStringLiteral("Attribute already controlled by an expression, keyframe, "
                                        "or other connection: %1.")
                             .arg(scene.DisplayName(output))};
        }
        if (output.IsLocked() || !output.attribute->isWritable) {
            return Error{
                QStringLiteral("The attribute cannot be set: %1.").arg(scene.DisplayName(output))};
        }
    }
    return std::nullopt;
}

std::optional<Error> SetText(const Call& call, Node& node)
{
    Scene& scene = Scene::Current();
    Node* object = nullptr;
    if (call.Has("object")) {
        const FoundItems found = FindAll({call.Text("object")});
        if (found.error)
            return found.error;
        object = found.items.first().node.get();
    }
    DropConnections(node);
    const ExpressionParts parts = ReadExpression(call.Text("string"), FindPlugs, object);
    if (const auto error = TakenError(parts))
        return error;
    scene.SetValue(TextOf(node), parts.text);
    const auto plugOf = [&](const char* name, int index) {
        return Plug::Find(node, QLatin1String(name)).Element(index);
    };
    for (int i = 0; i < parts.inputs.size(); ++i)
        scene.Connect(parts.inputs[i], plugOf("input", i));
    if (parts.usesTime) {
        const QVector<Plug> time = FindPlugs(QStringLiteral(":time1.outTime"));
        if (!time.isEmpty())
            scene.Connect(time.first(), Plug::Find(node, QStringLiteral("time")));
    }
    for (int i = 0; i < parts.outputs.size(); ++i)
        scene.Connect(plugOf("output", i), parts.outputs[i]);
    Expressions& expressions = Session::Current().expressions;
    if (expressions.Run(scene, node))
        return std::nullopt;
    expressions.Forget();
    return Error{QStringLiteral("expression: What cannot run was not kept.")};
}

std::optional<Error> Change(const Call& call, Node& node)
{
    if (call.Has("alwaysEvaluate")) {
        Scene::Current().SetValue(
            Plug::Find(node, QStringLiteral("alwaysEvaluate")), call.Bool("alwaysEvaluate"));
    }
    if (call.Has("string"))
        return SetText(call, node);
    return std::nullopt;
}

StringList Names(const Node& node)
{
    StringList names;
    for (const auto& [serial, connection] : node.GetOutgoing()) {
        names += Scene::Current().DisplayName(
            Plug::FromKey(*connection->destination, connection->destinationKey));
    }
    return names;
}

Outcome Query(const Call& call, Node& node)
{
    Scene& scene = Scene::Current();
    if (call.Has("alwaysEvaluate"))
        return scene.GetStored(Plug::Find(node, QStringLiteral("alwaysEvaluate")));
    if (call.Has("timeDependent"))
        return node.IncomingTo(QStringLiteral("time")) != nullptr;
    // The object is spelled out in the text that is kept.
    if (call.Has("object"))
        return QString();
    return call.Has("attribute") ? Outcome(Names(node)) : Outcome(ShownExpression(scene, node));
}

Outcome Expression(Call& call)
{
    Scene& scene = Scene::Current();
    if (call.IsCreate()) {
        if (!call.Has("string"))
            return Error{QStringLiteral("expression: There is no text (string).")};
        const NewName name = NameFor(call, QStringLiteral("expression1"));
        if (name.error)
            return *name.error;
        Node& node = scene.Create(*NodeType::Find(QStringLiteral("expression")), name.name);
        const auto error = Change(call, node);
        return error ? Outcome(*error) : Outcome(scene.DisplayName(node));
    }
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    Node& node = *found.items.first().node;
    if (!node.GetType().Is("expression"))
        return NoMatch(scene.DisplayName(node));
    if (call.IsQuery())
        return Query(call, node);
    const auto error = Change(call, node);
    return error ? Outcome(*error) : Outcome(scene.DisplayName(node));
}

/// What was worked out before is worked out again when it is asked for.
Outcome MarkDirty(Call& call)
{
    const FoundItems found
        = call.GetObjects().isEmpty() ? FoundItems() : FindAll(call.ObjectTexts());
    if (found.error)
        return *found.error;
    Session::Current().expressions.Forget();
    return {};
}

Outcome Evaluate(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    const Scene& scene = Scene::Current();
    for (const Item& item : found.items) {
        if (item.IsPlug()) {
            scene.GetValue(Plug::FromKey(*item.node, item.part));
            continue;
        }
        for (const Attribute* attribute : item.node->AllAttributes())
            scene.GetValue(Plug::Find(*item.node, attribute->longName));
    }
    return {};
}

const CommandRow COMMANDS[] = {
    {"expression", "string", "QE", "[String...]",
        "alwaysEvaluate/ae B cqe; animated/an int c; attribute/a str cq; name/n str c;"
        "object/o str cqe; safe/sf - c; shortNames/sn - ce; string/s str cqe; timeDependent/td - q;"
        "unitConversion/uc str ce",
        Expression},
    {"dgdirty", "none", "", "[String...]",
        "allPlugs/a - c; clean/c - c; propagation/p - c; verbose/v - c", MarkDirty},
    {"dgeval", "none", "", "[String...]", "src/src - c; verbose/v - c", Evaluate},
};

} // namespace

void RegisterSceneExpressions(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
