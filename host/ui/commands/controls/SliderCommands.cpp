#include "ui/commands/Tables.h"
#include "ui/commands/controls/FieldGroup.h"
#include "ui/commands/controls/NumberBox.h"
#include "ui/commands/controls/RangeSlider.h"

#include <QPushButton>

namespace host::ui {

namespace {

const QString CHANGE = QStringLiteral("changeCommand");
const QString DRAG = QStringLiteral("dragCommand");
constexpr int FIELD_WIDTH = 60;
constexpr int SLIDER_WIDTH = 160;

// A slider alone, and as a part of a group

RangeSlider* Slider(const Element& element)
{
    if (auto* slider = qobject_cast<RangeSlider*>(element.GetWidget()))
        return slider;
    return Group(element)->Field<RangeSlider>(1);
}

void MakeSlider(Element& element, bool whole)
{
    auto* slider = new RangeSlider(whole);
    QObject::connect(slider, &RangeSlider::Dragged, &element,
        [&element, slider] { element.RunCallback(DRAG, {slider->Number()}); });
    QObject::connect(slider, &RangeSlider::Changed, &element,
        [&element, slider] { element.RunCallback(CHANGE, {slider->Number()}); });
    element.SetWidget(slider);
}

void SetHorizontal(Edit& edit)
{
    Slider(edit.element)->setOrientation(edit.Bool() ? Qt::Horizontal : Qt::Vertical);
}

// A field and a slider that show the same number

NumberBox* Box(const Element& element)
{
    return Group(element)->Field<NumberBox>(0);
}

/// A number typed beyond the slider's ends moves them.
void ShowOnSlider(const Element& element, double number)
{
    RangeSlider* slider = Slider(element);
    slider->SetRange(qMin(slider->GetLeast(), number), qMax(slider->GetMost(), number));
    slider->SetNumber(number);
}

void OnTyped(Element& element)
{
    ShowOnSlider(element, Box(element)->Number().ToFloat());
    element.RunCallback(CHANGE, {Box(element)->Number()});
}

void OnSlid(Element& element, const QString& callback)
{
    Box(element)->SetNumber(Slider(element)->Number().ToFloat());
    element.RunCallback(callback, {Box(element)->Number()});
}

void MakeSliderGroup(Element& element, const Call& call, bool whole)
{
    FieldGroup* group = NewGroup(call);
    auto* box = new NumberBox(whole, group);
    auto* slider = new RangeSlider(whole, group);
    box->SetLeast(slider->GetLeast());
    box->SetMost(slider->GetMost());
    QObject::connect(box, &NumberBox::Changed, &element, [&element] { OnTyped(element); });
    QObject::connect(
        slider, &RangeSlider::Dragged, &element, [&element] { OnSlid(element, DRAG); });
    QObject::connect(
        slider, &RangeSlider::Changed, &element, [&element] { OnSlid(element, CHANGE); });
    if (call.Has("field") && call.Bool("field"))
        group->Add(box, FIELD_WIDTH);
    else
        group->AddHidden(box);
    group->Add(slider, SLIDER_WIDTH);
    element.SetWidget(group);
}

void SetSliderRange(Edit& edit)
{
    RangeSlider* slider = Slider(edit.element);
    const bool isLeast = qstrcmp(edit.flag, "minValue") == 0;
    slider->SetRange(
        isLeast ? edit.Float() : slider->GetLeast(), isLeast ? slider->GetMost() : edit.Float());
    if (!qobject_cast<FieldGroup*>(edit.element.GetWidget()))
        return;
    // The field has the slider's range unless it was given its own.
    if (isLeast && !edit.call.Has("fieldMinValue"))
        Box(edit.element)->SetLeast(edit.Float());
    if (!isLeast && !edit.call.Has("fieldMaxValue"))
        Box(edit.element)->SetMost(edit.Float());
}

void SetValue(Edit& edit)
{
    if (!qobject_cast<FieldGroup*>(edit.element.GetWidget())) {
        Slider(edit.element)->SetNumber(edit.Float());
        return;
    }
    Box(edit.element)->SetNumber(edit.Float());
    ShowOnSlider(edit.element, Box(edit.element)->Number().ToFloat());
}

/// Of the kind that the slider is made for.
Value NumberOf(const Element& element, double number)
{
    return Slider(element)->Number().IsInt() ? Value(qRound(number)) : Value(number);
}

void MakeSliderButton(Element& element, const Call& call)
{
    MakeSliderGroup(element, call, false);
    auto* button = new QPushButton(element.GetName());
    QObject::connect(button, &QPushButton::clicked, &element,
        [&element] { element.RunCallback(QStringLiteral("buttonCommand")); });
    Group(element)->Add(button);
}

QPushButton* ButtonOf(const Element& element)
{
    return Group(element)->Field<QPushButton>(2);
}

// Two sliders over one range

template <int INDEX>
RangeSlider* OneOf(const Element& element)
{
    return Group(element)->Field<RangeSlider>(INDEX);
}

void MakeTwoSliders(Element& element, const Call&)
{
    auto* group = new FieldGroup(false);
    for (int i = 0; i < 2; ++i) {
        auto* slider = new RangeSlider(false, group);
        const QString number = QString::number(i + 1);
        const auto tell = [&element, slider](const QString& flag) {
            element.RunCallback(flag, {slider->Number()});
        };
        QObject::connect(slider, &RangeSlider::Dragged, &element,
            [tell, number] { tell(QStringLiteral("positionControl") + number); });
        QObject::connect(
            slider, &RangeSlider::Changed, &element, [tell, number] { tell(CHANGE + number); });
        group->Add(slider, SLIDER_WIDTH);
    }
    element.SetWidget(group);
}

void SetBothRanges(Edit& edit)
{
    const bool isLeast = qstrcmp(edit.flag, "minimum") == 0;
    for (RangeSlider* slider : {OneOf<0>(edit.element), OneOf<1>(edit.element)})
        slider->SetRange(isLeast ? edit.Float() : slider->GetLeast(),
            isLeast ? slider->GetMost() : edit.Float());
}

template <int INDEX>
void SetOneOf(Edit& edit)
{
    OneOf<INDEX>(edit.element)->SetNumber(edit.Float());
}

template <int INDEX>
Value GetOneOf(Element& element)
{
    return OneOf<INDEX>(element)->Number();
}

// clang-format off
const Property TWO_SLIDERS[] = {
    {"minimum", SetBothRanges, [](Element& e) -> Value { return OneOf<0>(e)->GetLeast(); }},
    {"maximum", SetBothRanges, [](Element& e) -> Value { return OneOf<0>(e)->GetMost(); }},
    {"value1",  SetOneOf<0>, GetOneOf<0>},
    {"value2",  SetOneOf<1>, GetOneOf<1>},
};

const Property SLIDER[] = {
    {"minValue",   SetSliderRange, [](Element& e) { return NumberOf(e, Slider(e)->GetLeast()); }},
    {"maxValue",   SetSliderRange, [](Element& e) { return NumberOf(e, Slider(e)->GetMost()); }},
    {"step",       [](Edit& e) { Slider(e.element)->SetStep(e.Float()); }, [](Element& e) { return NumberOf(e, Slider(e)->GetStep()); }},
    {"value",      SetValue, [](Element& e) { return Slider(e)->Number(); }},
    {"horizontal", SetHorizontal, [](Element& e) -> Value { return Slider(e)->orientation() == Qt::Horizontal; }},
};

const Property SLIDER_GROUP[] = {
    {"field",         [](Edit&) {}, [](Element& e) -> Value { return !Box(e)->isHidden(); }},
    {"precision",     [](Edit& e) { Box(e.element)->SetPrecision(e.Int()); }, [](Element& e) -> Value { return Box(e)->decimals(); }},
    {"minValue",      SetSliderRange, [](Element& e) { return NumberOf(e, Slider(e)->GetLeast()); }},
    {"maxValue",      SetSliderRange, [](Element& e) { return NumberOf(e, Slider(e)->GetMost()); }},
    {"fieldMinValue", [](Edit& e) { Box(e.element)->SetLeast(e.Float()); }, [](Element& e) { return NumberOf(e, Box(e)->minimum()); }},
    {"fieldMaxValue", [](Edit& e) { Box(e.element)->SetMost(e.Float()); }, [](Element& e) { return NumberOf(e, Box(e)->maximum()); }},
    {"fieldStep",     [](Edit& e) { Box(e.element)->setSingleStep(e.Float()); }, [](Element& e) { return NumberOf(e, Box(e)->singleStep()); }},
    {"sliderStep",    [](Edit& e) { Slider(e.element)->SetStep(e.Float()); }, [](Element& e) { return NumberOf(e, Slider(e)->GetStep()); }},
    {"step",          [](Edit& e) { Slider(e.element)->SetStep(e.Float()); Box(e.element)->setSingleStep(e.Float()); }, [](Element& e) { return NumberOf(e, Slider(e)->GetStep()); }},
    {"value",         SetValue, [](Element& e) { return Box(e)->Number(); }},
};

const Property SLIDER_BUTTON[] = {
    {"buttonLabel",  [](Edit& e) { ButtonOf(e.element)->setText(e.Text()); }, [](Element& e) -> Value { return ButtonOf(e)->text(); }},
    {"enableButton", [](Edit& e) { ButtonOf(e.element)->setEnabled(e.Bool()); }, [](Element& e) -> Value { return ButtonOf(e)->isEnabled(); }},
};

const char SLIDER_GROUP_FLAGS[] =
    "changeCommand/cc script ce; dragCommand/dc script ce; field/f B cq; fieldMaxValue/fmx float cqe; fieldMinValue/fmn float cqe;"
    "fieldStep/fs float cqe; maxValue/max float cqe; minValue/min float cqe; precision/pre int cqe; sliderStep/ss float cqe;"
    "step/s float cqe; value/v float cqe;";
const Family SLIDER_FAMILY{SLIDER_GROUP_FLAGS, SLIDER_GROUP, &GROUP_FAMILY};

const ControlRow ROWS[] = {
    {"intSlider", ControlKind, [](Element& e, const Call&) { MakeSlider(e, true); }, SLIDER,
        "changeCommand/cc script cqe; dragCommand/dc script cqe; horizontal/hr B cqe; maxValue/max int cqe; minValue/min int cqe;"
        "step/s int cqe; value/v int cqe;"},
    {"floatSlider", ControlKind, [](Element& e, const Call&) { MakeSlider(e, false); }, SLIDER,
        "changeCommand/cc script cqe; dragCommand/dc script cqe; horizontal/hr B cqe; maxValue/max float cqe; minValue/min float cqe;"
        "step/s float cqe; value/v float cqe;"},
    {"intScrollBar", ControlKind, [](Element& e, const Call&) { MakeSlider(e, true); }, SLIDER,
        "changeCommand/cc script cqe; dragCommand/dc script cqe; horizontal/hr B cqe; largeValue/lv int cqe; maxValue/max int cqe; minValue/min int cqe;"
        "step/s int cqe; value/v int cqe;"},
    {"floatScrollBar", ControlKind, [](Element& e, const Call&) { MakeSlider(e, false); }, SLIDER,
        "changeCommand/cc script cqe; dragCommand/dc script cqe; horizontal/hr B cqe; largeValue/lv float cqe; maxValue/max float cqe;"
        "minValue/min float cqe; step/s float cqe; value/v float cqe;"},
    {"floatSlider2", ControlKind, MakeTwoSliders, TWO_SLIDERS,
        "changeCommand1/cc1 script cqe; changeCommand2/cc2 script cqe; maximum/max float cqe; minimum/min float cqe;"
        "positionControl1/pc1 script cqe; positionControl2/pc2 script cqe;"
        "value1/v1 float cqe; value2/v2 float cqe;"},
    {"intSliderGrp", ControlKind, [](Element& e, const Call& call) { MakeSliderGroup(e, call, true); }, SLIDER_GROUP,
        "changeCommand/cc script ce; dragCommand/dc script ce; field/f B cq; fieldMaxValue/fmx int cqe; fieldMinValue/fmn int cqe;"
        "fieldStep/fs int cqe; maxValue/max int cqe; minValue/min int cqe; sliderStep/ss int cqe; step/s int cqe; value/v int cqe;",
        nullptr, nullptr, CommonFlags::Control, &GROUP_FAMILY},
    {"floatSliderGrp", ControlKind, [](Element& e, const Call& call) { MakeSliderGroup(e, call, false); }, {}, "",
        nullptr, nullptr, CommonFlags::Control, &SLIDER_FAMILY},
    {"floatSliderButtonGrp", ControlKind, MakeSliderButton, SLIDER_BUTTON,
        "buttonCommand/bc script ce; buttonLabel/bl str cqe; enableButton/eb B cqe; symbolButtonCommand/sbc script ce; symbolButtonDisplay/sbd B cqe;",
        nullptr, nullptr, CommonFlags::Control, &SLIDER_FAMILY},
};
// clang-format on

} // namespace

void RegisterSliderCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
