#include "ui/commands/controls/Collections.h"

#include <QAbstractButton>
#include <QButtonGroup>

#include <memory>
#include <vector>

namespace host::ui {

namespace {

const QString CHANGE = QStringLiteral("changeCommand");
const QString NOTHING_SELECTED = QStringLiteral("NONE");

QButtonGroup* ButtonsOf(QObject* holder)
{
    auto* group = holder->findChild<QButtonGroup*>(QString(), Qt::FindDirectChildrenOnly);
    return group ? group : new QButtonGroup(holder);
}

Element* LastCollection(const Element& button, const QString& type)
{
    Element* last = nullptr;
    const QVector<Element*> collections = InterfaceModel::Current().List(CollectionKind, type);
    for (Element* collection : collections) {
        if (!collection->GetParent() || button.IsInside(collection->GetParent()))
            last = collection;
    }
    return last;
}

QList<QAbstractButton*> Buttons(Element& collection)
{
    return ButtonsOf(&collection)->buttons();
}

Value SelectedName(Element& collection)
{
    const QAbstractButton* checked = ButtonsOf(&collection)->checkedButton();
    const Element* element = checked ? InterfaceModel::Current().FindExact(checked) : nullptr;
    return element ? element->GetName() : NOTHING_SELECTED;
}

Value ButtonNames(Element& collection)
{
    StringList names;
    for (const QAbstractButton* button : Buttons(collection)) {
        if (const Element* element = InterfaceModel::Current().FindExact(button))
            names += element->GetName();
    }
    return names;
}

void SelectNamed(Edit& edit)
{
    Element* wanted = nullptr;
    const Outcome found = FindElement(edit.Text(), ControlKind, wanted);
    if (!found.Ok()) {
        edit.error = found.GetError().text;
        return;
    }
    auto* button = qobject_cast<QAbstractButton*>(wanted->GetWidget());
    if (!button || !Buttons(edit.element).contains(button))
        edit.error = InterfaceModel::NotFound(edit.Text());
    else
        SwitchSilently(button, true);
}

// clang-format off
const Property COLLECTION[] = {
    {"select",                  SelectNamed, SelectedName},
    {"collectionItemArray",     nullptr, ButtonNames},
    {"numberOfCollectionItems", nullptr, [](Element& e) -> Value { return Buttons(e).size(); }},
    {"parent",                  [](Edit&) {}, [](Element& e) -> Value { return e.GetParent() ? e.GetParent()->FullName() : QString(); }},
    {"exists",                  [](Edit&) {}, nullptr},
};
// clang-format on

} // namespace

const Family COLLECTION_FAMILY{
    "collectionItemArray/cia - q; disableCommands/dcm - c; exists/ex - cq; global/gl - c;"
    "numberOfCollectionItems/nci - q; parent/p str cq; select/sl str qe;",
    COLLECTION};

void MakeCollection(Element& element, const Call&)
{
    ButtonsOf(&element);
}

Outcome JoinCollection(
    Element& element, QAbstractButton* button, const Call& call, const char* collectionType)
{
    Element* collection = LastCollection(element, QString::fromLatin1(collectionType));
    if (call.Has("collection")) {
        const Outcome found = FindElement(call.Text("collection"), CollectionKind, collection);
        if (!found.Ok())
            return found;
    }
    button->setAutoExclusive(false);
    QObject* holder = collection ? collection : element.GetParent();
    ButtonsOf(holder)->addButton(button);
    return {};
}

void ConnectSwitch(Element& element, QAbstractButton* button)
{
    QObject::connect(button, &QAbstractButton::toggled, &element, [&element](bool on) {
        const QPointer<Element> alive(&element);
        element.RunCallback(on ? QStringLiteral("onCommand") : QStringLiteral("offCommand"), {on});
        if (alive)
            alive->RunCallback(CHANGE, {on});
    });
}

void SwitchSilently(QAbstractButton* button, bool on)
{
    std::vector<std::unique_ptr<QSignalBlocker>> blockers;
    blockers.push_back(std::make_unique<QSignalBlocker>(button));
    QButtonGroup* group = button->group();
    const bool wasExclusive = group && group->exclusive();
    if (group) {
        for (QAbstractButton* other : group->buttons()) {
            if (other != button)
                blockers.push_back(std::make_unique<QSignalBlocker>(other));
        }
        // An exclusive group would keep its last button on.
        if (!on)
            group->setExclusive(false);
    }
    button->setChecked(on);
    if (group)
        group->setExclusive(wasExclusive);
}

} // namespace host::ui
