// The search in files as the editor takes part in it: its hits are marked, gone to and replaced.

#include "editor/CodeEditor.h"
#include "editor/DocumentSearch.h"
#include "editor/SearchExpression.h"
#include "search/TextReplacement.h"
#include "settings/Settings.h"

#include <QTextBlock>

namespace {

/// As it was typed, and so that its replacements know that it was typed as an expression.
QRegularExpression GlobalSearchRegEx()
{
    return Settings::globalSearchUsesExpression ? WithMatchLimit(Settings::globalSearchRegEx)
                                                : Settings::globalSearchRegEx;
}

/// From the end, so that the places before stay right. Undoing takes the view to where the cursor
/// was.
void Apply(QTextCursor cursor, const QVector<TextEdit>& edits)
{
    cursor.beginEditBlock();
    for (auto edit = edits.crbegin(); edit != edits.crend(); ++edit) {
        cursor.setPosition(edit->start);
        cursor.setPosition(edit->start + edit->length, QTextCursor::KeepAnchor);
        cursor.insertText(edit->text);
    }
    cursor.endEditBlock();
}

} // namespace

bool CodeEditor::FindGlobal(int position)
{
    DocumentSearch search(document(), nullptr);
    search.Search(GlobalSearchRegEx(), -1, -1);
    TextSpan match = search.FindNext(position);
    if (match.start != position) {
        const TextSpan before = search.FindPrevious(position + 1);
        const bool isNearer = before.IsValid()
            && (!match.IsValid() || position - before.end < match.start - position);
        match = isNearer ? before : match;
    }
    const int end = document()->characterCount() - 1;
    const bool isFound = match.IsValid();
    ShowMatch(isFound ? match : TextSpan{qMin(position, end), qMin(position, end)});
    return isFound;
}

bool CodeEditor::FindAndReplaceGlobal(int position)
{
    DocumentSearch search(document(), nullptr);
    search.Search(GlobalSearchRegEx(), -1, -1);
    const TextSpan span = search.FindNext(position);
    const QRegularExpressionMatch match = search.GetMatch(span);
    if (span.start != position || !match.hasMatch())
        return false;
    const QString text = ExpandReplacement(Settings::globalSearchReplaceText, match);
    Apply(textCursor(), {{span.start, span.end - span.start, text}});
    ShowMatch({position, position + text.size()});
    return true;
}

bool CodeEditor::FindAndReplaceAllGlobal(const QVector<SearchResult>& hits, const QString& text)
{
    const std::optional<QVector<TextEdit>> edits
        = PlanReplacement(GetText(), hits, GlobalSearchRegEx(), text);
    if (edits)
        Apply(textCursor(), *edits);
    return edits.has_value();
}

void CodeEditor::UpdateGlobalSearch()
{
    const bool isShown = Settings::sideBarVisible && Settings::searchViewActive
        && !Settings::globalSearchRegEx.pattern().isEmpty();
    if (!isShown && !m_globalSearch)
        return;
    if (!isShown) {
        delete m_globalSearch;
        m_globalSearch = nullptr;
    } else {
        if (!m_globalSearch) {
            m_globalSearch = new DocumentSearch(document(), this);
            connect(m_globalSearch, &DocumentSearch::HitBlocksChanged, this,
                &CodeEditor::OnSearchHitsChanged);
        }
        m_globalSearch->Search(GlobalSearchRegEx(), -1, -1);
        m_globalSearch->CountSlice();
    }
    OnSearchHitsChanged();
    ScheduleExtraSelections();
}
