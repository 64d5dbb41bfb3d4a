#include "scene/Watches.h"

#include "engine/Engine.h"

#include <utility>

namespace host::scene {

Watches::Watches(Engine& engine)
    : m_engine(engine)
{ }

Watches::~Watches()
{
    *m_alive = false;
}

int Watches::Add(
    NodeChange change, const Node& node, const QString& key, std::function<void()> told)
{
    const int id = ++m_lastId;
    m_watches.insert(&node,
        std::make_shared<Watch>(Watch{id, node.shared_from_this(), change, key, std::move(told)}));
    m_nodes.insert(id, &node);
    return id;
}

void Watches::Remove(int id)
{
    const Node* node = m_nodes.take(id);
    for (auto watch = m_watches.find(node); watch != m_watches.end() && watch.key() == node;) {
        if ((*watch)->id == id) {
            (*watch)->told = nullptr;
            watch = m_watches.erase(watch);
        } else {
            ++watch;
        }
    }
}

void Watches::Note(NodeChange change, const Node& node, const QString& key)
{
    if (silent)
        return;
    NoteScene();
    for (auto watch = m_watches.constFind(&node);
         watch != m_watches.constEnd() && watch.key() == &node; ++watch) {
        const bool concerns = (*watch)->change == change
            && ((*watch)->key.isEmpty() || (*watch)->key == key
                || key.startsWith((*watch)->key + QLatin1Char('.'))
                || key.startsWith((*watch)->key + QLatin1Char('[')));
        if (!concerns || m_toTell.contains(*watch))
            continue;
        m_toTell += *watch;
        Post();
    }
}

void Watches::NoteEvent(const QString& event)
{
    if (silent)
        return;
    NoteScene();
    if (m_events.contains(event))
        return;
    m_events += event;
    Post();
}

void Watches::NoteScene()
{
    if (silent)
        return;
    if (sceneChanged)
        sceneChanged();
    if (m_viewers.isEmpty() || std::exchange(m_viewersWait, true))
        return;
    Post();
}

int Watches::AddViewer(std::function<void()> told)
{
    m_viewers.insert(++m_lastId, std::move(told));
    return m_lastId;
}

void Watches::Post()
{
    if (std::exchange(m_posted, true))
        return;
    m_engine.idle.Post([this, alive = m_alive] {
        if (*alive)
            Tell();
    });
}

void Watches::Tell()
{
    m_posted = false;
    const auto watches = std::exchange(m_toTell, {});
    const QStringList events = std::exchange(m_events, {});
    const auto alive = m_alive;
    for (const auto& watch : watches) {
        // A script may have ended the wait, or the host.
        const auto told = watch->told;
        if (told && *alive)
            told();
    }
    for (const QString& event : events) {
        if (*alive)
            m_engine.events.Fire(event);
    }
    if (!*alive || !std::exchange(m_viewersWait, false))
        return;
    for (const int id : m_viewers.keys()) {
        const auto told = *alive ? m_viewers.value(id) : nullptr;
        if (told)
            told();
    }
}

} // namespace host::scene
