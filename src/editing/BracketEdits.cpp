#include "editing/BracketEdits.h"

#include "editing/Brackets.h"
#include "editing/EditStep.h"
#include "editing/EditingOptions.h"
#include "editing/IndentEdits.h"
#include "editing/NewLineEdits.h"
#include "editor/CodeEditorBlockData.h"

#include <QTextBlock>
#include <QTextDocument>

namespace {

QChar CharacterAt(const QTextCursor& cursor)
{
    return cursor.document()->characterAt(cursor.position());
}

/// A line end at the start of a line, the null character at the start of the text.
QChar CharacterBefore(const QTextCursor& cursor)
{
    const int position = cursor.position();
    return position > 0 ? cursor.document()->characterAt(position - 1) : QChar();
}

/// Also of characters that take two units.
bool IsLetterOrDigitBefore(const QTextCursor& cursor)
{
    const QChar character = CharacterBefore(cursor);
    if (!character.isLowSurrogate() || cursor.position() < 2)
        return character.isLetter() || character.isDigit();
    const QChar high = cursor.document()->characterAt(cursor.position() - 2);
    const uint code = QChar::surrogateToUcs4(high, character);
    return high.isHighSurrogate() && (QChar::isLetter(code) || QChar::isDigit(code));
}

bool IsIgnored(const QTextCursor& cursor, const BlockDataSource& source)
{
    const CodeEditorBlockData* data = source(cursor.block());
    return data && data->IsIgnoredPosition(cursor.positionInBlock());
}

bool IsBlankLine(const QTextBlock& block)
{
    return block.text().trimmed().isEmpty();
}

/// As the text widget does with any character.
void Type(QTextCursor& cursor, QChar character, const EditingOptions& options)
{
    const EditStep step(cursor);
    if (options.overwrite && !cursor.hasSelection() && !cursor.atBlockEnd())
        cursor.deleteChar();
    cursor.insertText(character);
}

void TypePair(QTextCursor& cursor, QChar open, QChar close)
{
    const EditStep step(cursor);
    cursor.insertText(QString(open) + close);
    cursor.movePosition(QTextCursor::PreviousCharacter);
}

void StepOver(QTextCursor& cursor)
{
    cursor.setPosition(cursor.position() + 1);
}

void DeletePair(QTextCursor& cursor)
{
    const EditStep step(cursor);
    cursor.deletePreviousChar();
    cursor.deleteChar();
}

/// Replaces the white space between the line's start and the cursor.
void ReplaceIndent(QTextCursor& cursor, const QString& indent)
{
    if (cursor.block().text().left(cursor.positionInBlock()) == indent)
        return;
    cursor.setPosition(cursor.block().position(), QTextCursor::KeepAnchor);
    cursor.insertText(indent);
}

/// Whether a quote typed at the cursor gets its partner at once.
bool IsQuotePairWanted(const QTextCursor& cursor)
{
    const QChar before = CharacterBefore(cursor);
    const QChar after = CharacterAt(cursor);
    if (IsQuote(before) || IsQuote(after))
        return false;
    // Line ends count as white space here, also the one at the end of the text.
    const bool isBeforeCode = !after.isSpace() && !IsClosingBrace(after);
    if (!isBeforeCode && !IsLetterOrDigitBefore(cursor))
        return true;
    return IsMatchingBraces(before, after);
}

/// The last line of code above; invalid without one.
QTextBlock PreviousCodeLine(const QTextBlock& block, const BlockDataSource& source)
{
    for (QTextBlock line = block.previous(); line.isValid(); line = line.previous()) {
        if (IsBlankLine(line))
            continue;
        const CodeEditorBlockData* data = source(line);
        if (data && !data->IsEmpty())
            return line;
    }
    return {};
}

bool EndsInWord(const QString& code, QLatin1String word)
{
    if (!code.endsWith(word))
        return false;
    const int before = code.size() - word.size() - 1;
    return before < 0
        || !(code.at(before).isLetterOrNumber() || code.at(before) == QLatin1Char('_'));
}

} // namespace

void WrapSelection(QTextCursor& cursor, QChar open, QChar close)
{
    const EditStep step(cursor);
    const CursorPlace place = CursorPlace::Of(cursor);
    const int start = cursor.selectionStart();
    cursor.setPosition(cursor.selectionEnd());
    cursor.insertText(close);
    cursor.setPosition(start);
    cursor.insertText(open);
    CursorPlace{place.anchor + 1, place.position + 1}.ApplyTo(cursor);
}

void InsertOpeningBrace(
    QTextCursor& cursor, QChar brace, const EditingOptions& options, const BlockDataSource& source)
{
    if (!options.closeBrackets) {
        const EditStep step(cursor);
        const bool replacesSelection = cursor.hasSelection();
        cursor.removeSelectedText();
        if (brace == QLatin1Char('{'))
            SmartIndentOpenCurlyBrace(cursor, options, source);
        if (options.overwrite && !replacesSelection && !cursor.atBlockEnd())
            cursor.deleteChar();
        cursor.insertText(brace);
        return;
    }
    if (cursor.hasSelection()) {
        WrapSelection(cursor, brace, MatchingBrace(brace));
        return;
    }
    const QChar after = CharacterAt(cursor);
    const bool isFree = after.isSpace() || IsOpeningBrace(after) || IsClosingBrace(after);
    if (isFree && !IsIgnored(cursor, source))
        TypePair(cursor, brace, MatchingBrace(brace));
    else
        Type(cursor, brace, options);
}

void InsertClosingBrace(
    QTextCursor& cursor, QChar brace, const EditingOptions& options, const BlockDataSource& source)
{
    if (!cursor.hasSelection() && options.closeBrackets && CharacterAt(cursor) == brace) {
        StepOver(cursor);
        return;
    }
    const QTextBlock block = cursor.block();
    const CodeEditorBlockData* data = source(block);
    QString indent;
    const bool movesLine = !cursor.hasSelection() && options.smartIndent
        && !options.indentToParentheses && IsBlankLine(block) && data
        && FindOpeningBraceIndent(brace, cursor.positionInBlock(), block, *data, source, indent);
    const EditStep step(cursor);
    if (movesLine)
        ReplaceIndent(cursor, indent);
    if (options.overwrite && !cursor.hasSelection() && !cursor.atBlockEnd())
        cursor.deleteChar();
    cursor.insertText(brace);
}

void InsertQuote(
    QTextCursor& cursor, QChar quote, const EditingOptions& options, const BlockDataSource& source)
{
    if (options.closeQuotes && cursor.hasSelection())
        WrapSelection(cursor, quote, quote);
    else if (options.closeQuotes && CharacterAt(cursor) == quote)
        StepOver(cursor);
    else if (options.closeQuotes && !IsIgnored(cursor, source) && IsQuotePairWanted(cursor))
        TypePair(cursor, quote, quote);
    else
        Type(cursor, quote, options);
}

bool InsertBackspace(
    QTextCursor& cursor, const EditingOptions& options, const BlockDataSource& source)
{
    const QChar before = CharacterBefore(cursor);
    const bool isQuote = IsQuoteOf(options.language, before);
    if (cursor.hasSelection() || (!isQuote && IsIgnored(cursor, source)))
        return false;
    const QString left = cursor.block().text().left(cursor.positionInBlock());
    if (options.backspaceToTabStop && !left.isEmpty() && left.trimmed().isEmpty()) {
        DecreaseIndent(cursor, options);
        return true;
    }
    const QChar after = CharacterAt(cursor);
    const bool isBracketPair = IsOpeningBrace(before) && after == MatchingBrace(before);
    if ((options.closeBrackets && isBracketPair)
        || (options.closeQuotes && isQuote && after == before)) {
        DeletePair(cursor);
        return true;
    }
    return false;
}

void SmartIndentOpenCurlyBrace(
    QTextCursor& cursor, const EditingOptions& options, const BlockDataSource& source)
{
    const QTextBlock block = cursor.block();
    if (!options.smartIndent || options.language != CodeEditorLanguage::Mel || !IsBlankLine(block))
        return;
    const QTextBlock header = PreviousCodeLine(block, source);
    const CodeEditorBlockData* data = header.isValid() ? source(header) : nullptr;
    if (!data)
        return;
    const QString code = header.text().left(data->GetNonCommentLength()).trimmed();
    QString indent = data->GetIndent();
    if (code.endsWith(QLatin1Char(')'))) {
        const QVector<MatchingCharInfo> braces = data->GetBraces(QLatin1Char(')'));
        if (braces.isEmpty()
            || !FindOpeningBraceIndent(
                QLatin1Char(')'), braces.constLast().position, header, *data, source, indent))
            return;
    } else if (!EndsInWord(code, QLatin1String("else")) && !EndsInWord(code, QLatin1String("do"))) {
        return;
    }
    ReplaceIndent(cursor, indent);
}
