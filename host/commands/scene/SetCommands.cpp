// Sets and what is shaded how.

#include "commands/scene/SceneCommands.h"
#include "commands/scene/SetMembership.h"

#include <algorithm>

namespace host::commands {

using namespace scene;

namespace {

/// The set that the call names first where it changes or asks about one.
std::optional<Error> FindSet(const QString& name, Node*& set)
{
    const FoundItems found = FindAll({name});
    if (found.error)
        return found.error;
    set = found.items.first().node.get();
    if (!set->GetType().Is("objectSet"))
        return Error{QStringLiteral("'%1' is no set.").arg(name)};
    return std::nullopt;
}

QStringList MemberNames(const Node& set)
{
    QStringList names;
    for (const Item& item : SetMembers(set))
        names += Scene::Current().DisplayName(item);
    return names;
}

Outcome CreateSet(const Call& call)
{
    Scene& scene = Scene::Current();
    FoundItems members;
    if (!call.Has("empty")) {
        members = call.GetObjects().isEmpty() ? FoundItems{scene.Selection(), std::nullopt}
                                              : FindAll(call.ObjectTexts());
    }
    if (members.error)
        return *members.error;
    const bool shading = call.Has("renderable") && call.Bool("renderable");
    const QString type = shading ? QStringLiteral("shadingEngine") : QStringLiteral("objectSet");
    const NewName name
        = NameFor(call, shading ? QStringLiteral("shadingEngine1") : QStringLiteral("set1"));
    if (name.error)
        return *name.error;
    Node& set = scene.Create(*NodeType::Find(type), name.name);
    for (const Item& item : qAsConst(members.items))
        shading ? AssignShading(set, item) : AddToSet(set, item);
    if (call.Has("text"))
        scene.SetValue(Plug::Find(set, QStringLiteral("annotation")), call.Text("text"));
    return set.GetName();
}

/// How members of other sets meet those of the one that is changed.
using MemberChange = void (*)(Node& set, const Item& item);

struct EditRow
{
    const char* flag;
    MemberChange change;
};

const EditRow EDITS[] = {
    {"addElement",
        [](Node& set, const Item& item) {
            set.GetType().Is("shadingEngine") ? AssignShading(set, item) : AddToSet(set, item);
        }},
    {"forceElement",
        [](Node& set, const Item& item) {
            set.GetType().Is("shadingEngine") ? AssignShading(set, item) : AddToSet(set, item);
        }},
    {"include", AddToSet},
    {"remove", RemoveFromSet},
    {"subtract", RemoveFromSet},
};

/// A set among the items stands for its members where sets are joined or taken apart.
QVector<Item> Expanded(const char* flag, const QVector<Item>& items)
{
    const bool joins = qstrcmp(flag, "include") == 0 || qstrcmp(flag, "subtract") == 0;
    QVector<Item> all;
    for (const Item& item : items) {
        if (joins && item.IsNode() && item.node->GetType().Is("objectSet"))
            all += SetMembers(*item.node);
        else
            all += item;
    }
    return all;
}

Outcome ChangeSet(const Call& call, const char* flag, MemberChange change)
{
    Node* set = nullptr;
    if (const auto error = FindSet(call.Text(flag), set))
        return *error;
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    for (const Item& item : Expanded(flag, found.items)) {
        if (item.node.get() == set)
            return Error{QStringLiteral("A set cannot be its own member.")};
        change(*set, item);
    }
    return set->GetName();
}

Outcome ClearSet(const Call& call)
{
    Node* set = nullptr;
    if (const auto error = FindSet(call.Text("clear"), set))
        return *error;
    for (const Item& item : SetMembers(*set))
        RemoveFromSet(*set, item);
    return set->GetName();
}

Outcome AskSet(const Call& call, const char* flag)
{
    Node* set = nullptr;
    if (const auto error = FindSet(call.Text(flag), set))
        return *error;
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    const auto isMember = [&](const Item& item) { return IsMember(*set, item); };
    if (qstrcmp(flag, "isMember") == 0)
        return std::all_of(found.items.begin(), found.items.end(), isMember);
    return std::any_of(found.items.begin(), found.items.end(), isMember);
}

/// All members of several sets, or those that all of them have.
Outcome CombineSets(const Call& call, bool common)
{
    QStringList names;
    bool first = true;
    for (const QString& name : call.ObjectTexts()) {
        Node* set = nullptr;
        if (const auto error = FindSet(name, set))
            return *error;
        const QStringList members = MemberNames(*set);
        QStringList left;
        if (common && !first) {
            std::copy_if(names.begin(), names.end(), std::back_inserter(left),
                [&](const QString& member) { return members.contains(member); });
            names = left;
        } else {
            names += members;
        }
        first = false;
    }
    names.removeDuplicates();
    return names;
}

Outcome QuerySet(const Call& call)
{
    Node* set = nullptr;
    if (const auto error = FindSet(call.ObjectText(), set))
        return *error;
    if (call.Has("text"))
        return Scene::Current().GetValue(Plug::Find(*set, QStringLiteral("annotation")));
    if (call.Has("renderable"))
        return set->GetType().Is("shadingEngine");
    if (call.Has("size"))
        return SetMembers(*set).size();
    if (call.Has("nodesOnly")) {
        FoundItems members;
        members.items = SetMembers(*set);
        return DisplayNames(members.Nodes());
    }
    return MemberNames(*set);
}

Outcome Sets(Call& call)
{
    if (call.Has("isMember"))
        return AskSet(call, "isMember");
    if (call.Has("anyMember"))
        return AskSet(call, "anyMember");
    if (call.IsQuery())
        return QuerySet(call);
    if (call.Has("union"))
        return CombineSets(call, false);
    if (call.Has("intersection"))
        return CombineSets(call, true);
    if (call.Has("clear"))
        return ClearSet(call);
    for (const EditRow& row : EDITS) {
        if (call.Has(row.flag))
            return ChangeSet(call, row.flag, row.change);
    }
    return CreateSet(call);
}

Outcome ListSets(Call& call)
{
    QVector<Node*> sets;
    if (call.Has("object")) {
        const FoundItems found = FindAll({call.Text("object")});
        if (found.error)
            return *found.error;
        sets = SetsOf(*found.items.first().node);
        const bool shapes = call.Has("extendToShape");
        for (const Node* shape : shapes ? found.items.first().node->Shapes() : QVector<Node*>())
            sets += SetsOf(*shape);
    } else {
        for (Node* node : Scene::Current().Nodes()) {
            if (node->GetType().Is("objectSet"))
                sets += node;
        }
    }
    const int wanted = call.Has("type") ? call.Int("type") : 0;
    QVector<Node*> listed;
    for (Node* set : qAsConst(sets)) {
        const bool shading = set->GetType().Is("shadingEngine");
        if (wanted == 0 || (wanted == 1) == shading)
            listed += set;
    }
    return DisplayNames(listed);
}

/// A node of the shader editor, noted in the list that it belongs to.
Outcome ShadingNode(Call& call)
{
    Scene& scene = Scene::Current();
    const NodeType* type = NodeType::Find(call.ObjectText());
    if (!type || type->IsAbstract())
        return Error{QStringLiteral("Unknown object type: %1").arg(call.ObjectText())};
    constexpr struct
    {
        const char* flag;
        const char* list;
    } LISTS[] = {
        {"asShader", "defaultShaderList1.shaders"},
        {"asTexture", "defaultTextureList1.textures"},
        {"asUtility", "defaultRenderUtilityList1.utilities"},
        {"asLight", "lightList1.lights"},
        {"asRendering", "defaultRenderingList1.renders"},
        {"asPostProcess", "postProcessList1.postProcesses"},
    };
    const NewName name = NameFor(call, type->GetName() + QLatin1Char('1'));
    if (name.error)
        return *name.error;
    Node* node = nullptr;
    if (type->IsShape()) {
        node = &scene.Create(*NodeType::Find(QStringLiteral("transform")), name.name);
        scene.Create(*type, ShapeName(node->GetName()), node);
    } else {
        node = &scene.Create(*type, name.name);
    }
    bool listed = false;
    for (const auto& row : LISTS) {
        const bool here = call.Has(row.flag);
        const FoundPlug list = here ? FindPlug(QLatin1String(row.list)) : FoundPlug();
        if (!here || list.error)
            continue;
        listed = true;
        scene.Connect(Plug::Find(*node, QStringLiteral("message")),
            list.plug.Element(list.plug.node->NextIndex(list.plug.key)));
    }
    if (!listed)
        return Error{QStringLiteral("shadingNode: Say as what: -asShader, -asTexture, -asUtility, "
                                    "-asLight, -asRendering or -asPostProcess.")};
    if (!call.Has("skipSelect"))
        SelectNodes({node});
    return scene.DisplayName(*node);
}

QVector<Node*> GroupsOf(const Node& material)
{
    QVector<Node*> groups;
    for (const auto& [serial, connection] : material.GetOutgoing()) {
        if (connection->destination->GetType().Is("shadingEngine")
            && !groups.contains(connection->destination))
            groups += connection->destination;
    }
    return groups;
}

/// The group of a material; a new one where it has none.
Node& GroupFor(Node& material)
{
    const QVector<Node*> groups = GroupsOf(material);
    if (!groups.isEmpty())
        return *groups.first();
    Scene& scene = Scene::Current();
    Node& group = scene.Create(*NodeType::Find(QStringLiteral("shadingEngine")),
        scene.Names().UnusedName(material.GetName() + QLatin1String("SG")));
    const Plug color = Plug::Find(material, QStringLiteral("outColor"));
    if (color.IsValid())
        scene.Connect(color, Plug::Find(group, QStringLiteral("surfaceShader")));
    return group;
}

Outcome HyperShade(Call& call)
{
    const char* flag = call.Has("assign") ? "assign" : "objects";
    if (!call.Has("assign") && !call.Has("objects"))
        return Error{QStringLiteral("hyperShade: Only -assign and -objects are offered here.")};
    const FoundItems material = FindAll({call.Text(flag)});
    if (material.error)
        return *material.error;
    Node& node = *material.items.first().node;
    if (call.Has("assign")) {
        const FoundItems found = Targets(call);
        if (found.error)
            return *found.error;
        Node& group = node.GetType().Is("shadingEngine") ? node : GroupFor(node);
        for (const Item& item : found.items)
            AssignShading(group, item);
        return {};
    }
    QVector<Item> items;
    for (const Node* group : GroupsOf(node))
        items += SetMembers(*group);
    Scene::Current().Select(items);
    return {};
}

const CommandRow COMMANDS[] = {
    {"sets", "any", "QE", "[String...]",
        "addElement/add name ce; anyMember/anm name c; clear/cl name ce; empty/em - c;"
        "forceElement/fe name ce; include/in name ce; intersection/int - c; isMember/im name c;"
        "name/n str c; noSurfaceShader/nss B c; nodesOnly/no - q; remove/rm name ce; renderable/r "
        "B cq; size/s - q;"
        "subtract/sub name ce; text/t str cq; union/un - c",
        Sets},
    {"listSets", "string[]", "", "",
        "allSets/allSets - c; extendToShape/ets - c; object/o name c; type/t int c", ListSets},
    {"shadingNode", "string", "", "String",
        "asLight/al - c; asPostProcess/app - c; asRendering/ar - c; asShader/as - c;"
        "asTexture/at - c; asUtility/au - c; isColorManaged/icm - c; name/n str c; skipSelect/ss - "
        "c",
        ShadingNode},
    {"hyperShade", "any", "", "[String...]", "assign/a name c; objects/o name c", HyperShade},
};

} // namespace

void RegisterSceneSets(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
