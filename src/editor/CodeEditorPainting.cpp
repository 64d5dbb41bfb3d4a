// The margin with the line numbers and the marking of the current line.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorLineNumbers.h"
#include "settings/ColorSettings.h"

#include <QResizeEvent>
#include <QTextBlock>
#include <QTimer>

namespace {

constexpr int MINIMUM_GUTTER = 10; // pixels
constexpr int MAXIMUM_GUTTER = 18;

} // namespace

int CodeEditor::GetGutterWidth() const
{
    const int width = 2 * fontMetrics().horizontalAdvance(QLatin1Char('9'));
    return qBound(MINIMUM_GUTTER, width, MAXIMUM_GUTTER);
}

QVector<CodeEditor::VisibleLine> CodeEditor::GetVisibleLines() const
{
    QVector<VisibleLine> lines;
    QTextBlock block = firstVisibleBlock();
    int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
    while (block.isValid() && top <= viewport()->height()) {
        const int height = qRound(blockBoundingRect(block).height());
        if (block.isVisible())
            lines.append({block.blockNumber() + 1, top, height});
        top += height;
        block = block.next();
    }
    return lines;
}

void CodeEditor::UpdateLineNumberWidth()
{
    setViewportMargins(m_lineNumbers->sizeHint().width(), 0, 0, 0);
    m_lineNumbers->UpdatePlace();
}

void CodeEditor::UpdateLineNumbers(const QRect& area, int scrolled)
{
    if (scrolled != 0)
        m_lineNumbers->scroll(0, scrolled);
    else
        m_lineNumbers->update(0, area.y(), m_lineNumbers->width(), area.height());
}

// Several signals come with each key; the marks are made once for all of them.
void CodeEditor::ScheduleExtraSelections()
{
    m_lineNumbers->update();
    m_extraSelectionsTimer->start();
}

void CodeEditor::UpdateExtraSelections()
{
    QList<QTextEdit::ExtraSelection> selections;
    if (const QTextCharFormat* format
        = ColorSettings::GetCodeEditorFormatPtr(ColorSettings::CURRENT_LINE, false)) {
        QTextEdit::ExtraSelection currentLine;
        currentLine.format = *format;
        currentLine.cursor = textCursor();
        currentLine.cursor.clearSelection();
        selections.append(currentLine);
    }
    setExtraSelections(selections);
}

void CodeEditor::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    m_lineNumbers->UpdatePlace();
}
