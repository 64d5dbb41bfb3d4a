#include "editor/CodeEditorLineNumbers.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorMarkToolTip.h"
#include "window/chrome/Theme.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>
#include <QToolTip>

namespace {

constexpr int LEFT_PADDING = 10; // design pixels
constexpr int MINIMUM_DIGITS = 2;
constexpr int MARK_SIZE = 8; // design pixels
constexpr double INFO_SHARE = 0.6; // of that size

/// Shapes differ as well as colours: a disc, a triangle and a smaller dot.
void PaintMark(QPainter& painter, const QRectF& place, MarkSeverity severity)
{
    switch (severity) {
    case MarkSeverity::Error:
        painter.setBrush(Theme::Color(Theme::Role::MarkError));
        painter.drawEllipse(place);
        break;
    case MarkSeverity::Warning: {
        painter.setBrush(Theme::Color(Theme::Role::MarkWarning));
        const QPointF corners[]
            = {{place.center().x(), place.top()}, place.bottomRight(), place.bottomLeft()};
        painter.drawPolygon(corners, 3);
        break;
    }
    case MarkSeverity::Info:
        painter.setBrush(Theme::Color(Theme::Role::MarkInfo));
        const double radius = place.width() * INFO_SHARE / 2.0;
        painter.drawEllipse(place.center(), radius, radius);
        break;
    }
}

} // namespace

CodeEditorLineNumbers::CodeEditorLineNumbers(CodeEditor* editor)
    : QWidget(editor)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("m_lineNumbers"));
    // What is painted over can be scrolled without being painted again.
    setAttribute(Qt::WA_OpaquePaintEvent);
    UpdateDigits(true);
}

void CodeEditorLineNumbers::UpdateDigits(bool mayShrink)
{
    const int needed = qMax(MINIMUM_DIGITS, QString::number(m_editor->GetLineCount()).size());
    m_digits = mayShrink ? needed : qMax(m_digits, needed);
}

int CodeEditorLineNumbers::NumberWidth() const
{
    return m_editor->fontMetrics().horizontalAdvance(QLatin1Char('9')) * m_digits;
}

QSize CodeEditorLineNumbers::sizeHint() const
{
    return {Theme::Dp(LEFT_PADDING) + NumberWidth() + m_editor->GetGutterWidth(), 0};
}

void CodeEditorLineNumbers::UpdatePlace()
{
    const QRect contents = m_editor->contentsRect();
    const int bottom = m_editor->viewport()->geometry().bottom();
    setGeometry(contents.left(), contents.top(), sizeHint().width(), bottom + 1 - contents.top());
}

void CodeEditorLineNumbers::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setFont(m_editor->font());
    const QVector<CodeEditor::VisibleLine> lines = m_editor->GetVisibleLines(event->rect());
    PaintNumbers(painter, event->rect(), lines);
    PaintMarks(painter, lines);
}

void CodeEditorLineNumbers::PaintNumbers(
    QPainter& painter, const QRect& area, const QVector<CodeEditor::VisibleLine>& lines) const
{
    static const QTextCharFormat NO_FORMAT;
    const auto orNone = [](const QTextCharFormat* format) -> const QTextCharFormat& {
        return format ? *format : NO_FORMAT;
    };
    const QTextCharFormat& numbers = orNone(CodeEditor::GetLineNumbersFormat());
    const QTextCharFormat& gutter = orNone(CodeEditor::GetGutterFormat());
    const int numbersWidth = width() - m_editor->GetGutterWidth();
    // Either may be without a background or let shine through what is behind.
    painter.fillRect(area, m_editor->palette().base());
    painter.fillRect(QRect(0, 0, numbersWidth, height()), numbers.background());
    painter.fillRect(QRect(numbersWidth, 0, width() - numbersWidth, height()), gutter.background());
    const int currentLine = m_editor->GetCurrentLine();
    const int lineHeight = m_editor->fontMetrics().height();
    for (const CodeEditor::VisibleLine& line : lines) {
        painter.setPen(line.number == currentLine ? Theme::Color(Theme::Role::Soft)
                                                  : numbers.foreground().color());
        painter.drawText(QRect(0, line.top, numbersWidth, lineHeight),
            Qt::AlignRight | Qt::AlignTop, QString::number(line.number));
    }
}

void CodeEditorLineNumbers::PaintMarks(
    QPainter& painter, const QVector<CodeEditor::VisibleLine>& lines) const
{
    if (lines.isEmpty() || m_editor->GetMarks().IsEmpty())
        return;
    const int first = lines.constFirst().number - 1;
    const int count = lines.constLast().number - first;
    const QVector<int> worst = m_editor->GetMarks().GetWorstOfLines(first, count);
    const int gutter = m_editor->GetGutterWidth();
    const int lineHeight = m_editor->fontMetrics().height();
    // The gutter stays narrow at large interface scales.
    const int size = qMin(Theme::Dp(MARK_SIZE), qMin(gutter * 2 / 3, lineHeight));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (const CodeEditor::VisibleLine& line : lines) {
        const int severity = worst.at(line.number - 1 - first);
        if (severity < 0)
            continue;
        const QRectF place(width() - gutter + (gutter - size) / 2.0,
            line.top + (lineHeight - size) / 2.0, size, size);
        PaintMark(painter, place, MarkSeverity(severity));
    }
}

bool CodeEditorLineNumbers::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    ShowToolTip(*static_cast<QHelpEvent*>(event));
    return true;
}

void CodeEditorLineNumbers::ShowToolTip(const QHelpEvent& event) const
{
    for (const CodeEditor::VisibleLine& line : m_editor->GetVisibleLines(rect())) {
        const QRect row(0, line.top, width(), line.height);
        if (!row.contains(event.pos()))
            continue;
        const QVector<CodeEditorMark> marks
            = m_editor->GetMarks().GetMarksOfLine(line.number - 1, MAXIMUM_TOOL_TIP_MARKS);
        const QString text = MarkToolTip(marks, ToolTipRows::Plain, devicePixelRatioF());
        QToolTip::showText(event.globalPos(), text, m_editor->viewport(), QRect());
        return;
    }
    QToolTip::hideText();
}

void CodeEditorLineNumbers::wheelEvent(QWheelEvent* event)
{
    QCoreApplication::sendEvent(m_editor->viewport(), event);
}

/// The menu of the text, which takes places of the viewport.
void CodeEditorLineNumbers::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT m_editor->customContextMenuRequested(
        m_editor->viewport()->mapFromGlobal(event->globalPos()));
}

int CodeEditorLineNumbers::LineAt(int y) const
{
    int nearest = -1;
    for (const CodeEditor::VisibleLine& line : m_editor->GetVisibleLines(rect())) {
        if (nearest < 0 || y >= line.top)
            nearest = line.number;
    }
    return nearest;
}

void CodeEditorLineNumbers::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int line = LineAt(event->pos().y());
    m_anchorLine = event->modifiers() & Qt::ShiftModifier ? AnchorLine() : line;
    SelectLines(m_anchorLine, line);
    m_editor->setFocus(Qt::MouseFocusReason);
}

int CodeEditorLineNumbers::AnchorLine() const
{
    const QTextCursor cursor = m_editor->textCursor();
    const QTextBlock block = m_editor->document()->findBlock(cursor.anchor());
    // Lines selected upwards are anchored behind the line end of the lowest one.
    const bool isBehindLine
        = cursor.anchor() > cursor.position() && cursor.anchor() == block.position();
    return block.blockNumber() + (isBehindLine ? 0 : 1);
}

void CodeEditorLineNumbers::mouseMoveEvent(QMouseEvent* event)
{
    if (m_anchorLine > 0 && (event->buttons() & Qt::LeftButton))
        SelectLines(m_anchorLine, LineAt(event->pos().y()));
}

void CodeEditorLineNumbers::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_anchorLine = -1;
}

// Whole lines with their line ends, whichever way the drag goes.
void CodeEditorLineNumbers::SelectLines(int anchorLine, int line)
{
    const QTextDocument* document = m_editor->document();
    const QTextBlock first = document->findBlockByNumber(qMin(anchorLine, line) - 1);
    const QTextBlock last = document->findBlockByNumber(qMax(anchorLine, line) - 1);
    if (!first.isValid() || !last.isValid())
        return;
    const int start = first.position();
    const int end = qMin(last.position() + last.length(), document->characterCount() - 1);
    QTextCursor cursor(first);
    cursor.setPosition(line < anchorLine ? end : start);
    cursor.setPosition(line < anchorLine ? start : end, QTextCursor::KeepAnchor);
    m_editor->setTextCursor(cursor);
}
