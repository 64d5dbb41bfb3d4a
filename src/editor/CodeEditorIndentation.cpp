// Indenting by Tab and Backtab.

#include "editor/CodeEditor.h"
#include "editing/TextColumns.h"

#include <QTextBlock>

namespace {

struct LineRange
{
    QTextBlock first;
    QTextBlock last;
};

/// The lines a selection touches; one that ends at the start of a line leaves that line out.
LineRange SelectedLines(const QTextCursor& cursor)
{
    const QTextDocument* document = cursor.document();
    const QTextBlock first = document->findBlock(cursor.selectionStart());
    QTextBlock last = document->findBlock(cursor.selectionEnd());
    if (first != last && last.position() == cursor.selectionEnd())
        last = last.previous();
    return {first, last};
}

} // namespace

/// Gives a line's leading blanks another width in columns, in the editor's style.
void CodeEditor::SetIndentWidth(const QTextBlock& block, int width)
{
    const QString text = block.text();
    const QString indent = m_insertSpaces
        ? SpacesStr(width)
        : QString(width / m_tabSize, QLatin1Char('\t')) + SpacesStr(width % m_tabSize);
    const int oldLength = IndentLength(text);
    if (text.left(oldLength) == indent)
        return;
    // Only what differs is touched, so that a cursor behind the indent stays where it is.
    int kept = 0;
    while (kept < qMin(oldLength, indent.size()) && text.at(kept) == indent.at(kept))
        ++kept;
    QTextCursor cursor(block);
    cursor.setPosition(block.position() + kept);
    cursor.setPosition(block.position() + oldLength, QTextCursor::KeepAnchor);
    cursor.insertText(indent.mid(kept));
}

void CodeEditor::IncreaseIndent(bool force)
{
    QTextCursor cursor = textCursor();
    const LineRange lines = SelectedLines(cursor);
    if (lines.first == lines.last && !force) {
        cursor.insertText(m_insertSpaces ? SpacesForTab() : QStringLiteral("\t"));
        setTextCursor(cursor);
        return;
    }
    ShiftIndent(m_tabSize);
}

void CodeEditor::DecreaseIndent()
{
    ShiftIndent(-m_tabSize);
}

void CodeEditor::ShiftIndent(int columns)
{
    QTextCursor cursor = textCursor();
    const LineRange lines = SelectedLines(cursor);
    cursor.beginEditBlock();
    for (QTextBlock block = lines.first;; block = block.next()) {
        const QString text = block.text();
        const int width = VisualWidth(text.left(IndentLength(text)), m_tabSize);
        SetIndentWidth(block, qMax(0, width + columns));
        if (block == lines.last)
            break;
    }
    cursor.endEditBlock();
}
