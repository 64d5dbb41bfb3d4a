// Checking the current editor of a code editor group.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"

void CodeEditorGroup::OnTextChanged(const QString& path, const QString& text)
{
    CodeEditor* const current = GetCurrent();
    if (current && IsFindReplaceVisible() && HasSearchText())
        UpdateSearchResults(current);
    UpdateParser(current);
    if (Settings::sideBarVisible && Settings::searchViewActive
        && !Settings::globalSearchRegEx.pattern().isEmpty())
        Q_EMIT TextChanged(path, text);
}

void CodeEditorGroup::UpdateParser()
{
    UpdateParser(GetCurrent());
}

BaseParser* CodeEditorGroup::GetParser() const
{
    return nullptr;
}

void CodeEditorGroup::UpdateParser(CodeEditor* editor)
{
    const bool parsed = editor && editor->isVisible() && m_parsingEnabled;
    if (parsed && editor->GetLanguage() == CodeEditorLanguage::Text)
        editor->UpdateErrorsAndWarnings({}, {}, {});
    Q_EMIT ParserUpdated(nullptr);
}
