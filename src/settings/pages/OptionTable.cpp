#include "settings/pages/OptionTable.h"

#include "settings/ExtraSettings.h"
#include "settings/Settings.h"
#include "settings/pages/OptionReasons.h"

#include <QLocale>

namespace {

using S = Settings;
using K = OptionRow::Kind;
using P = OptionRow::Place;
using Side = OptionGroup::Side;
namespace Why = OptionReasons;

constexpr OptionRange TAB_SIZES{1, 16, QT_TR_NOOP("columns")};
constexpr OptionRange FONT_SIZES{S::MINIMUM_FONT_SIZE, S::MAXIMUM_FONT_SIZE, QT_TR_NOOP("points")};
constexpr OptionRange RECENT_FILES{
    S::MINIMUM_RECENT_FILES, S::MAXIMUM_RECENT_FILES, QT_TR_NOOP("files")};
constexpr OptionRange BUFFER_SIZES{100, 1000000, QT_TR_NOOP("lines")};

// clang-format off
constexpr OptionAccess NUM_RECENT_FILES {
    [] { return QVariant(S::numRecentFiles); },
    [](const QVariant& value) { S::UpdateRecentFiles(value.toInt()); },
    [] { return QVariant(S::DEFAULT_NUM_RECENT_FILES); }};
constexpr OptionAccess EDITOR_FONT_FAMILY {
    [] { return QVariant(S::codeEditorFont.family()); },
    [](const QVariant& value) { S::codeEditorFont.setFamily(value.toString()); }};
constexpr OptionAccess EDITOR_FONT_SIZE {
    [] { return QVariant(S::codeEditorFont.pointSize()); },
    [](const QVariant& value) { S::codeEditorFont.setPointSize(value.toInt()); }};
constexpr OptionAccess OUTPUT_FONT_FAMILY {
    [] { return QVariant(S::outputFont.family()); },
    [](const QVariant& value) { S::outputFont.setFamily(value.toString()); }};
constexpr OptionAccess OUTPUT_FONT_SIZE {
    [] { return QVariant(S::outputFont.pointSize()); },
    [](const QVariant& value) { S::outputFont.setPointSize(value.toInt()); }};
// clang-format on

} // namespace

// clang-format off
const OptionPage& OptionTable::General()
{
    static const OptionPage PAGE {QT_TR_NOOP("General"), "prefs_general", {
        {QT_TR_NOOP("Saving"), Side::Below, {
            {"saveAllOnExecute", &S::saveAllOnExecute, K::Check, P::Wide, QT_TR_NOOP("Save all files and buffers before executing")},
            {"saveAllOnExit", &S::saveAllOnExit, K::Check, P::Wide, QT_TR_NOOP("Save all files when the host closes")},
            {"showUnsavedFileDialogOnMayaExit", &S::showUnsavedFileDialogOnMayaExit, K::Check, P::Wide, QT_TR_NOOP("Ask about unsaved files when the host closes"), Why::SavesOnExit},
            {"showConfirmDialogOnInternalBufferClose", &S::showConfirmDialogOnInternalBufferClose, K::Check, P::Wide, QT_TR_NOOP("Ask before a buffer with text is closed")},
        }},
        {QT_TR_NOOP("Files"), Side::Below, {
            {"checkForModifiedFiles", &S::checkForModifiedFiles, K::Check, P::Wide, QT_TR_NOOP("Notice when other programs change open files")},
            {"utf8FileEncodingForReadWrite", &S::utf8FileEncodingForReadWrite, K::Check, P::Wide, QT_TR_NOOP("Read and write files as UTF-8, whatever the system's encoding")},
            {"files/keepEncodingAndLineEnds", &ExtraSettings::keepEncodingAndLineEnds, K::Check, P::Wide, QT_TR_NOOP("Save files with their own encoding and line ends without asking")},
            {"numRecentFiles", &NUM_RECENT_FILES, K::Number, P::Wide, QT_TR_NOOP("Length of the list of recent files"), nullptr, RECENT_FILES},
        }},
        {QT_TR_NOOP("Host"), Side::Below, {
            {"alwaysShowEditorAndOutputOnStartUp", &S::alwaysShowEditorAndOutputOnStartup, K::Check, P::Wide, QT_TR_NOOP("Show editor and output at every startup")},
            {"overrideScriptEditorButton", &S::overrideScriptEditorButton, K::Check, P::Wide, QT_TR_NOOP("Open with the host's Script Editor button")},
            {"executeScriptOnIdle", &S::executeScriptOnIdle, K::Check, P::Wide, QT_TR_NOOP("Execute scripts when the host is idle")},
        }},
    }};
    return PAGE;
}

const OptionPage& OptionTable::Interface()
{
    static const OptionPage PAGE {QT_TR_NOOP("Interface"), "prefs_interface", {
        {QT_TR_NOOP("Tabs"), Side::Below, {
            {"showTabBar", &S::showTabBar, K::Check, P::Wide, QT_TR_NOOP("Show the tab bar")},
            {"showCloseButtonOnTabs", &S::showCloseButtonOnTabs, K::Check, P::Wide, QT_TR_NOOP("Show a close button on tabs"), Why::TabBarHidden},
            {"lockTabPositions", &S::lockTabPositions, K::Check, P::Wide, QT_TR_NOOP("Lock the order of tabs"), Why::TabBarHidden},
            {"mouseWheelChangesActiveTab", &S::mouseWheelChangesActiveTab, K::Check, P::Wide, QT_TR_NOOP("Change the tab with the mouse wheel over the tab bar"), Why::TabBarHidden},
        }},
        {QT_TR_NOOP("Tool bar"), Side::Below, {
            {"showTabBarMiniToolbar", &S::showTabBarMiniToolbar, K::Check, P::Wide, QT_TR_NOOP("Show the tool bar beside the tabs"), Why::TabBarHidden},
            {"showCodeEditorExecuteBtn", &S::showCodeEditorExecuteBtn, K::Check, P::Wide, QT_TR_NOOP("With the Execute button"), Why::ToolBarHidden},
            {"showCodeEditorExecuteAllBtn", &S::showCodeEditorExecuteAllBtn, K::Check, P::Wide, QT_TR_NOOP("With the Execute All button"), Why::ToolBarHidden},
            {"showCodeEditorExecuteLineBtn", &S::showCodeEditorExecuteLineBtn, K::Check, P::Wide, QT_TR_NOOP("With the Execute Line button"), Why::ToolBarHidden},
        }},
    }};
    return PAGE;
}

const OptionPage& OptionTable::CodeEditor()
{
    static const OptionPage PAGE {QT_TR_NOOP("Code Editor"), "prefs_code_editor", {
        {QT_TR_NOOP("Font"), Side::Below, {
            {"codeEditorFontFamily", &EDITOR_FONT_FAMILY, K::FontFamily, P::Wide, QT_TR_NOOP("Font")},
            {"codeEditorFontSize", &EDITOR_FONT_SIZE, K::Number, P::Wide, QT_TR_NOOP("Size"), nullptr, FONT_SIZES},
        }},
        {QT_TR_NOOP("Editing"), Side::Below, {
            {"codeEditorMouseWheelChangesFontSize", &S::codeEditorMouseWheelChangesFontSize, K::Check, P::Wide, QT_TR_NOOP("Change the font size with Ctrl and the mouse wheel")},
            {"codeEditorBackspaceToTabStop", &S::codeEditorBackspaceToTabStop, K::Check, P::Wide, QT_TR_NOOP("Backspace in front of a line goes to the tab stop")},
            {"codeEditorDisplayIndentationGuides", &S::codeEditorDisplayIndentationGuides, K::Check, P::Wide, QT_TR_NOOP("Show indentation guides")},
            {"codeEditorMatchedSelectionWordsOnly", &S::codeEditorMatchedSelectionWordsOnly, K::Check, P::Wide, QT_TR_NOOP("Mark what is selected elsewhere only where it is a whole word")},
        }},
    }};
    return PAGE;
}

const OptionPage& OptionTable::Indentation()
{
    static const OptionPage PAGE {QT_TR_NOOP("Indentation"), "prefs_indentation", {
        {QT_TR_NOOP("Default"), Side::Below, {
            {"tabsSizeDefault", &S::tabsSizeDefault, K::Number, P::Wide, QT_TR_NOOP("Size"), nullptr, TAB_SIZES},
            {"tabsInsertSpacesDefault", &S::tabsInsertSpacesDefault, K::Check, P::Wide, QT_TR_NOOP("Insert spaces")},
            {"tabsAutoIndentDefault", &S::tabsAutoIndentDefault, K::Check, P::Wide, QT_TR_NOOP("Auto indent")},
        }},
        {QT_TR_NOOP("MEL"), Side::Beside, {
            {"tabsSizeMel", &S::tabsSizeMel, K::Number, P::Wide, QT_TR_NOOP("Size"), Why::MelUsesDefaults, TAB_SIZES},
            {"tabsInsertSpacesMel", &S::tabsInsertSpacesMel, K::Check, P::Wide, QT_TR_NOOP("Insert spaces"), Why::MelUsesDefaults},
            {"tabsAutoIndentMel", &S::tabsAutoIndentMel, K::Check, P::Wide, QT_TR_NOOP("Auto indent"), Why::MelUsesDefaults},
            {"tabsUseDefaultsMel", &S::tabsUseDefaultsMel, K::Check, P::Wide, QT_TR_NOOP("Use the default")},
        }},
        {QT_TR_NOOP("Python"), Side::Beside, {
            {"tabsSizePython", &S::tabsSizePython, K::Number, P::Wide, QT_TR_NOOP("Size"), Why::PythonUsesDefaults, TAB_SIZES},
            {"tabsInsertSpacesPython", &S::tabsInsertSpacesPython, K::Check, P::Wide, QT_TR_NOOP("Insert spaces"), Why::PythonUsesDefaults},
            {"tabsAutoIndentPython", &S::tabsAutoIndentPython, K::Check, P::Wide, QT_TR_NOOP("Auto indent"), Why::PythonUsesDefaults},
            {"tabsUseDefaultsPython", &S::tabsUseDefaultsPython, K::Check, P::Wide, QT_TR_NOOP("Use the default")},
        }},
    }};
    return PAGE;
}

const OptionPage& OptionTable::Mel()
{
    static const OptionPage PAGE {QT_TR_NOOP("MEL"), "lang_mel", {
        {QT_TR_NOOP("Checking"), Side::Below, {
            {"melDisplayErrors", &S::melDisplayErrors, K::Check, P::Wide, QT_TR_NOOP("Display errors while typing")},
        }},
        {QT_TR_NOOP("Typing"), Side::Below, {
            {"melSmartIndent", &S::melSmartIndent, K::Check, P::Left, QT_TR_NOOP("Smart indent")},
            {"melIndentToParentheses", &S::melIndentToParentheses, K::Check, P::Left, QT_TR_NOOP("Indent to parentheses"), Why::NoMelAutoIndent},
            {"melInsertClosingParentheses", &S::melInsertClosingParentheses, K::Check, P::Left, QT_TR_NOOP("Insert closing parentheses")},
            {"melInsertClosingQuotes", &S::melInsertClosingQuotes, K::Check, P::Left, QT_TR_NOOP("Insert closing quotes")},
            {"melDoubleClickIncludesDollarSign", &S::melDoubleClickIncludesDollarSign, K::Check, P::Wide, QT_TR_NOOP("Double-click selects the dollar sign")},
        }},
        {QT_TR_NOOP("Saving"), Side::Beside, {
            {"melTrimTrailingWhiteSpacesOnSave", &S::melTrimTrailingWhiteSpacesOnSave, K::Check, P::Left, QT_TR_NOOP("Trim trailing white space on save")},
            {"melEnsureNewLineAtEofOnSave", &S::melEnsureNewLineAtEofOnSave, K::Check, P::Left, QT_TR_NOOP("Ensure new line at end of file on save")},
        }},
        {QT_TR_NOOP("Completion"), Side::Below, {
            {"melCompleteOnLetters", &S::melCompleteOnLetters, K::Check, P::Left, QT_TR_NOOP("Complete on letters")},
            {"melCompleteOnUser", &S::melCompleteOnUser, K::Check, P::Left, QT_TR_NOOP("Complete on Ctrl+Space"), Why::NoMelCompletion},
            {"melAutoCompleteToQuickHelp", &S::melAutoCompleteToQuickHelp, K::Check, P::Left, QT_TR_NOOP("Send completion to Quick Help"), Why::NoMelCompletion},
        }},
    }};
    return PAGE;
}

const OptionPage& OptionTable::Python()
{
    static const OptionPage PAGE {QT_TR_NOOP("Python"), "lang_python", {
        {QT_TR_NOOP("Checking"), Side::Below, {
            {"pythonDisplayErrors", &S::pythonDisplayErrors, K::Check, P::Wide, QT_TR_NOOP("Display errors while typing")},
        }},
        {QT_TR_NOOP("Typing"), Side::Below, {
            {"pythonSmartIndent", &S::pythonSmartIndent, K::Check, P::Left, QT_TR_NOOP("Smart indent")},
            {"pythonIndentToParentheses", &S::pythonIndentToParentheses, K::Check, P::Left, QT_TR_NOOP("Indent to parentheses"), Why::NoPythonAutoIndent},
            {"pythonInsertClosingParentheses", &S::pythonInsertClosingParentheses, K::Check, P::Left, QT_TR_NOOP("Insert closing parentheses")},
            {"pythonInsertClosingQuotes", &S::pythonInsertClosingQuotes, K::Check, P::Left, QT_TR_NOOP("Insert closing quotes")},
        }},
        {QT_TR_NOOP("Saving"), Side::Beside, {
            {"pythonTrimTrailingWhiteSpacesOnSave", &S::pythonTrimTrailingWhiteSpacesOnSave, K::Check, P::Left, QT_TR_NOOP("Trim trailing white space on save")},
            {"pythonEnsureNewLineAtEofOnSave", &S::pythonEnsureNewLineAtEofOnSave, K::Check, P::Left, QT_TR_NOOP("Ensure new line at end of file on save")},
        }},
        {QT_TR_NOOP("Completion"), Side::Below, {
            {"pythonCompleteOnLetters", &S::pythonCompleteOnLetters, K::Check, P::Left, QT_TR_NOOP("Complete on letters")},
            {"pythonCompleteOnDot", &S::pythonCompleteOnDot, K::Check, P::Left, QT_TR_NOOP("Complete on dot")},
            {"pythonCompleteOnUser", &S::pythonCompleteOnUser, K::Check, P::Left, QT_TR_NOOP("Complete on Ctrl+Space"), Why::NoPythonLetters},
            {"pythonIncludeKeywords", &S::pythonIncludeKeywords, K::Check, P::Right, QT_TR_NOOP("Include keywords"), Why::NoPythonLetters},
            {"pythonIncludeBuiltins", &S::pythonIncludeBuiltins, K::Check, P::Right, QT_TR_NOOP("Include builtins"), Why::NoPythonLetters},
            {"pythonAutoCompleteToQuickHelp", &S::pythonAutoCompleteToQuickHelp, K::Check, P::Wide, QT_TR_NOOP("Send completion to Quick Help"), Why::NoPythonCompletion},
            {"pythonForcedImports", &S::pythonForcedImports, K::Lines, P::Wide, QT_TR_NOOP("Forced imports, a module or an import statement on each line")},
        }},
        {QT_TR_NOOP("Module state"), Side::Below, {
            {"pythonConfirmOverwriteModuleState", &S::pythonConfirmOverwriteModuleState, K::Check, P::Wide, QT_TR_NOOP("Confirm before overwriting the module state")},
            {"pythonRevertModuleStateOnExecute", &S::pythonRevertModuleStateOnExecute, K::Check, P::Wide, QT_TR_NOOP("Revert the module state before executing")},
            {"pythonDisableRevertModuleStateOnExecuteOnStartup", &S::pythonDisableRevertModuleStateOnExecuteOnStartup, K::Check, P::Wide, QT_TR_NOOP("Switch off Revert Module State on Execute at startup")},
            {"pythonImportPyMelOnLoad", &S::pythonImportPyMelOnLoad, K::Check, P::Wide, QT_TR_NOOP("Import PyMEL when the plug-in loads")},
        }},
        {QT_TR_NOOP("Workspace"), Side::Below, {
            {"pythonHideCompiledFiles", &S::pythonHideCompiledFiles, K::Check, P::Wide, QT_TR_NOOP("Hide compiled files in the workspace")},
        }},
    }};
    return PAGE;
}

const OptionPage& OptionTable::Pylint()
{
    static const OptionPage PAGE {QT_TR_NOOP("Pylint"), "prefs_pylint", {
        {QT_TR_NOOP("Checking"), Side::Below, {
            {"pylintEnabled", &S::pylintEnabled, K::Check, P::Wide, QT_TR_NOOP("Check Python scripts with pylint"), Why::NoPythonErrors},
            {"pylintUseMinimalCheckers", &S::pylintUseMinimalCheckers, K::Check, P::Wide, QT_TR_NOOP("Use a small set of checks instead of the configuration file"), Why::PylintOff},
            {"pylintShowErrors", &S::pylintShowErrors, K::Check, P::Wide, QT_TR_NOOP("Show pylint's own errors in the output"), Why::PylintOff},
        }},
        {QT_TR_NOOP("Program"), Side::Below, {
            {"pylintPath", &S::pylintPath, K::Executable, P::Wide, QT_TR_NOOP("Executable"), Why::PylintOff},
            {"pylintPythonHomePath", &S::pylintPythonHomePath, K::Folder, P::Wide, QT_TR_NOOP("Python home"), Why::PylintOff},
            {"pylintConfigPath", &S::pylintConfigPath, K::File, P::Wide, QT_TR_NOOP("Configuration file")},
            {"pylintAdditionalImportPaths", &S::pylintAdditionalPythonPaths, K::Paths, P::Wide, QT_TR_NOOP("Additional import paths"), Why::PylintOff},
        }},
    }};
    return PAGE;
}

const OptionPage& OptionTable::Output()
{
    static const OptionPage PAGE {QT_TR_NOOP("Output"), "prefs_output", {
        {QT_TR_NOOP("Font"), Side::Below, {
            {"outputFontFamily", &OUTPUT_FONT_FAMILY, K::FontFamily, P::Wide, QT_TR_NOOP("Font")},
            {"outputFontSize", &OUTPUT_FONT_SIZE, K::Number, P::Wide, QT_TR_NOOP("Size"), nullptr, FONT_SIZES},
        }},
        {QT_TR_NOOP("Console"), Side::Below, {
            {"outputBufferSize", &S::outputBufferSize, K::Number, P::Wide, QT_TR_NOOP("Keep at most"), nullptr, BUFFER_SIZES},
            {"outputWordWrapEnabled", &S::outputWordWrapEnabled, K::Check, P::Wide, QT_TR_NOOP("Wrap long lines")},
            {"outputMouseWheelChangesFontSize", &S::outputMouseWheelChangesFontSize, K::Check, P::Wide, QT_TR_NOOP("Change the font size with Ctrl and the mouse wheel")},
            {"outputSyntaxHighlightingEnabled", &S::outputSyntaxHighlightingEnabled, K::Check, P::Wide, QT_TR_NOOP("Highlight the output, what is selected and what is found")},
            {"outputMatchedSelectionWordsOnly", &S::outputMatchedSelectionWordsOnly, K::Check, P::Wide, QT_TR_NOOP("Mark what is selected elsewhere only where it is a whole word"), Why::OutputPlain},
            {"outputDoubleClickIncludesDollarSign", &S::outputDoubleClickIncludesDollarSign, K::Check, P::Wide, QT_TR_NOOP("Double-click selects the dollar sign")},
        }},
        {QT_TR_NOOP("Host"), Side::Below, {
            {"outputMinimalTrace", &S::outputMinimalTrace, K::Check, P::Wide, QT_TR_NOOP("Leave out the commands that are executed"), Why::EchoesAll},
            {"outputDisableEchoAllOnStartup", &S::outputDisableEchoAllOnStartup, K::Check, P::Wide, QT_TR_NOOP("Switch off Echo All Commands at startup")},
        }},
    }};
    return PAGE;
}
// clang-format on

QVector<const OptionPage*> OptionTable::GetPages()
{
    return {&General(), &Interface(), &CodeEditor(), &Indentation(), &Mel(), &Python(), &Pylint(),
        &Output()};
}

QVariant OptionTable::GetDefault(const OptionRow& row)
{
    if (const auto* const access = std::get_if<const OptionAccess*>(&row.member)) {
        if ((*access)->standard)
            return (*access)->standard();
    }
    const QString key = QLatin1String(row.key);
    const QVariant standard = Settings::GetDefault(key);
    return standard.isValid() ? standard : ExtraSettings::GetDefault(key);
}

QString OptionTable::Describe(const OptionRow& row)
{
    const QVariant standard = GetDefault(row);
    QString text = standard.type() == QVariant::Int ? QLocale().toString(standard.toInt())
                                                    : standard.toString();
    if (standard.type() == QVariant::Bool)
        text = standard.toBool() ? tr("on") : tr("off");
    else if (text.isEmpty())
        text = tr("empty");
    return tr("%1, default: %2").arg(QLatin1String(row.key), text);
}

QString OptionTable::GetLabel(const OptionRow& row)
{
    const QString key = QLatin1String(row.key);
    const bool isStored = Settings::IsStored(key) || ExtraSettings::GetDefault(key).isValid();
    return isStored ? tr(row.label) : tr("%1 (this session)").arg(tr(row.label));
}

bool OptionTable::Matches(const OptionRow& row, const QString& text)
{
    return GetLabel(row).contains(text, Qt::CaseInsensitive)
        || QString(QLatin1String(row.key)).contains(text, Qt::CaseInsensitive);
}
