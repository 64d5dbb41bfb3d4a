// Find and replace in one text: in the console while the focus is in it, otherwise in the active
// editor.

#include "editor/CodeEditorGroup.h"
#include "editor/FindReplaceWidget.h"
#include "output/OutputTextEdit.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"

#include <QApplication>

/// Also while the console's own bar has the focus.
bool TarnwickEditor::IsFocusInOutput() const
{
    const QWidget* focus = QApplication::focusWidget();
    const QWidget* output = m_outputPanel->GetOutput();
    return focus && (focus == output || output->isAncestorOf(focus));
}

void TarnwickEditor::ShowFindReplace(bool replace)
{
    if (IsFocusInOutput()) {
        m_outputPanel->GetOutput()->ShowFindReplace(false, true);
        return;
    }
    if (CodeEditorGroup* group = GetActiveCodeEditorGroup()) {
        // From the replace command on, the other field is next once something is sought.
        const bool isVisible = group->IsFindReplaceVisible();
        group->ShowFindReplace(
            replace || (isVisible && group->GetFindReplace()->IsReplaceVisible()), true, true,
            replace);
    }
}

void TarnwickEditor::FindAgain(bool backward)
{
    if (IsFocusInOutput()) {
        FindAgainInOutput(backward);
        return;
    }
    CodeEditorGroup* group = GetActiveCodeEditorGroup();
    if (!group)
        return;
    if (!group->HasSearchText())
        group->SelectAndFind(backward);
    else if (backward)
        group->FindPrevious();
    else
        group->FindNext();
}

void TarnwickEditor::FindAgainInOutput(bool backward)
{
    OutputTextEdit* const output = m_outputPanel->GetOutput();
    if (!output->HasSearchText())
        output->ShowFindReplace(false, true);
    else if (backward)
        output->FindPrevious();
    else
        output->FindNext();
}

void TarnwickEditor::SelectAndFind(bool backward)
{
    if (IsFocusInOutput())
        SelectAndFindInOutput(backward);
    else if (CodeEditorGroup* group = GetActiveCodeEditorGroup())
        group->SelectAndFind(backward);
}

void TarnwickEditor::SelectAndFindInOutput(bool backward)
{
    OutputTextEdit* const output = m_outputPanel->GetOutput();
    if (!output->textCursor().hasSelection())
        output->SelectWordUnderCursor();
    const QString text = output->GetSelectedTextForExecute();
    if (text.isEmpty() || text.contains(QLatin1Char('\n')))
        return;
    output->GetFindReplace()->SeedSearchText(text);
    FindAgainInOutput(backward);
}

void TarnwickEditor::Find()
{
    ShowFindReplace(false);
}

void TarnwickEditor::Replace()
{
    ShowFindReplace(true);
}

void TarnwickEditor::FindNext()
{
    FindAgain(false);
}

void TarnwickEditor::FindPrevious()
{
    FindAgain(true);
}

void TarnwickEditor::SelectAndFindNext()
{
    SelectAndFind(false);
}

void TarnwickEditor::SelectAndFindPrevious()
{
    SelectAndFind(true);
}

void TarnwickEditor::ReplaceNext()
{
    if (FindReplaceWidget* bar = TakeReplaceBar())
        bar->Replace();
}

void TarnwickEditor::ReplaceAll()
{
    if (FindReplaceWidget* bar = TakeReplaceBar())
        bar->ReplaceAll();
}

/// The bar that replaces, null for the console, whose text stays as it is; where it is not in view
/// it is shown and null returned, as nobody can say what its fields hold.
FindReplaceWidget* TarnwickEditor::TakeReplaceBar()
{
    CodeEditorGroup* group = GetActiveCodeEditorGroup();
    if (!group || IsFocusInOutput())
        return nullptr;
    if (group->IsFindReplaceVisible() && group->GetFindReplace()->IsReplaceVisible())
        return group->GetFindReplace();
    ShowFindReplace(true);
    return nullptr;
}
