#include "ui/commands/Tables.h"
#include "ui/commands/layouts/FrameBox.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>

namespace host::ui {

namespace {

void BecomeCurrent(Element& element)
{
    InterfaceModel::Current().SetCurrentParent(&element);
}

QVector<QWidget*> ChildWidgets(const Element& element)
{
    QVector<QWidget*> widgets;
    for (const Element* child : element.GetChildren()) {
        if (child->GetWidget())
            widgets += child->GetWidget();
    }
    return widgets;
}

// Columns

/// Stacks the children from the top; they keep their width unless the column is adjustable.
void ArrangeColumn(Element& element)
{
    auto* rows = static_cast<QVBoxLayout*>(element.GetContent()->layout());
    const bool adjustable = Stored(element, "adjustableColumn", false).ToBool();
    const int columnWidth = Scaled(Stored(element, "columnWidth", 0).ToInt());
    const Qt::Alignment side = AlignmentFromWord(
        Stored(element, "columnAlign", QString()).ToText(), Qt::AlignLeft | Qt::AlignVCenter);
    const QVector<QWidget*> widgets = ChildWidgets(element);
    for (QWidget* widget : widgets) {
        if (rows->indexOf(widget) < 0)
            rows->insertWidget(rows->count() - 1, widget);
        rows->setAlignment(widget, adjustable ? Qt::Alignment() : side);
        if (!adjustable && columnWidth > 0)
            widget->setFixedWidth(columnWidth);
    }
}

void MakeColumn(Element& element, const Call& call)
{
    auto* widget = new QWidget;
    auto* rows = new QVBoxLayout(widget);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addStretch(1);
    if (call.Has("adjustableColumn"))
        element.values.insert(QStringLiteral("adjustableColumn"), call.Bool("adjustableColumn"));
    element.placeChild = [&element](Element&) { ArrangeColumn(element); };
    element.SetWidget(widget, widget);
    BecomeCurrent(element);
}

void SetColumnValue(Edit& edit)
{
    edit.element.values.insert(QString::fromLatin1(edit.flag), edit.call.Argument(edit.flag));
    ArrangeColumn(edit.element);
}

void SetColumnAttach(Edit& edit)
{
    QLayout* rows = edit.element.GetContent()->layout();
    QMargins margins = rows->contentsMargins();
    const QString side = edit.Text(0);
    if (side != QLatin1String("right"))
        margins.setLeft(Scaled(edit.Int(1)));
    if (side != QLatin1String("left"))
        margins.setRight(Scaled(edit.Int(1)));
    rows->setContentsMargins(margins);
}

// Frames and scroll areas

FrameBox* Frame(const Element& element)
{
    return As<FrameBox>(element);
}

void MakeFrame(Element& element, const Call&)
{
    auto* frame = new FrameBox;
    QObject::connect(frame, &FrameBox::AboutToToggle, &element, [&element](bool collapsed) {
        element.RunCallback(
            collapsed ? QStringLiteral("preCollapseCommand") : QStringLiteral("preExpandCommand"));
    });
    QObject::connect(frame, &FrameBox::Toggled, &element, [&element](bool collapsed) {
        element.RunCallback(
            collapsed ? QStringLiteral("collapseCommand") : QStringLiteral("expandCommand"));
    });
    element.SetWidget(frame, frame->GetContent());
    BecomeCurrent(element);
}

QScrollArea* Scroll(const Element& element)
{
    return As<QScrollArea>(element);
}

void MakeScroll(Element& element, const Call&)
{
    auto* area = new QScrollArea;
    auto* content = new QWidget;
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    area->setWidget(content);
    area->setWidgetResizable(true);
    element.SetWidget(area, content);
    BecomeCurrent(element);
}

void ScrollPage(Edit& edit)
{
    const QString way = edit.Text();
    const bool vertical = way == QLatin1String("up") || way == QLatin1String("down");
    const bool back = way == QLatin1String("up") || way == QLatin1String("left");
    QScrollBar* bar = vertical ? Scroll(edit.element)->verticalScrollBar()
                               : Scroll(edit.element)->horizontalScrollBar();
    const int distance = qstrcmp(edit.flag, "scrollPage") == 0 ? bar->pageStep() : edit.Int(1);
    bar->setValue(bar->value() + (back ? -distance : distance));
}

void SetThickness(Edit& edit)
{
    const bool vertical = qstrcmp(edit.flag, "verticalScrollBarThickness") == 0;
    const auto policy = edit.Int() == 0 ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    if (vertical)
        Scroll(edit.element)->setVerticalScrollBarPolicy(policy);
    else
        Scroll(edit.element)->setHorizontalScrollBarPolicy(policy);
}

Value ScrollPosition(Element& element)
{
    return IntList{Scroll(element)->verticalScrollBar()->value(),
        Scroll(element)->horizontalScrollBar()->value()};
}

Value Children(Element& element)
{
    return ChildNames(element, ANY_CONTROL);
}

Value ChildCount(Element& element)
{
    return ChildNames(element, ANY_CONTROL).size();
}

// clang-format off
const Property LAYOUT[] = {
    {"childArray",       nullptr, Children},
    {"numberOfChildren", nullptr, ChildCount},
};

const Property COLUMN[] = {
    {"childArray",       nullptr, Children},
    {"numberOfChildren", nullptr, ChildCount},
    {"adjustableColumn", SetColumnValue, nullptr},
    {"columnWidth",      SetColumnValue, nullptr},
    {"columnAlign",      SetColumnValue, nullptr},
    {"rowSpacing",       [](Edit& e) { e.element.GetContent()->layout()->setSpacing(Scaled(qMax(0, e.Int()))); },
                         [](Element& e) -> Value { return Unscaled(e.GetContent()->layout()->spacing()); }},
    {"columnAttach",     SetColumnAttach, nullptr},
    {"columnOffset",     SetColumnAttach, nullptr},
};

const Property FRAME[] = {
    {"childArray",       nullptr, Children},
    {"numberOfChildren", nullptr, ChildCount},
    {"label",        [](Edit& e) { Frame(e.element)->SetLabel(e.Text()); },
                     [](Element& e) -> Value { return Frame(e)->GetLabel(); }},
    {"labelVisible", [](Edit& e) { Frame(e.element)->SetLabelVisible(e.Bool()); },
                     [](Element& e) -> Value { return Frame(e)->IsLabelVisible(); }},
    {"collapsable",  [](Edit& e) { Frame(e.element)->SetCollapsable(e.Bool()); },
                     [](Element& e) -> Value { return Frame(e)->IsCollapsable(); }},
    {"collapse",     [](Edit& e) { Frame(e.element)->SetCollapsed(e.Bool()); },
                     [](Element& e) -> Value { return Frame(e)->IsCollapsed(); }},
    {"marginWidth",  [](Edit& e) { Frame(e.element)->SetMargins(Scaled(e.Int()), Frame(e.element)->MarginHeight()); },
                     [](Element& e) -> Value { return Unscaled(Frame(e)->MarginWidth()); }},
    {"marginHeight", [](Edit& e) { Frame(e.element)->SetMargins(Frame(e.element)->MarginWidth(), Scaled(e.Int())); },
                     [](Element& e) -> Value { return Unscaled(Frame(e)->MarginHeight()); }},
};

const Property SCROLL[] = {
    {"childArray",       nullptr, Children},
    {"numberOfChildren", nullptr, ChildCount},
    {"borderVisible",  [](Edit& e) { Scroll(e.element)->setFrameShape(e.Bool() ? QFrame::StyledPanel : QFrame::NoFrame); },
                       [](Element& e) -> Value { return Scroll(e)->frameShape() != QFrame::NoFrame; }},
    {"minChildWidth",  [](Edit& e) { e.element.GetContent()->setMinimumWidth(Scaled(qMax(0, e.Int()))); },
                       [](Element& e) -> Value { return Unscaled(e.GetContent()->minimumWidth()); }},
    {"verticalScrollBarAlwaysVisible", [](Edit& e) { Scroll(e.element)->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); }, nullptr},
    {"verticalScrollBarThickness",   SetThickness, nullptr},
    {"horizontalScrollBarThickness", SetThickness, nullptr},
    {"scrollAreaWidth",  nullptr, [](Element& e) -> Value { return Scroll(e)->viewport()->width(); }},
    {"scrollAreaHeight", nullptr, [](Element& e) -> Value { return Scroll(e)->viewport()->height(); }},
    {"scrollAreaValue",  nullptr, ScrollPosition},
    {"scrollByPixel",    ScrollPage, nullptr},
    {"scrollPage",       ScrollPage, nullptr},
};

bool IsLayout(const Element& element) { return element.GetKind() == LayoutKind; }
bool IsControl(const Element& element) { return element.GetKind() & ANY_CONTROL; }

const ControlRow ROWS[] = {
    {"columnLayout", LayoutKind, MakeColumn, COLUMN,
        "adjustableColumn/adj B ce; childArray/ca - q; columnAlign/cal str ce; columnAttach/cat str int ce;"
        "columnOffset/co str int ce; columnWidth/cw int cqe; numberOfChildren/nch - q; rowSpacing/rs int cqe;"},
    {"frameLayout", LayoutKind, MakeFrame, FRAME,
        "backgroundShade/bgs B cqe; borderStyle/bs str cqe; borderVisible/bv B cqe; childArray/ca - q; collapsable/cll B cqe;"
        "collapse/cl B cqe; collapseCommand/cc script ce; expandCommand/ec script ce; font/fn str cqe; label/l str cqe;"
        "labelAlign/la str cqe; labelIndent/li int cqe; labelVisible/lv B cqe; labelWidth/lw int cqe; marginHeight/mh int cqe;"
        "marginWidth/mw int cqe; numberOfChildren/nch - q; preCollapseCommand/pcc script ce; preExpandCommand/pec script ce;"},
    {"scrollLayout", LayoutKind, MakeScroll, SCROLL,
        "borderVisible/bv B cqe; childArray/ca - q; childResizable/cr B cq; horizontalScrollBarThickness/hst int ce;"
        "minChildWidth/mcw int cq; numberOfChildren/nch - q; panEnabled/pe B qe; resizeCommand/rc script ce; scrollAreaHeight/sah - q;"
        "scrollAreaValue/sav - q; scrollAreaWidth/saw - q; scrollByPixel/sbp str int e; scrollPage/sp str e;"
        "verticalScrollBarAlwaysVisible/vsb - c; verticalScrollBarThickness/vst int ce;"},
    {"layout", LayoutKind, nullptr, LAYOUT, "childArray/ca - q; numberOfChildren/nch - q;", IsLayout},
    {"control", ControlKind, nullptr, {}, "", IsControl},
};
// clang-format on

} // namespace

void RegisterLayoutCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
