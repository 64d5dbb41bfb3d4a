#pragma once

#include "engine/Script.h"

#include <QMap>
#include <QTimer>

#include <functional>

namespace host {
class Engine;
}

namespace host::commands {

/// Named questions about the host with a yes or no for an answer: its own, and those that scripts
/// add. Who waits for an answer to change is told at once or a little later. Owned by the session;
/// main thread only.
class Conditions : public QObject
{
    Q_OBJECT
public:
    explicit Conditions(Engine& engine);
    ~Conditions() override;

    /// Sorted.
    QStringList Names() const;
    bool Contains(const QString& name) const;
    bool IsBuiltIn(const QString& name) const;
    bool IsTrue(const QString& name) const;

    /// One of a script, made where it is not there yet.
    void SetState(const QString& name, bool state);
    /// The script says the state: now, if it is to begin with that, and whenever one of the events
    /// or conditions comes that it depends on. False when one of those is not there.
    bool SetScript(
        const QString& name, const Script& script, const QStringList& dependencies, bool runsNow);
    void Remove(const QString& name);

    /// Id, never 0. `changed` gets the new state.
    int Watch(const QString& name, std::function<void(bool)> changed);
    void Unwatch(int id);

    /// How often the host's own conditions are looked at while somebody waits for them.
    static constexpr int INTERVAL_MS = 50;

private:
    struct Own
    {
        bool state = false;
        Script script;
        QVector<int> events;
        QVector<int> conditions;
    };
    struct Watcher
    {
        QString name;
        bool last = false;
        std::function<void(bool)> changed;
    };

    void Compute(const QString& name);
    void Forget(Own& own);
    void Check();

    Engine& m_engine;
    QMap<QString, Own> m_own;
    QMap<int, Watcher> m_watchers;
    QTimer m_timer;
    int m_lastId = 0;
};

} // namespace host::commands
