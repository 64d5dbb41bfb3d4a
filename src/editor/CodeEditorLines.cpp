// What is done to the lines of a script as a whole.

#include "editor/CodeEditor.h"
#include "editor/TextTrimming.h"

#include <QScopedValueRollback>

void CodeEditor::TrimTrailingWhiteSpaces(bool ensureNewLine)
{
    QTextCursor cursor = textCursor();
    const CursorText before{GetText(), cursor.anchor(), cursor.position()};
    const CursorText after = TrimTrailingBlanks(before, ensureNewLine);
    // Nothing to undo where nothing changes.
    if (after.text == before.text)
        return;
    // The checkers' messages stay where they are rather than going with the old text.
    const QScopedValueRollback<bool> rewriting(m_rewritingText, true);
    const int scrollValue = GetVerticalScrollBarValue();
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.insertText(after.text);
    cursor.endEditBlock();
    cursor.setPosition(after.anchor);
    cursor.setPosition(after.position, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    SetVerticalScrollBarValue(scrollValue);
}

void CodeEditor::EnsureNewLineAtEof()
{
    const QChar last = CharacterAt(document()->characterCount() - 2);
    if (last.isNull() || last == QChar::ParagraphSeparator)
        return;
    const int anchor = textCursor().anchor();
    const int position = textCursor().position();
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("\n"));
    // A cursor that stood at the end went along with it.
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}
