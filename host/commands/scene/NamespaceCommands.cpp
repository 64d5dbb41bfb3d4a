// Namespaces: "arm:joint1" is "joint1" in "arm".

#include "commands/scene/SceneCommands.h"

namespace host::commands {

using namespace scene;

namespace {

/// Without the colons around it; relative names lie in the current namespace.
QString Full(const QString& name)
{
    const bool absolute = name.startsWith(QLatin1Char(':'));
    QString plain = name;
    while (plain.startsWith(QLatin1Char(':')))
        plain.remove(0, 1);
    const QString& current = Scene::Current().currentNamespace;
    if (absolute || current.isEmpty() || plain.isEmpty())
        return plain;
    return current + QLatin1Char(':') + plain;
}

bool Exists(const QString& full)
{
    return full.isEmpty() || Scene::Current().Namespaces().contains(full);
}

QString InSpace(const QString& space, const QString& name)
{
    return space.isEmpty() ? name : space + QLatin1Char(':') + name;
}

QVector<Node*> NodesIn(const QString& space, bool recurse)
{
    QVector<Node*> nodes;
    for (Node* node : Scene::Current().Nodes()) {
        const QString own = node->Namespace();
        if (own == space
            || (recurse && (space.isEmpty() || own.startsWith(space + QLatin1Char(':')))))
            nodes += node;
    }
    return nodes;
}

/// Nodes and namespaces below `from` go below `to`; the last part of their names stays.
void MoveAll(const QString& from, const QString& to)
{
    Scene& scene = Scene::Current();
    for (Node* node : NodesIn(from, true))
        scene.Rename(*node, InSpace(to, node->GetName().mid(from.size() + 1)));
    QStringList left;
    for (const QString& name : scene.Namespaces()) {
        if (name == from)
            continue;
        const bool below = name.startsWith(from + QLatin1Char(':'));
        left += below ? InSpace(to, name.mid(from.size() + 1)) : name;
    }
    scene.SetNamespaces(left);
}

Error Missing(const QString& name)
{
    return Error{QStringLiteral("The namespace '%1' does not exist.").arg(name)};
}

Outcome Add(const Call& call)
{
    const QString name = NameIndex::LegalName(call.Text("add"));
    if (name.isEmpty())
        return Error{QStringLiteral("New name has no legal characters.")};
    QString full
        = Full(call.Text("add").startsWith(QLatin1Char(':')) ? QLatin1Char(':') + name : name);
    if (call.Has("parent")) {
        const QString parent = Full(call.Text("parent"));
        if (!Exists(parent))
            return Missing(call.Text("parent"));
        full = InSpace(parent, name);
    }
    if (Exists(full))
        return Error{QStringLiteral("The namespace '%1' already exists.").arg(full)};
    Scene& scene = Scene::Current();
    QStringList all = scene.Namespaces();
    for (QString part = full; !part.isEmpty(); part = part.section(QLatin1Char(':'), 0, -2))
        all += part;
    scene.SetNamespaces(all);
    return full;
}

Outcome Remove(const Call& call)
{
    const QString full = Full(call.Text("removeNamespace"));
    if (full.isEmpty() || !Exists(full))
        return Missing(call.Text("removeNamespace"));
    const bool merges = call.Has("mergeNamespaceWithParent") || call.Has("mergeNamespaceWithRoot");
    Scene& scene = Scene::Current();
    const QVector<Node*> nodes = NodesIn(full, true);
    if (!merges && !call.Has("deleteNamespaceContent") && !nodes.isEmpty())
        return Error{QStringLiteral("The namespace '%1' is not empty.").arg(full)};
    if (call.Has("deleteNamespaceContent"))
        scene.Delete(nodes);
    MoveAll(full,
        call.Has("mergeNamespaceWithRoot") ? QString() : full.section(QLatin1Char(':'), 0, -2));
    if (scene.currentNamespace == full)
        scene.currentNamespace.clear();
    return full;
}

Outcome Rename(const Call& call)
{
    const QString from = Full(call.Text("rename", 0));
    if (from.isEmpty() || !Exists(from))
        return Missing(call.Text("rename", 0));
    const QString name = NameIndex::LegalName(call.Text("rename", 1));
    const QString to = InSpace(from.section(QLatin1Char(':'), 0, -2), name);
    if (name.isEmpty() || Exists(to))
        return Error{QStringLiteral("The namespace '%1' already exists.").arg(to)};
    Scene& scene = Scene::Current();
    scene.SetNamespaces(scene.Namespaces() + QStringList{to});
    MoveAll(from, to);
    return to;
}

Outcome Namespace(Call& call)
{
    if (call.Has("exists"))
        return Exists(Full(call.Text("exists")));
    if (call.Has("add"))
        return Add(call);
    if (call.Has("removeNamespace"))
        return Remove(call);
    if (call.Has("rename"))
        return Rename(call);
    if (call.Has("moveNamespace")) {
        const QString from = Full(call.Text("moveNamespace", 0));
        const QString to = Full(call.Text("moveNamespace", 1));
        if (!Exists(from) || !Exists(to))
            return Missing(call.Text("moveNamespace", Exists(from) ? 1 : 0));
        for (Node* node : NodesIn(from, true))
            Scene::Current().Rename(*node, InSpace(to, node->GetName().mid(from.size() + 1)));
        return {};
    }
    if (call.Has("setNamespace")) {
        const QString full = Full(call.Text("setNamespace"));
        if (!Exists(full))
            return Missing(call.Text("setNamespace"));
        Scene::Current().currentNamespace = full;
        return full.isEmpty() ? QStringLiteral(":") : full;
    }
    return Error{QStringLiteral("namespace: Say what to do.")};
}

Outcome NamespaceInfo(Call& call)
{
    const Scene& scene = Scene::Current();
    const QString asked
        = call.GetObjects().isEmpty() ? scene.currentNamespace : Full(call.ObjectText());
    if (call.Has("currentNamespace"))
        return scene.currentNamespace.isEmpty() ? QStringLiteral(":") : scene.currentNamespace;
    if (!Exists(asked))
        return Missing(call.ObjectText());
    if (call.Has("isRootNamespace"))
        return asked.isEmpty();
    if (call.Has("parent"))
        return asked.contains(QLatin1Char(':')) ? asked.section(QLatin1Char(':'), 0, -2)
                                                : QStringLiteral(":");
    const bool recurse = call.Has("recurse");
    StringList names;
    for (const QString& name : scene.Namespaces()) {
        const QString parent
            = name.contains(QLatin1Char(':')) ? name.section(QLatin1Char(':'), 0, -2) : QString();
        const bool below
            = recurse && (asked.isEmpty() || name.startsWith(asked + QLatin1Char(':')));
        if (parent == asked || below)
            names += name;
    }
    if (call.Has("listOnlyNamespaces"))
        return names;
    const StringList nodes = DisplayNames(NodesIn(asked, recurse));
    return call.Has("listOnlyDependencyNodes") || call.Has("dagPath") ? nodes : names + nodes;
}

const CommandRow COMMANDS[] = {
    {"namespace", "any", "", "",
        "add/add str c; deleteNamespaceContent/dnc - c; exists/ex str c; force/f - c;"
        "mergeNamespaceWithParent/mnp - c; mergeNamespaceWithRoot/mnr - c;"
        "moveNamespace/mv str str c; parent/p str c; removeNamespace/rm str c; rename/ren str str "
        "c;"
        "setNamespace/set str c",
        Namespace},
    {"namespaceInfo", "any", "", "[String]",
        "absoluteName/an - c; currentNamespace/cur - c; dagPath/dp - c; fullName/fn - c;"
        "isRootNamespace/ir - c; listNamespace/ls - c; listOnlyDependencyNodes/lod - c;"
        "listOnlyNamespaces/lon - c; parent/p - c; recurse/r - c; shortName/sn - c",
        NamespaceInfo},
};

} // namespace

void RegisterSceneNamespaces(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
