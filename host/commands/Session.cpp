#include "commands/Session.h"

#include "engine/Engine.h"

namespace host::commands {

Session::Session(Engine& engine)
    : scene(engine)
    , hotkeys(engine)
    , runTimeCommands(engine)
    , conditions(engine)
    , scriptJobs(std::make_unique<ScriptJobs>(engine, conditions))
{
    project.SetRoot(engine.paths.ApplicationDirectory() + QLatin1String("/projects/default"));
    expressions.Serve(scene);
    m_clock.start();
}

Session& Session::Current()
{
    auto* session = static_cast<Session*>(Engine::Current().commandState.get());
    Q_ASSERT_X(session, "Session", "RegisterCommands was not called for this engine");
    return *session;
}

} // namespace host::commands
