#include "language/MelHighlighter.h"

#include "editor/CodeEditorBlockData.h"
#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"

namespace {

enum Role { Keyword, Command, Text, Number, Variable, Proc, Comment };

QStringList RoleKeys()
{
    return {ColorSettings::MEL_KEYWORDS, ColorSettings::MEL_COMMANDS, ColorSettings::MEL_STRINGS,
        ColorSettings::MEL_NUMBERS, ColorSettings::MEL_VARIABLES, ColorSettings::MEL_PROCS,
        ColorSettings::MEL_COMMENTS};
}

QVector<MultiLineHighlightingRule> Regions()
{
    // clang-format off
    return {
        // start              end                  role     backslash line   block  escapable
        {QLatin1String("//"), QLatin1String(),     Comment, false,    true,  false, false},
        {QLatin1String("/*"), QLatin1String("*/"), Comment, false,    false, true,  false},
        {QLatin1String("\""), QLatin1String("\""), Text,    true,     false, false, true},
    };
    // clang-format on
}

} // namespace

WordSet MelHighlighter::sMelKeywords;
WordSet MelHighlighter::sMelCommands;

MelHighlighter::MelHighlighter(QTextDocument* document)
    : Highlighter(document, Regions(), RoleKeys())
{
    if (sMelKeywords.IsEmpty())
        sMelKeywords = WordSet(MayaUtil::MelKeywords());
    if (sMelCommands.IsEmpty()) {
        sMelCommands = WordSet(
            MayaUtil::MelCommands() + MayaUtil::MelRunTimeCommands() + MayaUtil::MelProcedures());
    }
}

void MelHighlighter::HighlightEarlyRules(QStringView text, LineRoles& roles) const
{
    for (LineWord word = LineWords::Next(text, 0, LineWords::Letters); word.start < text.size();
         word = LineWords::Next(text, word.end, LineWords::Letters)) {
        const bool isFlag = word.start > 0 && text.at(word.start - 1) == QLatin1Char('-');
        if (!isFlag && LineWords::IsCalled(text, word.end))
            roles.Fill(word.start, word.end, Proc);
    }
}

void MelHighlighter::HighlightKeywords(QStringView text, LineRoles& roles) const
{
    // Flags and variables are words of their own, and so are never commands.
    constexpr int WORD = LineWords::Letters | LineWords::FlagSigns;
    LineWords::FillWords(text, WORD, sMelCommands, Command, roles);
    LineWords::FillWords(text, WORD, sMelKeywords, Keyword, roles);
}

void MelHighlighter::HighlightRules(QStringView text, LineRoles& roles) const
{
    LineWords::FillNumbers(text, Number, roles);
    for (LineWord word = LineWords::Next(text, 0, LineWords::Letters); word.start < text.size();
         word = LineWords::Next(text, word.end, LineWords::Letters)) {
        const int sign = word.start - 1;
        if (sign >= 0 && text.at(sign) == QLatin1Char('$')
            && (sign == 0 || !LineWords::Is(text.at(sign - 1), LineWords::Letters)))
            roles.Fill(sign, word.end, Variable);
    }
    LineWords::FillDefinitions(text, QLatin1String("proc"), Proc, roles);
}

/// One step for each brace that the line leaves open, one back for each that it closes too many.
void MelHighlighter::UpdateSmartIndentData(CodeEditorBlockData& data, QStringView, int) const
{
    int count = 0;
    for (const MatchingCharInfo& brace : data.GetBraces(QLatin1Char('{')))
        count += brace.direction;
    data.SetSmartIndentCount(count);
}
