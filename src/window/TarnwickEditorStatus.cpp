// What the status bar says about the active editor, and where a press on it goes.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/CodeEditorMarks.h"
#include "files/FileText.h"
#include "settings/Settings.h"
#include "window/TarnwickEditor.h"
#include "window/chrome/StatusBar.h"

namespace {

CodeEditorMark MarkOfLine(const CodeEditor& editor)
{
    return editor.GetMarks().GetMarksOfLine(editor.GetCurrentLine() - 1, 1).value(0);
}

StatusBar::Severity SeverityOfLine(const CodeEditor& editor)
{
    switch (MarkOfLine(editor).severity) {
    case MarkSeverity::Error: return StatusBar::Severity::Error;
    case MarkSeverity::Warning: return StatusBar::Severity::Warning;
    case MarkSeverity::Info: break;
    }
    return StatusBar::Severity::Info;
}

void GoTo(CodeEditor* editor, int position)
{
    editor->SetCursorPosition(position, false, true);
    editor->setFocus(Qt::OtherFocusReason);
}

} // namespace

void TarnwickEditor::UpdateInterpreter()
{
    const CodeEditor* editor = GetActiveCodeEditor();
    m_statusBar->SetInterpreter(editor ? static_cast<int>(editor->GetLanguage()) : 0);
}

void TarnwickEditor::UpdateTextFormat()
{
    const CodeEditor* editor = GetActiveCodeEditor();
    const TextFormat format = editor ? m_fileFormats.value(editor->GetFilePath()) : TextFormat();
    m_statusBar->SetFormat(
        format.DescribeEncoding(FileText::ChosenCodec()), format.DescribeLineEnds());
}

void TarnwickEditor::UpdateCursorPosition()
{
    int line = 0;
    int column = 0;
    int selectionLength = 0;
    if (const CodeEditor* editor = GetActiveCodeEditor())
        editor->GetCursorStatus(line, column, selectionLength);
    UpdateLineMessage();
    UpdateOutlineCursor();
    m_statusBar->SetCursorPosition(line, column, selectionLength);
}

void TarnwickEditor::UpdateStatusBarInfo()
{
    const CodeEditor* editor = GetActiveCodeEditor();
    m_statusBar->SetErrorAndWarningCount(
        editor ? editor->GetNumberOfErrors() : 0, editor ? editor->GetNumberOfWarnings() : 0);
    UpdateLineMessage();
}

void TarnwickEditor::UpdateLineMessage()
{
    const CodeEditor* editor = GetActiveCodeEditor();
    const QString text = editor ? editor->GetErrorAndWarningsText() : QString();
    if (text.isEmpty())
        m_statusBar->SetInfo(QString());
    else
        m_statusBar->SetInfo(text, SeverityOfLine(*editor));
}

void TarnwickEditor::GoToNextMessage()
{
    CodeEditor* const editor = GetActiveCodeEditor();
    if (!editor)
        return;
    const int cursor = editor->GetCursorPosition();
    int first = -1;
    int next = -1;
    for (int severity = 0; severity < MARK_SEVERITIES; ++severity) {
        for (const CodeEditorMark& mark : editor->GetMarks().GetMarks(MarkSeverity(severity))) {
            if (first < 0 || mark.start < first)
                first = mark.start;
            if (mark.start > cursor && (next < 0 || mark.start < next))
                next = mark.start;
        }
    }
    if (first >= 0)
        GoTo(editor, next >= 0 ? next : first);
}

void TarnwickEditor::GoToMessageOfLine()
{
    CodeEditor* const editor = GetActiveCodeEditor();
    if (editor && !editor->GetErrorAndWarningsText().isEmpty())
        GoTo(editor, MarkOfLine(*editor).start);
}

void TarnwickEditor::OnOverwriteModeChanged()
{
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->UpdateOverwriteMode();
    m_statusBar->SetOverwrite(Settings::overwriteEnabled);
}
