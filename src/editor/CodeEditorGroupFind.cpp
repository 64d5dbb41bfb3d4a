// The find bar of a code editor group: it floats over the current editor and searches it.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/CodeEditorGroupTabBar.h"
#include "editor/DocumentSearch.h"
#include "editor/FindReplaceWidget.h"
#include "window/chrome/Theme.h"

#include <QApplication>
#include <QStackedWidget>

namespace {

constexpr int RIGHT_MARGIN = 20; ///< design pixels, beside the scroll bar

} // namespace

void CodeEditorGroup::CreateFindReplace()
{
    using F = FindReplaceWidget;
    using G = CodeEditorGroup;
    m_findReplace = new FindReplaceWidget(true, this);
    m_findReplace->setObjectName(QStringLiteral("m_findReplace"));
    connect(m_findReplace, &F::SearchChanged, this, &G::OnSearchChanged);
    connect(m_findReplace, &F::ReplaceRequested, this, &G::Replace);
    connect(m_findReplace, &F::ReplaceAllRequested, this, &G::ReplaceAll);
    connect(m_findReplace, &F::FindNextRequested, this, &G::FindNext);
    connect(m_findReplace, &F::FindPreviousRequested, this, &G::FindPrevious);
    connect(m_findReplace, &F::ShowRequested, this,
        [this](bool replace) { ShowFindReplace(replace, true, true, false); });
    connect(m_findReplace, &F::Closed, this, &G::OnFindReplaceClosed);
}

void CodeEditorGroup::ConnectEditorSearch(CodeEditor* editor)
{
    connect(editor, &CodeEditor::SearchResultsChanged, this, [this, editor] {
        if (editor == GetCurrent())
            ShowSearchResults();
    });
    connect(editor, &QPlainTextEdit::selectionChanged, this, [this, editor] {
        if (editor == GetCurrent() && IsFindReplaceVisible() && editor->GetSearch().IsFinished())
            ShowSearchResults();
    });
}

bool CodeEditorGroup::IsSearching() const
{
    return !m_searchRegEx.pattern().isEmpty();
}

void CodeEditorGroup::ShowFindReplace(
    bool replace, bool takeSearchText, bool focus, bool focusReplace)
{
    CodeEditor* editor = GetCurrent();
    if (!editor)
        return;
    m_findReplace->SetReplaceVisible(replace);
    UpdateFindReplacePosition();
    m_findReplace->Appear();
    // What stands in the field already was typed there.
    const bool isTyping = m_findReplace->isAncestorOf(QApplication::focusWidget());
    const bool isMeant = isTyping || editor->textCursor().hasSelection();
    const QString text = takeSearchText && !isTyping ? editor->TakeSearchText() : QString();
    if (text.isEmpty())
        m_findReplace->SetSearchText(m_findReplace->GetSearchText());
    else
        m_findReplace->SeedSearchText(text);
    if (!focus)
        return;
    if (focusReplace && isMeant && m_findReplace->HasSearchText())
        m_findReplace->FocusReplaceText();
    else
        m_findReplace->FocusSearchText();
}

void CodeEditorGroup::CloseFindReplace()
{
    m_findReplace->Close();
}

void CodeEditorGroup::SetFindReplaceVisible(bool visible)
{
    if (visible)
        ShowFindReplace(m_findReplace->IsReplaceVisible(), false, false, false);
    else
        CloseFindReplace();
}

bool CodeEditorGroup::IsFindReplaceVisible() const
{
    return !m_findReplace->isHidden();
}

void CodeEditorGroup::SetSearchText(const QString& text)
{
    m_findReplace->SetSearchText(text);
}

bool CodeEditorGroup::HasSearchText() const
{
    return m_findReplace->HasSearchText();
}

void CodeEditorGroup::OnFindReplaceClosed()
{
    ClearSearch();
    ClearSearchSelection();
    FocusCurrentCodeEditor();
}

void CodeEditorGroup::ClearSearch()
{
    if (CodeEditor* editor = qobject_cast<CodeEditor*>(m_stack->currentWidget()))
        editor->SetSearchRegEx(QRegularExpression());
}

void CodeEditorGroup::ClearSearchSelection()
{
    m_findReplace->SetFindInSelectionEnabled(false, false);
    if (CodeEditor* editor = qobject_cast<CodeEditor*>(m_stack->currentWidget()))
        editor->ClearFindInSelection();
}

void CodeEditorGroup::LeaveSearch()
{
    if (!IsFindReplaceVisible())
        return;
    ClearSearch();
    ClearSearchSelection();
}

void CodeEditorGroup::EnterSearch()
{
    if (!IsFindReplaceVisible())
        return;
    if (CodeEditor* editor = GetCurrent()) {
        editor->SetSearchRegEx(m_searchRegEx);
        UpdateFindReplacePosition();
        UpdateSearchResults(editor);
    } else {
        CloseFindReplace();
    }
}

void CodeEditorGroup::OnSearchChanged(
    const QRegularExpression& expression, bool findInSelection, bool incremental, bool retakeRegion)
{
    m_searchRegEx = expression;
    CodeEditor* editor = GetCurrent();
    if (!editor || !IsFindReplaceVisible())
        return;
    editor->SetSearchRegEx(expression);
    if (!findInSelection)
        editor->ClearFindInSelection();
    else if (retakeRegion)
        editor->SetSelectedSearchRegion();
    if (incremental && IsSearching())
        editor->FindWhileTyping();
    UpdateSearchResults(editor);
}

void CodeEditorGroup::UpdateSearchResults(CodeEditor* editor)
{
    editor->CountSearchResults();
    if (editor == GetCurrent())
        ShowSearchResults();
}

/// While counting, none yet does not mean none.
void CodeEditorGroup::ShowSearchResults()
{
    const CodeEditor* editor = GetCurrent();
    if (!editor || !IsFindReplaceVisible())
        return;
    const DocumentSearch& search = editor->GetSearch();
    if (search.IsFinished() || search.GetTotal() > 0)
        m_findReplace->SetResults(
            search.GetNumber(editor->GetSelectedStartPosition()), search.GetTotal());
    m_findReplace->SetMessage(search.HasGivenUp()
            ? tr("This expression takes too long on some lines; they were left out.")
            : QString());
}

void CodeEditorGroup::RunSearch(const std::function<void(CodeEditor&)>& operation)
{
    CodeEditor* editor = GetCurrent();
    if (!editor || !IsSearching())
        return;
    // With the bar closed nothing stays marked.
    if (!IsFindReplaceVisible())
        editor->SetSearchRegEx(m_searchRegEx);
    operation(*editor);
    if (IsFindReplaceVisible())
        UpdateSearchResults(editor);
    else
        editor->SetSearchRegEx(QRegularExpression());
}

void CodeEditorGroup::FindNext()
{
    RunSearch([](CodeEditor& editor) { editor.FindNext(); });
}

void CodeEditorGroup::FindPrevious()
{
    RunSearch([](CodeEditor& editor) { editor.FindPrevious(); });
}

/// Whether nothing can be replaced there, which is told.
bool CodeEditorGroup::ShowReadOnly(const CodeEditor& editor)
{
    if (editor.isReadOnly())
        m_findReplace->ShowNotice(tr("This text is read-only."));
    return editor.isReadOnly();
}

void CodeEditorGroup::Replace(const QString& text)
{
    RunSearch([this, &text](CodeEditor& editor) {
        if (!ShowReadOnly(editor))
            editor.Replace(text);
    });
}

void CodeEditorGroup::ReplaceAll(const QString& text)
{
    RunSearch([this, &text](CodeEditor& editor) {
        if (ShowReadOnly(editor))
            return;
        const int count = editor.ReplaceAll(m_searchRegEx, text, editor.IsFindInSelectionEnabled());
        m_findReplace->ShowNotice(
            count == 1 ? tr("1 match replaced.") : tr("%1 matches replaced.").arg(count));
    });
}

void CodeEditorGroup::SelectAndFind(bool backward)
{
    CodeEditor* editor = GetCurrent();
    const QString text = editor ? editor->TakeSearchText() : QString();
    if (text.isEmpty())
        return;
    m_findReplace->SeedSearchText(text);
    if (backward)
        FindPrevious();
    else
        FindNext();
}

void CodeEditorGroup::UpdateFindReplacePosition()
{
    const CodeEditor* editor = GetCurrent();
    const int scrollBar = editor ? editor->GetVerticalScrollBarWidth() : 0;
    const QWidget* tabRow = m_tabBar->parentWidget();
    const int top = tabRow->isHidden() ? 0 : tabRow->geometry().bottom() + 1;
    m_findReplace->SetParentWidth(width());
    m_findReplace->move(
        width() - scrollBar - Theme::Dp(RIGHT_MARGIN) - m_findReplace->width(), top);
}
