#include "editor/CodeEditorLineNumbers.h"

#include "editor/CodeEditor.h"
#include "settings/ColorSettings.h"
#include "window/chrome/Theme.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTextBlock>

namespace {

constexpr int LEFT_PADDING = 10; // design pixels
constexpr int MINIMUM_DIGITS = 2;

} // namespace

CodeEditorLineNumbers::CodeEditorLineNumbers(CodeEditor* editor)
    : QWidget(editor)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("m_lineNumbers"));
}

int CodeEditorLineNumbers::NumberWidth() const
{
    const int digits = QString::number(m_editor->GetLineCount()).size();
    return m_editor->fontMetrics().horizontalAdvance(QLatin1Char('9'))
        * qMax(MINIMUM_DIGITS, digits);
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
    const QTextCharFormat numbers
        = ColorSettings::GetCodeEditorFormat(ColorSettings::LINE_NUMBERS, false);
    const QTextCharFormat gutter = ColorSettings::GetCodeEditorFormat(ColorSettings::GUTTER, false);
    const int numbersWidth = width() - m_editor->GetGutterWidth();

    QPainter painter(this);
    painter.setFont(m_editor->font());
    painter.fillRect(QRect(0, 0, numbersWidth, height()), numbers.background());
    painter.fillRect(QRect(numbersWidth, 0, width() - numbersWidth, height()), gutter.background());
    const int currentLine = m_editor->GetCurrentLine();
    const int lineHeight = m_editor->fontMetrics().height();
    for (const CodeEditor::VisibleLine& line : m_editor->GetVisibleLines()) {
        if (line.top > event->rect().bottom() || line.top + line.height < event->rect().top())
            continue;
        painter.setPen(line.number == currentLine ? Theme::Color(Theme::Role::Soft)
                                                  : numbers.foreground().color());
        painter.drawText(QRect(0, line.top, numbersWidth, lineHeight),
            Qt::AlignRight | Qt::AlignTop, QString::number(line.number));
    }
}

void CodeEditorLineNumbers::wheelEvent(QWheelEvent* event)
{
    QCoreApplication::sendEvent(m_editor->viewport(), event);
}

int CodeEditorLineNumbers::LineAt(int y) const
{
    int nearest = -1;
    for (const CodeEditor::VisibleLine& line : m_editor->GetVisibleLines()) {
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
    const bool extend = event->modifiers() & Qt::ShiftModifier;
    const QTextCursor cursor = m_editor->textCursor();
    m_anchorLine
        = extend ? m_editor->document()->findBlock(cursor.anchor()).blockNumber() + 1 : line;
    SelectLines(m_anchorLine, line);
    m_editor->setFocus(Qt::MouseFocusReason);
}

void CodeEditorLineNumbers::mouseMoveEvent(QMouseEvent* event)
{
    if (m_anchorLine > 0 && (event->buttons() & Qt::LeftButton))
        SelectLines(m_anchorLine, LineAt(event->pos().y()));
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
