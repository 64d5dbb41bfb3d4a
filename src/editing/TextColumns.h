#pragma once

#include <QString>

/// Width in columns of `text` with tabs expanded to stops every `tabSize` columns (at least 1).
/// Columns count from 0; a tab that starts on a stop fills a whole stop.
int VisualWidth(const QString& text, int tabSize);

/// The index of the character at a column, or where the text ends before it; of the columns of a
/// tab the tab's own. Below column 0 the start.
int IndexOfColumn(const QString& text, int column, int tabSize);

/// Number of leading spaces and tabs.
int IndentLength(const QString& text);
