#include "ui/commands/Tables.h"

#include <QTabBar>
#include <QTabWidget>

namespace host::ui {

namespace {

QTabWidget* Tabs(const Element& element)
{
    return As<QTabWidget>(element);
}

QString LabelOf(const Element& child)
{
    return Stored(child, "tabLabel", child.GetName()).ToText();
}

void AddTab(Element& tabs, Element& child)
{
    const QSignalBlocker blocker(Tabs(tabs));
    Tabs(tabs)->addTab(child.GetWidget(), LabelOf(child));
}

/// A removed child's widget lives until the event loop turns; its tab must not.
void DropDeadTabs(Element& tabs)
{
    QTabWidget* widget = Tabs(tabs);
    if (!widget)
        return;
    for (int i = widget->count() - 1; i >= 0; --i) {
        const Element* child = InterfaceModel::Current().FindExact(widget->widget(i));
        if (!child || child->GetParent() != &tabs)
            widget->removeTab(i);
    }
}

void MakeTabs(Element& element, const Call&)
{
    auto* widget = new QTabWidget;
    widget->setDocumentMode(true);
    widget->tabBar()->setExpanding(false);
    element.placeChild = [&element](Element& child) { AddTab(element, child); };
    element.childrenChanged = [&element] { DropDeadTabs(element); };
    QObject::connect(widget, &QTabWidget::currentChanged, &element,
        [&element] { element.RunCallback(QStringLiteral("changeCommand")); });
    QObject::connect(widget, &QTabWidget::tabBarClicked, &element,
        [&element] { element.RunCallback(QStringLiteral("selectCommand")); });
    element.SetWidget(widget, widget);
    InterfaceModel::Current().SetCurrentParent(&element);
}

/// The child that shows in tab `index`, from 0; null when there is none.
Element* ChildAt(const Element& element, int index)
{
    return InterfaceModel::Current().FindExact(Tabs(element)->widget(index));
}

/// By name or path; an error when it is none of the children.
Element* ChildNamed(Edit& edit, const QString& name)
{
    const QVector<Element*> found = InterfaceModel::Current().FindAll(name, ANY_CONTROL);
    for (Element* child : found) {
        if (child->GetParent() == &edit.element)
            return child;
    }
    edit.error = InterfaceModel::NotFound(name);
    return nullptr;
}

bool CheckIndex(Edit& edit, int index)
{
    const int count = Tabs(edit.element)->count();
    if (index >= 1 && index <= count)
        return true;
    edit.error = QStringLiteral("Tab index %1 is not between 1 and %2.").arg(index).arg(count);
    return false;
}

void SetLabel(Edit& edit, Element* child, const QString& label)
{
    if (!child)
        return;
    child->values.insert(QStringLiteral("tabLabel"), label);
    Tabs(edit.element)->setTabText(Tabs(edit.element)->indexOf(child->GetWidget()), label);
}

void SetLabels(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use)
        SetLabel(edit, ChildNamed(edit, edit.Text(0, use)), edit.Text(1, use));
}

void SetLabelsByIndex(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use) {
        if (CheckIndex(edit, edit.Int(0, use)))
            SetLabel(edit, ChildAt(edit.element, edit.Int(0, use) - 1), edit.Text(1, use));
    }
}

void SelectTab(Edit& edit)
{
    if (Element* child = ChildNamed(edit, edit.Text()))
        Tabs(edit.element)->setCurrentWidget(child->GetWidget());
}

void SelectTabIndex(Edit& edit)
{
    if (CheckIndex(edit, edit.Int()))
        Tabs(edit.element)->setCurrentIndex(edit.Int() - 1);
}

void MoveTab(Edit& edit)
{
    if (!CheckIndex(edit, edit.Int(0)) || !CheckIndex(edit, edit.Int(1)))
        return;
    Element* child = ChildAt(edit.element, edit.Int(0) - 1);
    Tabs(edit.element)->tabBar()->moveTab(edit.Int(0) - 1, edit.Int(1) - 1);
    InterfaceModel::Current().MoveChild(child, edit.Int(1) - 1);
}

Value Selected(Element& element)
{
    const Element* child = ChildAt(element, Tabs(element)->currentIndex());
    return child ? child->GetName() : QString();
}

Value Labels(Element& element)
{
    StringList labels;
    for (int i = 0; i < Tabs(element)->count(); ++i)
        labels += Tabs(element)->tabText(i);
    return labels;
}

bool IsTabs(const Element& element)
{
    return qobject_cast<QTabWidget*>(element.GetWidget()) != nullptr;
}

// clang-format off
const Property TABS[] = {
    {"childArray",       nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL); }},
    {"numberOfChildren", nullptr, [](Element& e) -> Value { return Tabs(e)->count(); }},
    {"tabLabel",         SetLabels, Labels},
    {"tabLabelIndex",    SetLabelsByIndex, Labels},
    {"moveTab",          MoveTab, nullptr},
    {"selectTab",        SelectTab, Selected},
    {"selectTabIndex",   SelectTabIndex, [](Element& e) -> Value { return Tabs(e)->currentIndex() + 1; }},
    {"tabsVisible",      [](Edit& e) { Tabs(e.element)->tabBar()->setVisible(e.Bool()); },
                         [](Element& e) -> Value { return !Tabs(e)->tabBar()->isHidden(); }},
    {"scrollable",       [](Edit& e) { Tabs(e.element)->setUsesScrollButtons(e.Bool()); },
                         [](Element& e) -> Value { return Tabs(e)->usesScrollButtons(); }},
};

const char TAB_FLAGS[] =
    "doubleClickCommand/dcc script cqe; image/i int str cem; imageVisible/iv B cqe;"
    "innerMarginHeight/imh int cqe; innerMarginWidth/imw int cqe; preSelectCommand/psc script cqe; tabTooltip/ttp str str cem;"
    "changeCommand/cc script ce; childArray/ca - q; childResizable/cr B cq; moveTab/mt int int e; numberOfChildren/nch - q;"
    "scrollable/scr B cq; selectCommand/sc script cqe; selectTab/st str cqe; selectTabIndex/sti int cqe; tabLabel/tl str str cqem;"
    "tabLabelIndex/tli int str cqem; tabsVisible/tv B cqe;";

const ControlRow ROWS[] = {
    {"tabLayout",      LayoutKind, MakeTabs, TABS, TAB_FLAGS, IsTabs},
    {"shelfTabLayout", LayoutKind, MakeTabs, TABS, TAB_FLAGS, IsTabs},
};
// clang-format on

} // namespace

void RegisterTabCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
