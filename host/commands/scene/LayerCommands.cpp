// Display layers and render layers, and who belongs to them.

#include "commands/scene/RigTables.h"
#include "commands/scene/SceneCommands.h"

namespace host::commands {

using namespace scene;

namespace {

/// The two kinds of layer: what they are made of, and which command is for which.
struct LayerKind
{
    const char* word; ///< the commands' names hold it
    const char* type;
    const char* manager;
    const char* entries; ///< the manager's list of its layers
    const char* usual; ///< the one that is always there
    bool holdsOne; ///< a node belongs to one of them at most
};

const LayerKind KINDS[] = {
    {"DisplayLayer", "displayLayer", "layerManager", "displayLayerId", "defaultLayer", true},
    {"RenderLayer", "renderLayer", "renderLayerManager", "renderLayerId", "defaultRenderLayer",
        false},
};

const LayerKind& KindOf(const Call& call)
{
    return KINDS[call.GetCommand().GetName().contains(QLatin1String(KINDS[0].word)) ? 0 : 1];
}

/// The attribute of the node, and the one of the layer, that make it a member.
ConnectionPointer Membership(const LayerKind& kind, const Node& layer, const Node& node)
{
    if (kind.holdsOne) {
        const ConnectionPointer connection = node.IncomingTo(QStringLiteral("drawOverride"));
        return connection && connection->source == &layer ? connection : nullptr;
    }
    for (const ConnectionPointer& connection : layer.GetIncoming()) {
        if (connection->source == &node
            && connection->destinationKey.startsWith(QLatin1String("renderInfo[")))
            return connection;
    }
    return nullptr;
}

void AddMember(const LayerKind& kind, Node& layer, Node& node)
{
    Scene& scene = Scene::Current();
    if (!node.IsDag() || Membership(kind, layer, node))
        return;
    if (!kind.holdsOne) {
        const Plug list = Plug::Find(layer, QStringLiteral("renderInfo"));
        scene.Connect(
            Plug::Find(node, QStringLiteral("message")), list.Element(layer.NextIndex(list.key)));
        return;
    }
    const Plug place = Plug::Find(node, QStringLiteral("drawOverride"));
    const ConnectionPointer before = node.IncomingTo(place.key);
    // Whoever belongs to no other layer belongs to the usual one.
    if (layer.IsDefault() && before)
        scene.Disconnect(before);
    else if (!layer.IsDefault())
        scene.Connect(Plug::Find(layer, QStringLiteral("drawInfo")), place);
}

void AddMembers(const Call& call, Node& layer, const QVector<Node*>& nodes)
{
    for (Node* node : nodes) {
        QVector<Node*> tree{node};
        if (!call.Has("noRecurse") && node->IsDag()) {
            tree.clear();
            node->CollectTree(tree);
        }
        for (Node* member : qAsConst(tree))
            AddMember(KindOf(call), layer, *member);
    }
}

QVector<Node*> Members(const LayerKind& kind, const Node& layer)
{
    QMap<quint64, Node*> members;
    for (const auto& [serial, connection] : layer.GetOutgoing()) {
        if (kind.holdsOne && connection->destinationKey == QLatin1String("drawOverride"))
            members.insert(serial, connection->destination);
    }
    for (const ConnectionPointer& connection : layer.GetIncoming()) {
        if (connection->destinationKey.startsWith(QLatin1String("renderInfo[")))
            members.insert(connection->serial, connection->source);
    }
    return members.values().toVector();
}

Node& Manager(const LayerKind& kind)
{
    return *Scene::Current().FindOne(QLatin1String(kind.manager));
}

/// Which layer is the current one is kept as its number; the usual one has 0.
Plug CurrentNumber(const LayerKind& kind)
{
    return Plug::Find(Manager(kind), QLatin1String("current") + QLatin1String(kind.word));
}

Plug NumberOf(Node& layer)
{
    return Plug::Find(layer, QStringLiteral("identification"));
}

std::optional<Error> FindLayer(const LayerKind& kind, const QString& name, Node*& layer)
{
    const FoundItems found = FindAll({name});
    if (found.error)
        return found.error;
    layer = found.items.first().node.get();
    if (!layer->GetType().Is(kind.type))
        return Error{QStringLiteral("'%1' is no layer.").arg(name)};
    return std::nullopt;
}

Outcome CreateLayer(Call& call)
{
    Scene& scene = Scene::Current();
    const LayerKind& kind = KindOf(call);
    FoundItems found;
    if (!call.Has("empty"))
        found = call.GetObjects().isEmpty() ? FoundItems{scene.Selection(), std::nullopt}
                                            : FindAll(call.ObjectTexts());
    const NewName name = NameFor(call, QStringLiteral("layer1"));
    if (found.error || name.error)
        return found.error ? *found.error : *name.error;
    Node& layer = scene.Create(*NodeType::Find(QLatin1String(kind.type)), name.name);
    const Plug list = Plug::Find(Manager(kind), QLatin1String(kind.entries));
    const int number = qMax(1, Manager(kind).NextIndex(list.key));
    scene.SetValue(NumberOf(layer), call.Has("number") ? call.Int("number") : number);
    scene.Connect(kind.holdsOne ? NumberOf(layer) : Plug::Find(layer, QStringLiteral("message")),
        list.Element(number));
    AddMembers(call, layer, found.Nodes());
    if (call.Has("makeCurrent"))
        scene.SetValue(CurrentNumber(kind), scene.GetValue(NumberOf(layer)));
    return layer.GetName();
}

Outcome EditMembers(Call& call)
{
    const LayerKind& kind = KindOf(call);
    Node* layer = nullptr;
    if (const auto error = FindLayer(kind, call.ObjectText(), layer))
        return *error;
    if (call.IsQuery())
        return DisplayNames(Members(kind, *layer), call.Has("fullNames"));
    const FoundItems found = Targets(call.ObjectTexts().mid(1));
    if (found.error)
        return *found.error;
    if (!call.Has("remove")) {
        AddMembers(call, *layer, found.Nodes());
        return {};
    }
    for (const Node* node : found.Nodes()) {
        if (const ConnectionPointer membership = Membership(kind, *layer, *node))
            Scene::Current().Disconnect(membership);
    }
    return {};
}

Outcome EditGlobals(Call& call)
{
    Scene& scene = Scene::Current();
    const LayerKind& kind = KindOf(call);
    const char* flag = kind.holdsOne ? "currentDisplayLayer" : "currentRenderLayer";
    if (call.IsQuery()) {
        const int number = scene.GetValue(CurrentNumber(kind)).ToInt();
        for (Node* node : scene.Nodes()) {
            if (number != 0 && node->GetType().Is(kind.type)
                && scene.GetValue(NumberOf(*node)).ToInt() == number)
                return node->GetName();
        }
        return QString::fromLatin1(kind.usual);
    }
    Node* layer = nullptr;
    const QString name = call.Has(flag) ? call.Text(flag) : call.ObjectText();
    if (const auto error = FindLayer(kind, name, layer))
        return *error;
    scene.SetValue(CurrentNumber(kind), scene.GetValue(NumberOf(*layer)));
    return {};
}

const char* const CREATION = "empty/e - c; makeCurrent/mc - c; name/n str c; noRecurse/nr - c;"
                             "number/num int c; global/g - c";
const char* const MEMBERS = "fullNames/fn - q; noRecurse/nr - c; remove/r - c";

const CommandRow COMMANDS[] = {
    {"createDisplayLayer", "string", "", "[String...]", CREATION, CreateLayer},
    {"createRenderLayer", "string", "", "[String...]", CREATION, CreateLayer},
    {"editDisplayLayerMembers", "any", "Q", "String [String...]", MEMBERS, EditMembers},
    {"editRenderLayerMembers", "any", "Q", "String [String...]", MEMBERS, EditMembers},
    {"editDisplayLayerGlobals", "any", "Q", "[String]", "currentDisplayLayer/cdl name cq",
        EditGlobals},
    {"editRenderLayerGlobals", "any", "Q", "[String]", "currentRenderLayer/crl name cq",
        EditGlobals},
};

} // namespace

void RegisterSceneLayers(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
