#include "commands/scene/SceneCommands.h"
#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/controls/AttributeLink.h"
#include "ui/commands/controls/FieldGroup.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace host::ui {

namespace {

bool TakesText(const AttributeLink::Part& part)
{
    return qobject_cast<QLineEdit*>(part.field) || qobject_cast<QPlainTextEdit*>(part.field);
}

bool Suits(const AttributeLink::Part& part, const scene::Plug& plug)
{
    if (plug.IsWholeMulti())
        return false;
    if (plug.HasChildren())
        return part.field->inherits("host::ui::ColorSwatch") && plug.Children().size() == 3;
    return plug.attribute->type->IsNumeric()
        || (TakesText(part) && plug.attribute->type->storage == scene::Storage::String);
}

/// The parts of a group are counted from 1, its label among them.
Outcome FirstPart(const Element& element, const Call& call, int& first)
{
    const auto* group = qobject_cast<FieldGroup*>(element.GetWidget());
    const int label = group && group->HasLabel() ? 1 : 0;
    first = call.Has("index") ? call.Int("index") - 1 - label : 0;
    if (first >= 0 && first < AttributeLink::PartsOf(element).size())
        return {};
    return Error{QStringLiteral("Nothing in '%1' can show an attribute at index %2.")
                     .arg(call.ObjectText())
                     .arg(call.Int("index"))};
}

/// A control with several fields takes the parts of a compound one by one.
Outcome FindPlugs(const QStringList& names, int room, QVector<scene::Plug>& plugs)
{
    for (const QString& name : names) {
        const commands::FoundPlug found = commands::FindPlug(name);
        if (found.error)
            return *found.error;
        if (room > 1 && names.size() == 1 && found.plug.HasChildren())
            plugs += found.plug.Children().mid(0, room);
        else
            plugs += found.plug;
    }
    return {};
}

Outcome ConnectControl(Call& call)
{
    const QStringList names = call.ObjectTexts();
    if (names.size() < 2)
        return Error{QStringLiteral("connectControl needs a control and an attribute.")};
    Element* element = nullptr;
    const Outcome found = FindElement(names.first(), ControlKind, element);
    if (!found.Ok())
        return found;
    const QVector<AttributeLink::Part> all = AttributeLink::PartsOf(*element);
    if (all.isEmpty())
        return Error{QStringLiteral("'%1' cannot show an attribute.").arg(names.first())};
    int first = 0;
    const Outcome place = FirstPart(*element, call, first);
    if (!place.Ok())
        return place;
    QVector<AttributeLink::Part> parts = all.mid(first);
    QVector<scene::Plug> plugs;
    const Outcome attributes = FindPlugs(names.mid(1), parts.size(), plugs);
    if (!attributes.Ok())
        return attributes;
    if (plugs.size() > parts.size()) {
        return Error{QStringLiteral("'%1' has room for %2 attribute(s), but %3 were given.")
                         .arg(names.first())
                         .arg(parts.size())
                         .arg(plugs.size())};
    }
    parts.resize(plugs.size());
    for (int i = 0; i < plugs.size(); ++i) {
        if (!Suits(parts.at(i), plugs.at(i))) {
            return Error{QStringLiteral("'%1' cannot show the attribute '%2'.")
                             .arg(names.first(), scene::Scene::Current().DisplayName(plugs.at(i)))};
        }
        AttributeLink::SetPlug(parts[i], plugs.at(i));
    }
    AttributeLink::Add(*element, parts);
    return {};
}

const CommandRow COMMANDS[] = {
    {"connectControl", "none", "", "[String...]",
        "fileName/fi - c; index/in int c; preventContextualMenu/pcm B c; preventOverride/po B c",
        ConnectControl},
};

} // namespace

void RegisterConnectControl(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
