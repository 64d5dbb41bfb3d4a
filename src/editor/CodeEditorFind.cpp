// Finding and replacing in the editor's text.

#include "editor/CodeEditor.h"
#include "editor/DocumentSearch.h"
#include "editor/SearchExpression.h"
#include "editor/TextMatches.h"

#include <QTextBlock>

namespace {

constexpr int INCREMENTAL_BUDGET = 10; // ms of looking ahead per key

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
    return UpdateSearch();
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
    DocumentSearch& search = UpdateSearch();
    const bool hasRegion = m_findInSelectionStart >= 0;
    const int first = hasRegion ? m_findInSelectionStart : 0;
    const int last = hasRegion ? m_findInSelectionEnd : document()->characterCount() - 1;
    // Behind the last place, so that an empty match at the very end counts as before it.
    const int wrapped = backward ? last + 1 : first;
    const int from = position < first || position > last ? wrapped : position;
    TextSpan found = backward ? search.FindPrevious(from) : search.FindNext(from);
    if (!found.IsValid())
        found = backward ? search.FindPrevious(wrapped) : search.FindNext(wrapped);
    if (found.IsValid())
        ShowMatch(found);
    return found.IsValid();
}

void CodeEditor::ShowMatch(const TextSpan& match)
{
    m_findWhenCounted = false;
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
    m_findWhenCounted = false;
    if (IsMatchSelected())
        return;
    if (m_search->IsFinished()) {
        FindNext();
        return;
    }
    const TextSpan ahead
        = m_search->FindNext(qMax(GetSelectedStartPosition(), m_findInSelectionStart),
            QDeadlineTimer(INCREMENTAL_BUDGET));
    if (ahead.IsValid())
        ShowMatch(ahead);
    else
        m_findWhenCounted = true;
}

void CodeEditor::OnSearchCounted()
{
    if (m_findWhenCounted && m_search->IsFinished()) {
        m_findWhenCounted = false;
        FindNext();
    }
    Q_EMIT SearchResultsChanged();
}

bool CodeEditor::Replace(const QString& text)
{
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
    const bool hasRegion = findInSelection && m_findInSelectionStart >= 0;
    DocumentSearch search(document(), nullptr);
    search.Search(expression, hasRegion ? m_findInSelectionStart : -1, m_findInSelectionEnd);
    QVector<Replacement> replacements;
    search.VisitAllMatches([&](const TextSpan& span, const QRegularExpressionMatch& match) {
        replacements.append({span, ExpandReplacement(text, match)});
    });
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
