#pragma once

#include "ui/commands/Control.h"
#include "ui/commands/layouts/ColumnBox.h"

namespace host::ui {

/// Flags of everything whose parts stand in columns: rows and groups of fields.
extern const Family COLUMN_FAMILY;

/// The columns of a layout or of a group's own parts.
ColumnBox* ColumnsOf(const Element& element);
/// Gives the columns to the children again after a column changed.
void ApplyColumns(Element& element);

// Flags that name one column, counted from 1, in each use; also those with the count in the name.
void SetColumnWidth(Edit& edit);
void SetColumnAttach(Edit& edit);
void SetColumnOffset(Edit& edit);
void SetColumnAlign(Edit& edit);
void SetAdjustableColumn(Edit& edit);

} // namespace host::ui
