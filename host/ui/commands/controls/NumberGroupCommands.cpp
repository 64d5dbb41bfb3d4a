#include "ui/commands/Tables.h"
#include "ui/commands/controls/FieldGroup.h"
#include "ui/commands/controls/NumberBox.h"

namespace host::ui {

namespace {

constexpr int FIELD_WIDTH = 75;

NumberBox* Box(const Element& element, int index)
{
    return Group(element)->Field<NumberBox>(index);
}

Value Numbers(Element& element)
{
    IntList whole;
    FloatList broken;
    for (int i = 0; i < Group(element)->FieldCount(); ++i) {
        whole += Box(element, i)->Number().ToInt();
        broken += Box(element, i)->Number().ToFloat();
    }
    return Box(element, 0)->IsWhole() ? Value(whole) : Value(broken);
}

void MakeNumbers(Element& element, const Call& call, bool whole)
{
    FieldGroup* group = NewGroup(call);
    const int count = FieldCountFrom(call, "numberOfFields");
    for (int i = 0; i < count; ++i) {
        auto* box = new NumberBox(whole, group);
        QObject::connect(box, &NumberBox::Changed, &element, [&element] {
            const Value numbers = Numbers(element);
            QVector<Value> values;
            for (int field = 0; field < numbers.Count(); ++field)
                values += numbers.At(field);
            element.RunCallback(QStringLiteral("changeCommand"), values);
        });
        group->Add(box, FIELD_WIDTH);
    }
    element.SetWidget(group);
}

/// Fields that the group does not have are passed over, as -value always names four.
void SetNumbers(Edit& edit)
{
    for (int i = 0; i < Group(edit.element)->FieldCount(); ++i)
        Box(edit.element, i)->SetNumber(edit.Float(i));
}

/// The field that the digit at the end of a flag's name means; an error when there is none.
template <int INDEX>
NumberBox* CheckedBox(Edit& edit)
{
    if (INDEX >= Group(edit.element)->FieldCount())
        edit.error = QStringLiteral("The group has no field %1.").arg(INDEX + 1);
    return Box(edit.element, INDEX);
}

template <int INDEX>
void SetNumber(Edit& edit)
{
    if (NumberBox* box = CheckedBox<INDEX>(edit))
        box->SetNumber(edit.Float());
}

template <int INDEX>
Value GetNumber(Element& element)
{
    return INDEX < Group(element)->FieldCount() ? Box(element, INDEX)->Number() : Value(0);
}

template <int INDEX>
void SetEnabled(Edit& edit)
{
    if (NumberBox* box = CheckedBox<INDEX>(edit))
        box->setEnabled(edit.Bool());
}

template <int INDEX>
Value GetEnabled(Element& element)
{
    return INDEX < Group(element)->FieldCount() && Box(element, INDEX)->isEnabled();
}

void SetPrecision(Edit& edit)
{
    for (int i = 0; i < Group(edit.element)->FieldCount(); ++i)
        Box(edit.element, i)->SetPrecision(edit.Int());
}

void SetStep(Edit& edit)
{
    for (int i = 0; i < Group(edit.element)->FieldCount(); ++i)
        Box(edit.element, i)->setSingleStep(edit.Float());
}

// clang-format off
const Property NUMBERS[] = {
    {"numberOfFields", [](Edit&) {}, [](Element& e) -> Value { return Group(e)->FieldCount(); }},
    {"precision", SetPrecision, [](Element& e) -> Value { return Box(e, 0)->decimals(); }},
    {"step",      SetStep, [](Element& e) -> Value { return Box(e, 0)->singleStep(); }},
    {"value",     SetNumbers, Numbers},
    {"value1",    SetNumber<0>, GetNumber<0>},
    {"value2",    SetNumber<1>, GetNumber<1>},
    {"value3",    SetNumber<2>, GetNumber<2>},
    {"value4",    SetNumber<3>, GetNumber<3>},
    {"enable1",   SetEnabled<0>, GetEnabled<0>},
    {"enable2",   SetEnabled<1>, GetEnabled<1>},
    {"enable3",   SetEnabled<2>, GetEnabled<2>},
    {"enable4",   SetEnabled<3>, GetEnabled<3>},
};

const ControlRow ROWS[] = {
    {"intFieldGrp", ControlKind, [](Element& e, const Call& call) { MakeNumbers(e, call, true); }, NUMBERS,
        "changeCommand/cc script ce; dragCommand/dc script ce; enable1/en1 B cqe; enable2/en2 B cqe; enable3/en3 B cqe; enable4/en4 B cqe;"
        "numberOfFields/nf int cq; step/s int cqe; value/v int int int int cqe; value1/v1 int cqe; value2/v2 int cqe; value3/v3 int cqe;"
        "value4/v4 int cqe;",
        nullptr, nullptr, CommonFlags::Control, &GROUP_FAMILY},
    {"floatFieldGrp", ControlKind, [](Element& e, const Call& call) { MakeNumbers(e, call, false); }, NUMBERS,
        "changeCommand/cc script ce; dragCommand/dc script ce; enable1/en1 B cqe; enable2/en2 B cqe; enable3/en3 B cqe; enable4/en4 B cqe;"
        "numberOfFields/nf int cq; precision/pre int cqe; showTrailingZeros/tze B cqe; step/s float cqe;"
        "value/v float float float float cqe; value1/v1 float cqe; value2/v2 float cqe; value3/v3 float cqe; value4/v4 float cqe;",
        nullptr, nullptr, CommonFlags::Control, &GROUP_FAMILY},
    {"timeFieldGrp", ControlKind, [](Element& e, const Call& call) { MakeNumbers(e, call, false); }, NUMBERS,
        "changeCommand/cc script ce; dragCommand/dc script ce; enable1/en1 B cqe; enable2/en2 B cqe; enable3/en3 B cqe; enable4/en4 B cqe;"
        "numberOfFields/nf int cq; precision/pre int cqe; step/s float cqe; value/v float float float float cqe; value1/v1 float cqe;"
        "value2/v2 float cqe; value3/v3 float cqe; value4/v4 float cqe;",
        nullptr, nullptr, CommonFlags::Control, &GROUP_FAMILY},
};
// clang-format on

} // namespace

void RegisterNumberGroupCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
