#include "engine/Events.h"

#include <algorithm>

namespace host {

const QStringList& Events::Names()
{
    static const QStringList names = {
        QStringLiteral("DagObjectCreated"),
        QStringLiteral("NameChanged"),
        QStringLiteral("NewSceneOpened"),
        QStringLiteral("PostSceneRead"),
        QStringLiteral("SceneOpened"),
        QStringLiteral("SceneSaved"),
        QStringLiteral("SelectionChanged"),
        QStringLiteral("Undo"),
        QStringLiteral("Redo"),
        QStringLiteral("idle"),
        QStringLiteral("quitApplication"),
        QStringLiteral("timeChanged"),
        QStringLiteral("workspaceChanged"),
    };
    return names;
}

int Events::Add(const QString& event, Handler handler)
{
    if (!Names().contains(event))
        return 0;
    m_handlers[event].append({++m_lastId, std::make_shared<Handler>(std::move(handler))});
    return m_lastId;
}

bool Events::Remove(int id)
{
    for (QVector<Entry>& entries : m_handlers) {
        for (int i = 0; i < entries.size(); ++i) {
            if (entries[i].id == id) {
                entries.remove(i);
                return true;
            }
        }
    }
    return false;
}

void Events::Fire(const QString& event)
{
    const QVector<Entry> entries = m_handlers.value(event);
    for (const Entry& entry : entries) {
        const QVector<Entry>& present = m_handlers[event];
        const bool stillThere = std::any_of(present.begin(), present.end(),
            [&](const Entry& other) { return other.id == entry.id; });
        if (stillThere)
            (*entry.handler)();
    }
}

} // namespace host
