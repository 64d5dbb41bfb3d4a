// The part of the text that is searched, and the marks of what is found.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorErrorBarOverlay.h"
#include "editor/DocumentSearch.h"

void CodeEditor::SetSearchRegEx(const QRegularExpression& expression)
{
    m_searchRegEx = expression;
    m_pendingFind = {};
    UpdateSearch();
    OnSearchHitsChanged();
    ScheduleExtraSelections();
}

void CodeEditor::OnSearchHitsChanged()
{
    m_errorBar->UpdateMarks();
}

QVector<int> CodeEditor::GetSearchHitLines() const
{
    const bool isGlobal = m_searchRegEx.pattern().isEmpty() && m_globalSearch;
    return (isGlobal ? m_globalSearch : m_search)->GetHitBlocks();
}

void CodeEditor::SetSelectedSearchRegion()
{
    const QTextCursor cursor = textCursor();
    m_findInSelection = true;
    SetFindRegion(cursor.hasSelection() ? cursor.selectionStart() : -1,
        cursor.hasSelection() ? cursor.selectionEnd() : -1);
}

void CodeEditor::ClearFindInSelection()
{
    m_findInSelection = false;
    SetFindRegion(-1, -1);
}

void CodeEditor::SetFindRegion(int start, int end)
{
    m_findInSelectionStart = start;
    m_findInSelectionEnd = end;
    m_regionsBefore.clear();
    m_undoSteps = document()->availableUndoSteps();
    UpdateSearch();
    ScheduleExtraSelections();
}

void CodeEditor::OffsetFindInSelection(int position, int removed, int added)
{
    const int start = m_findInSelectionStart;
    const int end = m_findInSelectionEnd;
    const int removedEnd = position + removed;
    const int undoStepsBefore = m_undoSteps;
    m_undoSteps = document()->availableUndoSteps();
    if (m_undoSteps < undoStepsBefore && RestoreFindRegion())
        return;
    // Putting the text back does not tell which of it stood inside.
    const auto takesAway = [&](int place) { return position < place && place < removedEnd; };
    if (m_undoSteps > undoStepsBefore && (takesAway(start) || takesAway(end)))
        m_regionsBefore.append({undoStepsBefore, start, end});
    DocumentSearch::OffsetRegion(
        m_findInSelectionStart, m_findInSelectionEnd, position, removed, added);
}

bool CodeEditor::RestoreFindRegion()
{
    RegionBefore region;
    while (!m_regionsBefore.isEmpty() && m_regionsBefore.last().undoSteps >= m_undoSteps)
        region = m_regionsBefore.takeLast();
    if (region.undoSteps != m_undoSteps)
        return false;
    m_findInSelectionStart = region.start;
    m_findInSelectionEnd = region.end;
    return true;
}
