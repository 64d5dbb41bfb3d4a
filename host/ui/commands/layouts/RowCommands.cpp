#include "ui/commands/Tables.h"
#include "ui/commands/layouts/ColumnFlags.h"
#include "ui/commands/layouts/FlowBox.h"

namespace host::ui {

namespace {

template <typename Box>
void MakeBox(Element& element)
{
    auto* widget = new QWidget;
    new Box(widget);
    element.SetWidget(widget, widget);
    InterfaceModel::Current().SetCurrentParent(&element);
}

void MakeRow(Element& element, const Call&)
{
    MakeBox<ColumnBox>(element);
    element.childrenChanged = [&element] { ApplyColumns(element); };
}

void MakeRowColumn(Element& element, const Call& call)
{
    MakeRow(element, call);
    if (!call.Has("numberOfColumns") && !call.Has("numberOfRows"))
        ColumnsOf(element)->SetColumnCount(1);
}

/// Cells of one size; the script says how large, or the largest child does.
void MakeGrid(Element& element, const Call& call)
{
    MakeRowColumn(element, call);
    ColumnsOf(element)->SetEven(call.Has("columnsResizable") && call.Bool("columnsResizable"));
}

void SetColumnCount(Edit& edit)
{
    ColumnsOf(edit.element)->SetColumnCount(edit.Int());
    ApplyColumns(edit.element);
}

void SetRowCount(Edit& edit)
{
    ColumnsOf(edit.element)->SetRowCount(edit.Int());
    ApplyColumns(edit.element);
}

/// Of both counts only that of the columns matters while there is no third.
void SetBothCounts(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("numberOfRows"), edit.Int(0));
    ColumnsOf(edit.element)->SetColumnCount(edit.Int(1));
    ApplyColumns(edit.element);
}

Value BothCounts(Element& element)
{
    const ColumnBox* box = ColumnsOf(element);
    const int columns = qMax(1, box->GetColumnCount());
    const int rows = (box->count() + columns - 1) / columns;
    return IntList{qMax(rows, Stored(element, "numberOfRows", 0).ToInt()), columns};
}

void SetColumnSpacing(Edit& edit)
{
    ColumnBox* box = ColumnsOf(edit.element);
    for (int use = 0; use < edit.UseCount(); ++use) {
        ColumnStyle style = box->StyleAt(edit.Int(0, use) - 1);
        style.spacing = Scaled(qMax(0, edit.Int(1, use)));
        box->SetStyleAt(edit.Int(0, use) - 1, style);
    }
}

void SetRowHeights(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use)
        ColumnsOf(edit.element)
            ->SetRowHeight(edit.Int(0, use) - 1, Scaled(qMax(0, edit.Int(1, use))));
}

void SetRowSpacings(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use)
        ColumnsOf(edit.element)
            ->SetRowSpacing(edit.Int(0, use) - 1, Scaled(qMax(0, edit.Int(1, use))));
}

void SetCellSize(Element& element, int width, int height)
{
    ColumnBox* box = ColumnsOf(element);
    ColumnStyle style = box->GetFallback();
    style.width = Scaled(qMax(0, width));
    box->SetFallback(style);
    box->SetAllRowHeights(Scaled(qMax(0, height)));
    ApplyColumns(element);
}

int CellWidth(const Element& element)
{
    return Unscaled(ColumnsOf(element)->GetFallback().width);
}

int CellHeight(const Element& element)
{
    return Unscaled(ColumnsOf(element)->RowHeightAt(-1));
}

void MoveChildren(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use) {
        Element* child = nullptr;
        const Outcome found = FindElement(edit.Text(0, use), ANY_CONTROL, child);
        if (!found.Ok() || child->GetParent() != &edit.element) {
            edit.error = InterfaceModel::NotFound(edit.Text(0, use));
            return;
        }
        ColumnsOf(edit.element)->Move(child->IndexInParent(), edit.Int(1, use) - 1);
        InterfaceModel::Current().MoveChild(child, edit.Int(1, use) - 1);
    }
}

FlowBox* Flow(const Element& element)
{
    return static_cast<FlowBox*>(element.GetContent()->layout());
}

void MakeFlow(Element& element, const Call&)
{
    MakeBox<FlowBox>(element);
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
const Property ROW[] = {
    {"childArray",       nullptr, Children},
    {"numberOfChildren", nullptr, ChildCount},
};

const Property ROW_COLUMN[] = {
    {"childArray",       nullptr, Children},
    {"numberOfChildren", nullptr, ChildCount},
    {"numberOfColumns",  SetColumnCount, [](Element& e) -> Value { return ColumnsOf(e)->GetColumnCount(); }},
    {"numberOfRows",     SetRowCount, [](Element& e) -> Value { return ColumnsOf(e)->GetRowCount(); }},
    {"columnOffset",     SetColumnOffset, nullptr},
    {"columnSpacing",    SetColumnSpacing, nullptr},
    {"rowHeight",        SetRowHeights, nullptr},
    {"rowSpacing",       SetRowSpacings, nullptr},
};

const Property GRID[] = {
    {"childArray",         nullptr, Children},
    {"numberOfChildren",   nullptr, ChildCount},
    {"numberOfColumns",    SetColumnCount, [](Element& e) -> Value { return ColumnsOf(e)->GetColumnCount(); }},
    {"numberOfRows",       SetRowCount, [](Element& e) -> Value { return BothCounts(e).At(0); }},
    {"numberOfRowsColumns", SetBothCounts, BothCounts},
    {"cellWidth",          [](Edit& e) { SetCellSize(e.element, e.Int(), CellHeight(e.element)); }, [](Element& e) -> Value { return CellWidth(e); }},
    {"cellHeight",         [](Edit& e) { SetCellSize(e.element, CellWidth(e.element), e.Int()); }, [](Element& e) -> Value { return CellHeight(e); }},
    {"cellWidthHeight",    [](Edit& e) { SetCellSize(e.element, e.Int(0), e.Int(1)); }, [](Element& e) -> Value { return IntList{CellWidth(e), CellHeight(e)}; }},
    {"columnsResizable",   [](Edit& e) { ColumnsOf(e.element)->SetEven(e.Bool()); }, [](Element& e) -> Value { return ColumnsOf(e)->IsEven(); }},
    {"position",           MoveChildren, nullptr},
};

const Property FLOW[] = {
    {"childArray",       nullptr, Children},
    {"numberOfChildren", nullptr, ChildCount},
    {"columnSpacing",    [](Edit& e) { Flow(e.element)->setSpacing(Scaled(qMax(0, e.Int()))); },
                         [](Element& e) -> Value { return Unscaled(Flow(e)->spacing()); }},
    {"horizontal",       [](Edit& e) { Flow(e.element)->SetHorizontal(e.Bool()); }, [](Element& e) -> Value { return Flow(e)->IsHorizontal(); }},
    {"vertical",         [](Edit& e) { Flow(e.element)->SetHorizontal(!e.Bool()); }, [](Element& e) -> Value { return !Flow(e)->IsHorizontal(); }},
    {"wrap",             [](Edit& e) { Flow(e.element)->SetWrapping(e.Bool()); }, [](Element& e) -> Value { return Flow(e)->IsWrapping(); }},
};

const ControlRow ROWS[] = {
    {"rowLayout", LayoutKind, MakeRow, ROW,
        "childArray/ca - q; numberOfChildren/nch - q; numberOfColumns/nc int cq;",
        nullptr, nullptr, CommonFlags::Control, &COLUMN_FAMILY},
    {"rowColumnLayout", LayoutKind, MakeRowColumn, ROW_COLUMN,
        "adjustableRow/adr int cqe; childArray/ca - q; columnOffset/co int str int cem; columnSpacing/cs int int cem; numberOfChildren/nch - q;"
        "numberOfColumns/nc int cq; numberOfRows/nr int cq; rowHeight/rh int int cem; rowOffset/ro int str int cem; rowSpacing/rs int int cem;",
        nullptr, nullptr, CommonFlags::Control, &COLUMN_FAMILY},
    {"gridLayout", LayoutKind, MakeGrid, GRID,
        "allowEmptyCells/aec B cq; autoGrow/ag B cqe; cellHeight/ch int cqe; cellWidth/cw int cqe; cellWidthHeight/cwh int int cqe;"
        "childArray/ca - q; columnsResizable/cr B cq; gridOrder/go str ce; numberOfChildren/nch - q; numberOfColumns/nc int cqe;"
        "numberOfRows/nr int cqe; numberOfRowsColumns/nrc int int cqe; position/pos str int cem;"},
    {"flowLayout", LayoutKind, MakeFlow, FLOW,
        "childArray/ca - q; columnSpacing/cs int cqe; horizontal/hr B cq; numberOfChildren/nch - q; vertical/vr B cq; wrap/wr B cq;"},
};
// clang-format on

} // namespace

void RegisterRowCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
