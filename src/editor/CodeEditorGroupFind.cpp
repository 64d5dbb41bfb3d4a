// Finding and replacing in the current editor of a code editor group.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"

void CodeEditorGroup::SetFindReplaceVisible(bool) { }

bool CodeEditorGroup::IsFindReplaceVisible() const
{
    return false;
}

void CodeEditorGroup::SetSearchText(const QString&) { }

bool CodeEditorGroup::HasSearchText() const
{
    return false;
}

void CodeEditorGroup::CloseFindReplace() { }

void CodeEditorGroup::UpdateFindReplacePosition() { }

void CodeEditorGroup::UpdateSearchResults(CodeEditor*) { }

void CodeEditorGroup::ClearSearch() { }
