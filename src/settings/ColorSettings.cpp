#include "settings/ColorSettings.h"

#include <QPlainTextEdit>

namespace {

const QString NOT_SET = QStringLiteral("Not Set");

/// Where a role's colours come from when no literal stands in the table.
const char* const FROM_PALETTE = "palette";

struct Role
{
    const QString& key;
    const char* label;
    const char* foreground; ///< null: the brush is not set
    const char* background;
    bool isSyntax;
    bool italic;
};

} // namespace

#define TE2_ROLE(NAME, key) const QString ColorSettings::NAME = QStringLiteral(key);
TE2_ROLE(PLAIN_TEXT, "plainText")
TE2_ROLE(SELECTED_TEXT, "selectedText")
TE2_ROLE(MATCHING_SELECTION, "matchingSelection")
TE2_ROLE(FIND_REPLACE_SELECTED, "findReplaceSelectedFound")
TE2_ROLE(FIND_REPLACE_MATCHING, "findReplaceMatching")
TE2_ROLE(FIND_REPLACE_SELECTION, "findReplaceSelection")
TE2_ROLE(CURRENT_LINE, "currentLine")
TE2_ROLE(MATCHING_BRACES, "matchingBraces")
TE2_ROLE(WHITESPACES, "whitespaces")
TE2_ROLE(INDENTATION_GUIDES, "indentationGuides")
TE2_ROLE(LINE_NUMBERS, "lineNumbers")
TE2_ROLE(GUTTER, "gutter")
TE2_ROLE(MEL_KEYWORDS, "melKeywords")
TE2_ROLE(MEL_COMMANDS, "melCommands")
TE2_ROLE(MEL_STRINGS, "melStrings")
TE2_ROLE(MEL_NUMBERS, "melNumbers")
TE2_ROLE(MEL_VARIABLES, "melVariables")
TE2_ROLE(MEL_PROCS, "melProcs")
TE2_ROLE(MEL_COMMENTS, "melComments")
TE2_ROLE(PYTHON_KEYWORDS, "pythonKeywords")
TE2_ROLE(PYTHON_BUILTINS, "pythonBuiltins")
TE2_ROLE(PYTHON_STRINGS, "pythonStrings")
TE2_ROLE(PYTHON_DOC_STRINGS, "pythonDocStrings")
TE2_ROLE(PYTHON_NUMBERS, "pythonNumbers")
TE2_ROLE(PYTHON_CLASSES, "pythonClasses")
TE2_ROLE(PYTHON_METHODS, "pythonMethods")
TE2_ROLE(PYTHON_COMMENTS, "pythonComments")
TE2_ROLE(PYTHON_DECORATORS, "pythonDecorators")
TE2_ROLE(PYTHON_SELF_CLS, "pythonSelfCls")
TE2_ROLE(PYTHON_MEL_COMMANDS, "pythonMelCommands")
#undef TE2_ROLE

namespace {

using C = ColorSettings;

// clang-format off
const Role CODE_EDITOR_ROLES[] = {
    {C::PLAIN_TEXT,             "Plain Text",             "#d4d4d4",    "#1e1e1e",    false, false},
    {C::SELECTED_TEXT,          "Selected Text",          FROM_PALETTE, FROM_PALETTE, false, false},
    {C::MATCHING_SELECTION,     "Matching Selection",     nullptr,      "#324860",    false, false},
    {C::FIND_REPLACE_SELECTED,  "Find/Replace Selected",  nullptr,      "#644334",    false, false},
    {C::FIND_REPLACE_MATCHING,  "Find/Replace Matching",  nullptr,      "#613214",    false, false},
    {C::FIND_REPLACE_SELECTION, "Find/Replace Selection", nullptr,      "#232323",    false, false},
    {C::CURRENT_LINE,           "Current Line",           nullptr,      "#272727",    false, false},
    {C::MATCHING_BRACES,        "Matching Braces",        "#ffffff",    "#676d74",    false, false},
    {C::WHITESPACES,            "Whitespaces",            "#404040",    nullptr,      false, false},
    {C::INDENTATION_GUIDES,     "Indentation Guides",     "#404040",    nullptr,      false, false},
    {C::LINE_NUMBERS,           "Line Numbers",           "#404040",    "#1e1e1e",    false, false},
    {C::GUTTER,                 "Gutter",                 nullptr,      "#1e1e1e",    false, false},
    {C::MEL_KEYWORDS,           "MEL Keywords",           "#c586c0",    nullptr,      true,  false},
    {C::MEL_COMMANDS,           "MEL Commands",           "#9cdcfe",    nullptr,      true,  false},
    {C::MEL_STRINGS,            "MEL Strings",            "#ce9178",    nullptr,      true,  false},
    {C::MEL_NUMBERS,            "MEL Numbers",            "#b5cea8",    nullptr,      true,  false},
    {C::MEL_VARIABLES,          "MEL Variables",          "#608b4e",    nullptr,      true,  false},
    {C::MEL_PROCS,              "MEL Procs",              "#569cd6",    nullptr,      true,  false},
    {C::MEL_COMMENTS,           "MEL Comments",           "#808080",    nullptr,      true,  true},
    {C::PYTHON_KEYWORDS,        "Python Keywords",        "#c586c0",    nullptr,      true,  false},
    {C::PYTHON_BUILTINS,        "Python Builtins",        "#dcdcaa",    nullptr,      true,  false},
    {C::PYTHON_STRINGS,         "Python Strings",         "#ce9178",    nullptr,      true,  false},
    {C::PYTHON_DOC_STRINGS,     "Python Doc Strings",     "#808080",    nullptr,      true,  true},
    {C::PYTHON_NUMBERS,         "Python Numbers",         "#b5cea8",    nullptr,      true,  false},
    {C::PYTHON_CLASSES,         "Python Classes",         "#66c987",    nullptr,      true,  false},
    {C::PYTHON_METHODS,         "Python Methods",         "#569cd6",    nullptr,      true,  false},
    {C::PYTHON_COMMENTS,        "Python Comments",        "#608b4e",    nullptr,      true,  false},
    {C::PYTHON_DECORATORS,      "Python Decorators",      "#66c987",    nullptr,      true,  true},
    {C::PYTHON_SELF_CLS,        "Python self/cls",        "#9cdcfe",    nullptr,      true,  false},
    {C::PYTHON_MEL_COMMANDS,    "Python MEL Commands",    "#569cd6",    nullptr,      true,  false},
};

const Role OUTPUT_ROLES[] = {
    {C::PLAIN_TEXT,            "Plain Text",         "#d4d4d4",    "#1e1e1e",    false, false},
    {C::SELECTED_TEXT,         "Selected Text",      FROM_PALETTE, FROM_PALETTE, false, false},
    {C::MATCHING_SELECTION,    "Matching Selection", nullptr,      "#324860",    false, false},
    {C::FIND_REPLACE_SELECTED, "Find Selected",      nullptr,      "#644334",    false, false},
    {C::FIND_REPLACE_MATCHING, "Find Matching",      nullptr,      "#613214",    false, false},
};

struct BuiltInRule
{
    const char* name;
    const char* pattern;
    const char* foreground;
};

const BuiltInRule OUTPUT_RULES[] = {
    {"Errors (Python)",   "^(\\# Error:)",   "#f42828"},
    {"Errors (MEL)",      "^(// Error:)",    "#f42828"},
    {"Warnings (Python)", "^(\\# Warning:)", "#dfe527"},
    {"Warnings (MEL)",    "^(// Warning:)",  "#dfe527"},
    {"Results (Python)",  "^(\\# Result:)",  "#2ab422"},
    {"Results (MEL)",     "^(// Result:)",   "#2ab422"},
};
// clang-format on

QColor RoleColor(const char* text, const QPalette& palette, QPalette::ColorRole role)
{
    if (!text)
        return {};
    return text == FROM_PALETTE ? palette.color(role) : QColor(QLatin1String(text));
}

HighlightProperties MakeProperties(const QString& label, const QColor& foreground,
    const QColor& background, bool isSyntax, int weight, bool italic,
    QTextCharFormat::UnderlineStyle underline)
{
    QTextCharFormat format;
    if (foreground.isValid())
        format.setForeground(foreground);
    if (background.isValid())
        format.setBackground(background);
    format.setFontWeight(weight);
    format.setFontItalic(italic);
    format.setUnderlineStyle(underline);
    return {label, format, format, isSyntax};
}

template <size_t N, typename Append>
void AppendRoles(const Role (&roles)[N], Append append)
{
    // The colours of selected text follow the host's style, which only a text widget knows.
    const QPalette palette = QPlainTextEdit().palette();
    for (const Role& role : roles) {
        append(role.key, QString::fromLatin1(role.label),
            RoleColor(role.foreground, palette, QPalette::HighlightedText),
            RoleColor(role.background, palette, QPalette::Highlight), role.isSyntax, QFont::Normal,
            role.italic, QTextCharFormat::NoUnderline);
    }
}

void PaintWholeWidth(HighlightProperties& properties)
{
    properties.format.setProperty(QTextFormat::FullWidthSelection, true);
    properties.defaultFormat.setProperty(QTextFormat::FullWidthSelection, true);
}

QTextCharFormat Wave(const char* color)
{
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(QColor(QLatin1String(color)));
    return format;
}

QTextCharFormat FormatOf(
    const QMap<QString, HighlightProperties>& map, const QString& key, bool defaultFormat)
{
    const HighlightProperties properties = map.value(key);
    return defaultFormat ? properties.defaultFormat : properties.format;
}

void ReplaceFormat(
    QMap<QString, HighlightProperties>& map, const QString& key, const QTextCharFormat& format)
{
    const auto found = map.find(key);
    if (found != map.end())
        found->format = format;
}

HighlightProperties PropertiesOf(const QMap<QString, HighlightProperties>& map, const QString& key)
{
    HighlightProperties unknown;
    unknown.label = NOT_SET;
    return map.value(key, unknown);
}

} // namespace

void ColorSettings::Initialize()
{
    codeEditorHighlights.clear();
    codeEditorHighlightOrderedKeys.clear();
    AppendRoles(CODE_EDITOR_ROLES, &ColorSettings::AppendCodeEditorFormat);
    PaintWholeWidth(codeEditorHighlights[FIND_REPLACE_SELECTION]);
    PaintWholeWidth(codeEditorHighlights[CURRENT_LINE]);
    outputHighlights.clear();
    outputHighlightOrderedKeys.clear();
    AppendRoles(OUTPUT_ROLES, &ColorSettings::AppendOutputFormat);
    PaintWholeWidth(outputHighlights[FIND_REPLACE_SELECTION]);
    outputUserDefinedSelections = GetBuiltInSelections();
    errorFormat = Wave("#f44646");
    warningFormat = Wave("#ffff00");
    infoFormat = Wave("#569cd6");
    sideBarBaseColor = QColor(QStringLiteral("#262626"));
    sideBarHighlightColor = QColor(QStringLiteral("#363636"));
}

QVector<ExtraSelectionProperties> ColorSettings::GetBuiltInSelections()
{
    QVector<ExtraSelectionProperties> rules;
    for (const BuiltInRule& rule : OUTPUT_RULES) {
        rules += ExtraSelectionProperties(QString::fromLatin1(rule.name),
            QColor(QLatin1String(rule.foreground)), QColor(), QString::fromLatin1(rule.pattern),
            true, true, true);
    }
    return rules;
}

void ColorSettings::AppendCodeEditorFormat(const QString& key, const QString& label,
    const QColor& foreground, const QColor& background, bool isSyntax, int weight, bool italic,
    QTextCharFormat::UnderlineStyle underline)
{
    codeEditorHighlights.insert(
        key, MakeProperties(label, foreground, background, isSyntax, weight, italic, underline));
    codeEditorHighlightOrderedKeys += key;
}

void ColorSettings::AppendOutputFormat(const QString& key, const QString& label,
    const QColor& foreground, const QColor& background, bool isSyntax, int weight, bool italic,
    QTextCharFormat::UnderlineStyle underline)
{
    outputHighlights.insert(
        key, MakeProperties(label, foreground, background, isSyntax, weight, italic, underline));
    outputHighlightOrderedKeys += key;
}

QTextCharFormat ColorSettings::GetCodeEditorFormat(const QString& key, bool defaultFormat)
{
    return FormatOf(codeEditorHighlights, key, defaultFormat);
}

QTextCharFormat ColorSettings::GetOutputFormat(const QString& key, bool defaultFormat)
{
    return FormatOf(outputHighlights, key, defaultFormat);
}

QTextCharFormat* ColorSettings::GetCodeEditorFormatPtr(const QString& key, bool defaultFormat)
{
    const auto found = codeEditorHighlights.find(key);
    if (found == codeEditorHighlights.end())
        return nullptr;
    return defaultFormat ? &found->defaultFormat : &found->format;
}

void ColorSettings::SetCodeEditorFormat(const QString& key, const QTextCharFormat& format)
{
    ReplaceFormat(codeEditorHighlights, key, format);
}

void ColorSettings::SetOutputFormat(const QString& key, const QTextCharFormat& format)
{
    ReplaceFormat(outputHighlights, key, format);
}

HighlightProperties ColorSettings::GetCodeEditorHighlightProperties(const QString& key)
{
    return PropertiesOf(codeEditorHighlights, key);
}

HighlightProperties ColorSettings::GetOutputHighlightProperties(const QString& key)
{
    return PropertiesOf(outputHighlights, key);
}
