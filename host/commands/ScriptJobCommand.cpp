#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

namespace host::commands {

namespace {

ScriptJobs& Jobs()
{
    return *Session::Current().scriptJobs;
}

constexpr struct
{
    const char* flag;
    JobTrigger::Kind kind;
} TRIGGERS[] = {
    {"event", JobTrigger::Kind::Event},
    {"optionVarChanged", JobTrigger::Kind::OptionVar},
    {"uiDeleted", JobTrigger::Kind::UiDeleted},
};

constexpr struct
{
    const char* flag;
    scene::NodeChange change;
} SCENE_TRIGGERS[] = {
    {"attributeAdded", scene::NodeChange::AttributeAdded},
    {"attributeChange", scene::NodeChange::AttributeChanged},
    {"attributeDeleted", scene::NodeChange::AttributeDeleted},
    {"connectionChange", scene::NodeChange::ConnectionChanged},
    {"nodeDeleted", scene::NodeChange::Deleted},
    {"nodeNameChanged", scene::NodeChange::Renamed},
};

Outcome Kill(const Call& call)
{
    for (int use = 0; use < call.UseCount("kill"); ++use) {
        const int number = call.Int("kill", 0, use);
        if (!Jobs().Kill(number, call.Has("force"))) {
            return Error{
                QStringLiteral("Script job %1 is protected: use -force to kill it.").arg(number)};
        }
    }
    return {};
}

constexpr struct
{
    const char* flag;
    std::optional<bool> state;
} CONDITION_TRIGGERS[] = {
    {"conditionChange", std::nullopt},
    {"conditionFalse", false},
    {"conditionTrue", true},
};

/// What the job waits for, and its script; a job without a script when nothing was named.
ScriptJob JobFrom(const Call& call)
{
    ScriptJob job;
    job.endsWithScene = call.Has("killWithScene");
    job.joinsUndo = call.Bool("compressUndo");
    job.anyIndex = call.Has("disregardIndex");
    job.parent = call.Text("parent");
    job.runOnce = call.Bool("runOnce");
    job.isProtected = call.Has("protected");
    job.isPermanent = call.Has("permanent");
    if (call.Has("idleEvent")) {
        job.trigger.kind = JobTrigger::Kind::Idle;
        job.script = call.GetScript("idleEvent");
    }
    for (const auto& row : TRIGGERS) {
        if (!call.Has(row.flag))
            continue;
        job.trigger = {row.kind, call.Text(row.flag), {}};
        job.script = call.GetScript(row.flag, 1);
    }
    for (const auto& row : SCENE_TRIGGERS) {
        if (!call.Has(row.flag))
            continue;
        job.trigger = {JobTrigger::Kind::NodeChange, call.Text(row.flag), row.change};
        job.script = call.GetScript(row.flag, 1);
    }
    for (const auto& row : CONDITION_TRIGGERS) {
        if (!call.Has(row.flag))
            continue;
        job.trigger = {JobTrigger::Kind::Condition, call.Text(row.flag), {}, row.state};
        job.script = call.GetScript(row.flag, 1);
    }
    if (call.Has("timeChange")) {
        job.trigger = {JobTrigger::Kind::Event, QStringLiteral("timeChanged"), {}};
        job.script = call.GetScript("timeChange");
    }
    // The event of that name comes as often as an idle job runs.
    if (job.trigger.kind == JobTrigger::Kind::Event && job.trigger.name == QLatin1String("idle"))
        job.trigger = {JobTrigger::Kind::Idle, {}, {}};
    return job;
}

Outcome Create(const Call& call)
{
    const ScriptJob job = JobFrom(call);
    if (call.Has("replacePrevious") && job.parent.isEmpty())
        return Error{QStringLiteral("-replacePrevious needs -parent.")};
    if (job.script.IsEmpty())
        return Error{QStringLiteral("scriptJob needs something to wait for and a script.")};
    if (call.Has("replacePrevious"))
        Jobs().KillChildrenOf(job.parent);
    return Jobs().Add(job);
}

Outcome RunScriptJob(Call& call)
{
    if (call.Has("exists"))
        return Jobs().Contains(call.Int("exists"));
    if (call.Has("listEvents"))
        return Events::Names();
    if (call.Has("listConditions"))
        return Session::Current().conditions.Names();
    if (call.Has("listJobs"))
        return Jobs().Descriptions();
    if (call.Has("killAll")) {
        Jobs().KillAll(call.Has("force"));
        return {};
    }
    return call.Has("kill") ? Kill(call) : Create(call);
}

const CommandRow COMMANDS[] = {
    {"scriptJob", "any", "", "",
        "allChildren/alc - c; attributeAdded/aa str script c; attributeChange/ac str script c;"
        "attributeDeleted/ad str script c; compressUndo/cu B c; conditionChange/cc str script c;"
        "conditionFalse/cf str script c; conditionTrue/ct str script c;"
        "connectionChange/con str script c; disregardIndex/dri - c; event/e str script c;"
        "exists/ex int c; force/f - c; idleEvent/ie script c; kill/k int cm; killAll/ka - c;"
        "killWithScene/kws - c; listConditions/lc - c; listEvents/le - c; listJobs/lj - c;"
        "nodeDeleted/nd str script c; nodeNameChanged/nnc str script c;"
        "optionVarChanged/ovc str script c; parent/p str c; permanent/per - c; protected/pro - c;"
        "replacePrevious/rp - c; runOnce/ro B c; timeChange/tc script c; uiDeleted/uid str script "
        "c",
        RunScriptJob},
};

} // namespace

void RegisterScriptJobs(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
