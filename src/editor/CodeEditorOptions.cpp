// What the settings say about editors of each language, and brackets and quotes.

#include "editing/Brackets.h"
#include "editor/CodeEditor.h"
#include "editor/CodeEditorErrorBarOverlay.h"
#include "language/Highlighter.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QTextDocument>

namespace {

/// One option by language; null stands for off.
struct LanguageOption
{
    const bool* mel;
    const bool* python;
};

bool IsOn(const LanguageOption& option, CodeEditorLanguage language)
{
    switch (language) {
    case CodeEditorLanguage::Mel: return option.mel && *option.mel;
    case CodeEditorLanguage::Python: return option.python && *option.python;
    case CodeEditorLanguage::Text: return false;
    }
    return false;
}

struct TabOptions
{
    int size;
    bool insertSpaces;
    bool autoIndent;
};

TabOptions TabOptionsOf(CodeEditorLanguage language)
{
    if (language == CodeEditorLanguage::Mel && !Settings::tabsUseDefaultsMel)
        return {Settings::tabsSizeMel, Settings::tabsInsertSpacesMel, Settings::tabsAutoIndentMel};
    if (language == CodeEditorLanguage::Python && !Settings::tabsUseDefaultsPython)
        return {Settings::tabsSizePython, Settings::tabsInsertSpacesPython,
            Settings::tabsAutoIndentPython};
    return {Settings::tabsSizeDefault, Settings::tabsInsertSpacesDefault,
        Settings::tabsAutoIndentDefault};
}

constexpr int FALLBACK_TAB_SIZE = 4;
constexpr int CARET_WIDTH = 2; // design pixels

} // namespace

CodeEditor::ColorFormats CodeEditor::m_colorFormats;

bool CodeEditor::IsDisplayErrorsEnabled() const
{
    return IsOn({&Settings::melDisplayErrors, &Settings::pythonDisplayErrors}, m_language);
}

bool CodeEditor::IsPylintEnabled() const
{
    return IsOn({nullptr, &Settings::pylintEnabled}, m_language);
}

bool CodeEditor::IsAutoIndentEnabled() const
{
    return TabOptionsOf(m_language).autoIndent;
}

bool CodeEditor::IsSmartIndentEnabled() const
{
    return IsOn({&Settings::melSmartIndent, &Settings::pythonSmartIndent}, m_language);
}

bool CodeEditor::IsIndentToParenthesesEnabled() const
{
    return IsOn(
        {&Settings::melIndentToParentheses, &Settings::pythonIndentToParentheses}, m_language);
}

bool CodeEditor::IsInsertClosingBraceEnabled() const
{
    return IsOn({&Settings::melInsertClosingParentheses, &Settings::pythonInsertClosingParentheses},
        m_language);
}

bool CodeEditor::IsInsertClosingQuoteEnabled() const
{
    return IsOn(
        {&Settings::melInsertClosingQuotes, &Settings::pythonInsertClosingQuotes}, m_language);
}

bool CodeEditor::IsBackspaceToTabStopEnabled() const
{
    return IsOn({&Settings::codeEditorBackspaceToTabStop, &Settings::codeEditorBackspaceToTabStop},
        m_language);
}

void CodeEditor::UpdateFontsAndColors()
{
    UpdateFont();
    FetchColorFormats();
    TextLook::ApplyColors(*this,
        ColorSettings::GetCodeEditorFormat(ColorSettings::PLAIN_TEXT, false),
        ColorSettings::GetCodeEditorFormat(ColorSettings::SELECTED_TEXT, false));
    m_highlighter->Rehighlight();
    ScheduleExtraSelections();
    RefreshMarks();
}

void CodeEditor::FetchColorFormats()
{
    const auto fetch
        = [](const QString& role) { return ColorSettings::GetCodeEditorFormatPtr(role, false); };
    using C = ColorSettings;
    m_colorFormats = {fetch(C::PLAIN_TEXT), fetch(C::CURRENT_LINE), fetch(C::MATCHING_SELECTION),
        fetch(C::MATCHING_BRACES), fetch(C::LINE_NUMBERS), fetch(C::GUTTER),
        fetch(C::INDENTATION_GUIDES), fetch(C::FIND_REPLACE_MATCHING),
        fetch(C::FIND_REPLACE_SELECTED), fetch(C::FIND_REPLACE_SELECTION)};
}

void CodeEditor::UpdateFont()
{
    setFont(TextLook::ZoomedFont(Settings::codeEditorFont, Settings::codeEditorZoom));
    setCursorWidth(Theme::Dp(CARET_WIDTH));
    UpdateTextOptions();
    UpdateLineNumberWidth();
}

void CodeEditor::UpdateTextOptions()
{
    const TabOptions tabs = TabOptionsOf(m_language);
    m_tabSize = tabs.size < 1 ? FALLBACK_TAB_SIZE : tabs.size;
    m_insertSpaces = tabs.insertSpaces;
    m_autoIndent = tabs.autoIndent;

    QTextOption option = TextLook::Option(font(), m_tabSize, Settings::wordWrapEnabled);
    QTextOption::Flags flags;
    flags.setFlag(QTextOption::ShowTabsAndSpaces, Settings::renderWhitespace);
    flags.setFlag(QTextOption::ShowLineAndParagraphSeparators, Settings::renderEndOfLine);
    option.setFlags(flags);
    // Setting it lays out the whole document anew, whatever it was before.
    const QTextOption old = document()->defaultTextOption();
    if (old.flags() != option.flags() || old.wrapMode() != option.wrapMode()
        || !qFuzzyCompare(1.0 + old.tabStopDistance(), 1.0 + option.tabStopDistance())) {
        document()->setDefaultTextOption(option);
        if (IsWrapping())
            LayOutForWidth();
        HighlightVisibleLines();
    }
    m_errorBar->UpdateMarks();
}

QChar CodeEditor::GetMatchingBrace(QChar character)
{
    return MatchingBrace(character);
}

bool CodeEditor::IsOpeningBrace(QChar character)
{
    return ::IsOpeningBrace(character);
}

bool CodeEditor::IsClosingBrace(QChar character)
{
    return ::IsClosingBrace(character);
}

bool CodeEditor::IsMatchingBraces(QChar open, QChar close)
{
    return ::IsMatchingBraces(open, close);
}

bool CodeEditor::IsQuoteForLanguage(QChar character) const
{
    return IsQuoteOf(m_language, character);
}
