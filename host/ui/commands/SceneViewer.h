#pragma once

#include <functional>
#include <memory>

namespace host::ui {

/// Tells its owner, when the host is idle, that something changed in the scene. Main thread only.
class SceneViewer
{
public:
    explicit SceneViewer(std::function<void()> told);
    ~SceneViewer();
    SceneViewer(const SceneViewer&) = delete;
    SceneViewer& operator=(const SceneViewer&) = delete;

private:
    std::weak_ptr<void> m_session; ///< the scene goes with it
    int m_id = 0;
};

} // namespace host::ui
