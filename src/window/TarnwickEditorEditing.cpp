// Editing commands, which act on the editor or the console that has the focus.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "output/OutputTextEdit.h"
#include "settings/Settings.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"

#include <QApplication>

namespace {

/// Calls an operation of the text widget that has the focus.
void CallFocused(void (QPlainTextEdit::*operation)())
{
    if (auto* edit = qobject_cast<QPlainTextEdit*>(QApplication::focusWidget()))
        (edit->*operation)();
}

} // namespace

void TarnwickEditor::Undo()
{
    CallFocused(&QPlainTextEdit::undo);
}
void TarnwickEditor::Redo()
{
    CallFocused(&QPlainTextEdit::redo);
}
void TarnwickEditor::Cut()
{
    CallFocused(&QPlainTextEdit::cut);
}
void TarnwickEditor::Copy()
{
    CallFocused(&QPlainTextEdit::copy);
}
void TarnwickEditor::Paste()
{
    CallFocused(&QPlainTextEdit::paste);
}
void TarnwickEditor::SelectAll()
{
    CallFocused(&QPlainTextEdit::selectAll);
}

bool TarnwickEditor::IsOutputFocused() const
{
    return m_outputPanel->GetOutput()->hasFocus();
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
    if (IsOutputFocused())
        IncreaseOutputFontSize();
    else
        IncreaseCodeEditorFontSize();
}

void TarnwickEditor::DecreaseFontSize()
{
    if (IsOutputFocused())
        DecreaseOutputFontSize();
    else
        DecreaseCodeEditorFontSize();
}

void TarnwickEditor::ResetFontSize()
{
    if (IsOutputFocused())
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
