#pragma once

#include "editing/TextChanges.h"

class QTextCursor;

/// What is done to whole lines: those that the selection touches, without one that it only ends at
/// the start of, or the cursor's. Each is one undo step, none when there is nothing to do.

/// The selection stays on the moved text. Answers what changed, so that marks can follow.
TextChanges MoveLine(QTextCursor& cursor, bool up);
/// The selection is on the upper copy with `up`, else on the lower one.
void CopyLine(QTextCursor& cursor, bool up);
/// Of the last line of the text only what it holds goes: an empty line stays.
void DeleteLines(QTextCursor& cursor);

/// Puts a line above the cursor's; the cursor stays where it is in its text.
void InsertLineAbove(QTextCursor& cursor, const QString& line);

/// A text that is not empty then ends with a line end. The cursor stays.
void EnsureNewLineAtEof(QTextCursor& cursor);
/// Takes the spaces and tabs off the end of every line, and does that with `ensureNewLine`. The
/// cursor keeps its place between the characters that stay.
void TrimTrailingWhiteSpaces(QTextCursor& cursor, bool ensureNewLine);
