// Keys are copied, pasted, and made of what drives an attribute.

#include "commands/Session.h"
#include "commands/scene/KeyTargets.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace host::commands {

using namespace scene;

namespace {

/// More keys than this in one go are taken for a mistake.
constexpr double MOST_SAMPLES = 1000000;

Outcome CopyKey(Call& call)
{
    const FoundPlugs found = KeyablePlugs(call);
    if (found.error)
        return *found.error;
    const int count = Session::Current().keys.Copy(found.plugs, KeyFilter(call));
    return count > 0 ? Outcome(count) : Outcome(Error{QStringLiteral("No keys to copy.")});
}

bool IsPlain(const Plug& plug)
{
    const bool driven = plug.Incoming() && !CurveOf(plug);
    return !driven && !plug.IsLocked() && plug.attribute->isWritable;
}

/// Where the keys of a curve have to make room for those that come.
enum class Room { Shift, Replace, Clear, Merge };

void MakeRoom(AnimationCurve& curve, Room room, double from, double to)
{
    AnimationCurve before = curve;
    for (int i = before.Count() - 1; i >= 0; --i) {
        CurveKey key = before.Key(i);
        const bool inside = key.time >= from && key.time <= to;
        const bool goes = room == Room::Clear || (room == Room::Replace && inside);
        if (goes || (room == Room::Shift && key.time >= from))
            curve.Remove(i);
        key.time += to - from;
        if (room == Room::Shift && key.time >= to)
            curve.Put(key);
    }
}

void Paste(const Call& call, const Plug& plug, const CopiedKeys& copied, Room room)
{
    const KeySettings& settings = Session::Current().keys;
    const double start = call.Has("time") ? call.Text("time").toDouble() : settings.Start();
    const int copies = call.Has("copies") ? qBound(1, call.Int("copies"), 1000) : 1;
    const double length = settings.End() - settings.Start();
    Node& node = CurveFor(plug);
    AnimationCurve curve = AnimationCurve::Of(Scene::Current(), node);
    MakeRoom(curve, room, start, start + length * copies);
    for (int copy = 0; copy < copies; ++copy) {
        for (CurveKey key : copied.keys) {
            key.time += start - settings.Start() + copy * length + call.Float("timeOffset");
            key.value += call.Float("valueOffset");
            curve.Put(key);
        }
    }
    curve.Store(Scene::Current(), node);
}

Outcome PasteKey(Call& call)
{
    constexpr struct
    {
        const char* name;
        Room room;
    } ROOMS[] = {{"insert", Room::Shift}, {"replace", Room::Replace},
        {"replaceCompletely", Room::Clear}, {"merge", Room::Merge}};
    const QString option = call.Has("option") ? call.Text("option") : QStringLiteral("insert");
    const auto* row = std::find_if(std::begin(ROOMS), std::end(ROOMS),
        [&](const auto& each) { return option == QLatin1String(each.name); });
    if (row == std::end(ROOMS))
        return Error{QStringLiteral("pasteKey: Unknown option: %1").arg(option)};
    const QVector<CopiedKeys> copied = Session::Current().keys.Copied();
    if (copied.isEmpty())
        return Error{QStringLiteral("pasteKey: Nothing was copied.")};
    const FoundPlugs found = KeyablePlugs(call);
    if (found.error)
        return *found.error;
    int count = 0;
    for (const Plug& plug : found.plugs) {
        for (const CopiedKeys& keys : copied) {
            // One curve goes wherever it is said; of several each goes to its own attribute.
            const bool fits = keys.attribute == plug.attribute->longName
                || (copied.size() == 1 && call.Has("attribute"));
            if (!fits || !IsPlain(plug))
                continue;
            Paste(call, plug, keys, row->room);
            ++count;
            break;
        }
    }
    return count;
}

struct Samples
{
    double from = 0;
    double to = 0;
    double step = 1;
    std::optional<Error> error;
};

Samples SamplesOf(const Call& call)
{
    const Playback& playback = Scene::Current().GetPlayback();
    Samples samples{playback.minimum, playback.maximum, 1, std::nullopt};
    if (call.Has("time")) {
        const QString range = call.Text("time");
        samples.from = range.section(QLatin1Char(':'), 0, 0).toDouble();
        samples.to = range.section(QLatin1Char(':'), -1).toDouble();
    }
    if (call.Has("sampleBy"))
        samples.step = call.Float("sampleBy");
    const bool sane = samples.step > 0 && samples.to >= samples.from
        && (samples.to - samples.from) / samples.step < MOST_SAMPLES;
    if (!sane)
        samples.error = Error{QStringLiteral("bakeResults: There is nothing between %1 and %2.")
                                  .arg(samples.from)
                                  .arg(samples.to)};
    return samples;
}

void Bake(const Plug& plug, const Samples& samples, bool keepsOthers)
{
    Scene& scene = Scene::Current();
    AnimationCurve baked;
    if (const Node* before = CurveOf(plug); before && keepsOthers)
        baked = AnimationCurve::Of(scene, *before);
    QVector<CurveKey> keys;
    for (int i = 0; samples.from + i * samples.step <= samples.to; ++i) {
        const double time = samples.from + i * samples.step;
        const QScopedValueRollback<std::optional<double>> asked(scene.askedTime, time);
        keys += {time, scene.GetValue(plug).ToFloat(), Tangent::Auto, Tangent::Auto};
    }
    for (const CurveKey& key : qAsConst(keys))
        baked.Put(key);
    if (!CurveOf(plug) && plug.Incoming())
        scene.Disconnect(plug.node->IncomingTo(plug.key));
    baked.Store(scene, CurveFor(plug));
}

Outcome BakeResults(Call& call)
{
    const Samples samples = SamplesOf(call);
    const FoundPlugs found = KeyablePlugs(call);
    if (found.error || samples.error)
        return found.error ? *found.error : *samples.error;
    const bool keepsOthers = !call.Has("preserveOutsideKeys") || call.Bool("preserveOutsideKeys");
    int count = 0;
    for (const Plug& plug : found.plugs) {
        // What comes through the compound around it cannot be cut off for one child alone.
        const bool whole = plug.Incoming() && !plug.node->IncomingTo(plug.key);
        if (whole || plug.IsLocked() || !plug.attribute->isWritable)
            continue;
        Bake(plug, samples, keepsOthers);
        ++count;
    }
    return count;
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"copyKey", "int", "", "[String...]",
        "attribute/at str cm; float/f str cm; hierarchy/hi str c; index/in str cm; option/o str c; shape/s B c; time/t str cm", CopyKey},
    {"pasteKey", "int", "", "[String...]",
        "attribute/at str cm; copies/c int c; hierarchy/hi str c; option/o str c; shape/s B c; time/t str c; timeOffset/to time c; valueOffset/vo float c", PasteKey},
    {"bakeResults", "int", "", "[String...]",
        "attribute/at str cm; bakeOnOverrideLayer/bol B c; controlPoints/cp B c; disableImplicitControl/dic B c; oversamplingRate/osr int c;"
        "removeBakedAnimFromLayer/rwl B c; removeBakedAttributeFromLayer/rba B c; hierarchy/hi str c; minimizeRotation/mr B c; preserveOutsideKeys/pok B c;"
        "sampleBy/sb time c; shape/s B c; simulation/sm B c; sparseAnimCurveBake/sac B c; time/t str c", BakeResults},
};
// clang-format on

} // namespace

void RegisterSceneKeyCopies(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
