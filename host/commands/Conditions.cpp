#include "commands/Conditions.h"

#include "commands/Session.h"
#include "engine/Engine.h"

namespace host::commands {

namespace {

bool CanUndo()
{
    return !Engine::Current().undoQueue.UndoNames().isEmpty();
}

bool CanRedo()
{
    return !Engine::Current().undoQueue.RedoNames().isEmpty();
}

constexpr struct
{
    const char* name;
    bool (*isTrue)();
} BUILT_IN[] = {
    {"RedoAvailable", CanRedo},
    {"SomethingSelected", [] { return !scene::Scene::Current().Selection().isEmpty(); }},
    {"UndoAvailable", CanUndo},
    {"UndoOrRedoAvailable", [] { return CanUndo() || CanRedo(); }},
    {"playingBack", [] { return Session::Current().player.IsPlaying(); }},
};

} // namespace

Conditions::Conditions(Engine& engine)
    : m_engine(engine)
{
    m_timer.setInterval(INTERVAL_MS);
    connect(&m_timer, &QTimer::timeout, this, &Conditions::Check);
}

Conditions::~Conditions()
{
    for (Own& own : m_own)
        Forget(own);
}

QStringList Conditions::Names() const
{
    QStringList names = m_own.keys();
    for (const auto& row : BUILT_IN)
        names += QString::fromLatin1(row.name);
    names.sort();
    return names;
}

bool Conditions::Contains(const QString& name) const
{
    return m_own.contains(name) || IsBuiltIn(name);
}

bool Conditions::IsBuiltIn(const QString& name) const
{
    for (const auto& row : BUILT_IN) {
        if (name == QLatin1String(row.name))
            return true;
    }
    return false;
}

bool Conditions::IsTrue(const QString& name) const
{
    for (const auto& row : BUILT_IN) {
        if (name == QLatin1String(row.name))
            return row.isTrue();
    }
    return m_own.value(name).state;
}

void Conditions::SetState(const QString& name, bool state)
{
    m_own[name].state = state;
    Check();
}

bool Conditions::SetScript(
    const QString& name, const Script& script, const QStringList& dependencies, bool runsNow)
{
    for (const QString& dependency : dependencies) {
        if (!Contains(dependency) && !Events::Names().contains(dependency))
            return false;
    }
    Own& own = m_own[name];
    Forget(own);
    own.script = script;
    for (const QString& dependency : dependencies) {
        if (Contains(dependency))
            own.conditions += Watch(dependency, [this, name](bool) { Compute(name); });
        else
            own.events += m_engine.events.Add(dependency, [this, name] { Compute(name); });
    }
    if (runsNow)
        Compute(name);
    return true;
}

void Conditions::Remove(const QString& name)
{
    if (!m_own.contains(name))
        return;
    Forget(m_own[name]);
    m_own.remove(name);
    Check();
}

void Conditions::Forget(Own& own)
{
    for (const int id : qAsConst(own.events))
        m_engine.events.Remove(id);
    for (const int id : qAsConst(own.conditions))
        Unwatch(id);
    own.events.clear();
    own.conditions.clear();
}

/// A script that fails leaves the state as it was. It may remove its own condition.
void Conditions::Compute(const QString& name)
{
    const Script script = m_own.value(name).script;
    const Outcome outcome = script.Run();
    if (outcome.Ok() && m_own.contains(name))
        SetState(name, outcome.GetValue().ToInt() != 0);
}

int Conditions::Watch(const QString& name, std::function<void(bool)> changed)
{
    m_watchers.insert(++m_lastId, {name, IsTrue(name), std::move(changed)});
    m_timer.start();
    return m_lastId;
}

void Conditions::Unwatch(int id)
{
    m_watchers.remove(id);
    if (m_watchers.isEmpty())
        m_timer.stop();
}

void Conditions::Check()
{
    for (const int id : m_watchers.keys()) {
        const auto watcher = m_watchers.find(id);
        if (watcher == m_watchers.end())
            continue;
        const bool now = IsTrue(watcher->name);
        if (now == watcher->last)
            continue;
        watcher->last = now;
        const auto changed = watcher->changed;
        changed(now);
    }
}

} // namespace host::commands
