// Painting the console, which the toolkit does alone unless a found text is selected.

#include "output/OutputTextEdit.h"
#include "output/TimeSpent.h"
#include "window/chrome/Theme.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

namespace {

using Selections = QVector<QAbstractTextDocumentLayout::Selection>;

/// The part of the selection that is in the block, from the block's start; of length 0 if none is.
QTextLayout::FormatRange PartIn(const QTextBlock& block, const QTextCursor& selection)
{
    QTextLayout::FormatRange part;
    part.start = qMax(0, selection.selectionStart() - block.position());
    const int end = qMin(block.length() - 1, selection.selectionEnd() - block.position());
    part.length = qMax(0, end - part.start);
    return part;
}

QVector<QTextLayout::FormatRange> FormatsIn(const QTextBlock& block, const Selections& selections)
{
    QVector<QTextLayout::FormatRange> formats;
    for (const auto& selection : selections) {
        QTextLayout::FormatRange part = PartIn(block, selection.cursor);
        part.format = selection.format;
        if (part.length > 0)
            formats.append(part);
    }
    return formats;
}

} // namespace

void OutputTextEdit::paintEvent(QPaintEvent* event)
{
    const TimeSpent spent(m_frameCost);
    // Painting that was asked for earlier comes before the end of this turn.
    if (m_extraSelectionsDue && !m_followDue)
        UpdateExtraSelections();
    if (IsCurrentMatchSelected())
        PaintCurrentMatch(event->rect());
    else
        QPlainTextEdit::paintEvent(event);
}

bool OutputTextEdit::IsCurrentMatchSelected() const
{
    const QTextCursor cursor = QPlainTextEdit::textCursor();
    return m_currentMatch.hasSelection()
        && m_currentMatch.selectionStart() == cursor.selectionStart()
        && m_currentMatch.selectionEnd() == cursor.selectionEnd();
}

/// The colours of a match say that it is selected; the selection's own would hide them.
void OutputTextEdit::PaintCurrentMatch(const QRect& area)
{
    QPainter painter(viewport());
    QAbstractTextDocumentLayout::PaintContext context = getPaintContext();
    context.selections.removeLast();
    QPointF offset = contentOffset();
    for (QTextBlock block = firstVisibleBlock(); block.isValid() && offset.y() <= area.bottom();
         block = block.next()) {
        const double height = blockBoundingRect(block).height();
        if (offset.y() + height >= area.top()) {
            painter.setPen(context.palette.text().color());
            block.layout()->draw(&painter, offset, FormatsIn(block, context.selections), area);
            if (block.contains(context.cursorPosition))
                block.layout()->drawCursor(
                    &painter, offset, context.cursorPosition - block.position(), cursorWidth());
            OutlineCurrentMatch(painter, block, offset);
        }
        offset.ry() += height;
    }
}

void OutputTextEdit::OutlineCurrentMatch(
    QPainter& painter, const QTextBlock& block, const QPointF& offset) const
{
    const QTextLayout::FormatRange part = PartIn(block, m_currentMatch);
    painter.setPen(QPen(Theme::Color(Theme::Role::MatchOutline), Theme::Hairline()));
    for (int i = 0; i < block.layout()->lineCount(); ++i) {
        const QTextLine line = block.layout()->lineAt(i);
        const int from = qMax(part.start, line.textStart());
        const int to = qMin(part.start + part.length, line.textStart() + line.textLength());
        if (from >= to)
            continue;
        const double left = line.cursorToX(from);
        const QRectF rect(left, line.y(), line.cursorToX(to) - left, line.height());
        painter.drawRect(rect.translated(offset).toRect().adjusted(0, 0, -1, -1));
    }
}
