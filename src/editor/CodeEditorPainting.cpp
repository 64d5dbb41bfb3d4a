// Painting of the text and its marks, for the blocks in view alone, and the place of the margin.

#include "editing/TextColumns.h"
#include "editor/CodeEditor.h"
#include "editor/CodeEditorBlockData.h"
#include "editor/CodeEditorErrorBarOverlay.h"
#include "editor/CodeEditorLineNumbers.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/chrome/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr int LONG_LINE = 4096; ///< characters from which on most of a line is out of view
constexpr int MINIMUM_GUTTER = 10; // pixels
constexpr int MANY_LINES = 2000; // whose layout takes noticeable time
constexpr int MAXIMUM_GUTTER = 18;
/// How far below the view a run of lines without code is followed to the line that gives its
/// guides.
constexpr int MAXIMUM_EMPTY_RUN = 1000;
constexpr double WAVE_PERIOD = 7.0; // design pixels
constexpr double WAVE_HEIGHT = 2.0;
constexpr double WAVE_BELOW_BASELINE = 2.5;

using Ranges = QVector<QTextLayout::FormatRange>;

/// The part of a marked span within one block; a cursor without a selection stands for the visual
/// line that it is in when the format fills whole lines.
QTextLayout::FormatRange RangeInBlock(
    const QAbstractTextDocumentLayout::Selection& selection, const QTextBlock& block)
{
    QTextLayout::FormatRange range;
    range.format = selection.format;
    const int start = selection.cursor.selectionStart() - block.position();
    const int end = selection.cursor.selectionEnd() - block.position();
    if (end > start) {
        range.start = start;
        range.length = start < block.length() && end > 0 ? end - start : 0;
        return range;
    }
    range.start = range.length = 0;
    if (!selection.format.boolProperty(QTextFormat::FullWidthSelection)
        || !block.contains(selection.cursor.position()))
        return range;
    const QTextLine line = block.layout()->lineForTextPosition(start);
    if (!line.isValid())
        return range;
    range.start = line.textStart();
    // The line end belongs to the last visual line, or an empty line would show nothing.
    range.length
        = line.textLength() + (line.textStart() + line.textLength() == block.length() - 1 ? 1 : 0);
    return range;
}

/// A wave under `width` pixels from `left` on, with its middle at `y`.
void PaintWave(QPainter& painter, double left, double width, double y)
{
    const double scale = Theme::Dp(100) / 100.0;
    const double half = WAVE_PERIOD * scale / 2.0;
    const double swing = WAVE_HEIGHT * scale / 2.0;
    QPainterPath wave(QPointF(left, y + swing));
    bool goesUp = true;
    for (double x = left + half; x < left + width + half; x += half, goesUp = !goesUp)
        wave.lineTo(x, goesUp ? y - swing : y + swing);
    painter.save();
    painter.setClipRect(QRectF(left, y - 2 * swing, width, 4 * swing), Qt::IntersectClip);
    painter.drawPath(wave);
    painter.restore();
}

const QTextCharFormat& WaveFormat(MarkSeverity severity)
{
    switch (severity) {
    case MarkSeverity::Error: return ColorSettings::errorFormat;
    case MarkSeverity::Warning: return ColorSettings::warningFormat;
    case MarkSeverity::Info: break;
    }
    return ColorSettings::infoFormat;
}

} // namespace

int CodeEditor::GetGutterWidth() const
{
    const int width = 2 * fontMetrics().horizontalAdvance(QLatin1Char('9'));
    return qBound(MINIMUM_GUTTER, width, MAXIMUM_GUTTER);
}

QVector<CodeEditor::VisibleLine> CodeEditor::GetVisibleLines(const QRect& area) const
{
    QVector<VisibleLine> lines;
    for (const BlockDrawing& drawing : GetBlockDrawings(area))
        lines.append(
            {drawing.block.blockNumber() + 1, qRound(drawing.offset.y()), qRound(drawing.height)});
    return lines;
}

void CodeEditor::UpdateLineNumberWidth()
{
    m_lineNumbers->UpdateDigits(false);
    const int width = m_lineNumbers->sizeHint().width();
    if (viewportMargins().left() != width)
        setViewportMargins(width, 0, 0, 0);
    m_lineNumbers->UpdatePlace();
    m_errorBar->UpdateMarks();
}

void CodeEditor::OnUpdateRequest(const QRect& area, int scrolled)
{
    // Where no line moved the numbers are the same, and nothing new is in view: a key is quick.
    if (scrolled == 0 && area.height() < viewport()->height())
        return;
    UpdateLineNumbers(scrolled);
    HighlightVisibleLines();
}

void CodeEditor::UpdateLineNumbers(int scrolled)
{
    if (scrolled == 0) {
        m_lineNumbers->update();
        return;
    }
    m_lineNumbers->scroll(0, scrolled);
    // The scroll bar says nothing when the view follows the cursor.
    ScheduleExtraSelections();
}

void CodeEditor::resizeEvent(QResizeEvent* event)
{
    // With a new width the toolkit lays every line out again: long texts pay that only to wrap.
    QResizeEvent sameWidth(event->size(), event->size());
    const bool needsWidth = IsWrapping() || blockCount() < MANY_LINES;
    QPlainTextEdit::resizeEvent(needsWidth ? event : &sameWidth);
    m_lineNumbers->UpdatePlace();
    HighlightVisibleLines();
    ScheduleExtraSelections();
}

bool CodeEditor::IsWrapping() const
{
    return document()->defaultTextOption().wrapMode() != QTextOption::NoWrap;
}

/// Lines that did not wrap may know an old width.
void CodeEditor::LayOutForWidth()
{
    QResizeEvent newWidth(viewport()->size(), QSize());
    QPlainTextEdit::resizeEvent(&newWidth);
}

void CodeEditor::showEvent(QShowEvent* event)
{
    QPlainTextEdit::showEvent(event);
    m_wasShown = true;
    if (m_scrollValueToShow >= 0) {
        verticalScrollBar()->setValue(m_scrollValueToShow);
        // The cursor was brought into view in an editor that had no width yet.
        horizontalScrollBar()->setValue(0);
    }
    m_scrollValueToShow = -1;
    ScheduleExtraSelections();
}

QVector<CodeEditor::BlockDrawing> CodeEditor::GetBlockDrawings(const QRect& area) const
{
    QVector<BlockDrawing> drawings;
    QPointF offset = contentOffset();
    for (QTextBlock block = firstVisibleBlock(); block.isValid() && offset.y() <= area.bottom();
         block = block.next()) {
        const double height = blockBoundingRect(block).height();
        if (block.isVisible() && offset.y() + height >= area.top())
            drawings.append({block, offset, height});
        offset.ry() += height;
    }
    return drawings;
}

/// The line that is being written would be shaped anew for every look at it: a long one is felt.
void CodeEditor::KeepCursorLineShaped()
{
    const QTextBlock line = textCursor().block();
    if (line.layout()->cacheEnabled())
        return;
    if (m_shapedLine.isNull())
        m_shapedLine = QTextCursor(document());
    m_shapedLine.block().layout()->setCacheEnabled(false);
    line.layout()->setCacheEnabled(true);
    m_shapedLine.setPosition(line.position());
}

void CodeEditor::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    QAbstractTextDocumentLayout::PaintContext context = getPaintContext();
    painter.setPen(context.palette.text().color());
    // The colours of a match say that it is selected; the selection's own would hide them.
    if (IsCurrentMatchSelected() && !context.selections.isEmpty())
        context.selections.removeLast();

    const QVector<BlockDrawing> blocks = GetBlockDrawings(event->rect());
    for (const BlockDrawing& drawing : blocks)
        PaintBlock(painter, drawing, context, event->rect());
    PaintIndentGuides(painter, blocks);
    PaintCurrentMatch(painter, blocks);
    PaintWaves(painter, blocks);
    painter.setPen(context.palette.text().color());
    for (const BlockDrawing& drawing : blocks)
        PaintCursor(painter, drawing, context.cursorPosition);
}

CodeEditor::SpanSlice CodeEditor::SpansWithin(const QVector<MarkedSpan>& spans, int start, int end)
{
    const auto isBefore
        = [](const MarkedSpan& span, int position) { return span.start < position; };
    return {std::lower_bound(spans.constBegin(), spans.constEnd(), start, isBefore),
        std::lower_bound(spans.constBegin(), spans.constEnd(), end, isBefore)};
}

/// The part of a block that is painted: drawing costs as much for a mark out of view.
CodeEditor::MarkedSpan CodeEditor::PaintedPart(const BlockDrawing& drawing, const QRect& area)
{
    const QTextBlock& block = drawing.block;
    MarkedSpan part{block.position(), block.position() + block.length()};
    if (block.length() < LONG_LINE)
        return part;
    const QTextLayout* layout = block.layout();
    const double top = area.top() - drawing.offset.y();
    const double bottom = area.bottom() + 1 - drawing.offset.y();
    int first = block.length();
    int last = 0;
    for (int i = 0; i < layout->lineCount() && layout->lineAt(i).y() < bottom; ++i) {
        const QTextLine line = layout->lineAt(i);
        if (line.y() + line.height() <= top)
            continue;
        first = qMin(first, line.xToCursor(area.left() - drawing.offset.x()));
        last = qMax(last, line.xToCursor(area.right() + 1 - drawing.offset.x()));
    }
    // Half a character may be in view at either side.
    return {part.start + qMax(0, first - 1), qMin(part.end, part.start + last + 1)};
}

QVector<QTextLayout::FormatRange> CodeEditor::MarkedRanges(
    const QTextBlock& block, const MarkedSpan& part) const
{
    Ranges ranges;
    const auto append = [&](const QVector<MarkedSpan>& spans, const QTextCharFormat* format) {
        SpanSlice slice = SpansWithin(spans, part.start, part.end);
        const auto reachesIn = [&](const MarkedSpan& span) {
            return span.start >= block.position() && span.end > part.start;
        };
        while (slice.first != spans.constBegin() && reachesIn(*(slice.first - 1)))
            --slice.first;
        for (auto span = slice.first; format && span != slice.second; ++span) {
            QTextLayout::FormatRange range;
            range.start = span->start - block.position();
            range.length = span->end - span->start;
            range.format = *format;
            ranges.append(range);
        }
    };
    append(m_occurrences, m_colorFormats.matchingSelection);
    append(m_foundText, m_colorFormats.found);
    return ranges;
}

void CodeEditor::PaintBlock(QPainter& painter, const BlockDrawing& drawing,
    const QAbstractTextDocumentLayout::PaintContext& context, const QRect& area) const
{
    const QTextBlock& block = drawing.block;
    // From what fills lines over marked text to the selection.
    Ranges ranges;
    Ranges above;
    for (const QAbstractTextDocumentLayout::Selection& selection : context.selections) {
        const QTextLayout::FormatRange range = RangeInBlock(selection, block);
        if (range.length > 0)
            (range.format.boolProperty(QTextFormat::FullWidthSelection) ? ranges : above)
                .append(range);
    }
    ranges += MarkedRanges(block, PaintedPart(drawing, area));
    ranges += above;
    const int column = context.cursorPosition - block.position();
    if (overwriteMode() && column >= 0 && column < block.length() - 1) {
        QTextLayout::FormatRange cursor;
        cursor.start = column;
        cursor.length = 1;
        cursor.format.setForeground(context.palette.base());
        cursor.format.setBackground(context.palette.text());
        ranges.append(cursor);
    }
    block.layout()->draw(&painter, drawing.offset, ranges, area);
}

void CodeEditor::PaintCursor(
    QPainter& painter, const BlockDrawing& drawing, int cursorPosition) const
{
    const QTextLayout* layout = drawing.block.layout();
    int column = cursorPosition - drawing.block.position();
    // While an input method composes text, its own cursor counts.
    const bool isComposing = !layout->preeditAreaText().isEmpty();
    if (cursorPosition < -1 && isComposing)
        column = layout->preeditAreaPosition() - (cursorPosition + 2);
    else if (column < 0 || column >= drawing.block.length())
        return;
    const bool isAtLineEnd = column >= drawing.block.length() - 1;
    if (!overwriteMode() || isComposing)
        layout->drawCursor(&painter, drawing.offset, column, cursorWidth());
    else if (isAtLineEnd)
        layout->drawCursor(
            &painter, drawing.offset, column, fontMetrics().horizontalAdvance(QLatin1Char(' ')));
}

int CodeEditor::CountIndentGuides(const QTextBlock& block) const
{
    const CodeEditorBlockData* blockData = GetBlockData(block);
    if (!blockData)
        return 0;
    const int indentation = VisualWidth(blockData->GetIndent(), m_tabSize);
    return indentation < 1 ? 0 : (indentation - 1) / m_tabSize + 1;
}

/// A line without code takes what the next one has, so that guides run through it.
QVector<int> CodeEditor::CountIndentGuides(const QVector<BlockDrawing>& blocks) const
{
    const auto isEmpty = [this](const QTextBlock& block) {
        const CodeEditorBlockData* blockData = GetBlockData(block);
        return blockData && blockData->IsEmpty();
    };
    QTextBlock below = blocks.constLast().block.next();
    for (int i = 0; i < MAXIMUM_EMPTY_RUN && below.isValid() && isEmpty(below); ++i)
        below = below.next();
    int count = below.isValid() && !isEmpty(below) ? CountIndentGuides(below) : 0;
    QVector<int> counts(blocks.size());
    for (int i = blocks.size() - 1; i >= 0; --i) {
        if (!GetBlockData(blocks[i].block))
            count = 0;
        else if (!isEmpty(blocks[i].block))
            count = CountIndentGuides(blocks[i].block);
        counts[i] = count;
    }
    return counts;
}

void CodeEditor::PaintIndentGuides(QPainter& painter, const QVector<BlockDrawing>& blocks) const
{
    if (!Settings::codeEditorDisplayIndentationGuides || !m_colorFormats.indentationGuides
        || blocks.isEmpty())
        return;
    const QColor color = m_colorFormats.indentationGuides->foreground().color();
    const double step = document()->defaultTextOption().tabStopDistance();
    const QVector<int> counts = CountIndentGuides(blocks);
    for (int i = 0; i < blocks.size(); ++i) {
        const BlockDrawing& drawing = blocks[i];
        const QString text = drawing.block.text();
        const QString indent = text.left(IndentLength(text));
        const int room = indent.size() == text.size() ? INT_MAX : VisualWidth(indent, m_tabSize);
        const double left = drawing.offset.x() + document()->documentMargin();
        const int top = qRound(drawing.offset.y());
        const int height = qRound(drawing.offset.y() + drawing.height) - top;
        // A line further left than the one it takes its count from has text in the way.
        for (int guide = 0; guide < counts[i] && guide * m_tabSize < room; ++guide)
            painter.fillRect(qRound(left + guide * step), top, Theme::Hairline(), height, color);
    }
}

QVector<QRectF> CodeEditor::GetSpanRects(const BlockDrawing& drawing, int start, int end) const
{
    const QTextLayout* layout = drawing.block.layout();
    const int from = qMax(0, start - drawing.block.position());
    const int to = qMin(end - drawing.block.position(), drawing.block.length() - 1);
    QVector<QRectF> rects;
    for (int i = 0; i < layout->lineCount(); ++i) {
        const QTextLine line = layout->lineAt(i);
        const int lineFrom = qMax(from, line.textStart());
        const int lineTo = qMin(to, line.textStart() + line.textLength());
        const bool isEmptySpan = from == to && lineFrom == lineTo;
        if (lineFrom >= lineTo && !isEmptySpan)
            continue;
        const double left = line.cursorToX(lineFrom);
        // A span without text, as at the end of a line, is shown one column wide.
        const double right = isEmptySpan ? left + fontMetrics().horizontalAdvance(QLatin1Char(' '))
                                         : line.cursorToX(lineTo);
        rects.append(
            QRectF(left, line.y(), right - left, line.height()).translated(drawing.offset));
    }
    return rects;
}

void CodeEditor::PaintWaves(QPainter& painter, const QVector<BlockDrawing>& blocks) const
{
    if (blocks.isEmpty() || GetMarks().IsEmpty())
        return;
    const QTextBlock& last = blocks.constLast().block;
    const QVector<CodeEditorMark> marks = GetMarks().GetMarksWithin(
        blocks.constFirst().block.position(), last.position() + last.length());
    const QFontMetricsF metrics(font());
    const double pen = qMax(1.0, Theme::Dp(100) / 100.0);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const CodeEditorMark& mark : marks) {
        const QTextCharFormat& format = WaveFormat(mark.severity);
        if (format.underlineStyle() == QTextCharFormat::NoUnderline)
            continue;
        painter.setPen(QPen(format.underlineColor(), pen));
        for (const BlockDrawing& drawing : blocks) {
            const int blockStart = drawing.block.position();
            const int blockEnd = blockStart + drawing.block.length();
            if (mark.start >= blockEnd || qMax(mark.end, mark.start + 1) <= blockStart)
                continue;
            for (const QRectF& rect : GetSpanRects(drawing, mark.start, mark.end)) {
                const double lowest = rect.bottom() - WAVE_HEIGHT * pen / 2.0 - pen / 2.0;
                const double y = rect.top() + metrics.ascent() + WAVE_BELOW_BASELINE * pen;
                PaintWave(painter, rect.left(), rect.width(), qMin(y, lowest));
            }
        }
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void CodeEditor::PaintCurrentMatch(QPainter& painter, const QVector<BlockDrawing>& blocks) const
{
    if (!IsCurrentMatchSelected())
        return;
    painter.setPen(QPen(Theme::Color(Theme::Role::MatchOutline), Theme::Hairline()));
    painter.setBrush(Qt::NoBrush);
    for (const BlockDrawing& drawing : blocks) {
        if (!drawing.block.contains(m_currentMatchStart))
            continue;
        for (const QRectF& rect : GetSpanRects(drawing, m_currentMatchStart, m_currentMatchEnd))
            painter.drawRect(rect.toRect().adjusted(0, 0, -1, -1));
    }
}
