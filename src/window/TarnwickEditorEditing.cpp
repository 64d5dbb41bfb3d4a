// Editing commands, which act on the editor or the console that has the focus.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "output/OutputTextEdit.h"
#include "settings/Settings.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"

#include <QApplication>

namespace {

/// Calls an operation of the text widget that has the focus; code editors have their own.
void CallFocused(void (CodeEditor::*ofEditor)(), void (QPlainTextEdit::*operation)())
{
    QWidget* const focused = QApplication::focusWidget();
    if (auto* editor = qobject_cast<CodeEditor*>(focused))
        (editor->*ofEditor)();
    else if (auto* edit = qobject_cast<QPlainTextEdit*>(focused))
        (edit->*operation)();
}

} // namespace

void TarnwickEditor::Undo()
{
    CallFocused(&CodeEditor::undo, &QPlainTextEdit::undo);
}
void TarnwickEditor::Redo()
{
    CallFocused(&CodeEditor::redo, &QPlainTextEdit::redo);
}
void TarnwickEditor::Cut()
{
    CallFocused(&CodeEditor::CustomCut, &QPlainTextEdit::cut);
}
void TarnwickEditor::Copy()
{
    CallFocused(&CodeEditor::CustomCopy, &QPlainTextEdit::copy);
}
void TarnwickEditor::Paste()
{
    CallFocused(&CodeEditor::CustomPaste, &QPlainTextEdit::paste);
}
void TarnwickEditor::SelectAll()
{
    CallFocused(&CodeEditor::selectAll, &QPlainTextEdit::selectAll);
}

void TarnwickEditor::EditActive(const std::function<void(CodeEditor&)>& operation)
{
    if (CodeEditor* const editor = GetActiveCodeEditor())
        operation(*editor);
}

void TarnwickEditor::IncreaseIndent()
{
    EditActive([](CodeEditor& editor) { editor.IncreaseIndent(true); });
}

void TarnwickEditor::DecreaseIndent()
{
    EditActive(std::mem_fn(&CodeEditor::DecreaseIndent));
}

void TarnwickEditor::CopyLineUp()
{
    EditActive([](CodeEditor& editor) { editor.CopyLine(true); });
}

void TarnwickEditor::CopyLineDown()
{
    EditActive([](CodeEditor& editor) { editor.CopyLine(false); });
}

void TarnwickEditor::MoveLineUp()
{
    EditActive([](CodeEditor& editor) { editor.MoveLine(true); });
}

void TarnwickEditor::MoveLineDown()
{
    EditActive([](CodeEditor& editor) { editor.MoveLine(false); });
}

void TarnwickEditor::DeleteLine()
{
    EditActive(std::mem_fn(&CodeEditor::DeleteLines));
}

void TarnwickEditor::ToggleComment()
{
    EditActive(std::mem_fn(&CodeEditor::ToggleComment));
}

void TarnwickEditor::ToggleBlockComment()
{
    EditActive(std::mem_fn(&CodeEditor::ToggleBlockComment));
}

void TarnwickEditor::ConvertTabsToSpaces()
{
    EditActive(std::mem_fn(&CodeEditor::ConvertTabsToSpaces));
}

void TarnwickEditor::SetCodeEditorZoom(int zoom)
{
    Settings::codeEditorZoom = zoom;
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->UpdateFont();
}

void TarnwickEditor::SetOutputZoom(int zoom)
{
    Settings::outputZoom = zoom;
    m_outputPanel->GetOutput()->UpdateFont();
}

void TarnwickEditor::IncreaseCodeEditorFontSize()
{
    SetCodeEditorZoom(Settings::codeEditorZoom + 1);
}

void TarnwickEditor::DecreaseCodeEditorFontSize()
{
    SetCodeEditorZoom(Settings::codeEditorZoom - 1);
}

void TarnwickEditor::IncreaseOutputFontSize()
{
    SetOutputZoom(Settings::outputZoom + 1);
}

void TarnwickEditor::DecreaseOutputFontSize()
{
    SetOutputZoom(Settings::outputZoom - 1);
}

void TarnwickEditor::IncreaseFontSize()
{
    if (IsFocusInOutput())
        IncreaseOutputFontSize();
    else
        IncreaseCodeEditorFontSize();
}

void TarnwickEditor::DecreaseFontSize()
{
    if (IsFocusInOutput())
        DecreaseOutputFontSize();
    else
        DecreaseCodeEditorFontSize();
}

void TarnwickEditor::ResetFontSize()
{
    if (IsFocusInOutput())
        SetOutputZoom(0);
    else
        SetCodeEditorZoom(0);
}

void TarnwickEditor::ToggleRenderWhitespace()
{
    Settings::renderWhitespace = !Settings::renderWhitespace;
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->UpdateTextOptions();
}

void TarnwickEditor::ToggleWordWrap()
{
    Settings::wordWrapEnabled = !Settings::wordWrapEnabled;
    for (CodeEditorGroup* group : qAsConst(m_groups))
        group->UpdateTextOptions();
}
