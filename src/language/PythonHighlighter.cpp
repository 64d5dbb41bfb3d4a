#include "language/PythonHighlighter.h"

#include "editor/CodeEditorBlockData.h"
#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"

namespace {

enum Role {
    Keyword,
    Builtin,
    MelCommand,
    Text,
    DocString,
    Number,
    Class,
    Method,
    Comment,
    Decorator,
    SelfCls
};

QStringList RoleKeys()
{
    return {ColorSettings::PYTHON_KEYWORDS, ColorSettings::PYTHON_BUILTINS,
        ColorSettings::PYTHON_MEL_COMMANDS, ColorSettings::PYTHON_STRINGS,
        ColorSettings::PYTHON_DOC_STRINGS, ColorSettings::PYTHON_NUMBERS,
        ColorSettings::PYTHON_CLASSES, ColorSettings::PYTHON_METHODS,
        ColorSettings::PYTHON_COMMENTS, ColorSettings::PYTHON_DECORATORS,
        ColorSettings::PYTHON_SELF_CLS};
}

QVector<MultiLineHighlightingRule> Regions()
{
    // clang-format off
    return {
        // start                  end                     role       backslash line   block  escapable
        {QLatin1String("#"),      QLatin1String(),        Comment,   false,    true,  false, false},
        {QLatin1String("\"\"\""), QLatin1String("\"\"\""), DocString, false,   false, false, true},
        {QLatin1String("'''"),    QLatin1String("'''"),   DocString, false,    false, false, true},
        {QLatin1String("\""),     QLatin1String("\""),    Text,      true,     false, false, true},
        {QLatin1String("'"),      QLatin1String("'"),     Text,      true,     false, false, true},
    };
    // clang-format on
}

} // namespace

WordSet PythonHighlighter::sPythonKeywords;
WordSet PythonHighlighter::sPythonBuiltins;
WordSet PythonHighlighter::sPythonMelCommands;

PythonHighlighter::PythonHighlighter(QTextDocument* document)
    : Highlighter(document, Regions(), RoleKeys())
{
    if (sPythonKeywords.IsEmpty())
        sPythonKeywords = WordSet(MayaUtil::PythonKeywords());
    if (sPythonBuiltins.IsEmpty())
        sPythonBuiltins = WordSet(MayaUtil::PythonBuiltins());
    if (sPythonMelCommands.IsEmpty())
        sPythonMelCommands = WordSet(MayaUtil::MelCommands());
}

void PythonHighlighter::HighlightEarlyRules(QStringView text, LineRoles& roles) const
{
    for (LineWord word = LineWords::Next(text, 0, LineWords::Letters); word.start < text.size();
         word = LineWords::Next(text, word.end, LineWords::Letters)) {
        if (LineWords::IsCalled(text, word.end))
            roles.Fill(word.start, word.end, Method);
    }
}

void PythonHighlighter::HighlightBuiltins(QStringView text, LineRoles& roles) const
{
    // A dotted name is one word: "os.open" is no builtin.
    LineWords::FillWords(
        text, LineWords::Letters | LineWords::Dot, sPythonBuiltins, Builtin, roles);
}

void PythonHighlighter::HighlightKeywords(QStringView text, LineRoles& roles) const
{
    constexpr int WORD = LineWords::Letters | LineWords::FlagSigns;
    LineWords::FillWords(text, WORD, sPythonMelCommands, MelCommand, roles);
    LineWords::FillWords(text, WORD, sPythonKeywords, Keyword, roles);
}

void PythonHighlighter::HighlightRules(QStringView text, LineRoles& roles) const
{
    for (LineWord word = LineWords::Next(text, 0, LineWords::Letters); word.start < text.size();
         word = LineWords::Next(text, word.end, LineWords::Letters)) {
        const QStringView name = text.mid(word.start, word.end - word.start);
        if (name == QLatin1String("self") || name == QLatin1String("cls"))
            roles.Fill(word.start, word.end, SelfCls);
    }
    LineWords::FillNumbers(text, Number, roles);
    LineWords::FillDefinitions(text, QLatin1String("class"), Class, roles);
    LineWords::FillDefinitions(text, QLatin1String("def"), Method, roles);
    const int first = LineWords::SkipAll(text, 0, LineWords::Space);
    if (first < text.size() && text.at(first) == QLatin1Char('@'))
        roles.Fill(0, text.size(), Decorator);
}

/// One step behind a colon or an opening bracket.
void PythonHighlighter::UpdateSmartIndentData(
    CodeEditorBlockData& data, QStringView text, int codeEnd) const
{
    if (codeEnd == 0 || data.IsIgnoredPosition(codeEnd - 1))
        return;
    const QChar last = text.at(codeEnd - 1);
    const bool opens = QStringView(u":([{").contains(last);
    data.SetSmartIndentCount(opens ? 1 : 0);
}
