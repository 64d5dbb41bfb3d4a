#pragma once

#include "engine/Script.h"
#include "scene/Watches.h"

#include <QMap>
#include <QPointer>
#include <QTimer>

namespace host {
class Engine;
}

namespace host::commands {

class Conditions;

/// What a job waits for.
struct JobTrigger
{
    enum class Kind { Event, Idle, OptionVar, UiDeleted, NodeChange, Condition };

    Kind kind = Kind::Event;
    QString name; ///< of the event, option variable, element, node, attribute or condition
    scene::NodeChange change = scene::NodeChange::AttributeChanged;
    std::optional<bool> state = std::nullopt; ///< that a condition has to reach; none: any
};

struct ScriptJob
{
    JobTrigger trigger;
    Script script;
    QString parent; ///< interface element whose end ends the job
    bool runOnce = false;
    bool isProtected = false;
    bool isPermanent = false;
    bool endsWithScene = false;
    bool joinsUndo = false; ///< kept for those who ask: each text is a step of its own here
    bool anyIndex = false; ///< all elements of an attribute count
};

/// The scripts that wait for something to happen. Jobs run at once when it does, except those of
/// deleted elements and of what happens in the scene, which run when the host is idle again. Owned
/// by the session; main thread only.
class ScriptJobs : public QObject
{
    Q_OBJECT
public:
    ScriptJobs(Engine& engine, Conditions& conditions);
    ~ScriptJobs() override;

    /// The job's number, from 1, or why it cannot be.
    Outcome Add(const ScriptJob& job);
    /// A protected job only falls to `force`. False when it stays; true also when there is none.
    bool Kill(int number, bool force);
    void KillAll(bool force);
    /// Those that end with the interface element.
    void KillChildrenOf(const QString& parent);
    bool Contains(int number) const { return m_jobs.contains(number); }
    /// One line per job: its number and the flags that made it.
    QStringList Descriptions() const;

    /// How often an idle job runs at most.
    static constexpr int IDLE_INTERVAL_MS = 50;

private:
    struct Entry
    {
        ScriptJob job;
        int eventId = 0;
        int watchId = 0;
        int conditionId = 0;
        QMetaObject::Connection watched;
        QMetaObject::Connection parentWatched;
    };

    std::optional<Error> Watch(Entry& entry, int number);
    std::optional<Error> WatchNode(Entry& entry, int number);
    void WatchElement(Entry& entry, QObject* element, int number);
    void Run(int number);
    void RunIdleJobs();
    void OnSceneClosed();
    void OnOptionVarChanged(const QString& name);
    QObject* FindElement(const QString& name) const;

    Engine& m_engine;
    Conditions& m_conditions;
    QMap<int, Entry> m_jobs;
    QTimer m_idleTimer;
    int m_lastNumber = 0;
};

} // namespace host::commands
