// Keys that follow another attribute rather than time.

#include "commands/Session.h"
#include "commands/scene/KeyTargets.h"

namespace host::commands {

using namespace scene;

namespace {

Plug DriverOf(const Node& curve)
{
    const ConnectionPointer connection = curve.IncomingTo(QStringLiteral("input"));
    return connection ? Plug::FromKey(*connection->source, connection->sourceKey) : Plug();
}

/// The node that adds up what several drivers say; made where there is only one so far.
Node& BlenderFor(const Plug& plug, Node& first)
{
    Scene& scene = Scene::Current();
    const ConnectionPointer connection = plug.Incoming();
    if (connection && connection->source->GetType().Is("blendWeighted"))
        return *connection->source;
    Node& blender = scene.Create(*NodeType::Find(QStringLiteral("blendWeighted")),
        scene.Names().UnusedName(QStringLiteral("blendWeighted1")));
    scene.Connect(Plug::Find(first, QStringLiteral("output")),
        Plug::Find(blender, QStringLiteral("input[0]")));
    scene.Connect(Plug::Find(blender, QStringLiteral("output")), plug);
    return blender;
}

/// The curve of the attribute that follows the driver; null where something else is in the way.
Node* CurveBetween(const Plug& driver, const Plug& driven)
{
    Scene& scene = Scene::Current();
    const QVector<Node*> present = CurvesInto(driven);
    for (Node* curve : present) {
        if (DriverOf(*curve) == driver)
            return curve;
    }
    const bool keyedOverTime = present.size() == 1 && !DriverOf(*present.first()).IsValid();
    if (keyedOverTime || (present.isEmpty() && driven.Incoming()))
        return nullptr;
    Node& curve = CreateCurve(driven, "animCurveU");
    scene.Connect(driver, Plug::Find(curve, QStringLiteral("input")));
    const Plug output = Plug::Find(curve, QStringLiteral("output"));
    if (present.isEmpty()) {
        scene.Connect(output, driven);
        return &curve;
    }
    Node& blender = BlenderFor(driven, *present.first());
    const Plug inputs = Plug::Find(blender, QStringLiteral("input"));
    scene.Connect(output, inputs.Element(blender.NextIndex(inputs.key)));
    return &curve;
}

Outcome QueryDrivers(const Call& call, const QVector<Plug>& driven)
{
    Scene& scene = Scene::Current();
    StringList names;
    for (const Plug& plug : driven) {
        for (const Node* curve : CurvesInto(plug)) {
            const Plug driver = DriverOf(*curve);
            if (driver.IsValid())
                names += scene.DisplayName(driver);
        }
    }
    if (names.isEmpty())
        names += QStringLiteral("No drivers.");
    return call.Has("currentDriver") ? names.mid(0, 1) : names;
}

Outcome SetDrivenKeyframe(Call& call)
{
    Scene& scene = Scene::Current();
    const FoundPlugs found = KeyablePlugs(call);
    if (found.error)
        return *found.error;
    if (call.IsQuery())
        return QueryDrivers(call, found.plugs);
    const FoundPlug driver = FindPlug(call.Text("currentDriver"));
    if (driver.error)
        return *driver.error;
    const double place = call.Has("driverValue") ? call.Float("driverValue")
                                                 : scene.GetValue(driver.plug).ToFloat();
    const KeySettings& usual = Session::Current().keys;
    int count = 0;
    for (const Plug& plug : found.plugs) {
        const double value
            = call.Has("value") ? call.Float("value") : scene.GetValue(plug).ToFloat();
        const bool open = !(plug == driver.plug) && !plug.IsLocked() && plug.attribute->isWritable;
        Node* node = open ? CurveBetween(driver.plug, plug) : nullptr;
        if (!node)
            continue;
        AnimationCurve curve = AnimationCurve::Of(scene, *node);
        curve.Put({place, value, usual.inTangent, usual.outTangent});
        curve.Store(scene, *node);
        ++count;
    }
    if (count == 0) {
        return Error{QStringLiteral("setDrivenKeyframe: Nothing can follow '%1': what was named is "
                                    "locked or follows something else.")
                         .arg(scene.DisplayName(driver.plug))};
    }
    return count;
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"setDrivenKeyframe", "any", "Q", "[String...]",
        "attribute/at str cqmv; controlPoints/cp B c; currentDriver/cd str cq; driver/dr - q; driverValue/dv float c; hierarchy/hi str c;"
        "insertBlend/ib B c; shape/s B c; value/v float c", SetDrivenKeyframe},
};
// clang-format on

} // namespace

void RegisterSceneDrivenKeys(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
