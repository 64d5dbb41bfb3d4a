#pragma once

#include "engine/UndoQueue.h"

#include <functional>
#include <memory>
#include <vector>

namespace host::scene {

/// Keeps how to take back what one command does to the scene. Owned by the scene.
class Journal
{
public:
    using Action = std::function<void()>;

    /// Does something and, while a command runs, remembers it.
    void Do(Action redo, Action undo);

    /// Commands may run inside each other; the outermost one gets the step.
    void Begin() { ++m_depth; }
    /// The step that takes back everything since Begin. Null when nothing was done.
    std::unique_ptr<UndoStep> End(const QString& name);
    /// Takes back everything since `mark` (see Mark), as if it had never been done.
    void RollBack(size_t mark);
    size_t Mark() const { return m_edits.size(); }

private:
    struct Edit
    {
        Action redo;
        Action undo;
    };
    friend class SceneStep;

    std::vector<Edit> m_edits;
    int m_depth = 0;
};

} // namespace host::scene
