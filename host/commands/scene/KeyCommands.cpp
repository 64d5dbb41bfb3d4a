// Keys on attributes are set, asked for, moved and taken away.

#include "commands/Session.h"
#include "commands/scene/KeyTargets.h"

#include <algorithm>
#include <cmath>

namespace host::commands {

using namespace scene;

namespace {

double Now()
{
    return Scene::Current().GetPlayback().time;
}

QVector<double> TimesOf(const Call& call)
{
    QVector<double> times;
    for (int use = 0; use < call.UseCount("time"); ++use)
        times += call.Float("time", 0, use);
    if (times.isEmpty())
        times += Now();
    return times;
}

struct FoundTangents
{
    Tangent in;
    Tangent out;
    std::optional<Error> error;
};

FoundTangents NewTangents(const Call& call)
{
    const KeySettings& usual = Session::Current().keys;
    FoundTangents found{usual.inTangent, usual.outTangent, std::nullopt};
    for (const char* flag : {"inTangentType", "outTangentType"}) {
        const auto tangent = TangentNamed(call.Text(flag));
        if (call.Has(flag) && !tangent)
            found.error = Error{QStringLiteral("Unknown tangent type: %1").arg(call.Text(flag))};
        if (tangent)
            (qstrcmp(flag, "inTangentType") == 0 ? found.in : found.out) = *tangent;
    }
    // A step leads away from a key, never to it.
    if (found.in == Tangent::Step || found.in == Tangent::StepNext)
        found.in = Tangent::Auto;
    return found;
}

Outcome SetKeyframe(Call& call)
{
    const FoundPlugs found = KeyablePlugs(call);
    const FoundTangents tangents = NewTangents(call);
    if (found.error || tangents.error)
        return found.error ? *found.error : *tangents.error;
    const Scene& scene = Scene::Current();
    int count = 0;
    for (const Plug& plug : found.plugs) {
        const bool driven = plug.Incoming() && !CurveOf(plug);
        if (driven || plug.IsLocked() || !plug.attribute->isWritable)
            continue;
        const double now = scene.GetValue(plug).ToFloat();
        Node& node = CurveFor(plug);
        AnimationCurve curve = AnimationCurve::Of(scene, node);
        for (const double time : TimesOf(call)) {
            // A key that is inserted leaves the values as they are.
            const double value = call.Has("value")    ? call.Float("value")
                : call.Has("insert") && curve.Count() ? curve.ValueAt(time)
                                                      : now;
            curve.Put({time, value, tangents.in, tangents.out});
            ++count;
        }
        curve.Store(Scene::Current(), node);
    }
    return count;
}

/// What is cut can be pasted, unless it is only to go.
Outcome CutKey(Call& call)
{
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    if (error)
        return *error;
    if (!call.Has("clear")) {
        const FoundPlugs found = KeyablePlugs(call);
        Session::Current().keys.Copy(found.plugs, KeyFilter(call));
    }
    const KeyFilter filter(call);
    int count = 0;
    for (Node* node : curves) {
        AnimationCurve curve = AnimationCurve::Of(Scene::Current(), *node);
        const int before = curve.Count();
        for (int i = before - 1; i >= 0; --i) {
            if (filter.Passes(i, curve.Time(i)))
                curve.Remove(i);
        }
        count += before - curve.Count();
        if (curve.IsEmpty())
            Scene::Current().Delete({node});
        else if (curve.Count() < before)
            curve.Store(Scene::Current(), *node);
    }
    return count;
}

FloatList ValuesAt(const Call& call, const AnimationCurve& curve)
{
    FloatList values;
    const QStringList times = call.Texts("time") + call.Texts("float");
    for (const QString& time : times)
        values += curve.ValueAt(time.toDouble());
    if (times.isEmpty())
        values += curve.ValueAt(Now());
    return values;
}

Outcome QueryKeys(const Call& call, const QVector<Node*>& curves)
{
    const KeyFilter filter(call);
    FloatList answers;
    IntList indices;
    int count = 0;
    const bool times = call.Has("timeChange") || call.Has("floatChange");
    for (const Node* node : curves) {
        const AnimationCurve curve = AnimationCurve::Of(Scene::Current(), *node);
        if (call.Has("eval")) {
            answers += ValuesAt(call, curve);
            continue;
        }
        for (int i = 0; i < curve.Count(); ++i) {
            if (!filter.Passes(i, curve.Time(i)))
                continue;
            ++count;
            indices += i;
            if (times)
                answers += curve.Time(i);
            if (call.Has("valueChange"))
                answers += curve.Key(i).value;
        }
    }
    if (call.Has("name"))
        return DisplayNames(curves);
    if (call.Has("indexValue"))
        return indices;
    const bool lists = times || call.Has("valueChange") || call.Has("eval");
    return lists ? Outcome(answers) : Outcome(count);
}

Outcome Keyframe(Call& call)
{
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    if (error)
        return *error;
    if (call.IsQuery())
        return QueryKeys(call, curves);
    const bool relative = call.Has("relative");
    const char* when = call.Has("floatChange") ? "floatChange" : "timeChange";
    return ChangeKeys(call, curves, [&](const AnimationCurve&, int, CurveKey& key) {
        if (call.Has(when))
            key.time = (relative ? key.time : 0) + call.Float(when);
        if (call.Has("valueChange"))
            key.value = (relative ? key.value : 0) + call.Float("valueChange");
    });
}

/// Times of all keys of the curves.
QVector<double> AllTimes(const QVector<Node*>& curves)
{
    QMap<double, bool> times;
    for (const Node* node : curves) {
        const AnimationCurve curve = AnimationCurve::Of(Scene::Current(), *node);
        for (int i = 0; i < curve.Count(); ++i)
            times.insert(curve.Time(i), true);
    }
    return times.keys().toVector();
}

Outcome FindKeyframe(Call& call)
{
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    if (error)
        return *error;
    if (call.Has("curve"))
        return DisplayNames(curves);
    const double now = call.Has("time") ? call.Float("time") : Now();
    const QVector<double> times = AllTimes(curves);
    if (times.isEmpty())
        return now;
    const QString which = call.Has("which") ? call.Text("which") : QStringLiteral("next");
    if (which == QLatin1String("first"))
        return times.first();
    if (which == QLatin1String("last"))
        return times.last();
    if (which == QLatin1String("previous")) {
        const auto key = std::lower_bound(times.begin(), times.end(), now);
        return key == times.begin() ? times.last() : *(key - 1);
    }
    const auto key = std::upper_bound(times.begin(), times.end(), now);
    return key == times.end() ? times.first() : *key;
}

Outcome ScaleKey(Call& call)
{
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    if (error)
        return *error;
    const auto number
        = [&](const char* flag, double usual) { return call.Has(flag) ? call.Float(flag) : usual; };
    const double timeScale = number("timeScale", number("floatScale", 1));
    const double timePivot = number("timePivot", number("floatPivot", 0));
    const double valueScale = number("valueScale", 1);
    const double valuePivot = number("valuePivot", 0);
    return ChangeKeys(call, curves, [&](const AnimationCurve&, int, CurveKey& key) {
        key.time = timePivot + (key.time - timePivot) * timeScale;
        key.value = valuePivot + (key.value - valuePivot) * valueScale;
    });
}

Outcome SnapKey(Call& call)
{
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    const double timeStep = call.Has("timeMultiple") ? call.Float("timeMultiple") : 1;
    const double valueStep = call.Has("valueMultiple") ? call.Float("valueMultiple") : 0;
    if (!error && (timeStep < 0 || valueStep < 0))
        error = Error{QStringLiteral("snapKey: Keys are snapped to multiples above 0.")};
    if (error)
        return *error;
    const auto snapped = [](double number, double step) {
        return step > 0 ? std::round(number / step) * step : number;
    };
    return ChangeKeys(call, curves, [&](const AnimationCurve&, int, CurveKey& key) {
        key.time = snapped(key.time, timeStep);
        key.value = snapped(key.value, valueStep);
    });
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"setKeyframe", "int", "", "[String...]",
        "breakdown/bd B c; controlPoints/cp B c; inTangentType/itt str c; insert/i - c; outTangentType/ott str c; shape/s B c; time/t time cm; value/v float c;"
        "attribute/at str cm; hierarchy/hi str c", SetKeyframe},
    {"keyframe", "any", "QE", "[String...]",
        "absolute/a - ce; attribute/at str cqemv; controlPoints/cp B cqev; eval/ev - q; float/f str cqemv; floatChange/fc float cqe; hierarchy/hi str cqev;"
        "index/in str cqemv; indexValue/iv - q; keyframeCount/kc - q; name/n - q; option/o str ce; relative/r - ce; shape/s B cqev; time/t str cqemv;"
        "timeChange/tc time cqe; valueChange/vc float cqe", Keyframe},
    {"findKeyframe", "any", "", "[String...]",
        "curve/c - c; hierarchy/hi str c; shape/s B c; time/t time c; which/w str c; attribute/at str cm", FindKeyframe},
};

const char* const KEY_FLAGS = "attribute/at str cm; controlPoints/cp B c; float/f str cm; hierarchy/hi str c; index/in str cm; shape/s B c; time/t str cm;";

const CommandRow CHANGES[] = {
    {"cutKey", "int", "", "[String...]", "clear/cl - c; option/o str c", CutKey},
    {"scaleKey", "int", "", "[String...]",
        "floatPivot/fp float c; floatScale/fs float c; timePivot/tp time c; timeScale/ts float c; valuePivot/vp float c; valueScale/vs float c", ScaleKey},
    {"snapKey", "int", "", "[String...]", "timeMultiple/tm float c; valueMultiple/vm float c", SnapKey},
};
// clang-format on

} // namespace

void RegisterSceneKeys(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
    for (const CommandRow& row : CHANGES)
        RegisterSceneCommand(registry, row, KEY_FLAGS);
}

} // namespace host::commands
