#include "commands/Session.h"
#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"

namespace host::commands {

using namespace scene;

namespace {

void SetTime(double time)
{
    Playback playback = Scene::Current().GetPlayback();
    playback.time = time;
    Scene::Current().SetPlayback(playback);
    Session::Current().expressions.RunAll(Scene::Current());
}

} // namespace

Player::Player()
{
    connect(&m_timer, &QTimer::timeout, this, &Player::Step);
}

void Player::Start(bool forward)
{
    m_step = forward ? 1 : -1;
    m_timer.start(qMax(1, qRound(1000 / Scene::Current().FramesPerSecond())));
}

void Player::Step()
{
    const Playback& playback = Scene::Current().GetPlayback();
    double next = playback.time + m_step * playback.by;
    const bool isBeyond = next > playback.maximum || next < playback.minimum;
    if (isBeyond && playback.loop == QLatin1String("once")) {
        Stop();
        return;
    }
    if (isBeyond && playback.loop == QLatin1String("oscillate")) {
        m_step = -m_step;
        next = qBound(playback.minimum, playback.time + m_step * playback.by, playback.maximum);
    } else if (isBeyond) {
        next = m_step > 0 ? playback.minimum : playback.maximum;
    }
    SetTime(next);
}

void Player::RunThrough(bool forward)
{
    const Playback playback = Scene::Current().GetPlayback();
    const double step = qMax(0.001, playback.by);
    for (double passed = 0; passed <= playback.maximum - playback.minimum; passed += step) {
        if (Engine::Current().interrupt.Poll())
            return;
        SetTime(forward ? playback.minimum + passed : playback.maximum - passed);
    }
}

namespace {

Outcome Play(Call& call)
{
    Player& player = Session::Current().player;
    if (call.IsQuery())
        return call.Has("forward") ? player.IsForward() : player.IsPlaying();
    const bool forward = !call.Has("forward") || call.Bool("forward");
    if (call.Has("state") && !call.Bool("state"))
        player.Stop();
    else if (call.Has("wait"))
        player.RunThrough(forward);
    else
        player.Start(forward);
    return {};
}

const CommandRow COMMANDS[] = {
    {"play", "any", "Q", "",
        "forward/f B cq; playSound/ps B cq; sound/s str c; state/st B cq; wait/w - c", Play},
};

} // namespace

void RegisterScenePlay(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
