#include "ui/commands/Tables.h"
#include "ui/commands/controls/FieldGroup.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

namespace host::ui {

namespace {

const QString FILL = QStringLiteral("postMenuCommand");
const QString CHANGE = QStringLiteral("changeCommand");

/// Lets scripts fill the list before it drops down.
class FilledBox : public QComboBox
{
public:
    FilledBox(Element& element, QWidget* parent)
        : QComboBox(parent)
        , m_element(&element)
    { }

    void showPopup() override
    {
        const Script fill = m_element ? m_element->GetCallback(FILL) : Script();
        if (m_element && Stored(*m_element, "postMenuCommandOnce", false).ToBool())
            m_element->SetCallback(FILL, {});
        fill.Run();
        if (m_element)
            m_element->RunCallback(QStringLiteral("beforeShowPopup"));
        if (m_element)
            QComboBox::showPopup();
    }

private:
    QPointer<Element> m_element;
};

/// A drop-down list with a label before it. Its items are the element's children.
class OptionBox : public QWidget
{
public:
    explicit OptionBox(Element& element)
        : label(new QLabel(this))
        , box(new FilledBox(element, this))
    {
        auto* row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(label);
        row->addWidget(box, 1);
        label->hide();
        setFocusProxy(box);
    }

    QLabel* label;
    QComboBox* box;
};

/// The option menu itself: a group has one for its only child.
const Element& MenuOf(const Element& element)
{
    const bool isGroup = element.GetType() == QLatin1String("optionMenuGrp");
    return isGroup && !element.GetChildren().isEmpty() ? *element.GetChildren().first() : element;
}

OptionBox* Option(const Element& element)
{
    return As<OptionBox>(MenuOf(element));
}

void FillOptions(Element& element)
{
    if (!Option(element))
        return;
    QComboBox* box = Option(element)->box;
    const QSignalBlocker blocker(box);
    const QString chosen = box->currentText();
    box->clear();
    for (const Element* item : element.GetChildren())
        box->addItem(Stored(*item, "label", item->GetName()).ToText());
    const int index = box->findText(chosen);
    box->setCurrentIndex(index >= 0 ? index : qMin(0, box->count() - 1));
}

void MakeOptionMenu(Element& element, const Call&)
{
    auto* option = new OptionBox(element);
    element.childrenChanged = [&element] { FillOptions(element); };
    QObject::connect(option->box, QOverload<int>::of(&QComboBox::activated), &element,
        [&element, option] { element.RunCallback(CHANGE, {option->box->currentText()}); });
    element.SetWidget(option);
    InterfaceModel::Current().SetCurrentMenu(&element);
}

/// The child holds the items and, as the label stands before it, the group all the rest.
void MakeOptionGroup(Element& element, const Call& call)
{
    FieldGroup* group = NewGroup(call);
    element.placeChild = [group](Element& child) { group->Add(child.GetWidget()); };
    element.SetWidget(group);
    Element* menu = InterfaceModel::Current().Create(
        ControlKind, QStringLiteral("optionMenu"), QStringLiteral("OptionMenu"), &element);
    MakeOptionMenu(*menu, call);
    QObject::connect(Option(*menu)->box, QOverload<int>::of(&QComboBox::activated), &element,
        [&element] { element.RunCallback(CHANGE, {Option(element)->box->currentText()}); });
}

/// It is the menu that fills itself when it opens.
void SetFilling(Edit& edit)
{
    edit.element.GetChildren().first()->SetCallback(FILL, edit.call.GetScript(edit.flag));
}

void SetFillingOnce(Edit& edit)
{
    edit.element.values.insert(QString::fromLatin1(edit.flag), edit.Bool());
    edit.element.GetChildren().first()->values.insert(QString::fromLatin1(edit.flag), edit.Bool());
}

void DeleteItems(Edit& edit)
{
    const Element& menu = MenuOf(edit.element);
    while (!menu.GetChildren().isEmpty())
        InterfaceModel::Current().Delete(menu.GetChildren().last());
}

void SelectOption(Edit& edit)
{
    QComboBox* box = Option(edit.element)->box;
    if (edit.Int() < 1 || edit.Int() > box->count()) {
        edit.error = QStringLiteral("Item index %1 is not between 1 and %2.")
                         .arg(edit.Int())
                         .arg(box->count());
        return;
    }
    box->setCurrentIndex(edit.Int() - 1);
}

void SetOption(Edit& edit)
{
    const int index = Option(edit.element)->box->findText(edit.Text());
    if (index < 0)
        edit.error = QStringLiteral("Item not found: %1").arg(edit.Text());
    else
        Option(edit.element)->box->setCurrentIndex(index);
}

void SetOptionLabel(Edit& edit)
{
    Option(edit.element)->label->setText(edit.Text());
    Option(edit.element)->label->setVisible(!edit.Text().isEmpty());
}

Value LongItems(Element& element)
{
    StringList names;
    for (const Element* item : MenuOf(element).GetChildren())
        names += item->FullName();
    return names;
}

// clang-format off
const Property LABEL[] = {
    {"label",          SetOptionLabel, [](Element& e) -> Value { return Option(e)->label->text(); }},
};

const Property FILLING[] = {
    {"postMenuCommand", SetFilling, nullptr},
    {"postMenuCommandOnce", SetFillingOnce, nullptr},
};

const Property CHOICES[] = {
    {"deleteAllItems", DeleteItems, nullptr},
    {"numberOfItems",  nullptr, [](Element& e) -> Value { return Option(e)->box->count(); }},
    {"itemListShort",  nullptr, [](Element& e) -> Value { return ChildNames(MenuOf(e)); }},
    {"itemListLong",   nullptr, LongItems},
    {"maxVisibleItems", [](Edit& e) { Option(e.element)->box->setMaxVisibleItems(qMax(1, e.Int())); },
                       [](Element& e) -> Value { return Option(e)->box->maxVisibleItems(); }},
    {"select",         SelectOption, [](Element& e) -> Value { return Option(e)->box->currentIndex() + 1; }},
    {"value",          SetOption, [](Element& e) -> Value { return Option(e)->box->currentText(); }},
};

const char* const CHOICE_FLAGS
    = "changeCommand/cc script ce; deleteAllItems/dai - e; itemListLong/ill - q; itemListShort/ils - q; maxVisibleItems/mvi int cqe;"
      "numberOfItems/ni - q; postMenuCommand/pmc script ce; postMenuCommandOnce/pmo B cqe; select/sl int cqe; value/v str cqe;";
const Family CHOICE_FAMILY{CHOICE_FLAGS, CHOICES};
const Family GROUPED_CHOICE_FAMILY{CHOICE_FLAGS, CHOICES, &GROUP_FAMILY};

const ControlRow ROWS[] = {
    {"optionMenu", ControlKind, MakeOptionMenu, LABEL,
        "alwaysCallChangeCommand/acc B cq; beforeShowPopup/bsp script ce; label/l str cqe;",
        nullptr, nullptr, CommonFlags::Control, &CHOICE_FAMILY},
    {"optionMenuGrp", ControlKind, MakeOptionGroup, FILLING, "",
        nullptr, nullptr, CommonFlags::Control, &GROUPED_CHOICE_FAMILY},
};
// clang-format on

} // namespace

void RegisterOptionMenuCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
