// Find and replace in the active editor.

#include "editor/CodeEditorGroup.h"
#include "editor/FindReplaceWidget.h"
#include "window/TarnwickEditor.h"

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
    if (CodeEditorGroup* group = GetActiveCodeEditorGroup())
        group->SelectAndFind(backward);
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

/// The bar that replaces; where it is not in view it is shown and null returned, as nobody can say
/// what its fields hold.
FindReplaceWidget* TarnwickEditor::TakeReplaceBar()
{
    CodeEditorGroup* group = GetActiveCodeEditorGroup();
    if (!group)
        return nullptr;
    if (group->IsFindReplaceVisible() && group->GetFindReplace()->IsReplaceVisible())
        return group->GetFindReplace();
    ShowFindReplace(true);
    return nullptr;
}
