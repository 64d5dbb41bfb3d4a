#include "commands/ScriptJobs.h"

#include "commands/Conditions.h"
#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"

#include <QAction>
#include <QWidget>

namespace host::commands {

namespace {

QString Quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString FlagName(scene::NodeChange change)
{
    switch (change) {
    case scene::NodeChange::AttributeChanged: return QStringLiteral("attributeChange");
    case scene::NodeChange::AttributeAdded: return QStringLiteral("attributeAdded");
    case scene::NodeChange::AttributeDeleted: return QStringLiteral("attributeDeleted");
    case scene::NodeChange::ConnectionChanged: return QStringLiteral("connectionChange");
    case scene::NodeChange::Deleted: return QStringLiteral("nodeDeleted");
    case scene::NodeChange::Renamed: return QStringLiteral("nodeNameChanged");
    }
    return {};
}

QString FlagText(const JobTrigger& trigger)
{
    switch (trigger.kind) {
    case JobTrigger::Kind::Event: return QStringLiteral("\"-event\" ") + Quoted(trigger.name);
    case JobTrigger::Kind::Idle: return QStringLiteral("\"-idleEvent\"");
    case JobTrigger::Kind::OptionVar:
        return QStringLiteral("\"-optionVarChanged\" ") + Quoted(trigger.name);
    case JobTrigger::Kind::UiDeleted:
        return QStringLiteral("\"-uiDeleted\" ") + Quoted(trigger.name);
    case JobTrigger::Kind::Condition:
        return QStringLiteral("\"-condition%1\" %2")
            .arg(!trigger.state      ? QStringLiteral("Change")
                    : *trigger.state ? QStringLiteral("True")
                                     : QStringLiteral("False"),
                Quoted(trigger.name));
    case JobTrigger::Kind::NodeChange:
        return QStringLiteral("\"-%1\" %2").arg(FlagName(trigger.change), Quoted(trigger.name));
    }
    return {};
}

} // namespace

ScriptJobs::ScriptJobs(Engine& engine, Conditions& conditions)
    : m_engine(engine)
    , m_conditions(conditions)
{
    m_idleTimer.setInterval(IDLE_INTERVAL_MS);
    connect(&m_idleTimer, &QTimer::timeout, this, &ScriptJobs::RunIdleJobs);
    m_engine.optionVars.changed = [this](const QString& name) { OnOptionVarChanged(name); };
    for (const char* event : {"NewSceneOpened", "SceneOpened"})
        m_engine.events.Add(QString::fromLatin1(event), [this] { OnSceneClosed(); });
}

ScriptJobs::~ScriptJobs()
{
    m_engine.optionVars.changed = nullptr;
    KillAll(true);
}

QObject* ScriptJobs::FindElement(const QString& name) const
{
    if (!m_engine.ui)
        return nullptr;
    if (QWidget* window = m_engine.ui->FindWindow(name))
        return window;
    if (QWidget* control = m_engine.ui->FindControl(name, nullptr))
        return control;
    if (QWidget* layout = m_engine.ui->FindLayout(name, nullptr))
        return layout;
    return m_engine.ui->FindMenuItem(name);
}

std::optional<Error> ScriptJobs::WatchNode(Entry& entry, int number)
{
    const JobTrigger& trigger = entry.job.trigger;
    const FoundItems found = FindAll({trigger.name});
    if (found.error)
        return found.error;
    const scene::Item& item = found.items.first();
    const bool isAttribute = trigger.change == scene::NodeChange::AttributeChanged
        || trigger.change == scene::NodeChange::ConnectionChanged;
    if (isAttribute != item.IsPlug() && trigger.change != scene::NodeChange::AttributeAdded
        && trigger.change != scene::NodeChange::AttributeDeleted)
        return NoMatch(trigger.name);
    const QString part = entry.job.anyIndex ? item.part.section(QLatin1Char('['), 0, 0) : item.part;
    entry.watchId = scene::Scene::Current().watches.Add(
        trigger.change, *item.node, part, [this, number] { Run(number); });
    return std::nullopt;
}

void ScriptJobs::WatchElement(Entry& entry, QObject* element, int number)
{
    entry.watched = connect(element, &QObject::destroyed, this, [this, number] {
        const QPointer<ScriptJobs> jobs(this);
        // The element is half gone: the script comes when it is gone for good.
        m_engine.idle.Post([jobs, number] {
            if (jobs)
                jobs->Run(number);
        });
    });
}

std::optional<Error> ScriptJobs::Watch(Entry& entry, int number)
{
    const JobTrigger& trigger = entry.job.trigger;
    switch (trigger.kind) {
    case JobTrigger::Kind::Event:
        entry.eventId = m_engine.events.Add(trigger.name, [this, number] { Run(number); });
        if (entry.eventId == 0)
            return Error{QStringLiteral("Invalid event name '%1'.").arg(trigger.name)};
        break;
    case JobTrigger::Kind::Idle: m_idleTimer.start(); break;
    case JobTrigger::Kind::NodeChange: return WatchNode(entry, number);
    case JobTrigger::Kind::UiDeleted:
        if (QObject* element = FindElement(trigger.name))
            WatchElement(entry, element, number);
        else
            return Error{QStringLiteral("Object '%1' not found.").arg(trigger.name)};
        break;
    case JobTrigger::Kind::Condition: {
        if (!m_conditions.Contains(trigger.name))
            return Error{QStringLiteral("Invalid condition name '%1'.").arg(trigger.name)};
        entry.conditionId
            = m_conditions.Watch(trigger.name, [this, number, wanted = trigger.state](bool state) {
                  if (wanted.value_or(state) == state)
                      Run(number);
              });
        break;
    }
    case JobTrigger::Kind::OptionVar: break;
    }
    return std::nullopt;
}

Outcome ScriptJobs::Add(const ScriptJob& job)
{
    QObject* const parent = FindElement(job.parent);
    if (!job.parent.isEmpty() && !parent)
        return Error{QStringLiteral("Object '%1' not found.").arg(job.parent)};
    const int number = m_lastNumber + 1;
    Entry entry{job, 0, 0, 0, {}, {}};
    if (const auto error = Watch(entry, number))
        return *error;
    if (parent) {
        entry.parentWatched
            = connect(parent, &QObject::destroyed, this, [this, number] { Kill(number, true); });
    }
    m_jobs.insert(number, entry);
    m_lastNumber = number;
    return number;
}

bool ScriptJobs::Kill(int number, bool force)
{
    const auto found = m_jobs.constFind(number);
    if (found == m_jobs.constEnd())
        return true;
    if (found->job.isProtected && !force)
        return false;
    m_engine.events.Remove(found->eventId);
    if (found->watchId != 0)
        scene::Scene::Current().watches.Remove(found->watchId);
    if (found->conditionId != 0)
        m_conditions.Unwatch(found->conditionId);
    disconnect(found->watched);
    disconnect(found->parentWatched);
    m_jobs.remove(number);
    return true;
}

void ScriptJobs::KillAll(bool force)
{
    for (const int number : m_jobs.keys()) {
        if (force || !m_jobs.value(number).job.isPermanent)
            Kill(number, force);
    }
}

void ScriptJobs::KillChildrenOf(const QString& parent)
{
    for (const int number : m_jobs.keys()) {
        if (m_jobs.value(number).job.parent == parent)
            Kill(number, true);
    }
}

void ScriptJobs::OnSceneClosed()
{
    for (const int number : m_jobs.keys()) {
        if (m_jobs.value(number).job.endsWithScene)
            Kill(number, true);
    }
}

QStringList ScriptJobs::Descriptions() const
{
    QStringList lines;
    for (auto it = m_jobs.begin(); it != m_jobs.end(); ++it) {
        const ScriptJob& job = it->job;
        QStringList parts;
        if (job.runOnce)
            parts += QStringLiteral("\"-runOnce\" 1");
        if (job.isPermanent)
            parts += QStringLiteral("\"-permanent\"");
        if (job.isProtected)
            parts += QStringLiteral("\"-protected\"");
        if (job.endsWithScene)
            parts += QStringLiteral("\"-killWithScene\"");
        if (job.joinsUndo)
            parts += QStringLiteral("\"-compressUndo\" 1");
        if (job.anyIndex)
            parts += QStringLiteral("\"-disregardIndex\"");
        if (!job.parent.isEmpty())
            parts += QStringLiteral("\"-parent\" ") + Quoted(job.parent);
        parts += FlagText(job.trigger);
        parts += Quoted(job.script.Description());
        lines += QStringLiteral("%1: %2\n").arg(it.key()).arg(parts.join(QLatin1Char(' ')));
    }
    return lines;
}

void ScriptJobs::Run(int number)
{
    const auto found = m_jobs.constFind(number);
    if (found == m_jobs.constEnd())
        return;
    // A copy: the script may end its own job.
    const Script script = found->job.script;
    if (found->job.runOnce || found->job.trigger.kind == JobTrigger::Kind::UiDeleted)
        Kill(number, true);
    script.Run();
}

void ScriptJobs::RunIdleJobs()
{
    if (m_engine.RunningScripts() > 0)
        return;
    bool any = false;
    for (const int number : m_jobs.keys()) {
        if (m_jobs.value(number).job.trigger.kind != JobTrigger::Kind::Idle)
            continue;
        any = true;
        Run(number);
    }
    if (!any)
        m_idleTimer.stop();
}

void ScriptJobs::OnOptionVarChanged(const QString& name)
{
    for (const int number : m_jobs.keys()) {
        const JobTrigger trigger = m_jobs.value(number).job.trigger;
        if (trigger.kind == JobTrigger::Kind::OptionVar && trigger.name == name)
            Run(number);
    }
}

} // namespace host::commands
