// What is marked behind the text: the current line, occurrences of the selection, found text,
// brackets. Made for the blocks in view and some around them, once per turn of the event loop.
// What may be many is kept as plain spans: the toolkit works out a place in the view for each of
// its extra selections, which takes longer than painting all of them.

#include "editor/BraceMatching.h"
#include "editor/CodeEditor.h"
#include "editor/CodeEditorErrorBarOverlay.h"
#include "editor/CodeEditorLineNumbers.h"
#include "editor/DocumentSearch.h"
#include "editor/TextMatches.h"
#include "settings/Settings.h"

#include <QTextBlock>
#include <QTimer>

#include <algorithm>

namespace {

// Keeps the marks right while the view scrolls until the next update.
constexpr int BLOCKS_AROUND = 50;
constexpr int MAXIMUM_BRACE_DISTANCE = 10000; // blocks

bool IsSame(
    const QList<QTextEdit::ExtraSelection>& left, const QList<QTextEdit::ExtraSelection>& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
        [](const QTextEdit::ExtraSelection& a, const QTextEdit::ExtraSelection& b) {
            return a.cursor.anchor() == b.cursor.anchor()
                && a.cursor.position() == b.cursor.position() && a.format == b.format;
        });
}

} // namespace

// Several signals come with each key; the marks are made once for all of them.
void CodeEditor::ScheduleExtraSelections()
{
    if (!m_extraSelectionsTimer->isActive())
        m_extraSelectionsTimer->start();
}

void CodeEditor::UpdateExtraSelections()
{
    SetMarkedSpans(m_occurrences, FindOccurrences());
    SetMarkedSpans(m_foundText, FindSearchedText());

    ExtraSelections selections;
    AppendCurrentLine(selections);
    AppendFindRegion(selections);
    AppendCurrentMatch(selections);
    AppendMatchingBraces(selections);
    if (!IsSame(selections, extraSelections()))
        setExtraSelections(selections);

    UpdateErrorAndWarningText();
    if (m_lastCursorLine != GetCurrentLine()) {
        m_lastCursorLine = GetCurrentLine();
        m_lineNumbers->update();
        m_errorBar->update();
    }
}

/// What scrolled into view was painted from the spans around it, so only a change of what is
/// visible is painted anew.
void CodeEditor::SetMarkedSpans(QVector<MarkedSpan>& spans, const QVector<MarkedSpan>& newSpans)
{
    if (spans.isEmpty() && newSpans.isEmpty())
        return;
    const QVector<BlockDrawing> visible = GetBlockDrawings(viewport()->rect());
    const int first = visible.isEmpty() ? 0 : visible.constFirst().block.position();
    const int end = visible.isEmpty()
        ? 0
        : visible.constLast().block.position() + visible.constLast().block.length();
    const SpanSlice oldSlice = SpansWithin(spans, first, end);
    const SpanSlice newSlice = SpansWithin(newSpans, first, end);
    const bool isSame = std::equal(oldSlice.first, oldSlice.second, newSlice.first, newSlice.second,
        [](const MarkedSpan& a, const MarkedSpan& b) {
            return a.start == b.start && a.end == b.end;
        });
    spans = newSpans;
    if (!isSame)
        viewport()->update();
}

QVector<QTextBlock> CodeEditor::GetNearbyBlocks() const
{
    QTextBlock block = firstVisibleBlock();
    for (int i = 0; i < BLOCKS_AROUND && block.previous().isValid(); ++i)
        block = block.previous();
    const int lineHeight = qMax(1, fontMetrics().height());
    const int count = viewport()->height() / lineHeight + 2 * BLOCKS_AROUND + 1;
    QVector<QTextBlock> blocks;
    for (int i = 0; i < count && block.isValid(); ++i, block = block.next())
        blocks.append(block);
    return blocks;
}

void CodeEditor::AppendSelection(
    ExtraSelections& selections, const QTextCharFormat* format, int start, int end) const
{
    if (!format)
        return;
    QTextEdit::ExtraSelection selection;
    selection.format = *format;
    selection.cursor = textCursor();
    selection.cursor.setPosition(start);
    selection.cursor.setPosition(end, QTextCursor::KeepAnchor);
    selections.append(selection);
}

void CodeEditor::AppendCurrentLine(ExtraSelections& selections) const
{
    AppendSelection(
        selections, m_colorFormats.currentLine, GetCursorPosition(), GetCursorPosition());
}

void CodeEditor::AppendFindRegion(ExtraSelections& selections) const
{
    const int last = document()->characterCount() - 1;
    const int end = qMin(m_findInSelectionEnd, last);
    if (m_findInSelection && m_findInSelectionStart >= 0 && m_findInSelectionStart < end)
        AppendSelection(selections, m_colorFormats.findRegion, m_findInSelectionStart, end);
}

QVector<CodeEditor::MarkedSpan> CodeEditor::FindOccurrences() const
{
    const QTextCursor cursor = textCursor();
    const QTextBlock block = cursor.block();
    if (!cursor.hasSelection() || !block.contains(cursor.anchor()))
        return {};
    const QString text = cursor.selectedText();
    const bool wordsOnly = Settings::codeEditorMatchedSelectionWordsOnly;
    const int column = cursor.selectionStart() - block.position();
    if (text.trimmed().isEmpty() || (wordsOnly && !IsWholeWord(block.text(), column, text.size())))
        return {};
    QVector<MarkedSpan> spans;
    for (const QTextBlock& nearby : GetNearbyBlocks()) {
        for (const TextMatch& match : ::FindOccurrences(nearby.text(), text, wordsOnly)) {
            const int start = nearby.position() + match.start;
            spans.append({start, start + match.length});
        }
    }
    return spans;
}

bool CodeEditor::IsCurrentMatchSelected() const
{
    return m_currentMatchEnd > m_currentMatchStart
        && GetSelectedStartPosition() == m_currentMatchStart
        && GetSelectedEndPosition() == m_currentMatchEnd;
}

QVector<CodeEditor::MarkedSpan> CodeEditor::FindSearchedText()
{
    const bool isSearching = !m_searchRegEx.pattern().isEmpty();
    if (!isSearching && !m_globalSearch)
        return {};
    const DocumentSearch& search = isSearching ? UpdateSearch() : *m_globalSearch;
    QVector<MarkedSpan> spans;
    for (const QTextBlock& block : GetNearbyBlocks()) {
        for (const TextSpan& match : search.GetMatchesIn(block))
            spans.append({match.start, match.end});
    }
    return spans;
}

void CodeEditor::AppendCurrentMatch(ExtraSelections& selections)
{
    const bool hadMatch = IsCurrentMatchSelected();
    const int start = GetSelectedStartPosition();
    const int end = GetSelectedEndPosition();
    m_currentMatchStart = 0;
    m_currentMatchEnd = -1;
    for (const MarkedSpan& span : qAsConst(m_foundText)) {
        if (span.start == start && span.end == end) {
            m_currentMatchStart = start;
            m_currentMatchEnd = end;
        }
    }
    if (IsCurrentMatchSelected())
        AppendSelection(selections, m_colorFormats.currentFound, start, end);
    // The outline of the current match is no part of the selections.
    if (hadMatch != IsCurrentMatchSelected())
        viewport()->update();
}

void CodeEditor::AppendMatchingBraces(ExtraSelections& selections) const
{
    if (textCursor().hasSelection())
        return;
    const QTextBlock block = textCursor().block();
    const int column = textCursor().positionInBlock();
    const auto blockData = [this](const QTextBlock& line) { return GetBlockData(line); };
    for (const int place : {column - 1, column}) {
        const int partner = FindMatchingBrace(block, place, MAXIMUM_BRACE_DISTANCE, blockData);
        if (partner < 0)
            continue;
        const int brace = block.position() + place;
        AppendSelection(selections, m_colorFormats.matchingBraces, brace, brace + 1);
        AppendSelection(selections, m_colorFormats.matchingBraces, partner, partner + 1);
        return;
    }
}
