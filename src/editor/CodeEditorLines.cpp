// What is done to the lines of a script as a whole. The marks of the checkers follow each single
// change, as the document tells of all of them at once only.

#include "editing/CommentEdits.h"
#include "editing/EditingOptions.h"
#include "editing/IndentEdits.h"
#include "editing/LineEdits.h"
#include "editor/CodeEditor.h"

#include <QScopedValueRollback>
#include <QScrollBar>

namespace {

QVector<PositionChange> PositionsOf(const TextChanges& changes)
{
    QVector<PositionChange> positions;
    positions.reserve(changes.size());
    for (const TextChange& change : changes)
        positions.append({change.position, change.removed, change.added.size(), change.addedLines});
    return positions;
}

} // namespace

/// The view moves to the cursor only where the edit sets it.
void CodeEditor::EditLines(
    CursorAfter after, const std::function<TextPasses(QTextCursor&)>& operation)
{
    if (isReadOnly())
        return;
    QTextCursor cursor = textCursor();
    TextPasses passes;
    {
        const QScopedValueRollback<bool> following(m_followsChanges, true);
        passes = operation(cursor);
    }
    for (const TextChanges& changes : qAsConst(passes))
        OffsetParserMessages(PositionsOf(changes));
    if (after == CursorAfter::IsSet)
        setTextCursor(cursor);
}

void CodeEditor::IncreaseIndent(bool force)
{
    EditLines(CursorAfter::IsSet, [&](QTextCursor& cursor) {
        return TextPasses{::IncreaseIndent(cursor, force, GetEditingOptions())};
    });
}

void CodeEditor::DecreaseIndent()
{
    EditLines(CursorAfter::IsSet, [this](QTextCursor& cursor) {
        return TextPasses{::DecreaseIndent(cursor, GetEditingOptions())};
    });
}

void CodeEditor::ConvertTabsToSpaces()
{
    EditLines(CursorAfter::Follows, [this](QTextCursor& cursor) {
        return TextPasses{::ConvertTabsToSpaces(cursor, GetEditingOptions())};
    });
}

void CodeEditor::ToggleComment()
{
    EditLines(CursorAfter::Follows,
        [this](QTextCursor& cursor) { return ::ToggleComment(cursor, GetEditingOptions()); });
}

void CodeEditor::ToggleBlockComment()
{
    EditLines(CursorAfter::IsSet, [this](QTextCursor& cursor) {
        return ::ToggleBlockComment(cursor, GetEditingOptions(), GetBlockDataSource());
    });
}

void CodeEditor::MoveLine(bool up)
{
    EditLines(CursorAfter::IsSet,
        [up](QTextCursor& cursor) { return TextPasses{::MoveLine(cursor, up)}; });
}

void CodeEditor::CopyLine(bool up)
{
    EditAtCursor([up](QTextCursor& cursor) { ::CopyLine(cursor, up); });
}

void CodeEditor::DeleteLines()
{
    EditAtCursor(&::DeleteLines);
}

void CodeEditor::EnsureNewLineAtEof()
{
    const int scrollValue = verticalScrollBar()->value();
    EditAtCursor(&::EnsureNewLineAtEof);
    verticalScrollBar()->setValue(scrollValue);
}

void CodeEditor::TrimTrailingWhiteSpaces(bool ensureNewLine)
{
    // The checkers' messages stay where they are; the next check is close behind a save.
    const QScopedValueRollback<bool> rewriting(m_rewritingText, true);
    const int scrollValue = verticalScrollBar()->value();
    EditAtCursor(
        [ensureNewLine](QTextCursor& cursor) { ::TrimTrailingWhiteSpaces(cursor, ensureNewLine); });
    verticalScrollBar()->setValue(scrollValue);
}
