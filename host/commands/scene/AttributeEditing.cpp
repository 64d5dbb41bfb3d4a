// Attributes that scripts add, and what there is to know about attributes.

#include "commands/Patterns.h"
#include "commands/scene/SceneCommands.h"

#include <QRegularExpression>

#include <algorithm>

namespace host::commands {

using namespace scene;

namespace {

using AttributePointer = std::shared_ptr<Attribute>;

/// With children of its own, so that it can be changed.
AttributePointer CopyOf(const Attribute& original)
{
    auto copy = std::make_shared<Attribute>(original);
    for (AttributePointer& child : copy->children) {
        child = CopyOf(*child);
        child->parent = copy.get();
    }
    return copy;
}

std::optional<double> OptionalNumber(const Call& call, const char* flag)
{
    return call.Has(flag) ? std::make_optional(call.Float(flag)) : std::nullopt;
}

void ReadSwitches(const Call& call, Attribute& attribute)
{
    constexpr struct
    {
        const char* flag;
        bool Attribute::*member;
    } SWITCHES[] = {
        {"keyable", &Attribute::isKeyable},
        {"hidden", &Attribute::isHidden},
        {"multi", &Attribute::isMulti},
        {"readable", &Attribute::isReadable},
        {"writable", &Attribute::isWritable},
        {"storable", &Attribute::isStorable},
        {"usedAsColor", &Attribute::isColor},
    };
    for (const auto& row : SWITCHES) {
        if (call.Has(row.flag))
            attribute.*row.member = call.Bool(row.flag);
    }
}

void ReadLimits(const Call& call, Attribute& attribute)
{
    constexpr struct
    {
        const char* flag;
        std::optional<double> Attribute::*member;
    } LIMITS[] = {
        {"minValue", &Attribute::minimum},
        {"maxValue", &Attribute::maximum},
        {"softMinValue", &Attribute::softMinimum},
        {"softMaxValue", &Attribute::softMaximum},
    };
    for (const auto& row : LIMITS) {
        if (call.Has(row.flag))
            attribute.*row.member = OptionalNumber(call, row.flag);
    }
    if (call.Has("hasMinValue") && !call.Bool("hasMinValue"))
        attribute.minimum.reset();
    if (call.Has("hasMaxValue") && !call.Bool("hasMaxValue"))
        attribute.maximum.reset();
    if (call.Has("hasSoftMinValue") && !call.Bool("hasSoftMinValue"))
        attribute.softMinimum.reset();
    if (call.Has("hasSoftMaxValue") && !call.Bool("hasSoftMaxValue"))
        attribute.softMaximum.reset();
}

void SetDefault(Attribute& attribute, double number)
{
    switch (attribute.type->storage) {
    case Storage::Bool: attribute.defaultValue = number != 0; break;
    case Storage::Int: attribute.defaultValue = static_cast<int>(number); break;
    case Storage::Float: attribute.defaultValue = number; break;
    default: break;
    }
}

void ReadTexts(const Call& call, Attribute& attribute)
{
    if (call.Has("niceName"))
        attribute.niceName = call.Text("niceName");
    if (call.Has("enumName"))
        attribute.enumNames = call.Text("enumName");
    if (call.Has("category"))
        attribute.category = call.Text("category");
    if (call.Has("defaultValue"))
        SetDefault(attribute, call.Float("defaultValue"));
}

/// What the call describes, or why it describes nothing.
std::optional<Error> Describe(const Call& call, Attribute& attribute)
{
    attribute.longName = call.Has("longName") ? call.Text("longName") : call.Text("shortName");
    attribute.shortName = call.Has("shortName") ? call.Text("shortName") : attribute.longName;
    attribute.isDynamic = true;
    static const QRegularExpression legal(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    if (!legal.match(attribute.longName).hasMatch())
        return Error{QStringLiteral("addAttr: New attributes need a name (longName).")};
    QString type = QStringLiteral("double");
    if (call.Has("attributeType"))
        type = call.Text("attributeType");
    else if (call.Has("dataType"))
        type = call.Text("dataType");
    // The same word means a matrix of floats as a type of attribute.
    const bool plainMatrix = type == QLatin1String("matrix") && call.Has("attributeType");
    attribute.type = AttributeType::Find(plainMatrix ? QStringLiteral("fltMatrix") : type);
    if (!attribute.type)
        return Error{QStringLiteral("addAttr: Unknown attribute type: %1").arg(type)};
    attribute.defaultValue = Attribute::InitialValue(*attribute.type);
    ReadSwitches(call, attribute);
    ReadLimits(call, attribute);
    ReadTexts(call, attribute);
    attribute.declaredChildren
        = call.Has("numberOfChildren") ? call.Int("numberOfChildren") : attribute.type->childCount;
    return std::nullopt;
}

/// A child of a compound that is being made piece by piece.
std::optional<Error> AddChild(const Call& call, Node& node, const AttributePointer& child)
{
    const QString name = call.Text("parent");
    const Attribute* parent = node.GetDynamicAttributes().Find(name);
    const Attribute* top = parent;
    while (top && top->parent)
        top = top->parent;
    if (!top || parent->type->storage != Storage::Children)
        return Error{QStringLiteral("addAttr: '%1' is no compound attribute.").arg(name)};
    const AttributePointer copy = CopyOf(*top);
    AttributeList list;
    list.Add(copy);
    auto* owner = const_cast<Attribute*>(list.Find(name));
    if (owner->children.size() >= owner->declaredChildren)
        return Error{QStringLiteral("addAttr: '%1' has all its children.").arg(name)};
    child->parent = owner;
    owner->children += child;
    Scene::Current().ReplaceAttribute(node, copy);
    return std::nullopt;
}

std::optional<Error> AddTo(const Call& call, Node& node)
{
    auto attribute = std::make_shared<Attribute>();
    if (const auto error = Describe(call, *attribute))
        return error;
    if (node.FindAttribute(attribute->longName) || node.FindAttribute(attribute->shortName)) {
        return Error{
            QStringLiteral("addAttr: Found an attribute of the name '%1' on the node '%2'.")
                .arg(attribute->longName, Scene::Current().DisplayName(node))};
    }
    if (call.Has("parent"))
        return AddChild(call, node, attribute);
    Scene::Current().AddAttribute(node, attribute);
    return std::nullopt;
}

std::optional<Error> ChangeIn(const Call& call, const Plug& plug)
{
    const Attribute* top = plug.attribute;
    while (top->parent)
        top = top->parent;
    if (!top->isDynamic) {
        return Error{QStringLiteral("addAttr: '%1' is no attribute that was added.")
                         .arg(plug.attribute->longName)};
    }
    const AttributePointer copy = CopyOf(*top);
    AttributeList list;
    list.Add(copy);
    auto& attribute = *const_cast<Attribute*>(list.Find(plug.attribute->longName));
    ReadSwitches(call, attribute);
    ReadLimits(call, attribute);
    ReadTexts(call, attribute);
    Scene::Current().ReplaceAttribute(*plug.node, copy);
    return std::nullopt;
}

Outcome AttributeInfo(const Call& call, const Attribute& attribute)
{
    const QString asked = call.GivenFlags().value(0);
    const QString type = QLatin1String(attribute.type->name);
    if (asked == QLatin1String("attributeType"))
        return attribute.type->isData ? QStringLiteral("typed") : type;
    if (asked == QLatin1String("dataType"))
        return StringList{attribute.type->isData ? type : QString()};
    if (asked == QLatin1String("defaultValue"))
        return attribute.defaultValue.ToFloat();
    if (asked == QLatin1String("minValue"))
        return attribute.minimum ? Outcome(*attribute.minimum) : Outcome();
    if (asked == QLatin1String("maxValue"))
        return attribute.maximum ? Outcome(*attribute.maximum) : Outcome();
    if (asked == QLatin1String("softMinValue"))
        return attribute.softMinimum ? Outcome(*attribute.softMinimum) : Outcome();
    if (asked == QLatin1String("softMaxValue"))
        return attribute.softMaximum ? Outcome(*attribute.softMaximum) : Outcome();
    if (asked == QLatin1String("hasMinValue"))
        return attribute.minimum.has_value();
    if (asked == QLatin1String("hasMaxValue"))
        return attribute.maximum.has_value();
    if (asked == QLatin1String("enumName"))
        return attribute.enumNames;
    if (asked == QLatin1String("niceName"))
        return attribute.NiceName();
    if (asked == QLatin1String("shortName"))
        return attribute.shortName;
    if (asked == QLatin1String("keyable"))
        return attribute.isKeyable;
    if (asked == QLatin1String("hidden"))
        return attribute.isHidden;
    if (asked == QLatin1String("multi"))
        return attribute.isMulti;
    return asked == QLatin1String("longName") ? Outcome(attribute.longName)
                                              : Outcome(attribute.category);
}

Outcome AddAttribute(Call& call)
{
    if (!call.IsCreate()) {
        const FoundPlug found = FindPlug(call.ObjectText());
        if (call.IsQuery() && call.Has("exists"))
            return !found.error;
        if (found.error)
            return *found.error;
        if (call.IsQuery())
            return AttributeInfo(call, *found.plug.attribute);
        const auto error = ChangeIn(call, found.plug);
        return error ? Outcome(*error) : Outcome();
    }
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    for (Node* node : found.Nodes()) {
        if (const auto error = AddTo(call, *node))
            return *error;
    }
    return {};
}

Outcome DeleteAttribute(Call& call)
{
    FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    for (Item item : qAsConst(found.items)) {
        const QString name = call.Has("attribute") ? call.Text("attribute") : item.part;
        const Attribute* attribute = item.node->GetDynamicAttributes().Find(name);
        if (!attribute) {
            return Error{QStringLiteral("deleteAttr: '%1' is no attribute that was added.")
                             .arg(name.isEmpty() ? call.ObjectText() : name)};
        }
        if (item.node->IsLocked() || item.node->GetState(attribute->longName).locked) {
            return Error{QStringLiteral("deleteAttr: The attribute '%1' is locked.").arg(name)};
        }
        Scene::Current().RemoveAttribute(*item.node, *attribute);
    }
    return {};
}

Outcome RenameAttribute(Call& call)
{
    const FoundPlug found = FindPlug(call.ObjectText());
    if (found.error)
        return *found.error;
    const QString name = call.ObjectText(1);
    const Plug& plug = found.plug;
    if (!plug.attribute->isDynamic || plug.attribute->parent || plug.node->FindAttribute(name))
        return Error{QStringLiteral("renameAttr: '%1' cannot be called '%2'.")
                         .arg(plug.attribute->longName, name)};
    Scene& scene = Scene::Current();
    const AttributePointer copy = CopyOf(*plug.attribute);
    copy->longName = name;
    copy->shortName = name;
    const Value value = plug.HasChildren() ? Value() : scene.GetStored(plug);
    Node& node = *plug.node;
    scene.RemoveAttribute(node, *plug.attribute);
    scene.AddAttribute(node, copy);
    if (!value.IsNone())
        scene.SetValue(Plug::Find(node, name), value);
    return name;
}

Outcome AliasAttribute(Call& call)
{
    const QStringList objects = call.ObjectTexts();
    const bool remove = call.Has("remove");
    if (call.IsQuery()) {
        const FoundPlug plug = FindPlug(objects.value(0));
        if (!plug.error)
            return plug.plug.node->GetAliases().key(plug.plug.key);
        const FoundItems found = FindAll(objects);
        if (found.error)
            return *found.error;
        StringList pairs;
        const auto aliases = found.items.first().node->GetAliases();
        for (auto alias = aliases.begin(); alias != aliases.end(); ++alias)
            pairs += QStringList{alias.key(), alias.value()};
        return pairs;
    }
    for (int i = 0; i < objects.size(); i += remove ? 1 : 2) {
        const FoundPlug found = FindPlug(objects[remove ? i : i + 1 < objects.size() ? i + 1 : i]);
        if (found.error)
            return *found.error;
        const QString alias = remove ? QString() : objects[i];
        if (found.plug.node->FindAttribute(alias))
            return Error{QStringLiteral("aliasAttr: The name '%1' is taken.").arg(alias)};
        Scene::Current().SetAlias(found.plug, alias);
    }
    return {};
}

// What there is to know

bool HasSettableState(const Plug& plug)
{
    return plug.IsSettable();
}

struct ListFilter
{
    const char* flag;
    bool (*passes)(const Plug&);
};

const ListFilter LIST_FILTERS[] = {
    {"userDefined", [](const Plug& plug) { return plug.attribute->isDynamic; }},
    {"keyable",
        [](const Plug& plug) {
            return plug.IsKeyable() && !plug.HasChildren() && !plug.IsLocked();
        }},
    {"channelBox", [](const Plug& plug) { return plug.IsInChannelBox() && !plug.HasChildren(); }},
    {"locked", [](const Plug& plug) { return plug.IsLocked(); }},
    {"unlocked", [](const Plug& plug) { return !plug.IsLocked(); }},
    {"scalar", [](const Plug& plug) { return plug.attribute->type->IsNumeric(); }},
    {"settable", HasSettableState},
    {"visible", [](const Plug& plug) { return !plug.attribute->isHidden; }},
    {"multi", [](const Plug& plug) { return !plug.IsWholeMulti(); }},
    {"leaf", [](const Plug& plug) { return plug.attribute->children.isEmpty(); }},
    {"readOnly", [](const Plug& plug) { return !plug.attribute->isWritable; }},
    {"array", [](const Plug& plug) { return plug.attribute->isMulti; }},
    {"read", [](const Plug& plug) { return plug.attribute->isReadable; }},
    {"write", [](const Plug& plug) { return plug.attribute->isWritable; }},
    {"output", [](const Plug& plug) { return !plug.attribute->isWritable; }},
    {"connectable", [](const Plug&) { return true; }},
    {"inUse",
        [](const Plug& plug) {
            return plug.Incoming() || plug.node->FindValue(plug.key)
                || plug.node->HasOutgoing(plug.key);
        }},
    {"hasData", [](const Plug& plug) { return plug.attribute->type->storage != Storage::None; }},
};

bool Passes(const Call& call, const Plug& plug)
{
    for (const ListFilter& filter : LIST_FILTERS) {
        if (call.Has(filter.flag) && !filter.passes(plug))
            return false;
    }
    const QStringList patterns = call.Texts("string");
    return patterns.isEmpty()
        || std::any_of(patterns.begin(), patterns.end(), [&](const QString& pattern) {
               return ShellExpression(pattern).match(plug.attribute->longName).hasMatch();
           });
}

QVector<Plug> WithElements(const QVector<Plug>& plugs)
{
    QVector<Plug> all;
    for (const Plug& plug : plugs) {
        all += plug;
        const bool expands = plug.IsWholeMulti();
        for (const int index : expands ? plug.node->Indices(plug.key) : QVector<int>())
            all += plug.Element(index);
    }
    return all;
}

/// Elements are called by their index, unless they have a name of their own.
QString ListedName(const Call& call, const Plug& plug)
{
    const QString alias = plug.node->GetAliases().key(plug.key);
    if (!alias.isEmpty())
        return alias;
    if (plug.attribute->isMulti && !plug.IsWholeMulti())
        return plug.key;
    return call.Has("shortNames") ? plug.attribute->shortName : plug.attribute->longName;
}

/// All attributes of a node, or the one that was named with its children.
QVector<Plug> Listed(const Item& item)
{
    QVector<Plug> plugs;
    if (item.IsPlug()) {
        const Plug plug = Plug::FromKey(*item.node, item.part);
        plugs += plug;
        return plugs + plug.Children();
    }
    for (const Attribute* attribute : item.node->AllAttributes()) {
        const Plug plug = Plug::Find(*item.node, attribute->longName);
        if (plug.IsValid())
            plugs += plug;
    }
    return plugs;
}

Outcome ListAttributes(Call& call)
{
    const FoundItems found = Targets(call);
    if (found.error)
        return *found.error;
    StringList names;
    for (const Item& item : found.items) {
        const QVector<Plug> plugs = Listed(item);
        for (const Plug& plug : call.Has("multi") ? WithElements(plugs) : plugs) {
            if (Passes(call, plug))
                names += ListedName(call, plug);
        }
    }
    return names;
}

Outcome AboutAttribute(const Call& call, const Attribute& attribute)
{
    using Answer = Outcome (*)(const Attribute&);
    const auto numbers = [](std::optional<double> number) { return FloatList{number.value_or(0)}; };
    static const QHash<QString, Answer> answers = {
        {QStringLiteral("longName"), [](const Attribute& a) -> Outcome { return a.longName; }},
        {QStringLiteral("shortName"), [](const Attribute& a) -> Outcome { return a.shortName; }},
        {QStringLiteral("niceName"), [](const Attribute& a) -> Outcome { return a.NiceName(); }},
        {QStringLiteral("keyable"), [](const Attribute& a) -> Outcome { return a.isKeyable; }},
        {QStringLiteral("hidden"), [](const Attribute& a) -> Outcome { return a.isHidden; }},
        {QStringLiteral("multi"), [](const Attribute& a) -> Outcome { return a.isMulti; }},
        {QStringLiteral("readable"), [](const Attribute& a) -> Outcome { return a.isReadable; }},
        {QStringLiteral("writable"), [](const Attribute& a) -> Outcome { return a.isWritable; }},
        {QStringLiteral("storable"), [](const Attribute& a) -> Outcome { return a.isStorable; }},
        {QStringLiteral("connectable"), [](const Attribute&) -> Outcome { return true; }},
        {QStringLiteral("channelBox"),
            [](const Attribute& a) -> Outcome { return a.isInChannelBox; }},
        {QStringLiteral("usedAsColor"), [](const Attribute& a) -> Outcome { return a.isColor; }},
        {QStringLiteral("enum"),
            [](const Attribute& a) -> Outcome { return !a.enumNames.isEmpty(); }},
        {QStringLiteral("message"),
            [](const Attribute& a) -> Outcome { return a.type->IsNamed("message"); }},
        {QStringLiteral("minExists"),
            [](const Attribute& a) -> Outcome { return a.minimum.has_value(); }},
        {QStringLiteral("maxExists"),
            [](const Attribute& a) -> Outcome { return a.maximum.has_value(); }},
        {QStringLiteral("softMinExists"),
            [](const Attribute& a) -> Outcome { return a.softMinimum.has_value(); }},
        {QStringLiteral("softMaxExists"),
            [](const Attribute& a) -> Outcome { return a.softMaximum.has_value(); }},
        {QStringLiteral("rangeExists"),
            [](const Attribute& a) -> Outcome { return a.minimum && a.maximum; }},
    };
    QStringList given = call.GivenFlags();
    given.removeAll(QStringLiteral("node"));
    given.removeAll(QStringLiteral("type"));
    const QString asked = given.value(0);
    if (const Answer answer = answers.value(asked))
        return answer(attribute);
    if (asked == QLatin1String("minimum"))
        return numbers(attribute.minimum);
    if (asked == QLatin1String("maximum"))
        return numbers(attribute.maximum);
    if (asked == QLatin1String("softMin"))
        return numbers(attribute.softMinimum);
    if (asked == QLatin1String("softMax"))
        return numbers(attribute.softMaximum);
    return FloatList{attribute.minimum.value_or(0), attribute.maximum.value_or(0)};
}

StringList ChildNames(const Attribute& attribute)
{
    StringList names;
    for (const auto& child : attribute.children)
        names += child->longName;
    return names;
}

FloatList Defaults(const Attribute& attribute)
{
    FloatList numbers;
    for (const auto& child : attribute.children)
        numbers += child->defaultValue.ToFloat();
    if (numbers.isEmpty())
        numbers += attribute.defaultValue.ToFloat();
    return numbers;
}

/// Null when the call names no attribute that is there.
const Attribute* AskedAttribute(const Call& call, Node*& node)
{
    if (call.Has("type")) {
        const NodeType* type = NodeType::Find(call.Text("type"));
        return type ? type->GetAttributes().Find(call.ObjectText()) : nullptr;
    }
    const QVector<Item> items = FindItems(call.Text("node"));
    node = items.isEmpty() ? nullptr : items.first().node.get();
    if (!node)
        return nullptr;
    const Attribute* attribute = node->FindAttribute(call.ObjectText());
    for (int i = 0; !attribute && i < node->Shapes().size(); ++i)
        attribute = node->Shapes()[i]->FindAttribute(call.ObjectText());
    return attribute;
}

Outcome AttributeQuery(Call& call)
{
    Node* node = nullptr;
    const Attribute* attribute = AskedAttribute(call, node);
    if (call.Has("exists"))
        return attribute != nullptr;
    if (call.Has("node") && !node)
        return NoMatch(call.Text("node"));
    if (!attribute) {
        const QString owner = call.Has("node") ? call.Text("node") : call.Text("type");
        return NoMatch(owner + QLatin1Char('.') + call.ObjectText());
    }
    if (call.Has("attributeType"))
        return attribute->type->isData ? QStringLiteral("typed")
                                       : QString::fromLatin1(attribute->type->name);
    if (call.Has("listEnum"))
        return StringList{attribute->enumNames};
    if (call.Has("listDefault"))
        return Defaults(*attribute);
    if (call.Has("listChildren"))
        return ChildNames(*attribute);
    if (call.Has("numberOfChildren"))
        return attribute->children.size();
    if (call.Has("listParent"))
        return attribute->parent ? StringList{attribute->parent->longName} : StringList();
    if (call.Has("categories"))
        return attribute->category.isEmpty() ? StringList() : StringList{attribute->category};
    return AboutAttribute(call, *attribute);
}

const CommandRow COMMANDS[] = {
    {"addAttr", "any", "QE", "[String...]",
        "attributeType/at str cq; cachedInternally/ci B c; category/ct str cqe; "
        "disconnectBehaviour/dcb int c;"
        "exists/ex - q; indexMatters/im B c; internalSet/is B c; usedAsFilename/uaf - c; "
        "dataType/dt str cqm; defaultValue/dv float "
        "cqe;"
        "enumName/en str cqe; hasMaxValue/hxv B cqe; hasMinValue/hnv B cqe; hasSoftMaxValue/hsx B "
        "ce; hasSoftMinValue/hsn B ce; hidden/h B cqe;"
        "keyable/k B cqe; longName/ln str cq; maxValue/max float cqe; minValue/min float cqe;"
        "multi/m - cq; niceName/nn str cqe; numberOfChildren/nc int cq; parent/p str cq;"
        "readable/r B cqe; shortName/sn str cq; softMaxValue/smx float cqe; softMinValue/smn float "
        "cqe;"
        "storable/s B cqe; usedAsColor/uac - cq; writable/w B cqe",
        AddAttribute},
    {"deleteAttr", "none", "", "[String...]", "attribute/at str c; name/n str c", DeleteAttribute},
    {"renameAttr", "string", "", "String String", "", RenameAttribute},
    {"aliasAttr", "any", "Q", "[String...]", "remove/rm - c", AliasAttribute},
    {"listAttr", "string[]", "", "[String...]",
        "array/a - c; channelBox/cb - c; connectable/c - c; hasData/hd - c; inUse/iu - c; "
        "keyable/k "
        "- c;"
        "leaf/lf - c; locked/l - c; multi/m - c; output/o - c; read/r - c; readOnly/ro - c; "
        "scalar/s - c; settable/se - c;"
        "shortNames/sn - c; string/st str cm; unlocked/u - c; userDefined/ud - c; visible/v - c;"
        "write/w - c",
        ListAttributes},
    {"attributeQuery", "any", "", "String",
        "attributeType/at - c; categories/ct - c; channelBox/ch - c; connectable/c - c; enum/e - c;"
        "exists/ex - c; hidden/h - c; keyable/k - c; listChildren/lc - c; listDefault/ld - c;"
        "listEnum/le - c; listParent/lp - c; longName/ln - c; maxExists/mxe - c; maximum/max - c;"
        "message/msg - c; minExists/mne - c; minimum/min - c; multi/m - c; niceName/nn - c;"
        "node/n str c; numberOfChildren/nc - c; range/r - c; rangeExists/re - c; readable/rd - c;"
        "shortName/sn - c; softMax/smx - c; softMaxExists/sxe - c; softMin/smn - c;"
        "softMinExists/sme - c; storable/s - c; type/typ str c; usedAsColor/uac - c; writable/w - "
        "c",
        AttributeQuery},
};

} // namespace

void RegisterSceneAttributeEditing(CommandRegistry& registry)
{
    RegisterSceneCommands(registry, COMMANDS);
}

} // namespace host::commands
