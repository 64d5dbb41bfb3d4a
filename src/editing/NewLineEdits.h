#pragma once

#include "editing/BlockDataSource.h"

#include <QString>
#include <QTextBlock>

class QTextCursor;
struct EditingOptions;

/// The last character at or before `index` that is not white space; the null character without one.
QChar PrevNonWhitespace(const QString& text, int index);
/// The first such character at or behind `index`.
QChar NextNonWhitespace(const QString& text, int index);

/// Finds the line that holds the partner of the closing bracket `brace` standing, or about to be
/// typed, at a column of `block`, and gives that line's indent. Brackets pair by kind and nesting;
/// those in strings and comments do not count.
bool FindOpeningBraceIndent(QChar brace, int column, const QTextBlock& block,
    const CodeEditorBlockData& data, const BlockDataSource& source, QString& indent);

/// The place at which a line is broken, as it was before.
struct NewLinePlace
{
    QTextBlock block;
    const CodeEditorBlockData* data = nullptr; ///< of the block; may be null
    int column = 0;
    QChar previous; ///< last character before the place that is not white space
    QChar next; ///< first one at or behind it

    static NewLinePlace Of(const QTextCursor& cursor, const BlockDataSource& source);
};

/// What goes before and behind the cursor on the new line.
struct NewLineIndent
{
    QString indent;
    bool splitsPair = false; ///< the rest of the line goes down one more line,
    QString restIndent; ///< with this indent
};
NewLineIndent IndentOfNewLine(
    const NewLinePlace& place, const EditingOptions& options, const BlockDataSource& source);
/// Inserts that; the cursor, at the start of the new line, ends behind the indent.
void UpdateIndentationOnNewLine(QTextCursor& cursor, const NewLineIndent& indent);

/// Return: replaces the selection by a line end and indents the new line. One undo step.
void InsertNewLine(
    QTextCursor& cursor, const EditingOptions& options, const BlockDataSource& source);
