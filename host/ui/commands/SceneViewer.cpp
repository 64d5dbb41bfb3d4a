#include "ui/commands/SceneViewer.h"

#include "engine/Engine.h"
#include "scene/Scene.h"

namespace host::ui {

SceneViewer::SceneViewer(std::function<void()> told)
    : m_session(Engine::Current().commandState)
    , m_id(scene::Scene::Current().watches.AddViewer(std::move(told)))
{ }

SceneViewer::~SceneViewer()
{
    const std::shared_ptr<void> session = m_session.lock();
    if (session && Engine::Exists() && session == Engine::Current().commandState)
        scene::Scene::Current().watches.RemoveViewer(m_id);
}

} // namespace host::ui
