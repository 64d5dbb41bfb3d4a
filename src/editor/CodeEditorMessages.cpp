// Messages of the checkers and the search region: kept at their place in the text while it changes.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorLineNumbers.h"

void CodeEditor::UpdateErrorsAndWarnings(const QVector<ParserMessage>& errors,
    const QVector<ParserMessage>& warnings, const QVector<ParserMessage>& infos)
{
    m_marks.SetMessages(MarkSeverity::Error, errors, *document());
    m_marks.SetMessages(MarkSeverity::Warning, warnings, *document());
    m_marks.SetMessages(MarkSeverity::Info, infos, *document());
    RefreshMarks();
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
    UpdateErrorAndWarningText();
    m_lineNumbers->update();
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
    const bool textChanged = document()->revision() != m_lastRevision;
    m_lastBlockCount = blockCount();
    m_lastRevision = document()->revision();
    // Highlighting announces its new formats as a change, too.
    if (m_rewritingText || !textChanged)
        return;
    if (m_findInSelectionStart >= 0)
        OffsetFindInSelection(position, removed, added);
    OffsetParserMessages(position, removed, added, addedLines);
}

void CodeEditor::OffsetParserMessages(int position, int removed, int added, int addedLines)
{
    if (m_marks.Offset(position, removed, added, addedLines))
        RefreshMarks();
}

void CodeEditor::OffsetFindInSelection(int position, int removed, int added)
{
    const int removedEnd = position + removed;
    if (position > m_findInSelectionEnd)
        return;
    if (removedEnd < m_findInSelectionStart) {
        m_findInSelectionStart += added - removed;
        m_findInSelectionEnd += added - removed;
        return;
    }
    m_findInSelectionStart = qMin(m_findInSelectionStart, position);
    m_findInSelectionEnd = qMax(m_findInSelectionEnd, removedEnd) + added - removed;
}

void CodeEditor::SetSearchRegEx(const QRegularExpression& expression)
{
    m_searchRegEx = expression;
    ScheduleExtraSelections();
}

void CodeEditor::SetSelectedSearchRegion()
{
    const QTextCursor cursor = textCursor();
    m_findInSelection = true;
    m_findInSelectionStart = cursor.hasSelection() ? cursor.selectionStart() : -1;
    m_findInSelectionEnd = cursor.hasSelection() ? cursor.selectionEnd() : -1;
    ScheduleExtraSelections();
}

void CodeEditor::ClearFindInSelection()
{
    m_findInSelection = false;
    m_findInSelectionStart = -1;
    m_findInSelectionEnd = -1;
    ScheduleExtraSelections();
}
