// Time and units.

#include "commands/Session.h"
#include "commands/scene/SceneCommands.h"

namespace host::commands {

using namespace scene;

namespace {

Outcome CurrentTime(Call& call)
{
    Scene& scene = Scene::Current();
    if (call.IsQuery() || call.GetObjects().isEmpty())
        return scene.GetPlayback().time;
    Playback playback = scene.GetPlayback();
    bool isNumber = false;
    playback.time = call.GetObjects().first().ToFloat(&isNumber);
    if (!isNumber)
        return Error{QStringLiteral("currentTime: '%1' is no time.").arg(call.ObjectText())};
    scene.SetPlayback(playback);
    Session::Current().expressions.RunAll(scene);
    return playback.time;
}

constexpr struct
{
    const char* flag;
    double Playback::*member;
} NUMBERS[] = {
    {"minTime", &Playback::minimum},
    {"maxTime", &Playback::maximum},
    {"animationStartTime", &Playback::animationStart},
    {"animationEndTime", &Playback::animationEnd},
    {"playbackSpeed", &Playback::speed},
    {"maxPlaybackSpeed", &Playback::maximumSpeed},
    {"by", &Playback::by},
};

Outcome QueryPlayback(const QString& asked)
{
    const Scene& scene = Scene::Current();
    const Playback& playback = scene.GetPlayback();
    for (const auto& row : NUMBERS) {
        if (asked == QLatin1String(row.flag))
            return playback.*row.member;
    }
    if (asked == QLatin1String("loop"))
        return playback.loop;
    if (asked == QLatin1String("view"))
        return playback.view;
    if (asked == QLatin1String("framesPerSecond"))
        return scene.FramesPerSecond();
    return false;
}

Outcome PlaybackOptions(Call& call)
{
    if (call.IsQuery())
        return QueryPlayback(call.GivenFlags().value(0));
    Playback playback = Scene::Current().GetPlayback();
    for (const auto& row : NUMBERS) {
        if (call.Has(row.flag))
            playback.*row.member = call.Float(row.flag);
    }
    // The inner range never reaches beyond the outer one; the range set last wins.
    if (call.Has("minTime"))
        playback.animationStart = qMin(playback.animationStart, playback.minimum);
    else
        playback.minimum = qMax(playback.minimum, playback.animationStart);
    if (call.Has("maxTime"))
        playback.animationEnd = qMax(playback.animationEnd, playback.maximum);
    else
        playback.maximum = qMin(playback.maximum, playback.animationEnd);
    if (call.Has("loop"))
        playback.loop = call.Text("loop");
    if (call.Has("view"))
        playback.view = call.Text("view");
    Scene::Current().SetPlayback(playback);
    return {};
}

/// Short and long names of units; scripts may use either.
constexpr const char* LENGTHS[][2] = {{"mm", "millimeter"}, {"cm", "centimeter"}, {"m", "meter"},
    {"km", "kilometer"}, {"in", "inch"}, {"ft", "foot"}, {"yd", "yard"}, {"mi", "mile"}};
constexpr const char* ANGLES[][2] = {{"deg", "degree"}, {"rad", "radian"}};

template <size_t N>
QString UnitNamed(const char* const (&units)[N][2], const QString& name, bool full)
{
    for (const auto& unit : units) {
        if (name == QLatin1String(unit[0]) || name == QLatin1String(unit[1]))
            return QLatin1String(unit[full ? 1 : 0]);
    }
    return {};
}

/// The name of each unit is kept and told; numbers are not converted.
Outcome CurrentUnit(Call& call)
{
    Scene& scene = Scene::Current();
    SceneUnits units = scene.GetUnits();
    if (call.IsQuery()) {
        const bool full = call.Has("fullName");
        if (call.Has("angle"))
            return UnitNamed(ANGLES, units.angle, full);
        return call.Has("time") ? units.time : UnitNamed(LENGTHS, units.length, full);
    }
    if (call.Has("linear"))
        units.length = UnitNamed(LENGTHS, call.Text("linear"), false);
    if (call.Has("angle"))
        units.angle = UnitNamed(ANGLES, call.Text("angle"), false);
    if (units.length.isEmpty() || units.angle.isEmpty()) {
        return Error{QStringLiteral("Unknown unit: %1")
                         .arg(units.length.isEmpty() ? call.Text("linear") : call.Text("angle"))};
    }
    if (call.Has("time"))
        units.time = call.Text("time");
    scene.SetUnits(units);
    return {};
}

Outcome UpAxis(Call& call)
{
    SceneUnits units = Scene::Current().GetUnits();
    if (call.IsQuery())
        return call.Has("axis") ? Outcome(units.upAxis) : Outcome();
    const QString axis = call.Text("axis");
    if (axis != QLatin1String("y") && axis != QLatin1String("z"))
        return Error{QStringLiteral("upAxis: The axis is y or z.")};
    units.upAxis = axis;
    Scene::Current().SetUnits(units);
    return {};
}

Outcome AutoKeyframe(Call& call)
{
    if (call.IsQuery())
        return false;
    if (call.Has("state") && call.Bool("state"))
        return Error{QStringLiteral("autoKeyframe: Keys of this host are set by scripts alone.")};
    return {};
}

const CommandRow COMMANDS[] = {
    {"autoKeyframe", "any", "QE", "", "state/st B cqe", AutoKeyframe},
    {"currentTime", "float", "QE", "[Any]", "update/u B c", CurrentTime},
    {"playbackOptions", "any", "QE", "",
        "animationEndTime/aet time cqe; animationStartTime/ast time cqe; blockingAnim/ba B cq;"
        "by/by float cqe; framesPerSecond/fps B cq; loop/l str cqe; maxPlaybackSpeed/mps float cqe;"
        "maxTime/max time cqe; minTime/min time cqe; playbackSpeed/ps float cqe;"
        "stepLoop/slp B cq; view/v str cqe",
        PlaybackOptions},
    {"currentUnit", "string", "Q", "",
        "angle/a str cq; fullName/f - q; linear/l str cq; time/t str cq; updateAnimation/ua B c",
        CurrentUnit},
    {"upAxis", "string", "Q", "", "axis/ax str cq; rotateView/rv - c", UpAxis},
};

} // namespace

void RegisterScenePlayback(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
