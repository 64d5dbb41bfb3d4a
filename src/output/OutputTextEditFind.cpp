// Finding in the console.

#include "editor/DocumentSearch.h"
#include "editor/FindReplaceWidget.h"
#include "output/OutputTextEdit.h"
#include "settings/ColorSettings.h"

#include <QApplication>
#include <QTextBlock>

#include <utility>

namespace {

constexpr int FIND_TIME = 250; // ms of looking before the count is waited for

} // namespace

void OutputTextEdit::CreateFindReplace()
{
    using F = FindReplaceWidget;
    m_search = new DocumentSearch(QPlainTextEdit::document(), this);
    m_search->SetContinuation(&LongLines::Continues);
    m_findReplace = new F(false, this);
    m_findReplace->setObjectName(QStringLiteral("m_findReplace"));
    m_findReplace->UpdateKeyBindings(m_keyBindings);
    connect(m_findReplace, &F::SearchChanged, this,
        [this](
            const QRegularExpression& expression, bool inSelection, bool incremental, bool retake) {
            TakeFindRegion(inSelection, retake);
            OnSearchChanged(expression, inSelection, incremental);
        });
    connect(m_findReplace, &F::FindNextRequested, this, &OutputTextEdit::FindNext);
    connect(m_findReplace, &F::FindPreviousRequested, this, &OutputTextEdit::FindPrevious);
    connect(m_findReplace, &F::ShowRequested, this,
        [this](bool replace) { ShowFindReplace(replace, true); });
    connect(m_findReplace, &F::Closed, this, &OutputTextEdit::OnFindReplaceClosed);
    connect(m_search, &DocumentSearch::Counted, this, &OutputTextEdit::OnSearchCounted);
}

void OutputTextEdit::ShowFindReplace(bool /*replace*/, bool focus)
{
    // What stands in the field already was typed there.
    const bool isTyping = m_findReplace->isAncestorOf(QApplication::focusWidget());
    QString text;
    if (!isTyping) {
        if (!textCursor().hasSelection())
            SelectWordUnderCursor();
        text = GetSelectedTextForExecute();
    }
    UpdateFindReplacePosition();
    m_findReplace->Appear();
    if (text.isEmpty() || text.contains(QLatin1Char('\n')))
        m_findReplace->SetSearchText(m_findReplace->GetSearchText());
    else
        m_findReplace->SeedSearchText(text);
    if (focus)
        m_findReplace->FocusSearchText();
    ScheduleExtraSelections();
}

void OutputTextEdit::CloseFindReplace()
{
    m_findReplace->Close();
}

bool OutputTextEdit::IsFindReplaceVisible() const
{
    return !m_findReplace->isHidden();
}

bool OutputTextEdit::HasSearchText() const
{
    return m_findReplace->HasSearchText();
}

void OutputTextEdit::OnFindReplaceClosed()
{
    m_findReplace->SetFindInSelectionEnabled(false, false);
    m_findRegion = QTextCursor();
    m_pendingFind = -1;
    // What is put out while nobody looks is not counted.
    m_search->Search(QRegularExpression(), -1, -1);
    setFocus(Qt::OtherFocusReason);
    ScheduleExtraSelections();
}

void OutputTextEdit::OnSearchChanged(
    const QRegularExpression& expression, bool /*findInSelection*/, bool incremental)
{
    m_searchRegEx = expression;
    m_pendingFind = -1;
    if (!IsFindReplaceVisible())
        return;
    // From the selection's start, so that typing on keeps the match that grows with it.
    if (incremental && !expression.pattern().isEmpty() && !IsMatchSelected())
        Find(EarliestPosition(textCursor()), false);
    ScheduleExtraSelections();
    UpdateSearchResults();
}

/// A cursor, so that the region moves along while the oldest lines go.
void OutputTextEdit::TakeFindRegion(bool findInSelection, bool retake)
{
    if (!findInSelection)
        m_findRegion = QTextCursor();
    else if (retake)
        m_findRegion = textCursor();
}

DocumentSearch& OutputTextEdit::UpdateSearch()
{
    FlushJoined();
    const bool hasRegion = m_findRegion.hasSelection();
    m_search->Search(m_searchRegEx, hasRegion ? m_findRegion.selectionStart() : -1,
        hasRegion ? m_findRegion.selectionEnd() : -1);
    return *m_search;
}

bool OutputTextEdit::IsMatchSelected()
{
    const QTextCursor cursor = textCursor();
    return UpdateSearch().IsMatch({cursor.selectionStart(), cursor.selectionEnd()});
}

bool OutputTextEdit::Find(int from, bool backward)
{
    const DocumentSearch& search = UpdateSearch();
    const QDeadlineTimer deadline(FIND_TIME);
    const auto find = [&](int position) {
        return backward ? search.FindPrevious(position, deadline)
                        : search.FindNext(position, deadline);
    };
    TextSpan found = find(from);
    // Behind the last place, so that an empty match at the very end counts as before it.
    if (!found.IsValid() && !deadline.hasExpired())
        found = find(backward ? QPlainTextEdit::document()->characterCount() : 0);
    m_pendingFind = -1;
    if (!found.IsValid()) {
        m_pendingFind = deadline.hasExpired() && !search.IsFinished() ? from : -1;
        m_isPendingBackward = backward;
        return false;
    }
    QTextCursor cursor = textCursor();
    cursor.setPosition(found.start);
    cursor.setPosition(found.end, QTextCursor::KeepAnchor);
    setCenterOnScroll(true);
    setTextCursor(cursor);
    ensureCursorVisible();
    setCenterOnScroll(false);
    ScheduleExtraSelections();
    UpdateSearchResults();
    return true;
}

/// A search that took too long goes on where all is counted.
void OutputTextEdit::OnSearchCounted()
{
    if (m_pendingFind >= 0 && m_search->IsFinished())
        Find(std::exchange(m_pendingFind, -1), m_isPendingBackward);
    ShowSearchResults();
}

void OutputTextEdit::FindNext()
{
    const QTextCursor cursor = textCursor();
    // The same empty match would be found again.
    const bool isEmptyMatch = !cursor.hasSelection() && IsMatchSelected();
    Find(LatestPosition(cursor) + (isEmptyMatch ? 1 : 0), false);
}

void OutputTextEdit::FindPrevious()
{
    Find(EarliestPosition(textCursor()), true);
}

void OutputTextEdit::GetSearchResults(
    const QRegularExpression& expression, int& count, int& current)
{
    FlushJoined();
    m_search->Search(expression, -1, -1);
    m_search->Finish();
    count = m_search->GetTotal();
    current = SelectedMatchNumber();
}

/// From 1; -1 while something else is selected than a match.
int OutputTextEdit::SelectedMatchNumber() const
{
    const QTextCursor cursor = QPlainTextEdit::textCursor();
    const TextSpan selected{cursor.selectionStart(), cursor.selectionEnd()};
    return m_search->IsMatch(selected) ? m_search->GetNumber(selected.start) : -1;
}

void OutputTextEdit::UpdateSearchResults()
{
    if (!IsFindReplaceVisible())
        return;
    UpdateSearch().CountSlice();
    ShowSearchResults();
}

/// While counting, none yet does not mean none.
void OutputTextEdit::ShowSearchResults()
{
    if (!IsFindReplaceVisible() || (!m_search->IsFinished() && m_search->GetTotal() == 0))
        return;
    m_findReplace->SetResults(SelectedMatchNumber(), m_search->GetTotal());
    m_findReplace->SetMessage(
        m_search->HasGivenUp() ? tr("This expression takes too long on some lines.") : QString());
}

/// At the top right of the text, beside the scroll bar.
void OutputTextEdit::UpdateFindReplacePosition()
{
    const QRect text = viewport()->geometry();
    m_findReplace->SetParentWidth(width());
    m_findReplace->move(text.right() + 1 - m_findReplace->width(), text.top());
    m_findReplace->raise();
}

int OutputTextEdit::EarliestPosition(const QTextCursor& cursor)
{
    return qMin(cursor.anchor(), cursor.position());
}

int OutputTextEdit::LatestPosition(const QTextCursor& cursor)
{
    return qMax(cursor.anchor(), cursor.position());
}

void OutputTextEdit::SelectWordUnderCursor()
{
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::WordUnderCursor);
    setTextCursor(cursor);
}

void OutputTextEdit::HighlightFoundSelection(int start, int end)
{
    if (!IsFindReplaceVisible() || !HasSearchText() || m_searchRegEx.pattern().isEmpty())
        return;
    const QTextCharFormat found
        = ColorSettings::GetOutputFormat(ColorSettings::FIND_REPLACE_MATCHING, false);
    const QTextCursor cursor = QPlainTextEdit::textCursor();
    const TextSpan selected{cursor.selectionStart(), cursor.selectionEnd()};
    const DocumentSearch& search = UpdateSearch();
    for (QTextBlock block = QPlainTextEdit::document()->findBlock(start);
         block.isValid() && block.position() <= end; block = block.next()) {
        for (const TextSpan& match : search.GetMatchesIn(block)) {
            // One that goes on in the next block stands there, too.
            if (match.end >= start && match.start <= end && match.start >= block.position())
                AppendSelection(match.start, match.end, found);
        }
    }
    const bool isMatchSelected = cursor.hasSelection() && search.IsMatch(selected);
    if (!isMatchSelected)
        return;
    AppendSelection(selected.start, selected.end,
        ColorSettings::GetOutputFormat(ColorSettings::FIND_REPLACE_SELECTED, false));
    m_currentMatch = cursor;
}
