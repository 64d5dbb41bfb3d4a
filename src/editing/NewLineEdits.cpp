#include "editing/NewLineEdits.h"

#include "editing/EditStep.h"
#include "editing/EditingOptions.h"
#include "editing/IndentText.h"
#include "editor/CodeEditorBlockData.h"

#include <optional>

namespace {

using Language = CodeEditorLanguage;

/// Whether a bracket left open (closed) before the cursor decides the indent of the new line.
bool IsIndentBrace(QChar brace, QChar melBrace, Language language)
{
    return language == Language::Python || (language == Language::Mel && brace == melBrace);
}

std::optional<NewLineIndent> IndentToParentheses(
    const NewLinePlace& place, const EditingOptions& options)
{
    QChar brace;
    int position = -1;
    if (!options.indentToParentheses
        || !place.data->GetLastOpenBrace(place.column - 1, brace, position)
        || !IsIndentBrace(brace, QLatin1Char('('), options.language))
        return std::nullopt;
    const QString spaces(position + 1, QLatin1Char(' '));
    return NewLineIndent{IndentInStyle(spaces, options), false, {}};
}

/// A statement that spanned several lines goes on at the indent of its first line.
std::optional<NewLineIndent> IndentOfStatement(
    const NewLinePlace& place, const EditingOptions& options, const BlockDataSource& source)
{
    QChar brace;
    int position = -1;
    QString indent;
    if (!place.data->GetLastClosingBrace(place.column - 1, brace, position)
        || !IsIndentBrace(brace, QLatin1Char(')'), options.language)
        || !FindOpeningBraceIndent(brace, position, place.block, *place.data, source, indent))
        return std::nullopt;
    const bool isMel = options.language == Language::Mel;
    NewLineIndent result{indent, false, {}};
    if (place.previous == QLatin1Char(isMel ? '{' : ':'))
        result.indent += options.IndentStep();
    if (isMel && place.next == QLatin1Char('}')) {
        result.splitsPair = true;
        result.restIndent = indent;
    }
    return result;
}

/// Curly braces that the line opens before a column, less those that it closes there.
int CurlyBalance(const CodeEditorBlockData& data, int column)
{
    int balance = 0;
    for (const MatchingCharInfo& brace : data.GetBraces(QLatin1Char('{'))) {
        if (brace.position < column)
            balance += brace.direction;
    }
    return balance;
}

/// Steps that the line adds for the next one; negative to take some away.
int SmartIndentSteps(const NewLinePlace& place, const EditingOptions& options)
{
    const QChar previous = place.previous;
    const bool opensList = previous == QLatin1Char('(') || previous == QLatin1Char('[');
    if (options.language == Language::Python)
        return opensList || previous == QLatin1Char(':') || previous == QLatin1Char('{') ? 1 : 0;
    if (options.language != Language::Mel)
        return 0;
    if (opensList)
        return 1;
    const int balance = CurlyBalance(*place.data, place.column);
    // A single closing brace has moved its own line already, when it was typed.
    return balance < 0 ? balance + 1 : balance;
}

bool IsBracketPair(QChar open, QChar close)
{
    return (open == QLatin1Char('(') && close == QLatin1Char(')'))
        || (open == QLatin1Char('[') && close == QLatin1Char(']'))
        || (open == QLatin1Char('{') && close == QLatin1Char('}'));
}

} // namespace

QChar PrevNonWhitespace(const QString& text, int index)
{
    for (int at = qMin(index, text.size() - 1); at >= 0; --at) {
        if (!text.at(at).isSpace())
            return text.at(at);
    }
    return {};
}

QChar NextNonWhitespace(const QString& text, int index)
{
    for (int at = qMax(0, index); at < text.size(); ++at) {
        if (!text.at(at).isSpace())
            return text.at(at);
    }
    return {};
}

bool FindOpeningBraceIndent(QChar brace, int column, const QTextBlock& block,
    const CodeEditorBlockData& data, const BlockDataSource& source, QString& indent)
{
    const QString opener(brace == QLatin1Char(')') ? QLatin1Char('(')
            : brace == QLatin1Char(']')            ? QLatin1Char('[')
                                                   : QLatin1Char('{'));
    int depth = 1;
    const auto walkLine = [&](const CodeEditorBlockData& lineData, int end) {
        const QVector<MatchingCharInfo> braces = lineData.GetBraces(brace);
        for (auto entry = braces.crbegin(); entry != braces.crend() && depth > 0; ++entry) {
            if (end < 0 || entry->position < end)
                depth -= entry->direction;
        }
        if (depth == 0)
            indent = lineData.GetIndent();
        return depth == 0;
    };
    if (walkLine(data, column))
        return true;
    for (QTextBlock line = block.previous(); line.isValid(); line = line.previous()) {
        // Filling the records of a whole long script would be felt.
        const QString text = line.text();
        if (!text.contains(brace) && !text.contains(opener))
            continue;
        const CodeEditorBlockData* lineData = source(line);
        if (lineData && walkLine(*lineData, -1))
            return true;
    }
    return false;
}

NewLinePlace NewLinePlace::Of(const QTextCursor& cursor, const BlockDataSource& source)
{
    const QTextBlock block = cursor.block();
    const QString text = block.text();
    const int column = cursor.positionInBlock();
    return {block, source(block), column, PrevNonWhitespace(text, column - 1),
        NextNonWhitespace(text, column)};
}

NewLineIndent IndentOfNewLine(
    const NewLinePlace& place, const EditingOptions& options, const BlockDataSource& source)
{
    if (!place.data || !options.autoIndent)
        return {};
    if (const auto aligned = IndentToParentheses(place, options))
        return *aligned;
    if (const auto continued = IndentOfStatement(place, options, source))
        return *continued;
    const QString indent = IndentInStyle(place.data->GetIndent().left(place.column), options);
    const int steps = options.smartIndent ? SmartIndentSteps(place, options) : 0;
    if (steps < 0)
        return {Dedented(indent, -steps, options), false, {}};
    return {indent + options.IndentStep().repeated(steps),
        steps > 0 && IsBracketPair(place.previous, place.next), indent};
}

void UpdateIndentationOnNewLine(QTextCursor& cursor, const NewLineIndent& indent)
{
    if (!indent.indent.isEmpty())
        cursor.insertText(indent.indent);
    if (!indent.splitsPair)
        return;
    const int position = cursor.position();
    cursor.insertBlock();
    cursor.insertText(indent.restIndent);
    cursor.setPosition(position);
}

void InsertNewLine(
    QTextCursor& cursor, const EditingOptions& options, const BlockDataSource& source)
{
    const EditStep step(cursor);
    cursor.removeSelectedText();
    const NewLinePlace place = NewLinePlace::Of(cursor, source);
    const NewLineIndent indent = IndentOfNewLine(place, options, source);
    cursor.insertBlock();
    UpdateIndentationOnNewLine(cursor, indent);
}
