// What flows where.

#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"

#include <algorithm>

namespace host::commands {

using namespace scene;

namespace {

QString NameOf(const Plug& plug)
{
    return Scene::Current().DisplayName(plug);
}

Plug SourceOf(const Connection& connection)
{
    return Plug::FromKey(*connection.source, connection.sourceKey);
}

Plug DestinationOf(const Connection& connection)
{
    return Plug::FromKey(*connection.destination, connection.destinationKey);
}

bool Fits(const Plug& source, const Plug& destination)
{
    const AttributeType& from = *source.attribute->type;
    const AttributeType& to = *destination.attribute->type;
    // Who is meant, and what passes through deformers, may be anything.
    const bool passes = from.IsNamed("generic") && to.storage == Storage::None;
    if (passes || to.IsNamed("message") || to.IsNamed("generic"))
        return true;
    if (from.storage == Storage::Children || to.storage == Storage::Children)
        return source.Children().size() == destination.Children().size()
            && from.storage == to.storage;
    if (from.IsNumeric() && to.IsNumeric())
        return true;
    if (from.storage == Storage::None || to.storage == Storage::None)
        return from.IsNamed(to.name);
    return from.storage == to.storage;
}

std::optional<Error> ConnectError(const Call& call, const Plug& source, const Plug& destination)
{
    if (!source.attribute->isReadable)
        return Error{
            QStringLiteral("The source attribute '%1' cannot be read.").arg(NameOf(source))};
    if (!destination.attribute->isWritable && destination.attribute->type->storage != Storage::None)
        return Error{QStringLiteral("The destination attribute '%1' cannot be written.")
                         .arg(NameOf(destination))};
    if (!Fits(source, destination))
        return Error{QStringLiteral("Data types of source and destination are not compatible.")};
    if (source == destination)
        return Error{QStringLiteral("The attribute '%1' cannot be connected to itself.")
                         .arg(NameOf(source))};
    if (destination.IsLocked() && !call.Has("force"))
        return Error{
            QStringLiteral("The destination attribute '%1' is locked.").arg(NameOf(destination))};
    const ConnectionPointer present = destination.Incoming();
    if (present && !call.Has("force")) {
        return Error{QStringLiteral("'%1' already has an incoming connection from '%2'.")
                         .arg(NameOf(destination), NameOf(SourceOf(*present)))};
    }
    return std::nullopt;
}

Outcome ConnectAttribute(Call& call)
{
    const FoundPlug source = FindPlug(call.ObjectText(0));
    const FoundPlug found = FindPlug(call.ObjectText(1));
    if (source.error || found.error)
        return source.error ? *source.error : *found.error;
    Plug destination = found.plug;
    if (call.Has("nextAvailable") && destination.IsWholeMulti())
        destination = destination.Element(destination.node->NextIndex(destination.key));
    const ConnectionPointer present = destination.node->IncomingTo(destination.key);
    const bool same = present && SourceOf(*present) == source.plug;
    if (same && call.Has("force"))
        return Value();
    if (const auto error = ConnectError(call, source.plug, destination))
        return *error;
    Scene& scene = Scene::Current();
    scene.Connect(source.plug, destination);
    if (call.Has("lock") && call.Bool("lock")) {
        PlugState state = destination.node->GetState(destination.key);
        state.locked = true;
        scene.SetState(destination, state);
    }
    return QStringLiteral("Connected %1 to %2.").arg(NameOf(source.plug), NameOf(destination));
}

Outcome DisconnectAttribute(Call& call)
{
    const FoundPlug source = FindPlug(call.ObjectText(0));
    const FoundPlug destination = FindPlug(call.ObjectText(1));
    if (source.error || destination.error)
        return source.error ? *source.error : *destination.error;
    QVector<ConnectionPointer> joined;
    for (const ConnectionPointer& connection : destination.plug.node->GetIncoming()) {
        const bool element = call.Has("nextAvailable")
            && connection->destinationKey.startsWith(destination.plug.key + QLatin1Char('['));
        if (SourceOf(*connection) == source.plug
            && (element || connection->destinationKey == destination.plug.key))
            joined += connection;
    }
    if (joined.isEmpty()) {
        return Error{QStringLiteral("There is no connection from '%1' to '%2' to disconnect")
                         .arg(NameOf(source.plug), NameOf(destination.plug))};
    }
    for (const ConnectionPointer& connection : qAsConst(joined))
        Scene::Current().Disconnect(connection);
    return QStringLiteral("Disconnect %1 from %2.")
        .arg(NameOf(source.plug), NameOf(destination.plug));
}

bool Connects(const Plug& source, const Plug& destination)
{
    const ConnectionPointer connection = destination.node->IncomingTo(destination.key);
    return connection && SourceOf(*connection) == source;
}

Outcome IsConnected(Call& call)
{
    const FoundPlug source = FindPlug(call.ObjectText(0));
    const FoundPlug destination = FindPlug(call.ObjectText(1));
    if (source.error || destination.error)
        return source.error ? *source.error : *destination.error;
    bool found = Connects(source.plug, destination.plug);
    if (!found && !call.Has("ignoreUnitConversion")) {
        const ConnectionPointer last = destination.plug.Incoming();
        found = last && last->source->GetType().Is("unitConversion")
            && Connects(source.plug, Plug::Find(*last->source, QStringLiteral("input")));
    }
    return found;
}

/// The connections into or out of what is named, in the order of the attributes.
QVector<ConnectionPointer> ConnectionsOf(const Item& item, bool incoming)
{
    const auto concerns = [&](const QString& key) {
        if (!item.IsPlug() || key == item.part || key.startsWith(item.part + QLatin1Char('['))
            || key.startsWith(item.part + QLatin1Char('.')))
            return true;
        const Plug parent = Plug::FromKey(*item.node, key).Parent();
        return parent.IsValid() && parent.key == item.part;
    };
    QVector<ConnectionPointer> connections;
    if (incoming) {
        for (const ConnectionPointer& connection : item.node->GetIncoming()) {
            if (concerns(connection->destinationKey))
                connections += connection;
        }
        std::sort(connections.begin(), connections.end(),
            [](const auto& a, const auto& b) { return a->serial < b->serial; });
        return connections;
    }
    for (const auto& [serial, connection] : item.node->GetOutgoing()) {
        if (concerns(connection->sourceKey))
            connections += connection;
    }
    return connections;
}

/// The far end; behind a node that only converts units when these are to be skipped.
QVector<Plug> FarEnds(const Call& call, const Connection& connection, bool incoming)
{
    const Plug end = incoming ? SourceOf(connection) : DestinationOf(connection);
    const bool skip = call.Has("skipConversionNodes") && call.Bool("skipConversionNodes")
        && end.node->GetType().Is("unitConversion");
    if (!skip)
        return {end};
    QVector<Plug> ends;
    for (const ConnectionPointer& next :
        ConnectionsOf({end.node->shared_from_this(), {}, false}, incoming))
        ends += incoming ? SourceOf(*next) : DestinationOf(*next);
    return ends;
}

bool IsWanted(const Call& call, const Node& node)
{
    if (!call.Has("type"))
        return true;
    const bool exact = call.Has("exactType") && call.Bool("exactType");
    return exact ? node.GetType().GetName() == call.Text("type")
                 : node.GetType().Is(call.Text("type"));
}

QString EndName(const Call& call, const Plug& end)
{
    const bool shapes = call.Has("shapes") && call.Bool("shapes");
    const Node* node = end.node->IsShape() && !shapes ? end.node->GetParent() : end.node;
    QString name = Scene::Current().DisplayName(*node);
    if (call.Has("plugs") && call.Bool("plugs"))
        name = Scene::Current().DisplayName(*end.node) + QLatin1Char('.') + end.key;
    return name;
}

void AppendConnections(const Call& call, const Item& item, bool incoming, StringList& names)
{
    const bool pairs = call.Has("connections") && call.Bool("connections");
    for (const ConnectionPointer& connection : ConnectionsOf(item, incoming)) {
        for (const Plug& end : FarEnds(call, *connection, incoming)) {
            if (!end.IsValid() || !IsWanted(call, *end.node))
                continue;
            const Plug near = incoming ? DestinationOf(*connection) : SourceOf(*connection);
            if (pairs)
                names += NameOf(near);
            names += EndName(call, end);
        }
    }
}

Outcome ListConnections(Call& call)
{
    if (call.Has("type") && !NodeType::Find(call.Text("type")))
        return Error{QStringLiteral("Unknown object type: %1").arg(call.Text("type"))};
    const FoundItems found = Targets(call);
    if (found.error)
        return call.GetObjects().isEmpty() ? Outcome(StringList()) : Outcome(*found.error);
    StringList names;
    for (const Item& item : found.items) {
        if (!call.Has("source") || call.Bool("source"))
            AppendConnections(call, item, true, names);
        if (!call.Has("destination") || call.Bool("destination"))
            AppendConnections(call, item, false, names);
    }
    return names;
}

StringList DestinationNames(const Plug& plug)
{
    StringList names;
    for (const auto& [serial, connection] : plug.node->GetOutgoing()) {
        if (connection->sourceKey == plug.key)
            names += NameOf(DestinationOf(*connection));
    }
    return names;
}

Outcome ConnectionInfo(Call& call)
{
    const FoundPlug found = FindPlug(call.ObjectText());
    if (found.error)
        return *found.error;
    const Plug& plug = found.plug;
    const ConnectionPointer exact = plug.node->IncomingTo(plug.key);
    const ConnectionPointer incoming = plug.Incoming();
    if (call.Has("sourceFromDestination"))
        return incoming ? NameOf(SourceOf(*incoming)) : QString();
    if (call.Has("destinationFromSource"))
        return DestinationNames(plug);
    if (call.Has("isDestination"))
        return incoming != nullptr;
    if (call.Has("isExactDestination"))
        return exact != nullptr;
    if (call.Has("isSource") || call.Has("isExactSource"))
        return plug.node->HasOutgoing(plug.key);
    if (call.Has("isLocked"))
        return plug.IsLocked();
    if (call.Has("getExactDestination"))
        return incoming ? NameOf(DestinationOf(*incoming)) : QString();
    if (call.Has("getExactSource"))
        return plug.node->HasOutgoing(plug.key) ? NameOf(plug) : QString();
    if (call.Has("getLockedAncestor"))
        return plug.IsLocked() ? NameOf(plug) : QString();
    return Error{QStringLiteral("connectionInfo: Say what to tell about the attribute.")};
}

Outcome ListHistory(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return call.GetObjects().isEmpty() ? Outcome(StringList()) : Outcome(*found.error);
    const bool future = call.Has("future") && call.Bool("future");
    const int levels = call.Has("levels") ? call.Int("levels") : 0;
    QVector<QPair<Node*, int>> waiting;
    for (Node* node : found.Nodes()) {
        const QVector<Node*> shapes = node->Shapes();
        waiting += qMakePair(shapes.isEmpty() ? node : shapes.first(), 0);
    }
    QVector<Node*> history;
    QSet<const Node*> known;
    for (int i = 0; i < waiting.size(); ++i) {
        const auto [node, level] = waiting[i];
        if (known.contains(node) || (levels > 0 && level > levels))
            continue;
        known.insert(node);
        if (!call.Has("pruneDagObjects") || !call.Bool("pruneDagObjects") || !node->IsDag())
            history += node;
        // Sets, and what every scene has, are no part of how something came to be.
        for (const ConnectionPointer& connection :
            ConnectionsOf({node->shared_from_this(), {}, false}, !future)) {
            Node* next = future ? connection->destination : connection->source;
            if (!next->GetType().Is("objectSet") && !next->IsDefault())
                waiting += qMakePair(next, level + 1);
        }
    }
    return DisplayNames(history);
}

const CommandRow COMMANDS[] = {
    {"connectAttr", "string", "", "String String",
        "force/f - c; lock/l B c; nextAvailable/na - c; referenceDest/rd str c", ConnectAttribute},
    {"disconnectAttr", "string", "", "String String", "nextAvailable/na - c", DisconnectAttribute},
    {"isConnected", "bool", "", "String String", "ignoreUnitConversion/iuc - c", IsConnected},
    {"listConnections", "string[]", "", "[String...]",
        "connections/c B c; destination/d B c; exactType/et B c; plugs/p B c; shapes/sh B c;"
        "skipConversionNodes/scn B c; source/s B c; type/t str c",
        ListConnections},
    {"connectionInfo", "any", "", "String",
        "destinationFromSource/dfs - c; getExactDestination/ged - c; getExactSource/ges - c;"
        "getLockedAncestor/gla - c; isDestination/id - c; isExactDestination/ied - c;"
        "isExactSource/ies - c; isLocked/il - c; isSource/is - c; sourceFromDestination/sfd - c",
        ConnectionInfo},
    {"listHistory", "string[]", "", "[String...]",
        "allConnections/ac - c; breadthFirst/bf - c; future/f B c; groupLevels/gl - c; "
        "interestLevel/il int c;"
        "levels/lv int c; pruneDagObjects/pdo B c",
        ListHistory},
};

} // namespace

void RegisterSceneConnections(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
