#pragma once

#include <QtTest>

/// The columns of a data table: Columns<QString, int>("text", "length").
template <typename... Types, typename... Names>
void Columns(Names... names)
{
    (QTest::addColumn<Types>(names), ...);
}

/// A row of a data table. A literal becomes a QString; every other cell has its column's type.
template <typename... Cells>
void Row(const char* name, const Cells&... cells)
{
    (QTest::newRow(name) << ... << cells);
}

/// A row that is named by its own first cell.
template <typename... Cells>
void TextRow(const char* text, const Cells&... cells)
{
    Row(text, text, cells...);
}
