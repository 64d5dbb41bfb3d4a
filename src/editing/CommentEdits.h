#pragma once

#include "editing/BlockDataSource.h"
#include "editing/TextChanges.h"

class QTextCursor;
struct EditingOptions;

/// Each is one undo step; they answer what they changed, so that marks can follow.

/// Comments the selected lines, or the cursor's, by a marker at their start; or takes the markers
/// away when all of them have one. Blank lines are left alone. The cursor and the selection follow
/// the text, behind a marker that is put exactly where they stand.
TextPasses ToggleComment(QTextCursor& cursor, const EditingOptions& options);

/// In a MEL script: takes the markers of the block comment at the cursor away, or puts them round
/// the selection, which stays on the same text. Elsewhere, and in a line comment, the same as
/// ToggleComment.
TextPasses ToggleBlockComment(
    QTextCursor& cursor, const EditingOptions& options, const BlockDataSource& source);

/// Searches up from a column of a line for a comment's opener: its position in the text or -1.
int FindBlockCommentOpen(const QTextBlock& block, int column, const BlockDataSource& source);
/// Searches down from behind a column of a line for a closer: the position behind it or -1.
int FindBlockCommentClose(const QTextBlock& block, int column, const BlockDataSource& source);
