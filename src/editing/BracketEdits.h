#pragma once

#include "editing/BlockDataSource.h"

#include <QChar>

class QTextCursor;
struct EditingOptions;

/// Typing and erasing what comes in pairs. Each is one undo step; what only moves the cursor is
/// none.

/// Puts the two round the selection, which stays on the same text.
void WrapSelection(QTextCursor& cursor, QChar open, QChar close);

/// One of "(", "[" and "{".
void InsertOpeningBrace(
    QTextCursor& cursor, QChar brace, const EditingOptions& options, const BlockDataSource& source);
/// One of ")", "]" and "}".
void InsertClosingBrace(
    QTextCursor& cursor, QChar brace, const EditingOptions& options, const BlockDataSource& source);
/// A quote of the editor's language.
void InsertQuote(
    QTextCursor& cursor, QChar quote, const EditingOptions& options, const BlockDataSource& source);
/// False when nothing but one character is to be erased, which is left to the caller.
bool InsertBackspace(
    QTextCursor& cursor, const EditingOptions& options, const BlockDataSource& source);

/// Before an opening curly brace is typed as the first thing on a line of a MEL script: the line
/// gets the indent of the statement whose block it opens. Within an edit block of the caller.
void SmartIndentOpenCurlyBrace(
    QTextCursor& cursor, const EditingOptions& options, const BlockDataSource& source);
