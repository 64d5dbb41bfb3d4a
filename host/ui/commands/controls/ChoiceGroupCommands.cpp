#include "ui/commands/Tables.h"
#include "ui/commands/controls/Collections.h"
#include "ui/commands/controls/FieldGroup.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace host::ui {

namespace {

/// The boxes or buttons, which stand in columns of their own or below each other in one.
QVector<QAbstractButton*> Buttons(const Element& element)
{
    return element.GetWidget()->findChildren<QAbstractButton*>().toVector();
}

/// Callbacks of one button have its number at the end of their names; those of the group come last.
void RunCallbacks(Element& element, const QString& flag, int number, bool on)
{
    const QPointer<Element> alive(&element);
    element.RunCallback(flag + QString::number(number), {on});
    if (alive)
        alive->RunCallback(flag, {on});
}

void OnSwitched(Element& element, int number, bool on)
{
    const QPointer<Element> alive(&element);
    RunCallbacks(
        element, on ? QStringLiteral("onCommand") : QStringLiteral("offCommand"), number, on);
    if (alive)
        RunCallbacks(*alive, QStringLiteral("changeCommand"), number, on);
}

template <typename Button>
void MakeButtons(Element& element, const Call& call, const char* countFlag)
{
    FieldGroup* group = NewGroup(call);
    const bool vertical = call.Has("vertical");
    QWidget* stack = nullptr;
    if (vertical) {
        stack = new QWidget(group);
        (new QVBoxLayout(stack))->setContentsMargins(0, 0, 0, 0);
        stack->layout()->setSpacing(0);
        group->Add(stack);
    }
    const int count = FieldCountFrom(call, countFlag);
    for (int i = 0; i < count; ++i) {
        auto* button = new Button(vertical ? stack : group);
        QObject::connect(button, &Button::toggled, &element,
            [&element, i](bool on) { OnSwitched(element, i + 1, on); });
        if (vertical)
            stack->layout()->addWidget(button);
        else
            group->Add(button);
    }
    if (vertical)
        group->setFocusProxy(stack->findChild<Button*>());
    element.SetWidget(group);
}

void MakeChecks(Element& element, const Call& call)
{
    MakeButtons<QCheckBox>(element, call, "numberOfCheckBoxes");
}

/// The buttons exclude each other, and those of another group when they share its collection.
Outcome FindSharedCollection(const Call& call, Element*& parent)
{
    Element* other = nullptr;
    if (call.Has("shareCollection")) {
        const Outcome found = FindElement(call.Text("shareCollection"), ControlKind, other);
        if (!found.Ok())
            return found;
        if (other->GetType() != QLatin1String("radioButtonGrp"))
            return Error{InterfaceModel::NotFound(call.Text("shareCollection"))};
    }
    return FindParent(call, ControlKind, parent);
}

void MakeRadios(Element& element, const Call& call)
{
    MakeButtons<QRadioButton>(element, call, "numberOfRadioButtons");
    Element* other = nullptr;
    QButtonGroup* shared = nullptr;
    if (call.Has("shareCollection")
        && FindElement(call.Text("shareCollection"), ControlKind, other).Ok())
        shared = Buttons(*other).first()->group();
    if (!shared)
        shared = new QButtonGroup(element.GetWidget());
    for (QAbstractButton* button : Buttons(element)) {
        button->setAutoExclusive(false);
        shared->addButton(button);
    }
}

QAbstractButton* CheckedButton(Edit& edit, int index)
{
    QAbstractButton* button = Buttons(edit.element).value(index);
    if (!button)
        edit.error = QStringLiteral("The group has no button %1.").arg(index + 1);
    return button;
}

// Flags whose names end in the number of a button

template <int INDEX>
void SetLabel(Edit& edit)
{
    if (QAbstractButton* button = CheckedButton(edit, INDEX))
        button->setText(edit.Text());
}

template <int INDEX>
Value GetLabel(Element& element)
{
    const QAbstractButton* button = Buttons(element).value(INDEX);
    return button ? button->text() : QString();
}

template <int INDEX>
void SetEnabled(Edit& edit)
{
    if (QAbstractButton* button = CheckedButton(edit, INDEX))
        button->setEnabled(edit.Bool());
}

template <int INDEX>
Value GetEnabled(Element& element)
{
    const QAbstractButton* button = Buttons(element).value(INDEX);
    return button && button->isEnabled();
}

template <int INDEX>
void SetValue(Edit& edit)
{
    if (QAbstractButton* button = CheckedButton(edit, INDEX))
        SwitchSilently(button, edit.Bool());
}

template <int INDEX>
Value GetValue(Element& element)
{
    const QAbstractButton* button = Buttons(element).value(INDEX);
    return button && button->isChecked();
}

// Flags whose names end in the count of values that they take

int CountInName(const Edit& edit)
{
    return edit.flag[qstrlen(edit.flag) - 1] - '0';
}

void SetLabels(Edit& edit)
{
    for (int i = 0; i < CountInName(edit); ++i) {
        if (QAbstractButton* button = CheckedButton(edit, i))
            button->setText(edit.Text(i));
    }
}

void SetValues(Edit& edit)
{
    for (int i = 0; i < CountInName(edit); ++i) {
        if (QAbstractButton* button = CheckedButton(edit, i))
            SwitchSilently(button, edit.call.Bool(edit.flag, i));
    }
}

Value GetValues(Element& element)
{
    IntList values;
    for (const QAbstractButton* button : Buttons(element))
        values += button->isChecked() ? 1 : 0;
    return values;
}

// The selected radio button, from 1; 0 means none

void Select(Edit& edit)
{
    const QVector<QAbstractButton*> buttons = Buttons(edit.element);
    if (edit.Int() == 0) {
        for (QAbstractButton* button : buttons)
            SwitchSilently(button, false);
    } else if (QAbstractButton* button = CheckedButton(edit, edit.Int() - 1)) {
        SwitchSilently(button, true);
    }
}

Value Selected(Element& element)
{
    const QVector<QAbstractButton*> buttons = Buttons(element);
    for (int i = 0; i < buttons.size(); ++i) {
        if (buttons.at(i)->isChecked())
            return i + 1;
    }
    return 0;
}

// clang-format off
const Property BUTTONS[] = {
    {"label1", SetLabel<0>, GetLabel<0>},
    {"label2", SetLabel<1>, GetLabel<1>},
    {"label3", SetLabel<2>, GetLabel<2>},
    {"label4", SetLabel<3>, GetLabel<3>},
    {"labelArray2", SetLabels, nullptr},
    {"labelArray3", SetLabels, nullptr},
    {"labelArray4", SetLabels, nullptr},
    {"enable1", SetEnabled<0>, GetEnabled<0>},
    {"enable2", SetEnabled<1>, GetEnabled<1>},
    {"enable3", SetEnabled<2>, GetEnabled<2>},
    {"enable4", SetEnabled<3>, GetEnabled<3>},
};

const Family BUTTON_FAMILY{
    "changeCommand/cc script ce; changeCommand1/cc1 script ce; changeCommand2/cc2 script ce; changeCommand3/cc3 script ce;"
    "changeCommand4/cc4 script ce; enable1/en1 B cqe; enable2/en2 B cqe; enable3/en3 B cqe; enable4/en4 B cqe; label1/l1 str cqe;"
    "label2/l2 str cqe; label3/l3 str cqe; label4/l4 str cqe; labelArray2/la2 str str ce; labelArray3/la3 str str str ce;"
    "labelArray4/la4 str str str str ce; offCommand/of script ce; offCommand1/of1 script ce; offCommand2/of2 script ce;"
    "offCommand3/of3 script ce; offCommand4/of4 script ce; onCommand/on script ce; onCommand1/on1 script ce; onCommand2/on2 script ce;"
    "onCommand3/on3 script ce; onCommand4/on4 script ce; vertical/vr - c;",
    BUTTONS, &GROUP_FAMILY};

const Property CHECKS[] = {
    {"numberOfCheckBoxes", [](Edit&) {}, [](Element& e) -> Value { return Buttons(e).size(); }},
    {"value1", SetValue<0>, GetValue<0>},
    {"value2", SetValue<1>, GetValue<1>},
    {"value3", SetValue<2>, GetValue<2>},
    {"value4", SetValue<3>, GetValue<3>},
    {"valueArray2", SetValues, GetValues},
    {"valueArray3", SetValues, GetValues},
    {"valueArray4", SetValues, GetValues},
};

const Property RADIOS[] = {
    {"numberOfRadioButtons", [](Edit&) {}, [](Element& e) -> Value { return Buttons(e).size(); }},
    {"shareCollection", [](Edit&) {}, nullptr},
    {"select", Select, Selected},
};

const ControlRow ROWS[] = {
    {"checkBoxGrp", ControlKind, MakeChecks, CHECKS,
        "editable/ed B cqe; numberOfCheckBoxes/ncb int cq; value1/v1 B cqe; value2/v2 B cqe; value3/v3 B cqe; value4/v4 B cqe;"
        "valueArray2/va2 B B cqe; valueArray3/va3 B B B cqe; valueArray4/va4 B B B B cqe;",
        nullptr, nullptr, CommonFlags::Control, &BUTTON_FAMILY},
    {"radioButtonGrp", ControlKind, MakeRadios, RADIOS,
        "data1/da1 int cqe; data2/da2 int cqe; data3/da3 int cqe; data4/da4 int cqe; editable/ed B cqe; numberOfRadioButtons/nrb int cq;"
        "select/sl int cqe; shareCollection/scl str c;",
        nullptr, FindSharedCollection, CommonFlags::Control, &BUTTON_FAMILY},
};
// clang-format on

} // namespace

void RegisterChoiceGroupCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
