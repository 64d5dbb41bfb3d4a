#include "ui/commands/ProcedureCall.h"
#include "ui/commands/Tables.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableWidget>

#include <algorithm>

namespace host::ui {

namespace {

const QString GET_CELL = QStringLiteral("getCellCmd");
const QString CHANGED = QStringLiteral("cellChangedCmd");

/// A table whose rows and columns scripts count from 1; 0 is the header. What stands in a cell is
/// asked of a script, or was put there.
class Table : public QTableWidget
{
public:
    explicit Table(Element& element)
        : m_element(&element)
    {
        horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        connect(this, &QTableWidget::itemChanged, &element,
            [this](QTableWidgetItem* item) { OnEdited(item); });
        connect(this, &QTableWidget::itemSelectionChanged, &element,
            [&element] { element.RunCallback(QStringLiteral("selectionChangedCmd")); });
    }

    QString TextAt(int row, int column) const
    {
        const QTableWidgetItem* cell = item(row, column);
        return cell ? cell->text() : QString();
    }
    void SetTextAt(int row, int column, const QString& text)
    {
        const QScopedValueRollback<bool> filling(m_filling, true);
        if (!item(row, column))
            setItem(row, column, new QTableWidgetItem);
        item(row, column)->setText(text);
        item(row, column)->setData(Qt::UserRole, text);
    }
    /// Asks the script for every cell.
    void Fill()
    {
        const QPointer<Element> alive(m_element);
        const QPointer<QTableWidget> self(this);
        for (int row = 0; self && row < rowCount(); ++row) {
            for (int column = 0; alive && self && column < columnCount(); ++column) {
                if (!alive->HasCallback(GET_CELL))
                    return;
                const Outcome answer = CallProcedure(*alive, GET_CELL, {row + 1, column + 1});
                if (!answer.Ok())
                    return;
                if (self)
                    SetTextAt(row, column, answer.GetValue().ToText());
            }
        }
    }

private:
    /// The script may refuse the new text by answering 0.
    void OnEdited(QTableWidgetItem* cell)
    {
        if (m_filling || !m_element)
            return;
        const int row = cell->row();
        const int column = cell->column();
        const QString before = cell->data(Qt::UserRole).toString();
        const QString text = cell->text();
        const QPointer<Table> alive(this);
        const QPointer<Element> element = m_element;
        bool taken = true;
        if (element->HasCallback(CHANGED)) {
            const Outcome answer = CallProcedure(*element, CHANGED, {row + 1, column + 1, text});
            const bool isNumber = answer.Ok() && answer.GetValue().IsNumber();
            taken = answer.Ok() && (!isNumber || answer.GetValue().ToInt() != 0);
        }
        if (alive)
            SetTextAt(row, column, taken ? text : before);
        if (element)
            element->RunCallback(
                QStringLiteral("afterCellChangedCmd"), {row + 1, column + 1, text});
    }

    QPointer<Element> m_element;
    bool m_filling = false;
};

Table* View(const Element& element)
{
    return As<Table>(element);
}

void SetCount(Edit& edit)
{
    const bool rows = qstrcmp(edit.flag, "rows") == 0;
    const int count = qBound(0, edit.Int(), 100000);
    if (rows)
        View(edit.element)->setRowCount(count);
    else
        View(edit.element)->setColumnCount(count);
    View(edit.element)->Fill();
}

bool Inside(Edit& edit, int row, int column)
{
    const Table* table = View(edit.element);
    if (row >= 0 && row < table->rowCount() && column >= 0 && column < table->columnCount())
        return true;
    edit.error = QStringLiteral("The table has no cell %1, %2.").arg(row + 1).arg(column + 1);
    return false;
}

/// A column that a script names for the first time is made.
void SetLabels(Edit& edit)
{
    Table* table = View(edit.element);
    for (int use = 0; use < edit.UseCount(); ++use) {
        const int column = edit.Int(0, use) - 1;
        if (column < 0 || column >= table->columnCount()) {
            edit.error = QStringLiteral("The table has no column %1.").arg(column + 1);
            return;
        }
        table->setHorizontalHeaderItem(column, new QTableWidgetItem(edit.Text(1, use)));
    }
}

void SetWidths(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use)
        View(edit.element)->setColumnWidth(edit.Int(0, use) - 1, Scaled(qMax(1, edit.Int(1, use))));
}

void SetCellProcedure(Edit& edit)
{
    edit.element.SetCallback(GET_CELL, edit.call.GetScript(edit.flag));
    View(edit.element)->Fill();
}

void SetCellIndex(Edit& edit)
{
    if (Inside(edit, edit.Int(0) - 1, edit.Int(1) - 1))
        edit.element.values.insert(QStringLiteral("cellIndex"), IntList{edit.Int(0), edit.Int(1)});
}

/// The cell that was named last, else the current one.
void SetCellValue(Edit& edit)
{
    const Value place = Stored(edit.element, "cellIndex", IntList{1, 1});
    const int row = place.At(0).ToInt() - 1;
    const int column = place.At(1).ToInt() - 1;
    if (Inside(edit, row, column))
        View(edit.element)->SetTextAt(row, column, edit.Text());
}

Value CellValue(Element& element)
{
    const Value place = Stored(element, "cellIndex", IntList{1, 1});
    return View(element)->TextAt(place.At(0).ToInt() - 1, place.At(1).ToInt() - 1);
}

void InsertRow(Edit& edit)
{
    View(edit.element)->insertRow(qBound(0, edit.Int() - 1, View(edit.element)->rowCount()));
    View(edit.element)->Fill();
}

void DeleteRow(Edit& edit)
{
    if (Inside(edit, edit.Int() - 1, 0))
        View(edit.element)->removeRow(edit.Int() - 1);
}

Value SelectedRows(Element& element)
{
    IntList rows;
    for (const QModelIndex& index : View(element)->selectionModel()->selectedIndexes()) {
        if (!rows.contains(index.row() + 1))
            rows += index.row() + 1;
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void SelectRows(Edit& edit)
{
    QItemSelectionModel* selected = View(edit.element)->selectionModel();
    selected->clearSelection();
    for (int use = 0; use < edit.UseCount(); ++use) {
        const int row = edit.Int(0, use) - 1;
        if (Inside(edit, row, 0))
            selected->select(View(edit.element)->model()->index(row, 0),
                QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
}

/// Row and column of every cell, one after the other.
Value SelectedCells(Element& element)
{
    IntList cells;
    for (const QModelIndex& index : View(element)->selectionModel()->selectedIndexes())
        cells += IntList{index.row() + 1, index.column() + 1};
    return cells;
}

void SetEditable(Edit& edit)
{
    View(edit.element)
        ->setEditTriggers(edit.Bool() ? QTableWidget::DoubleClicked | QTableWidget::EditKeyPressed
                    | QTableWidget::AnyKeyPressed
                                      : QTableWidget::NoEditTriggers);
}

// clang-format off
const Property TABLE[] = {
    {"columns",      SetCount, [](Element& e) -> Value { return View(e)->columnCount(); }},
    {"rows",         SetCount, [](Element& e) -> Value { return View(e)->rowCount(); }},
    {"label",        SetLabels, nullptr},
    {"columnWidth",  SetWidths, nullptr},
    {"clearTable",   [](Edit& e) { View(e.element)->setRowCount(0); }, nullptr},
    {"insertRow",    InsertRow, nullptr},
    {"deleteRow",    DeleteRow, nullptr},
    {"getCellCmd",   SetCellProcedure, nullptr},
    {"cellIndex",    SetCellIndex, nullptr},
    {"cellValue",    SetCellValue, CellValue},
    {"editable",     SetEditable, [](Element& e) -> Value { return View(e)->editTriggers() != QTableWidget::NoEditTriggers; }},
    {"sortEnabled",  [](Edit& e) { View(e.element)->setSortingEnabled(e.Bool()); }, [](Element& e) -> Value { return View(e)->isSortingEnabled(); }},
    {"selectedRows", SelectRows, SelectedRows},
    {"selectedRow",  nullptr, [](Element& e) -> Value { return View(e)->currentRow() + 1; }},
    {"selectedColumn", nullptr, [](Element& e) -> Value { return View(e)->currentColumn() + 1; }},
    {"selectedCells", nullptr, SelectedCells},
};

const ControlRow ROWS[] = {
    {"scriptTable", ControlKind,
        [](Element& element, const Call&) { element.SetWidget(new Table(element)); }, TABLE,
        "afterCellChangedCmd/acc script cqe; cellChangedCmd/ccc script cqe; cellIndex/ci int int e; cellValue/cv str qe; clearTable/ct - ce;"
        "columnWidth/cw int int cem; columns/cl int cqe; deleteRow/dr int e; editable/ed B cqe; excludingHeaders/eh B cqe; getCellCmd/gcc script cqe;"
        "insertRow/ir int e; label/l int str cem; multiEditEnabled/mee B cqe; rows/r int cqe; selectedCells/sc - q; selectedColumn/sco - q;"
        "selectedRow/sr - q; selectedRows/srs int qem; selectionBehavior/sb int cqe; selectionChangedCmd/scc script cqe; selectionMode/sm int cqe;"
        "sortEnabled/se B cqe; useDoubleClickEdit/uce B cqe;"},
};
// clang-format on

} // namespace

void RegisterScriptTable(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
