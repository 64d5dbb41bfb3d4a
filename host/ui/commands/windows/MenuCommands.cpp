#include "ui/commands/Tables.h"
#include "ui/commands/windows/PopupTrigger.h"

#include <QActionGroup>
#include <QLayout>
#include <QMainWindow>
#include <QMenuBar>

namespace host::ui {

namespace {

const QString LABEL = QStringLiteral("label");
const QString COMMAND = QStringLiteral("command");

QString WithoutMnemonics(QString label)
{
    return label.replace(QLatin1Char('&'), QLatin1String("&&"));
}

void SetLabel(Element& element, const QString& label)
{
    element.values.insert(LABEL, label);
    const QString text = WithoutMnemonics(label);
    if (QMenu* menu = element.GetMenu())
        menu->setTitle(text);
    else
        element.GetAction()->setText(text);
    if (element.GetParent() && element.GetParent()->childrenChanged)
        element.GetParent()->childrenChanged();
}

// Menus

/// Menus fill themselves when they open.
void ConnectOpening(Element& element, QMenu* menu)
{
    menu->setToolTipsVisible(false);
    QObject::connect(menu, &QMenu::aboutToShow, &element, [&element] {
        const Script fill = element.GetCallback(QStringLiteral("postMenuCommand"));
        if (Stored(element, "postMenuCommandOnce", false).ToBool())
            element.SetCallback(QStringLiteral("postMenuCommand"), {});
        fill.Run();
    });
}

/// The bar of a window or of a layout that has one; null for everything else.
QMenuBar* BarOf(const Element& element)
{
    if (auto* window = qobject_cast<QMainWindow*>(element.GetWidget()))
        return window->menuBar();
    if (element.GetType() != QLatin1String("menuBarLayout"))
        return nullptr;
    return qobject_cast<QMenuBar*>(element.GetWidget()->layout()->menuBar());
}

Outcome FindMenuBar(const Call& call, Element*& parent)
{
    InterfaceModel& model = InterfaceModel::Current();
    if (call.Has("parent")) {
        const Outcome found = FindElement(call.Text("parent"), ANY_PARENT, parent);
        if (!found.Ok())
            return found;
    } else {
        parent = model.GetCurrentParent();
    }
    while (parent && !BarOf(*parent))
        parent = parent->GetParent();
    if (!parent)
        return Error{QStringLiteral("Menus need a window: make one first, or use -parent.")};
    return {};
}

void MakeMenu(Element& element, const Call&)
{
    QMenu* menu = BarOf(*element.GetParent())->addMenu(WithoutMnemonics(element.GetName()));
    ConnectOpening(element, menu);
    element.SetMenu(menu);
    InterfaceModel::Current().SetCurrentMenu(&element);
}

/// The control that was made last in the current layout, or the layout itself.
Outcome FindPopupOwner(const Call& call, Element*& parent)
{
    if (call.Has("parent"))
        return FindElement(call.Text("parent"), ANY_CONTROL | WindowKind, parent);
    parent = InterfaceModel::Current().GetCurrentParent();
    if (!parent)
        return Error{
            QStringLiteral("Pop-up menus need a control: make one first, or use -parent.")};
    for (Element* child : parent->GetChildren()) {
        if (child->GetKind() == ControlKind)
            parent = child;
    }
    return {};
}

void MakePopupMenu(Element& element, const Call&)
{
    QWidget* owner = element.GetParent()->GetWidget();
    auto* menu = new QMenu(owner);
    new PopupTrigger(menu, owner);
    ConnectOpening(element, menu);
    element.SetMenu(menu);
    InterfaceModel::Current().SetCurrentMenu(&element);
}

PopupTrigger* Trigger(const Element& element)
{
    return element.GetMenu()->findChild<PopupTrigger*>(QString(), Qt::FindDirectChildrenOnly);
}

void SetMouseButton(Edit& edit)
{
    static const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};
    if (edit.Int() < 1 || edit.Int() > 3)
        edit.error = QStringLiteral("Mouse buttons are numbered 1 to 3.");
    else
        Trigger(edit.element)->SetButton(buttons[edit.Int() - 1]);
}

Value MouseButton(Element& element)
{
    const Qt::MouseButton button = Trigger(element)->GetButton();
    return button == Qt::LeftButton ? 1 : button == Qt::MiddleButton ? 2 : 3;
}

template <Qt::KeyboardModifier MODIFIER>
void SetModifier(Edit& edit)
{
    Trigger(edit.element)->SetModifier(MODIFIER, edit.Bool());
}

template <Qt::KeyboardModifier MODIFIER>
Value HasModifier(Element& element)
{
    return Trigger(element)->HasModifier(MODIFIER);
}

void DeleteAllItems(Edit& edit)
{
    while (!edit.element.GetChildren().isEmpty())
        InterfaceModel::Current().Delete(edit.element.GetChildren().last());
}

void SetMnemonic(Edit& edit)
{
    QString text = WithoutMnemonics(Stored(edit.element, "label", QString()).ToText());
    const int at = edit.Text().isEmpty() ? -1 : text.indexOf(edit.Text(), 0, Qt::CaseInsensitive);
    edit.element.values.insert(QStringLiteral("mnemonic"), edit.Text());
    if (at >= 0)
        edit.element.GetMenu()->setTitle(text.insert(at, QLatin1Char('&')));
}

void SetMenuLabel(Edit& edit)
{
    SetLabel(edit.element, edit.Text());
}

Value Label(Element& element)
{
    const bool isDivider = element.GetAction() && element.GetAction()->isSeparator();
    return Stored(element, "label", isDivider ? QString() : element.GetName());
}

Value ItemNames(Element& element)
{
    return ChildNames(element, MenuItemKind);
}

Value ItemCount(Element& element)
{
    return ChildNames(element, MenuItemKind).size();
}

bool IsAnyMenu(const Element& element)
{
    return element.GetMenu() != nullptr;
}

// Items

/// Where the item stands among its siblings: the end, or behind the one that -insertAfter names.
Outcome InsertionIndex(const Call& call, const Element& parent, int& index)
{
    index = parent.GetChildren().size();
    if (!call.Has("insertAfter"))
        return {};
    const QString name = call.Text("insertAfter");
    if (name.isEmpty()) {
        index = 0;
        return {};
    }
    const QVector<Element*> found = InterfaceModel::Current().FindAll(name, MenuItemKind);
    for (const Element* sibling : found) {
        if (sibling->GetParent() == &parent) {
            index = sibling->IndexInParent() + 1;
            return {};
        }
    }
    return Error{InterfaceModel::NotFound(name)};
}

Outcome FindItemMenu(const Call& call, Element*& parent)
{
    InterfaceModel& model = InterfaceModel::Current();
    if (call.Has("parent")) {
        const Outcome found = FindElement(call.Text("parent"), ANY_KIND, TakesItems, parent);
        if (!found.Ok())
            return found;
    } else {
        parent = model.GetCurrentMenu();
    }
    if (!parent)
        return Error{QStringLiteral("No current menu: make one first, or use -parent.")};
    int index = 0;
    return InsertionIndex(call, *parent, index);
}

/// Puts the action into the parent's menu, before the item that stands next in the model.
void InsertAction(Element& element, QAction* action)
{
    QMenu* menu = element.GetParent()->GetMenu();
    if (!menu)
        return; // An option menu reads its children instead.
    QAction* next = nullptr;
    const QVector<Element*>& siblings = element.GetParent()->GetChildren();
    for (int i = element.IndexInParent() + 1; i < siblings.size() && !next; ++i)
        next = siblings.at(i)->GetAction(); // Collections have none.
    menu->insertAction(next, action);
}

void RunItem(const Element& element, bool checked)
{
    const bool checkable = element.GetAction()->isCheckable();
    element.RunCallback(COMMAND, {checkable ? Value(checked) : Value(0)});
}

void MakeItem(Element& element, const Call& call)
{
    int index = 0;
    const Element* parent = element.GetParent();
    InsertionIndex(call, *parent, index);
    InterfaceModel::Current().MoveChild(&element, qMin(index, parent->GetChildren().size() - 1));
    QWidget* owner = parent->GetMenu() ? parent->GetMenu() : parent->GetWidget();
    if (call.Has("subMenu") && call.Bool("subMenu")) {
        auto* menu = new QMenu(WithoutMnemonics(element.GetName()), owner);
        ConnectOpening(element, menu);
        InsertAction(element, menu->menuAction());
        element.SetMenu(menu);
        InterfaceModel::Current().SetCurrentMenu(&element);
        return;
    }
    auto* action = new QAction(WithoutMnemonics(element.GetName()), owner);
    action->setSeparator(call.Has("divider") && call.Bool("divider"));
    action->setMenuRole(QAction::NoRole);
    QObject::connect(action, &QAction::triggered, &element,
        [&element](bool checked) { RunItem(element, checked); });
    InsertAction(element, action);
    element.SetAction(action);
    if (parent->childrenChanged)
        parent->childrenChanged();
}

void SetCheckBox(Edit& edit)
{
    edit.element.GetAction()->setCheckable(true);
    edit.element.GetAction()->setChecked(edit.Bool());
}

/// The group of the collection made last in the menu, or one for the whole menu.
QActionGroup* GroupFor(const Element& item)
{
    Element* menu = item.GetParent();
    QObject* holder = menu;
    for (Element* sibling : menu->GetChildren()) {
        if (sibling->GetKind() == CollectionKind)
            holder = sibling;
    }
    auto* group = holder->findChild<QActionGroup*>(QString(), Qt::FindDirectChildrenOnly);
    return group ? group : new QActionGroup(holder);
}

void SetRadioButton(Edit& edit)
{
    QAction* action = edit.element.GetAction();
    if (!action->actionGroup())
        GroupFor(edit.element)->addAction(action);
    action->setCheckable(true);
    action->setChecked(edit.Bool());
}

void SetRunTimeCommand(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("runTimeCommand"), edit.Text());
    edit.element.SetCallback(COMMAND, {Language::Mel, edit.Text(), nullptr});
}

/// The settings of the item before it, as an entry of its own.
void SetOptionBox(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("optionBox"), edit.Bool());
    const int index = edit.element.IndexInParent();
    if (!edit.Bool() || index < 1)
        return;
    Element* owner = edit.element.GetParent()->GetChildren().at(index - 1);
    edit.element.GetAction()->setText(
        QStringLiteral("%1 Options...").arg(WithoutMnemonics(Label(*owner).ToText())));
}

void SetItemFont(Edit& edit)
{
    QFont font = edit.element.GetAction()->font();
    if (qstrcmp(edit.flag, "boldFont") == 0)
        font.setBold(edit.Bool());
    else
        font.setItalic(edit.Bool());
    edit.element.GetAction()->setFont(font);
}

void SetImage(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("image"), edit.Text());
    edit.element.GetAction()->setIcon(FindIcon(edit.Text()));
}

bool IsRadio(const Element& element)
{
    return element.GetAction()->actionGroup() != nullptr;
}

Outcome MakeCollection(Call& call)
{
    InterfaceModel& model = InterfaceModel::Current();
    Element* parent = nullptr;
    if (call.Has("exists"))
        return model.Find(call.ObjectText(), CollectionKind) != nullptr;
    const Outcome place = FindElement(
        call.Has("parent") ? call.Text("parent") : QString(), ANY_KIND, TakesItems, parent);
    if (call.Has("parent") && !place.Ok())
        return place;
    if (!parent)
        parent = model.GetCurrentMenu();
    if (!parent)
        return Error{QStringLiteral("No current menu: make one first, or use -parent.")};
    const Element* element = model.Create(
        CollectionKind, QStringLiteral("radioMenuItemCollection"), call.ObjectText(), parent);
    if (!element)
        return Error{InterfaceModel::NotUnique(call.ObjectText())};
    return element->FullName();
}

// clang-format off
const Property MENU[] = {
    {"label",          SetMenuLabel, Label},
    {"mnemonic",       SetMnemonic, nullptr},
    {"deleteAllItems", DeleteAllItems, nullptr},
    {"itemArray",      nullptr, ItemNames},
    {"numberOfItems",  nullptr, ItemCount},
    {"tearOff",        [](Edit& e) { e.element.GetMenu()->setTearOffEnabled(e.Bool()); }, nullptr},
};

const Property POPUP_MENU[] = {
    {"deleteAllItems", DeleteAllItems, nullptr},
    {"itemArray",      nullptr, ItemNames},
    {"numberOfItems",  nullptr, ItemCount},
    {"button",         SetMouseButton, MouseButton},
    {"altModifier",    SetModifier<Qt::AltModifier>, HasModifier<Qt::AltModifier>},
    {"ctrlModifier",   SetModifier<Qt::ControlModifier>, HasModifier<Qt::ControlModifier>},
    {"shiftModifier",  SetModifier<Qt::ShiftModifier>, HasModifier<Qt::ShiftModifier>},
};

const Property MENU_ITEM[] = {
    {"label",          SetMenuLabel, Label},
    {"divider",        [](Edit&) {}, [](Element& e) -> Value { return e.GetAction()->isSeparator(); }},
    {"dividerLabel",   [](Edit& e) { e.element.GetAction()->setText(WithoutMnemonics(e.Text())); },
                       [](Element& e) -> Value { return e.GetAction()->isSeparator() ? e.GetAction()->text() : QString(); }},
    {"subMenu",        [](Edit&) {}, [](Element& e) -> Value { return e.GetMenu() != nullptr; }},
    {"insertAfter",    [](Edit&) {}, nullptr},
    {"optionBox",      SetOptionBox, nullptr},
    {"isOptionBox",    nullptr, [](Element& e) { return Stored(e, "optionBox", false); }},
    {"checkBox",       SetCheckBox, [](Element& e) -> Value { return e.GetAction()->isChecked(); }},
    {"isCheckBox",     nullptr, [](Element& e) -> Value { return e.GetAction()->isCheckable() && !IsRadio(e); }},
    {"radioButton",    SetRadioButton, [](Element& e) -> Value { return e.GetAction()->isChecked(); }},
    {"isRadioButton",  nullptr, [](Element& e) -> Value { return IsRadio(e); }},
    {"sourceType",     SetSourceType, GetSourceType},
    {"command",        SetCommand, nullptr},
    {"runTimeCommand", SetRunTimeCommand, nullptr},
    {"boldFont",       SetItemFont, [](Element& e) -> Value { return e.GetAction()->font().bold(); }},
    {"italicized",     SetItemFont, [](Element& e) -> Value { return e.GetAction()->font().italic(); }},
    {"image",          SetImage, nullptr},
    {"tearOff",        [](Edit& e) { if (e.element.GetMenu()) e.element.GetMenu()->setTearOffEnabled(e.Bool()); }, nullptr},
};

const ControlRow ROWS[] = {
    {"menu", MenuKind, MakeMenu, MENU,
        "allowOptionBoxes/aob B cq; deleteAllItems/dai - ce; familyImage/fi str cqe; helpMenu/hm B cqe; itemArray/ia - q; label/l str cqe;"
        "mnemonic/mn str cqe; numberOfItems/ni - q; postMenuCommand/pmc script cqe; postMenuCommandOnce/pmo B cqe; scrollable/srb B cqe;"
        "tearOff/to B c; version/ver str cqe;",
        IsAnyMenu, FindMenuBar, CommonFlags::MenuPart},
    {"popupMenu", MenuKind, MakePopupMenu, POPUP_MENU,
        "allowOptionBoxes/aob B cq; altModifier/alt B cqe; button/b int cqe; ctrlModifier/ctl B cqe; deleteAllItems/dai - e;"
        "itemArray/ia - q; markingMenu/mm B cqe; numberOfItems/ni - q; postMenuCommand/pmc script cqe; postMenuCommandOnce/pmo B cqe;"
        "shiftModifier/sh B cqe;",
        nullptr, FindPopupOwner, CommonFlags::MenuPart},
    {"menuItem", MenuItemKind, MakeItem, MENU_ITEM,
        "allowOptionBoxes/aob B cq; altModifier/alt B cqe; boldFont/bld B cq; checkBox/cb B cqe; collection/cl str cq; command/c script cqe;"
        "commandModifier/cmd B cqe; ctrlModifier/ctl B cqe; data/da int cqe; keyEquivalent/ke str cqe; optionModifier/opt B cqe; shiftModifier/sh B cqe;"
        "divider/d B cq; dividerLabel/dl str cqe; dragDoubleClickCommand/ddc script cqe; dragMenuCommand/dmc script cqe;"
        "echoCommand/ec B cqe; enableCommandRepeat/ecr B cqe; familyImage/fi str q; image/i str cqe; imageOverlayLabel/iol str cqe;"
        "insertAfter/ia str c; isCheckBox/icb - q; isOptionBox/iob - q; isRadioButton/irb - q; italicized/itl B cq; label/l str cqe;"
        "longDivider/ld B cqe; optionBox/ob B cq; optionBoxIcon/obi str cqe; postMenuCommand/pmc script cqe; postMenuCommandOnce/pmo B cqe;"
        "radialPosition/rp str cqe; radioButton/rb B cqe; runTimeCommand/rtc str ce; sourceType/stp str cqe; subMenu/sm B cq;"
        "tearOff/to B cq; version/ver str cqe;",
        nullptr, FindItemMenu, CommonFlags::MenuPart},
};

const CommandRow COLLECTION[] = {
    {"radioMenuItemCollection", "string", "", "[String]", "exists/ex - c; parent/p str c", MakeCollection},
};
// clang-format on

} // namespace

void RegisterMenuCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
    commands.Register(COLLECTION);
}

} // namespace host::ui
