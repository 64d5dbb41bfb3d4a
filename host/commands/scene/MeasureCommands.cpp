// Notes and measures in the view, and what of things is drawn besides their form.

#include "commands/scene/RigTables.h"
#include "commands/scene/SceneCommands.h"
#include "scene/Transforms.h"

namespace host::commands {

using namespace scene;

namespace {

Vector PlaceOf(const Call& call, const char* flag)
{
    return {call.Float(flag, 0), call.Float(flag, 1), call.Float(flag, 2)};
}

/// A transform with a shape below it, both named after the transform.
Node& CreateShape(const char* type, const char* usual, Node* parent = nullptr)
{
    Scene& scene = Scene::Current();
    const QString name = scene.Names().UnusedName(QLatin1String(usual));
    Node& transform = scene.Create(*NodeType::Find(QStringLiteral("transform")), name, parent);
    return scene.Create(*NodeType::Find(QLatin1String(type)), ShapeName(name), &transform);
}

Outcome Annotate(Call& call)
{
    Scene& scene = Scene::Current();
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    Node* object = found.items.first().node.get();
    if (!object->IsDag())
        return NoMatch(scene.DisplayName(*object));
    Node* anchor = object->IsShape() ? object->GetParent() : object;
    Node& shape = CreateShape("annotationShape", "annotation1");
    scene.SetValue(Plug::Find(shape, QStringLiteral("text")), call.Text("text"));
    const Vector usual = WorldPivot(scene, *anchor);
    SetTriple(
        scene, *shape.GetParent(), "translate", call.Has("point") ? PlaceOf(call, "point") : usual);
    scene.Connect(Plug::Find(*anchor, QStringLiteral("worldMatrix[0]")),
        Plug::Find(shape, QStringLiteral("dagObjectMatrix[0]")));
    SelectNodes({shape.GetParent()});
    return scene.DisplayName(shape);
}

/// A locator that stands at the place; made where there is none.
Node& LocatorAt(const Vector& place)
{
    Scene& scene = Scene::Current();
    for (Node* node : scene.Nodes()) {
        const bool stands = node->GetType().Is("locator")
            && WorldMatrix(scene, *node).Map(GetTriple(scene, *node, "localPosition")) == place;
        if (stands)
            return *node;
    }
    Node& locator = CreateShape("locator", "locator1");
    SetTriple(scene, *locator.GetParent(), "translate", place);
    return locator;
}

Outcome DistanceDimension(Call& call)
{
    Scene& scene = Scene::Current();
    if (!call.Has("startPoint") || !call.Has("endPoint"))
        return Error{QStringLiteral("distanceDimension: Say from where to where.")};
    Node& start = LocatorAt(PlaceOf(call, "startPoint"));
    Node& end = LocatorAt(PlaceOf(call, "endPoint"));
    Node& shape = CreateShape("distanceDimShape", "distanceDimension1");
    const auto join = [&](Node& locator, const char* input) {
        scene.Connect(Plug::Find(locator, QStringLiteral("worldPosition[0]")),
            Plug::Find(shape, QLatin1String(input)));
    };
    join(start, "startPoint");
    join(end, "endPoint");
    SelectNodes({shape.GetParent()});
    return scene.DisplayName(shape);
}

/// Flags and the switches that they turn.
constexpr struct
{
    const char* flag;
    const char* attribute;
} SWITCHES[] = {
    {"boundingBox", "overrideLevelOfDetail"},
    {"localAxis", "displayLocalAxis"},
    {"rotatePivot", "displayRotatePivot"},
    {"scalePivot", "displayScalePivot"},
    {"selectHandle", "displayHandle"},
    {"template", "template"},
    {"visibility", "visibility"},
};

Outcome Toggle(Call& call)
{
    Scene& scene = Scene::Current();
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    for (Node* node : found.Nodes()) {
        for (const auto& row : SWITCHES) {
            const Plug plug = Plug::Find(*node, QLatin1String(row.attribute));
            if (!call.Has(row.flag) || !plug.IsValid() || !plug.IsSettable())
                continue;
            const bool now = scene.GetValue(plug).ToBool();
            if (call.IsQuery())
                return now;
            scene.SetValue(plug, call.Has("state") ? call.Bool("state") : !now);
        }
    }
    return call.IsQuery() ? Outcome(false) : Outcome();
}

const CommandRow COMMANDS[] = {
    {"annotate", "string", "", "[String...]", "point/p length length length c; text/tx str c",
        Annotate},
    {"distanceDimension", "string", "", "",
        "endPoint/ep length length length c; startPoint/sp length length length c",
        DistanceDimension},
    {"toggle", "any", "Q", "[String...]",
        "boundingBox/box - cq; localAxis/la - cq; rotatePivot/rp - cq; scalePivot/sp - cq;"
        "selectHandle/sh - cq; state/st B c; template/te - cq; visibility/vis - cq",
        Toggle},
};

} // namespace

void RegisterSceneMeasures(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
