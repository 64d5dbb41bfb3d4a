#include "commands/Session.h"
#include "commands/Tables.h"
#include "engine/Engine.h"

#include <QDir>

namespace host::commands {

namespace {

Project& CurrentProject()
{
    return Session::Current().project;
}

Outcome FromProblem(const QString& problem)
{
    return problem.isEmpty() ? Outcome() : Outcome(Error{problem});
}

/// Projects beside the current one and in the user's projects folder.
QStringList Projects()
{
    QStringList projects;
    for (const QString& folder :
        {QFileInfo(CurrentProject().Root()).path(),
            QString(Engine::Current().paths.ApplicationDirectory() + QLatin1String("/projects"))}) {
        for (const QFileInfo& entry :
            QDir(folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
            if (QFileInfo(entry.filePath() + QLatin1String("/workspace.mel")).isFile())
                projects += entry.filePath();
        }
    }
    projects.removeDuplicates();
    return projects;
}

Outcome Query(const Call& call)
{
    const Project& project = CurrentProject();
    if (call.Has("rootDirectory"))
        return QString(project.Root() + QLatin1Char('/'));
    if (call.Has("fullName"))
        return project.Root();
    if (call.Has("active") || call.Has("shortName"))
        return project.Name();
    if (call.Has("openWorkspace"))
        return project.Root();
    if (call.Has("projectPath"))
        return QFileInfo(project.Root()).path();
    if (call.Has("directory"))
        return QString(QDir::currentPath() + QLatin1Char('/'));
    if (call.Has("expandName"))
        return project.Expand(call.Text("expandName"));
    if (call.Has("fileRuleEntry"))
        return project.Rules().value(call.Text("fileRuleEntry"));
    if (call.Has("listWorkspaces"))
        return Projects();
    if (!call.Has("fileRule"))
        return Error{QStringLiteral("workspace: the query needs a flag.")};
    QStringList rules;
    for (auto it = project.Rules().begin(); it != project.Rules().end(); ++it)
        rules += {it.key(), it.value()};
    return rules;
}

Outcome Open(const QString& path)
{
    const QString root = QDir::isAbsolutePath(path)
        ? path
        : Engine::Current().paths.ApplicationDirectory() + QLatin1String("/projects/") + path;
    return FromProblem(CurrentProject().Open(root));
}

Outcome Workspace(Call& call)
{
    if (call.IsQuery())
        return Query(call);
    Project& project = CurrentProject();
    if (call.Has("create") && !QDir().mkpath(project.Expand(call.Text("create")))) {
        return Error{QStringLiteral("Cannot create folder \"%1\".")
                         .arg(project.Expand(call.Text("create")))};
    }
    if (call.Has("directory") && !QDir::setCurrent(project.Expand(call.Text("directory")))) {
        return Error{
            QStringLiteral("The folder \"%1\" does not exist.").arg(call.Text("directory"))};
    }
    if (call.Has("newWorkspace") && !QDir().mkpath(project.Expand(call.ObjectText())))
        return Error{QStringLiteral("Cannot create folder \"%1\".").arg(call.ObjectText())};
    if (call.Has("openWorkspace") || call.Has("newWorkspace")) {
        const Outcome opened = Open(project.Expand(call.ObjectText()));
        if (!opened.Ok())
            return opened;
    }
    for (int use = 0; use < call.UseCount("fileRule"); ++use)
        project.SetRule(call.Text("fileRule", 0, use), call.Text("fileRule", 1, use));
    if (call.Has("saveWorkspace"))
        return FromProblem(project.Save());
    if (call.Has("expandName"))
        return project.Expand(call.Text("expandName"));
    if (call.Has("listWorkspaces"))
        return Projects();
    return {};
}

const CommandRow COMMANDS[] = {
    {"workspace", "any", "Q", "[String]",
        "active/act - cq; create/cr str c; directory/dir str cq; expandName/en str cqv;"
        "fileRule/fr str str cqm; fileRuleEntry/fre str cqv; fullName/fn - cq;"
        "listWorkspaces/lw - cq; newWorkspace/n - c; openWorkspace/o - cq; projectPath/pp str cq;"
        "rootDirectory/rd - q; update/u - c;"
        "saveWorkspace/s - c; shortName/sn - cq",
        Workspace},
};

} // namespace

void RegisterWorkspace(CommandRegistry& registry)
{
    registry.Register(COMMANDS);
}

} // namespace host::commands
