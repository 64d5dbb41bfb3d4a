#include "scene/Journal.h"

#include <utility>

namespace host::scene {

/// What one command did to the scene.
class SceneStep : public UndoStep
{
public:
    SceneStep(const QString& name, std::vector<Journal::Edit> edits)
        : m_name(name)
        , m_edits(std::move(edits))
    { }

    bool Undo() override
    {
        for (auto edit = m_edits.rbegin(); edit != m_edits.rend(); ++edit)
            edit->undo();
        return true;
    }
    bool Redo() override
    {
        for (const Journal::Edit& edit : m_edits)
            edit.redo();
        return true;
    }
    QString Name() const override { return m_name; }

private:
    QString m_name;
    std::vector<Journal::Edit> m_edits;
};

void Journal::Do(Action redo, Action undo)
{
    redo();
    if (m_depth > 0)
        m_edits.push_back({std::move(redo), std::move(undo)});
}

std::unique_ptr<UndoStep> Journal::End(const QString& name)
{
    if (--m_depth > 0 || m_edits.empty())
        return nullptr;
    return std::make_unique<SceneStep>(name, std::exchange(m_edits, {}));
}

void Journal::RollBack(size_t mark)
{
    while (m_edits.size() > mark) {
        m_edits.back().undo();
        m_edits.pop_back();
    }
}

} // namespace host::scene
