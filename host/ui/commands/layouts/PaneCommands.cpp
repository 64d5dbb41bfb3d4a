#include "ui/commands/Tables.h"

#include <QMenuBar>
#include <QSplitter>
#include <QVBoxLayout>

namespace host::ui {

namespace {

constexpr int MOST_PANES = 4;

/// How many panes stand in each group, and which way the groups lie. Within a group panes lie the
/// other way.
struct Configuration
{
    const char* name;
    Qt::Orientation groups;
    int counts[MOST_PANES];
};

const Configuration CONFIGURATIONS[] = {
    {"single", Qt::Horizontal, {1}},
    {"horizontal2", Qt::Vertical, {1, 1}},
    {"vertical2", Qt::Horizontal, {1, 1}},
    {"horizontal3", Qt::Vertical, {1, 1, 1}},
    {"vertical3", Qt::Horizontal, {1, 1, 1}},
    {"top3", Qt::Vertical, {2, 1}},
    {"bottom3", Qt::Vertical, {1, 2}},
    {"left3", Qt::Horizontal, {2, 1}},
    {"right3", Qt::Horizontal, {1, 2}},
    {"horizontal4", Qt::Vertical, {1, 1, 1, 1}},
    {"vertical4", Qt::Horizontal, {1, 1, 1, 1}},
    {"top4", Qt::Vertical, {3, 1}},
    {"bottom4", Qt::Vertical, {1, 3}},
    {"left4", Qt::Horizontal, {3, 1}},
    {"right4", Qt::Horizontal, {1, 3}},
    {"quad", Qt::Vertical, {2, 2}},
};

const Configuration* FindConfiguration(const QString& name)
{
    for (const Configuration& row : CONFIGURATIONS) {
        if (name == QLatin1String(row.name))
            return &row;
    }
    return nullptr;
}

QSplitter* Panes(const Element& element)
{
    return As<QSplitter>(element);
}

QVector<QWidget*> PaneWidgets(const Element& element)
{
    QVector<QWidget*> widgets;
    for (const Element* child : element.GetChildren()) {
        if (child->GetWidget())
            widgets += child->GetWidget();
    }
    return widgets;
}

const Configuration& ConfigurationOf(const Element& element)
{
    return *FindConfiguration(Stored(element, "configuration", QStringLiteral("single")).ToText());
}

/// Puts the children into the groups again; children without a pane are hidden.
void ArrangePanes(Element& element)
{
    QSplitter* outer = Panes(element);
    if (!outer)
        return;
    const Configuration& configuration = ConfigurationOf(element);
    const QVector<QWidget*> widgets = PaneWidgets(element);
    for (QWidget* widget : widgets)
        widget->setParent(outer);
    const QList<QSplitter*> groups
        = outer->findChildren<QSplitter*>(QStringLiteral("paneGroup"), Qt::FindDirectChildrenOnly);
    for (QSplitter* group : groups) {
        // A control that is being removed, perhaps by its own callback, is still inside.
        group->setParent(nullptr);
        group->deleteLater();
    }
    outer->setOrientation(configuration.groups);
    const bool across = configuration.groups == Qt::Vertical;
    int next = 0;
    for (const int count : configuration.counts) {
        if (count == 0 || next >= widgets.size())
            break;
        auto* group = new QSplitter(across ? Qt::Horizontal : Qt::Vertical, outer);
        group->setObjectName(QStringLiteral("paneGroup"));
        group->setChildrenCollapsible(false);
        QObject::connect(group, &QSplitter::splitterMoved, &element,
            [&element] { element.RunCallback(QStringLiteral("separatorMovedCommand")); });
        for (int i = 0; i < count && next < widgets.size(); ++i)
            group->addWidget(widgets.at(next++));
        outer->addWidget(group);
    }
    for (int i = 0; i < widgets.size(); ++i)
        widgets.at(i)->setVisible(i < next);
}

void MakePanes(Element& element, const Call& call)
{
    auto* outer = new QSplitter;
    outer->setChildrenCollapsible(false);
    if (call.Has("configuration") && FindConfiguration(call.Text("configuration")))
        element.values.insert(QStringLiteral("configuration"), call.Text("configuration"));
    element.placeChild = [](Element&) {};
    element.childrenChanged = [&element] { ArrangePanes(element); };
    QObject::connect(outer, &QSplitter::splitterMoved, &element,
        [&element] { element.RunCallback(QStringLiteral("separatorMovedCommand")); });
    element.SetWidget(outer, outer);
    InterfaceModel::Current().SetCurrentParent(&element);
}

void SetConfiguration(Edit& edit)
{
    if (!FindConfiguration(edit.Text())) {
        edit.error
            = QStringLiteral("There is no configuration of panes called '%1'.").arg(edit.Text());
        return;
    }
    edit.element.values.insert(QStringLiteral("configuration"), edit.Text());
    ArrangePanes(edit.element);
}

/// Widths and heights in hundredths of the layout. The sizes of the other panes share the rest.
void SetPaneSizes(Edit& edit)
{
    const QVector<QWidget*> widgets = PaneWidgets(edit.element);
    for (int use = 0; use < edit.UseCount(); ++use) {
        QWidget* pane = widgets.value(edit.Int(0, use) - 1);
        auto* group = pane ? qobject_cast<QSplitter*>(pane->parentWidget()) : nullptr;
        if (!group)
            continue; // Sizes may be given before there are panes.
        const bool across = group->orientation() == Qt::Horizontal;
        const auto share = [](QSplitter* splitter, QWidget* part, int percent) {
            constexpr int WHOLE = 1000;
            const int others = qMax(1, splitter->count() - 1);
            QList<int> sizes;
            for (int i = 0; i < splitter->count(); ++i)
                sizes += (100 - percent) * WHOLE / others;
            sizes[splitter->indexOf(part)] = percent * WHOLE;
            splitter->setSizes(sizes);
        };
        share(group, pane, qBound(0, edit.Int(across ? 1 : 2, use), 100));
        share(Panes(edit.element), group, qBound(0, edit.Int(across ? 2 : 1, use), 100));
    }
}

Value PaneSizes(Element& element)
{
    IntList sizes;
    const QSize whole = Panes(element)->size();
    for (const QWidget* pane : PaneWidgets(element)) {
        if (pane->isHidden())
            continue;
        sizes += qRound(100.0 * pane->width() / qMax(1, whole.width()));
        sizes += qRound(100.0 * pane->height() / qMax(1, whole.height()));
    }
    return sizes;
}

void SetPanes(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use) {
        Element* child = nullptr;
        const Outcome found = FindElement(edit.Text(0, use), ANY_CONTROL, child);
        if (!found.Ok() || child->GetParent() != &edit.element) {
            edit.error = InterfaceModel::NotFound(edit.Text(0, use));
            return;
        }
        InterfaceModel::Current().MoveChild(child, edit.Int(1, use) - 1);
    }
    ArrangePanes(edit.element);
}

template <int INDEX>
Value PaneName(Element& element)
{
    const QStringList names = ChildNames(element, ANY_CONTROL);
    return names.value(INDEX);
}

int PaneCount(const Configuration& configuration)
{
    int count = 0;
    for (const int part : configuration.counts)
        count += part;
    return count;
}

/// A menu bar over whatever is put below it.
void MakeMenuBar(Element& element, const Call&)
{
    auto* widget = new QWidget;
    auto* rows = new QVBoxLayout(widget);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    auto* bar = new QMenuBar(widget);
    bar->setNativeMenuBar(false);
    rows->setMenuBar(bar);
    element.SetWidget(widget, widget);
    InterfaceModel::Current().SetCurrentParent(&element);
}

// clang-format off
const Property PANES[] = {
    {"childArray",        nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL); }},
    {"numberOfChildren",  nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL).size(); }},
    {"configuration",     SetConfiguration, [](Element& e) -> Value { return QString::fromLatin1(ConfigurationOf(e).name); }},
    {"setPane",           SetPanes, nullptr},
    {"paneSize",          SetPaneSizes, PaneSizes},
    {"numberOfVisiblePanes", nullptr, [](Element& e) -> Value { return qMin(PaneCount(ConfigurationOf(e)), e.GetChildren().size()); }},
    {"pane1",             nullptr, PaneName<0>},
    {"pane2",             nullptr, PaneName<1>},
    {"pane3",             nullptr, PaneName<2>},
    {"pane4",             nullptr, PaneName<3>},
    {"separatorThickness", [](Edit& e) { Panes(e.element)->setHandleWidth(Scaled(qMax(1, e.Int()))); }, nullptr},
};

const Property MENU_BAR[] = {
    {"childArray",       nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL); }},
    {"numberOfChildren", nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL).size(); }},
    {"menuArray",        nullptr, [](Element& e) -> Value { return ChildNames(e, MenuKind); }},
    {"numberOfMenus",    nullptr, [](Element& e) -> Value { return ChildNames(e, MenuKind).size(); }},
    {"menuBarVisible",   [](Edit& e) { e.element.GetWidget()->layout()->menuBar()->setVisible(e.Bool()); },
                         [](Element& e) -> Value { return !e.GetWidget()->layout()->menuBar()->isHidden(); }},
};

const ControlRow ROWS[] = {
    {"paneLayout", LayoutKind, MakePanes, PANES,
        "activeFrameThickness/aft int cqe; activePane/ap str q; activePaneIndex/api int q; childArray/ca - q; configuration/cn str cqe;"
        "numberOfChildren/nch - q; numberOfVisiblePanes/nvp - q; pane1/p1 - q; pane2/p2 - q; pane3/p3 - q; pane4/p4 - q;"
        "paneSize/ps int int int cqem; separatorMovedCommand/smc script cqe; separatorThickness/st int ce; setPane/sp str int cem;"
        "staticHeightPane/shp int cqe; staticWidthPane/swp int cqe;"},
    {"menuBarLayout", LayoutKind, MakeMenuBar, MENU_BAR,
        "childArray/ca - q; menuArray/ma - q; menuBarVisible/mbv B cqe; numberOfChildren/nch - q; numberOfMenus/nm - q;"},
};
// clang-format on

} // namespace

void RegisterPaneCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
