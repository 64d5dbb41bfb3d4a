#pragma once

#include "editing/TextChanges.h"

class QTextCursor;
struct EditingOptions;

/// Indenting lines, each one undo step. They answer what they changed in other lines than by
/// typing at the cursor, so that marks can follow.

/// Tab: one step at the cursor, in place of what is selected of its line; at the start of each
/// line when several are selected or `force` is set. Their indent is then in the editor's style.
TextChanges IncreaseIndent(QTextCursor& cursor, bool force, const EditingOptions& options);
/// Backtab: takes a step, or what there is of one, from the lines' indent.
TextChanges DecreaseIndent(QTextCursor& cursor, const EditingOptions& options);
/// At the starts of the selected lines, or of all without a selection: tabs become the spaces up to
/// their stops.
TextChanges ConvertTabsToSpaces(QTextCursor& cursor, const EditingOptions& options);

/// Home: to the first character of the line that is not white space, or to the line's start when it
/// stood there; in a wrapped line to the start of the row first. With `ctrl` to the start of the
/// text; `shift` selects.
void GoHome(QTextCursor& cursor, bool shift, bool ctrl);
