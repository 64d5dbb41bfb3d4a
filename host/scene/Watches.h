#pragma once

#include "scene/Node.h"

#include <QSet>

#include <functional>

namespace host {
class Engine;
}

namespace host::scene {

/// What can happen to a node that somebody waits for.
enum class NodeChange {
    AttributeChanged,
    AttributeAdded,
    AttributeDeleted,
    ConnectionChanged,
    Deleted,
    Renamed,
};

/// Who waits for what in the scene. What happens is told when the host is idle again, each thing
/// once however often it happened. Owned by the scene; main thread only.
class Watches
{
public:
    explicit Watches(Engine& engine);
    ~Watches();
    Watches(const Watches&) = delete;
    Watches& operator=(const Watches&) = delete;

    /// `key` names an attribute where the change is one of attributes, and may be empty for all.
    /// Id of the watch, never 0.
    int Add(NodeChange change, const Node& node, const QString& key, std::function<void()> told);
    void Remove(int id);

    bool HasAny(const Node& node) const { return m_watches.contains(&node); }

    void Note(NodeChange change, const Node& node, const QString& key = {});
    /// One of the host's named events.
    void NoteEvent(const QString& event);
    /// Something that can be seen changed, whatever it is.
    void NoteScene();
    /// What happens meanwhile is nobody's concern: the scene makes the nodes it begins with.
    bool silent = false;
    /// Told at once when anything changed that can be seen; set by whoever draws the scene.
    std::function<void()> sceneChanged;
    /// Who shows parts of the scene is told, when the host is idle, that anything changed. Id for
    /// RemoveViewer, never 0.
    int AddViewer(std::function<void()> told);
    void RemoveViewer(int id) { m_viewers.remove(id); }

private:
    struct Watch
    {
        int id = 0;
        std::shared_ptr<const Node> node; ///< its place in memory stays its own
        NodeChange change = NodeChange::AttributeChanged;
        QString key;
        std::function<void()> told;
    };

    void Post();
    void Tell();

    Engine& m_engine;
    QMultiHash<const Node*, std::shared_ptr<Watch>> m_watches;
    QHash<int, const Node*> m_nodes; ///< by id of the watch
    QVector<std::shared_ptr<Watch>> m_toTell;
    QStringList m_events;
    QMap<int, std::function<void()>> m_viewers;
    bool m_viewersWait = false;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    bool m_posted = false;
    int m_lastId = 0;
};

} // namespace host::scene
