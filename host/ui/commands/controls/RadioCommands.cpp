#include "ui/commands/Tables.h"
#include "ui/commands/controls/Collections.h"

#include <QRadioButton>

namespace host::ui {

namespace {

QRadioButton* Radio(const Element& element)
{
    return As<QRadioButton>(element);
}

void MakeRadioButton(Element& element, const Call&)
{
    auto* button = new QRadioButton(element.GetName());
    ConnectSwitch(element, button);
    element.SetWidget(button);
}

/// Also without -collection: every button excludes some others.
Outcome FindRadioParent(const Call& call, Element*& parent)
{
    Element* collection = nullptr;
    if (call.Has("collection")) {
        const Outcome found = FindElement(call.Text("collection"), CollectionKind, collection);
        if (!found.Ok())
            return found;
    }
    return FindParent(call, ControlKind, parent);
}

// clang-format off
const Property RADIO[] = {
    {"label",    [](Edit& e) { Radio(e.element)->setText(e.Text()); }, [](Element& e) -> Value { return Radio(e)->text(); }},
    {"select",   [](Edit& e) { SwitchSilently(Radio(e.element), true); }, [](Element& e) -> Value { return Radio(e)->isChecked(); }},
    {"editable", [](Edit& e) { Radio(e.element)->setEnabled(e.Bool()); }, [](Element& e) -> Value { return Radio(e)->isEnabled(); }},
};

const ControlRow ROWS[] = {
    {"radioCollection", CollectionKind, MakeCollection, {}, "", nullptr, nullptr, CommonFlags::None, &COLLECTION_FAMILY},
    {"radioButton", ControlKind,
        [](Element& e, const Call& call) { MakeRadioButton(e, call); JoinCollection(e, Radio(e), call, "radioCollection"); }, RADIO,
        "align/al str cqe; changeCommand/cc script cqe; collection/cl str cq; data/da int cqe; editable/ed B cqe; label/l str cqe;"
        "offCommand/ofc script cqe; onCommand/onc script cqe; recomputeSize/rs B cqe; select/sl - cqe;",
        nullptr, FindRadioParent},
};
// clang-format on

} // namespace

void RegisterRadioCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
