#include "ui/commands/layouts/ColumnFlags.h"

#include "ui/commands/Tables.h"

#include <QLabel>

namespace host::ui {

namespace {

constexpr int LARGEST_COLUMN = 256;

/// The count that a flag such as "columnWidth3" carries in its name; 0 for plain "columnWidth".
int CountInName(const char* flag)
{
    const char last = flag[qstrlen(flag) - 1];
    return last >= '1' && last <= '9' ? last - '0' : 0;
}

/// Calls `change` for every column that the flag speaks of, with the place of its values: the first
/// value's index and the use.
template <typename Change>
void ForColumns(Edit& edit, Change change)
{
    ColumnBox* box = ColumnsOf(edit.element);
    const auto apply = [&](int column, int index, int use) {
        if (column < 0 || column >= LARGEST_COLUMN) {
            edit.error = QStringLiteral("Column %1 is not between 1 and %2.")
                             .arg(column + 1)
                             .arg(LARGEST_COLUMN);
            return;
        }
        ColumnStyle style = box->StyleAt(column);
        change(style, index, use);
        box->SetStyleAt(column, style);
    };
    const int count = CountInName(edit.flag);
    for (int column = 0; column < count; ++column)
        apply(column, column, 0);
    for (int use = 0; count == 0 && use < edit.UseCount(); ++use)
        apply(edit.Int(0, use) - 1, 1, use);
    ApplyColumns(edit.element);
}

void Attach(ColumnStyle& style, const QString& side)
{
    style.keepsWidth = side == QLatin1String("left") || side == QLatin1String("right");
    if (side == QLatin1String("left"))
        style.alignment = Qt::AlignLeft;
    else if (side == QLatin1String("right"))
        style.alignment = Qt::AlignRight;
}

/// An offset counts for the sides that the column is attached to.
void Offset(ColumnStyle& style, const QString& side, int offset)
{
    if (side != QLatin1String("right"))
        style.leftOffset = offset;
    if (side != QLatin1String("left"))
        style.rightOffset = offset;
}

} // namespace

ColumnBox* ColumnsOf(const Element& element)
{
    QWidget* holder = element.GetContent() ? element.GetContent() : element.GetWidget();
    return static_cast<ColumnBox*>(holder->layout());
}

void ApplyColumns(Element& element)
{
    ColumnBox* box = ColumnsOf(element);
    for (Element* child : element.GetChildren()) {
        if (child->GetWidget())
            ApplySize(*child);
    }
    for (int i = 0; i < box->count(); ++i) {
        auto* label = qobject_cast<QLabel*>(box->itemAt(i)->widget());
        const Element* child = label ? InterfaceModel::Current().FindExact(label) : nullptr;
        if (label && !(child && child->values.contains(QStringLiteral("align"))))
            label->setAlignment(box->AlignmentAt(i) | Qt::AlignVCenter);
    }
    box->invalidate();
}

void SetColumnWidth(Edit& edit)
{
    ForColumns(edit, [&](ColumnStyle& style, int index, int use) {
        style.width = Scaled(qMax(0, edit.Int(index, use)));
    });
}

void SetColumnAttach(Edit& edit)
{
    const bool hasOffset = CountInName(edit.flag) == 0;
    ForColumns(edit, [&](ColumnStyle& style, int index, int use) {
        const QString side = edit.Text(index, use);
        Attach(style, side);
        if (hasOffset)
            Offset(style, side, Scaled(edit.Int(index + 1, use)));
    });
}

void SetColumnOffset(Edit& edit)
{
    const bool hasSide = CountInName(edit.flag) == 0;
    ForColumns(edit, [&](ColumnStyle& style, int index, int use) {
        const QString side = hasSide ? edit.Text(index, use) : QString();
        Offset(style, side, Scaled(edit.Int(hasSide ? index + 1 : index, use)));
    });
}

void SetColumnAlign(Edit& edit)
{
    ForColumns(edit, [&](ColumnStyle& style, int index, int use) {
        style.alignment
            = AlignmentFromWord(edit.Text(index, use), style.alignment) & Qt::AlignHorizontal_Mask;
    });
}

/// A count in the name says how many columns there are, not which one adjusts.
void SetAdjustableColumn(Edit& edit)
{
    ColumnsOf(edit.element)->SetAdjustableColumn(edit.Int() - 1);
    ApplyColumns(edit.element);
}

namespace {

// clang-format off
const Property COLUMNS[] = {
    {"columnWidth",   SetColumnWidth, nullptr},
    {"columnWidth1",  SetColumnWidth, nullptr},
    {"columnWidth2",  SetColumnWidth, nullptr},
    {"columnWidth3",  SetColumnWidth, nullptr},
    {"columnWidth4",  SetColumnWidth, nullptr},
    {"columnWidth5",  SetColumnWidth, nullptr},
    {"columnWidth6",  SetColumnWidth, nullptr},
    {"columnAttach",  SetColumnAttach, nullptr},
    {"columnAttach1", SetColumnAttach, nullptr},
    {"columnAttach2", SetColumnAttach, nullptr},
    {"columnAttach3", SetColumnAttach, nullptr},
    {"columnAttach4", SetColumnAttach, nullptr},
    {"columnAttach5", SetColumnAttach, nullptr},
    {"columnAttach6", SetColumnAttach, nullptr},
    {"columnOffset1", SetColumnOffset, nullptr},
    {"columnOffset2", SetColumnOffset, nullptr},
    {"columnOffset3", SetColumnOffset, nullptr},
    {"columnOffset4", SetColumnOffset, nullptr},
    {"columnOffset5", SetColumnOffset, nullptr},
    {"columnOffset6", SetColumnOffset, nullptr},
    {"columnAlign",   SetColumnAlign, nullptr},
    {"columnAlign1",  SetColumnAlign, nullptr},
    {"columnAlign2",  SetColumnAlign, nullptr},
    {"columnAlign3",  SetColumnAlign, nullptr},
    {"columnAlign4",  SetColumnAlign, nullptr},
    {"columnAlign5",  SetColumnAlign, nullptr},
    {"columnAlign6",  SetColumnAlign, nullptr},
    {"adjustableColumn",  SetAdjustableColumn, nullptr},
    {"adjustableColumn1", SetAdjustableColumn, nullptr},
    {"adjustableColumn2", SetAdjustableColumn, nullptr},
    {"adjustableColumn3", SetAdjustableColumn, nullptr},
    {"adjustableColumn4", SetAdjustableColumn, nullptr},
    {"adjustableColumn5", SetAdjustableColumn, nullptr},
    {"adjustableColumn6", SetAdjustableColumn, nullptr},
};
// clang-format on

} // namespace

// clang-format off
const Family COLUMN_FAMILY{
    "adjustableColumn/adj int cem; adjustableColumn1/ad1 int ce; adjustableColumn2/ad2 int ce; adjustableColumn3/ad3 int ce;"
    "adjustableColumn4/ad4 int ce; adjustableColumn5/ad5 int ce; adjustableColumn6/ad6 int ce;"
    "columnAlign/cal int str cem; columnAlign1/cl1 str ce; columnAlign2/cl2 str str ce; columnAlign3/cl3 str str str ce;"
    "columnAlign4/cl4 str str str str ce; columnAlign5/cl5 str str str str str ce; columnAlign6/cl6 str str str str str str ce;"
    "columnAttach/cat int str int cem; columnAttach1/ct1 str ce; columnAttach2/ct2 str str ce; columnAttach3/ct3 str str str ce;"
    "columnAttach4/ct4 str str str str ce; columnAttach5/ct5 str str str str str ce; columnAttach6/ct6 str str str str str str ce;"
    "columnOffset1/co1 int ce; columnOffset2/co2 int int ce; columnOffset3/co3 int int int ce; columnOffset4/co4 int int int int ce;"
    "columnOffset5/co5 int int int int int ce; columnOffset6/co6 int int int int int int ce;"
    "columnWidth/cw int int cem; columnWidth1/cw1 int ce; columnWidth2/cw2 int int ce; columnWidth3/cw3 int int int ce;"
    "columnWidth4/cw4 int int int int ce; columnWidth5/cw5 int int int int int ce; columnWidth6/cw6 int int int int int int ce;"
    "rowAttach/rat int str int cem;",
    COLUMNS};
// clang-format on

} // namespace host::ui
