// Finding and replacing in the editor's text.

#include "editor/CodeEditor.h"
#include "editor/DocumentSearch.h"
#include "editor/SearchExpression.h"
#include "editor/TextMatches.h"

#include <QScrollBar>
#include <QTextBlock>

namespace {

// Time of looking before the interface goes on and the count is waited for.
constexpr int FIND_TIME = 250; // ms
constexpr int INCREMENTAL_FIND_TIME = 10; // ms, per key

/// A match and what stands in its place afterwards.
struct Replacement
{
    TextSpan span;
    QString text;
};

} // namespace

DocumentSearch& CodeEditor::UpdateSearch()
{
    m_search->Search(m_searchRegEx, m_findInSelectionStart, m_findInSelectionEnd);
    return *m_search;
}

const DocumentSearch& CodeEditor::CountSearchResults()
{
    DocumentSearch& search = UpdateSearch();
    search.CountSlice();
    return search;
}

void CodeEditor::GetSearchResults(const QRegularExpression& expression, int& current, int& total)
{
    m_search->Search(expression, m_findInSelectionStart, m_findInSelectionEnd);
    m_search->Finish();
    current = m_search->GetNumber(GetSelectedStartPosition());
    total = m_search->GetTotal();
}

bool CodeEditor::Find(int position, bool backward)
{
    return FindWithin(FIND_TIME, position, backward);
}

bool CodeEditor::FindWithin(int milliseconds, int position, bool backward)
{
    const QDeadlineTimer deadline(milliseconds);
    const DocumentSearch& search = UpdateSearch();
    const bool hasRegion = m_findInSelectionStart >= 0;
    const int first = hasRegion ? m_findInSelectionStart : 0;
    const int last = hasRegion ? m_findInSelectionEnd : document()->characterCount() - 1;
    // Behind the last place, so that an empty match at the very end counts as before it.
    const int wrapped = backward ? last + 1 : first;
    const auto find = [&](int from) {
        return backward ? search.FindPrevious(from, deadline) : search.FindNext(from, deadline);
    };
    TextSpan found = find(position < first || position > last ? wrapped : position);
    if (!found.IsValid() && !deadline.hasExpired())
        found = find(wrapped);
    m_pendingFind = {};
    if (found.IsValid())
        ShowMatch(found);
    else if (deadline.hasExpired() && !search.IsFinished())
        m_pendingFind = {position, backward, GetSelectedStartPosition(), GetSelectedEndPosition()};
    return found.IsValid();
}

void CodeEditor::ShowMatch(const TextSpan& match)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(match.start);
    cursor.setPosition(match.end, QTextCursor::KeepAnchor);
    setCenterOnScroll(true);
    setTextCursor(cursor);
    ensureCursorVisible();
    setCenterOnScroll(false);
}

/// Whether what is selected is a match as a whole. An empty match is where the cursor stands.
bool CodeEditor::IsMatchSelected()
{
    const TextSpan selected{GetSelectedStartPosition(), GetSelectedEndPosition()};
    return UpdateSearch().IsMatch(selected);
}

bool CodeEditor::FindNext()
{
    const int start = GetSelectedStartPosition();
    const int end = GetSelectedEndPosition();
    if (!IsMatchSelected())
        return Find(start, false);
    // The same empty match would be found again.
    return Find(qMax(end, start + 1), false);
}

bool CodeEditor::FindPrevious()
{
    return Find(IsMatchSelected() ? GetSelectedStartPosition() : GetSelectedEndPosition(), true);
}

void CodeEditor::FindWhileTyping()
{
    m_pendingFind = {};
    if (!IsMatchSelected())
        FindWithin(INCREMENTAL_FIND_TIME, GetSelectedStartPosition(), false);
}

void CodeEditor::OnSearchCounted()
{
    const PendingFind pending = m_pendingFind;
    const bool isStillThere = pending.selectionStart == GetSelectedStartPosition()
        && pending.selectionEnd == GetSelectedEndPosition();
    m_pendingFind = {};
    // Without time it looks where counting has come by now.
    if (pending.position >= 0 && isStillThere)
        FindWithin(m_search->IsFinished() ? FIND_TIME : 0, pending.position, pending.backward);
    Q_EMIT SearchResultsChanged();
}

bool CodeEditor::Replace(const QString& text)
{
    if (isReadOnly())
        return false;
    const TextSpan selected{GetSelectedStartPosition(), GetSelectedEndPosition()};
    const QRegularExpressionMatch match = UpdateSearch().GetMatch(selected);
    if (!match.hasMatch())
        return FindNext();
    QTextCursor cursor = textCursor();
    cursor.insertText(ExpandReplacement(text, match));
    const bool wasEmpty = selected.start == selected.end;
    return Find(cursor.position() + (wasEmpty ? 1 : 0), false);
}

int CodeEditor::ReplaceAll(
    const QRegularExpression& expression, const QString& text, bool findInSelection)
{
    if (isReadOnly())
        return 0;
    const bool hasRegion = findInSelection && m_findInSelectionStart >= 0;
    const int start = hasRegion ? m_findInSelectionStart : -1;
    DocumentSearch another(document(), nullptr);
    const bool isCounted = m_search->IsSearching(expression, start, m_findInSelectionEnd);
    if (!isCounted)
        another.Search(expression, start, m_findInSelectionEnd);
    const DocumentSearch& search = isCounted ? *m_search : another;
    QVector<Replacement> replacements;
    search.VisitAllMatches([&](const TextSpan& span, const QRegularExpressionMatch& match) {
        replacements.append({span, ExpandReplacement(text, match)});
    });
    // What is in view stays there, whatever lines come and go above.
    QTextCursor top(firstVisibleBlock());
    top.setKeepPositionOnInsert(true);
    const int scrolled = verticalScrollBar()->value() - top.block().firstLineNumber();
    // From the end, so that the places before stay right.
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (auto replacement = replacements.crbegin(); replacement != replacements.crend();
         ++replacement) {
        cursor.setPosition(replacement->span.start);
        cursor.setPosition(replacement->span.end, QTextCursor::KeepAnchor);
        cursor.insertText(replacement->text);
    }
    cursor.endEditBlock();
    verticalScrollBar()->setValue(top.block().firstLineNumber() + scrolled);
    return replacements.size();
}

void CodeEditor::SelectWordUnderCursor()
{
    // Among blanks the toolkit would take the word before them.
    const QString line = GetCurrentLineText();
    const int block = textCursor().block().position();
    int start = textCursor().positionInBlock();
    int end = start;
    while (start > 0 && IsWordCharacter(line.at(start - 1)))
        --start;
    while (end < line.size() && IsWordCharacter(line.at(end)))
        ++end;
    QTextCursor cursor = textCursor();
    cursor.setPosition(block + start);
    cursor.setPosition(block + end, QTextCursor::KeepAnchor);
    if (end > start)
        setTextCursor(cursor);
}

QString CodeEditor::TakeSearchText()
{
    if (!textCursor().hasSelection())
        SelectWordUnderCursor();
    const QString text = GetSelectedTextForExecute();
    return text.contains(QLatin1Char('\n')) ? QString() : text;
}
