#include "editing/Brackets.h"

QChar MatchingBrace(QChar character)
{
    switch (character.unicode()) {
    case '(': return QLatin1Char(')');
    case ')': return QLatin1Char('(');
    case '[': return QLatin1Char(']');
    case ']': return QLatin1Char('[');
    case '{': return QLatin1Char('}');
    case '}': return QLatin1Char('{');
    default: return {};
    }
}

bool IsOpeningBrace(QChar character)
{
    return character == QLatin1Char('(') || character == QLatin1Char('[')
        || character == QLatin1Char('{');
}

bool IsClosingBrace(QChar character)
{
    return character == QLatin1Char(')') || character == QLatin1Char(']')
        || character == QLatin1Char('}');
}

// Scripts and habits rely on the square bracket's odd partner. Guarded by
// BlockDataTest::SquareBracketsMatchOnlyThemselves.
bool IsMatchingBraces(QChar open, QChar close)
{
    return (open == QLatin1Char('(') && close == QLatin1Char(')'))
        || (open == QLatin1Char('{') && close == QLatin1Char('}'))
        || (open == QLatin1Char('[') && close == QLatin1Char('['));
}

bool IsQuote(QChar character)
{
    return character == QLatin1Char('"') || character == QLatin1Char('\'')
        || character == QLatin1Char('`');
}

bool IsQuoteOf(CodeEditorLanguage language, QChar character)
{
    return character == QLatin1Char('"')
        || (language == CodeEditorLanguage::Mel && character == QLatin1Char('`'))
        || (language == CodeEditorLanguage::Python && character == QLatin1Char('\''));
}
