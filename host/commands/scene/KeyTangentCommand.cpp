// How curves go through their keys, and on beyond them.

#include "commands/Session.h"
#include "commands/scene/KeyTargets.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace host::commands {

using namespace scene;

namespace {

/// Flags of the one side of a key and of the other.
struct Side
{
    const char* type;
    const char* angle;
    const char* x;
    const char* y;
    Tangent CurveKey::*tangent;
    double CurveKey::*slope;
    double (AnimationCurve::*current)(int) const;
};

const Side SIDES[] = {
    {"inTangentType", "inAngle", "ix", "iy", &CurveKey::in, &CurveKey::inSlope,
        &AnimationCurve::InSlope},
    {"outTangentType", "outAngle", "ox", "oy", &CurveKey::out, &CurveKey::outSlope,
        &AnimationCurve::OutSlope},
};

Outcome Global(const Call& call)
{
    KeySettings& settings = Session::Current().keys;
    if (call.IsQuery()) {
        if (call.Has("weightedTangents"))
            return false;
        return TangentName(call.Has("inTangentType") ? settings.inTangent : settings.outTangent);
    }
    for (const Side& side : SIDES) {
        const auto tangent = TangentNamed(call.Text(side.type));
        if (call.Has(side.type) && !tangent)
            return Error{QStringLiteral("Unknown tangent type: %1").arg(call.Text(side.type))};
        if (tangent)
            (side.tangent == &CurveKey::in ? settings.inTangent : settings.outTangent) = *tangent;
    }
    return {};
}

double Angle(double slope)
{
    return qRadiansToDegrees(std::atan(slope));
}

/// One answer per key and per flag that is given.
Outcome QueryTangents(const Call& call, const QVector<Node*>& curves)
{
    const KeyFilter filter(call);
    StringList types;
    FloatList numbers;
    IntList locks;
    for (const Node* node : curves) {
        const AnimationCurve curve = AnimationCurve::Of(Scene::Current(), *node);
        for (int i = 0; i < curve.Count(); ++i) {
            if (!filter.Passes(i, curve.Time(i)))
                continue;
            const CurveKey key = curve.Key(i);
            locks += key.tangentsLocked ? 1 : 0;
            for (const Side& side : SIDES) {
                const double slope = (curve.*side.current)(i);
                if (call.Has(side.type))
                    types += TangentName(key.*side.tangent);
                if (call.Has(side.angle))
                    numbers += Angle(slope);
                if (call.Has(side.x))
                    numbers += std::cos(std::atan(slope));
                if (call.Has(side.y))
                    numbers += std::sin(std::atan(slope));
            }
        }
    }
    if (call.Has("lock"))
        return locks;
    return types.isEmpty() ? Outcome(numbers) : Outcome(types);
}

void Turn(const Call& call, const AnimationCurve& curve, int index, CurveKey& key)
{
    const bool locked = key.tangentsLocked;
    for (const Side& side : SIDES) {
        const Side& other = &side == &SIDES[0] ? SIDES[1] : SIDES[0];
        const bool given = call.Has(side.angle) || (call.Has(side.x) && call.Has(side.y));
        if (!given)
            continue;
        const double before = (curve.*side.current)(index);
        double slope = std::tan(qDegreesToRadians(call.Float(side.angle)));
        if (!call.Has(side.angle))
            slope = call.Float(side.x) == 0 ? 0 : call.Float(side.y) / call.Float(side.x);
        if (call.Has("relative") && call.Has(side.angle))
            slope = std::tan(std::atan(before) + std::atan(slope));
        key.*side.tangent = Tangent::Fixed;
        key.*side.slope = slope;
        if (locked && !call.Has(other.angle)) {
            key.*other.tangent = Tangent::Fixed;
            key.*other.slope = slope;
        }
    }
}

Outcome KeyTangent(Call& call)
{
    if (call.Has("global"))
        return Global(call);
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    if (!error && !call.IsQuery() && call.Has("weightedTangents") && call.Bool("weightedTangents"))
        error = Error{QStringLiteral("keyTangent: Curves of this host have no weighted tangents.")};
    for (const Side& side : SIDES) {
        if (!call.IsQuery() && call.Has(side.type) && !TangentNamed(call.Text(side.type)))
            error = Error{QStringLiteral("Unknown tangent type: %1").arg(call.Text(side.type))};
    }
    if (error)
        return *error;
    if (call.IsQuery() && call.Has("weightedTangents"))
        return IntList(curves.size(), 0);
    if (call.IsQuery())
        return QueryTangents(call, curves);
    return ChangeKeys(call, curves, [&](const AnimationCurve& curve, int index, CurveKey& key) {
        if (call.Has("lock"))
            key.tangentsLocked = call.Bool("lock");
        for (const Side& side : SIDES) {
            if (!call.Has(side.type))
                continue;
            key.*side.slope = (curve.*side.current)(index);
            key.*side.tangent = *TangentNamed(call.Text(side.type));
        }
        Turn(call, curve, index, key);
    });
}

constexpr struct
{
    const char* name;
    Infinity infinity;
} INFINITIES[] = {
    {"constant", Infinity::Constant},
    {"linear", Infinity::Linear},
    {"cycle", Infinity::Cycle},
    {"cycleRelative", Infinity::CycleRelative},
    {"oscillate", Infinity::Oscillate},
};

Outcome SetInfinity(Call& call)
{
    std::optional<Error> error;
    const QVector<Node*> curves = CurvesOf(call, error);
    if (error)
        return *error;
    constexpr struct
    {
        const char* flag;
        const char* attribute;
    } ENDS[] = {{"preInfinite", "preInfinity"}, {"postInfinite", "postInfinity"}};
    Scene& scene = Scene::Current();
    StringList names;
    int count = 0;
    for (const auto& end : ENDS) {
        if (!call.Has(end.flag))
            continue;
        const auto* row = std::find_if(std::begin(INFINITIES), std::end(INFINITIES),
            [&](const auto& each) { return call.Text(end.flag) == QLatin1String(each.name); });
        if (!call.IsQuery() && row == std::end(INFINITIES))
            return Error{QStringLiteral("Unknown infinity: %1").arg(call.Text(end.flag))};
        for (Node* curve : curves) {
            const Plug plug = Plug::Find(*curve, QLatin1String(end.attribute));
            const int now = scene.GetStored(plug).ToInt();
            for (const auto& each : INFINITIES) {
                if (call.IsQuery() && static_cast<int>(each.infinity) == now)
                    names += QLatin1String(each.name);
            }
            if (!call.IsQuery()) {
                scene.SetValue(plug, static_cast<int>(row->infinity));
                ++count;
            }
        }
    }
    return call.IsQuery() ? Outcome(names) : Outcome(count);
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"keyTangent", "any", "QE", "[String...]",
        "absolute/a - ce; attribute/at str cqemv; float/f str cqemv; global/g - cqe; hierarchy/hi str cqev; inAngle/ia float cqe; inTangentType/itt str cqe;"
        "index/in str cqemv; ix/ix float cqe; iy/iy float cqe; lock/l B cqe; outAngle/oa float cqe; outTangentType/ott str cqe; ox/ox float cqe; oy/oy float cqe;"
        "relative/r - ce; time/t str cqemv; weightedTangents/wt B cqe", KeyTangent},
    {"setInfinity", "any", "QE", "[String...]",
        "attribute/at str cqemv; hierarchy/hi str cqev; postInfinite/poi str cqe; preInfinite/pri str cqe", SetInfinity},
};
// clang-format on

} // namespace

void RegisterSceneTangents(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
