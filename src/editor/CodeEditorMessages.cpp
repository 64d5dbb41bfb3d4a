// Messages of the checkers and the search region: kept at their place in the text while it changes.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorErrorBarOverlay.h"
#include "editor/CodeEditorLineNumbers.h"
#include "editor/CodeEditorMarkToolTip.h"

#include <QHelpEvent>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>

namespace {

// Where the toolkit puts a tool tip beside the point that it is given.
constexpr QPoint TOOL_TIP_SHIFT(2, 16);

} // namespace

void CodeEditor::UpdateErrorsAndWarnings(const QVector<ParserMessage>& errors,
    const QVector<ParserMessage>& warnings, const QVector<ParserMessage>& infos)
{
    m_marks.SetMessages(MarkSeverity::Error, errors, *document());
    m_marks.SetMessages(MarkSeverity::Warning, warnings, *document());
    m_marks.SetMessages(MarkSeverity::Info, infos, *document());
    RefreshMarks();
    UpdateErrorAndWarningText();
}

const CodeEditorMarks& CodeEditor::GetMarks() const
{
    static const CodeEditorMarks NONE;
    return IsDisplayErrorsEnabled() ? m_marks : NONE;
}

int CodeEditor::GetNumberOfErrors() const
{
    return GetMarks().GetCount(MarkSeverity::Error);
}

int CodeEditor::GetNumberOfWarnings() const
{
    return GetMarks().GetCount(MarkSeverity::Warning);
}

QString CodeEditor::GetErrorAndWarningsText() const
{
    const QVector<CodeEditorMark> marks = GetMarks().GetMarksOfLine(GetCurrentLine() - 1, 1);
    return marks.isEmpty() ? QString() : marks.constFirst().message.message;
}

void CodeEditor::RefreshMarks()
{
    m_lineNumbers->update();
    m_errorBar->UpdateMarks();
    viewport()->update();
}

void CodeEditor::UpdateErrorAndWarningText()
{
    const QString text = GetErrorAndWarningsText();
    const int errors = GetNumberOfErrors();
    const int warnings = GetNumberOfWarnings();
    if (text == m_errorAndWarningText && errors == m_numberOfErrors
        && warnings == m_numberOfWarnings)
        return;
    m_errorAndWarningText = text;
    m_numberOfErrors = errors;
    m_numberOfWarnings = warnings;
    Q_EMIT ErrorAndWarningTextChanged();
}

void CodeEditor::OnDocumentContentsChanged(int position, int removed, int added)
{
    const int addedLines = blockCount() - m_lastBlockCount;
    m_lastBlockCount = blockCount();
    OffsetMarkedSpans(position, removed, added);
    if (addedLines != 0)
        m_errorBar->UpdateMarks();
    if (m_rewritingText)
        return;
    if (m_findInSelectionStart >= 0)
        OffsetFindInSelection(position, removed, added);
    if (!m_followsChanges)
        OffsetParserMessages({{position, removed, added, addedLines}});
}

void CodeEditor::OffsetParserMessages(const QVector<PositionChange>& changes)
{
    if (m_marks.IsEmpty())
        return;
    // What only moves is painted with the text that moves.
    if (m_marks.Offset(changes))
        RefreshMarks();
    ScheduleExtraSelections();
}

void CodeEditor::OffsetMarkedSpans(int position, int removed, int added)
{
    for (QVector<MarkedSpan>* spans : {&m_occurrences, &m_foundText}) {
        const auto isTouched = [&](const MarkedSpan& span) {
            return span.end > position && span.start < position + removed;
        };
        spans->erase(std::remove_if(spans->begin(), spans->end(), isTouched), spans->end());
        for (MarkedSpan& span : *spans) {
            if (span.start >= position + removed)
                span = {span.start + added - removed, span.end + added - removed};
        }
    }
    ScheduleExtraSelections();
}

bool CodeEditor::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        return ShowMarkToolTip(*static_cast<QHelpEvent*>(event));
    return QPlainTextEdit::event(event);
}

int CodeEditor::GetCharacterPosition(const QPoint& point) const
{
    const QTextBlock block = cursorForPosition(point).block();
    const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
    const QTextLayout* layout = block.layout();
    for (int i = 0; i < layout->lineCount(); ++i) {
        const QTextLine line = layout->lineAt(i);
        const QRectF lineRect = line.rect().translated(place.topLeft());
        if (point.y() < lineRect.top() || point.y() >= lineRect.bottom())
            continue;
        const double x = point.x() - place.left();
        // A mark at the very end of a line reaches one column behind it.
        const double end
            = line.naturalTextRect().right() + fontMetrics().horizontalAdvance(QLatin1Char(' '));
        if (x < line.x() || x > end)
            return -1;
        return block.position() + line.xToCursor(x, QTextLine::CursorOnCharacter);
    }
    return -1;
}

bool CodeEditor::ShowMarkToolTip(const QHelpEvent& event)
{
    const QPoint point = viewport()->mapFromGlobal(event.globalPos());
    const int position = viewport()->rect().contains(point) ? GetCharacterPosition(point) : -1;
    const QVector<CodeEditorMark> marks = position < 0
        ? QVector<CodeEditorMark>()
        : GetMarks().GetMarksAt(position, MAXIMUM_TOOL_TIP_MARKS);
    if (marks.isEmpty()) {
        QToolTip::hideText();
        return true;
    }
    QTextCursor cursor = textCursor();
    cursor.setPosition(position);
    const QRect character = cursorRect(cursor);
    const QPoint below(event.globalPos().x(), viewport()->mapToGlobal(character.bottomLeft()).y());
    const QRect row(0, character.top(), viewport()->width(), character.height());
    QToolTip::showText(below - TOOL_TIP_SHIFT + QPoint(0, 1),
        MarkToolTip(marks, ToolTipRows::Plain, devicePixelRatioF()), viewport(), row);
    return true;
}
