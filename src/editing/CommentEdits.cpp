#include "editing/CommentEdits.h"

#include "editing/EditStep.h"
#include "editing/EditingOptions.h"
#include "editing/LineRange.h"
#include "editing/TextColumns.h"
#include "editor/CodeEditorBlockData.h"

#include <QTextBlock>
#include <QTextDocument>

#include <limits>

namespace {

constexpr int MARKER_LENGTH = 2; // of a block comment

QLatin1String TokenOf(CodeEditorLanguage language)
{
    switch (language) {
    case CodeEditorLanguage::Mel: return QLatin1String("//");
    case CodeEditorLanguage::Python: return QLatin1String("#");
    case CodeEditorLanguage::Text: break;
    }
    return {};
}

int FirstWord(const QString& text)
{
    int column = 0;
    while (column < text.size() && text.at(column).isSpace())
        ++column;
    return column;
}

bool IsCommented(const QString& text, QLatin1String token)
{
    return text.trimmed().startsWith(token);
}

/// Each of the tabs at the line's start gives way to its spaces.
void AppendConvertedTabs(TextChanges& changes, int position, const QString& text, int tabSize)
{
    const int blanks = IndentLength(text);
    int column = 0;
    for (int at = 0; at < blanks; ++at) {
        const int width = text.at(at) == QLatin1Char('\t') ? tabSize - column % tabSize : 1;
        column += width;
        if (text.at(at) == QLatin1Char('\t'))
            changes.append({position + at, 1, QString(width, QLatin1Char(' '))});
    }
}

void AppendUncomment(TextChanges& changes, int position, const QString& text, QLatin1String token)
{
    const int start = FirstWord(text);
    int end = start;
    // Every character of the marker goes where it is met; one that is not there is passed over.
    for (const char character : token) {
        if (end < text.size() && text.at(end) == QLatin1Char(character))
            ++end;
    }
    if (end > start && end < text.size() && text.at(end) == QLatin1Char(' '))
        ++end;
    if (end > start)
        changes.append({position + start, end - start, {}});
}

TextChanges ToggleCommentOfLine(const QTextBlock& block, QLatin1String token)
{
    TextChanges changes;
    const QString text = block.text();
    if (text.trimmed().isEmpty())
        return changes;
    if (IsCommented(text, token))
        AppendUncomment(changes, block.position(), text, token);
    else
        changes.append({block.position() + FirstWord(text), 0, token + QLatin1Char(' ')});
    return changes;
}

/// Leading tabs go first, in a pass of its own, so that all markers can stand in one column.
TextChanges ConvertLeadingTabs(const LineRange& lines, int tabSize)
{
    TextChanges changes;
    for (QTextBlock block = lines.first;; block = block.next()) {
        AppendConvertedTabs(changes, block.position(), block.text(), tabSize);
        if (block == lines.last)
            break;
    }
    return changes;
}

TextChanges ToggleCommentOfLines(const LineRange& lines, QLatin1String token)
{
    bool comments = false;
    int column = std::numeric_limits<int>::max();
    const auto forEachLine = [&lines](auto visit) {
        for (QTextBlock block = lines.first;; block = block.next()) {
            const QString text = block.text();
            if (!text.trimmed().isEmpty())
                visit(block, text);
            if (block == lines.last)
                break;
        }
    };
    forEachLine([&](const QTextBlock&, const QString& text) {
        comments = comments || !IsCommented(text, token);
        column = qMin(column, IndentLength(text));
    });
    TextChanges changes;
    forEachLine([&](const QTextBlock& block, const QString& text) {
        if (comments)
            changes.append({block.position() + column, 0, token + QLatin1Char(' ')});
        else
            AppendUncomment(changes, block.position(), text, token);
    });
    return changes;
}

/// The column of the cursor's line that lies in a block comment and stands for the cursor, or -1.
int CommentedColumn(const QTextCursor& cursor, const CodeEditorBlockData& data)
{
    const int column = cursor.positionInBlock();
    if (data.IsBlockCommentPosition(column))
        return column;
    // A selection that ends right behind the closer still counts.
    return cursor.position() > cursor.anchor() && data.IsBlockCommentPosition(column - 1)
        ? column - 1
        : -1;
}

TextChanges MarkersToRemove(const QTextBlock& block, int column, const BlockDataSource& source)
{
    const int open = FindBlockCommentOpen(block, column, source);
    const int close = FindBlockCommentClose(block, column, source);
    TextChanges changes;
    if (open >= 0)
        changes.append({open, MARKER_LENGTH, {}});
    if (close >= 0)
        changes.append({close - MARKER_LENGTH, MARKER_LENGTH, {}});
    return changes;
}

} // namespace

TextPasses ToggleComment(QTextCursor& cursor, const EditingOptions& options)
{
    const QLatin1String token = TokenOf(options.language);
    if (token.isEmpty())
        return {};
    QTextDocument& document = *cursor.document();
    const LineRange lines = LineRange::Of(cursor);
    const bool isSingle = !SpansLines(cursor);
    const EditStep step(cursor);
    TextPasses passes;
    if (!isSingle && options.insertSpaces) {
        passes.append(ConvertLeadingTabs(lines, options.tabSize));
        ApplyChanges(document, passes.constLast());
    }
    passes.append(
        isSingle ? ToggleCommentOfLine(lines.first, token) : ToggleCommentOfLines(lines, token));
    ApplyChanges(document, passes.constLast());
    return passes;
}

TextPasses ToggleBlockComment(
    QTextCursor& cursor, const EditingOptions& options, const BlockDataSource& source)
{
    const QTextBlock block = cursor.block();
    const CodeEditorBlockData* data = source(block);
    if (options.language != CodeEditorLanguage::Mel || !data
        || (!SpansLines(cursor) && data->IsSingleLineCommentPosition(cursor.positionInBlock())))
        return ToggleComment(cursor, options);
    const int column = CommentedColumn(cursor, *data);
    const CursorPlace place = CursorPlace::Of(cursor);
    TextChanges changes;
    if (column >= 0)
        changes = MarkersToRemove(block, column, source);
    else if (cursor.hasSelection())
        changes = {{cursor.selectionStart(), 0, QStringLiteral("/*")},
            {cursor.selectionEnd(), 0, QStringLiteral("*/")}};
    else
        changes = {{cursor.position(), 0, QStringLiteral("/**/")}};
    const EditStep step(cursor);
    ApplyChanges(*cursor.document(), changes);
    if (column < 0)
        CursorPlace{place.anchor + MARKER_LENGTH, place.position + MARKER_LENGTH}.ApplyTo(cursor);
    return {changes};
}

int FindBlockCommentOpen(const QTextBlock& block, int column, const BlockDataSource& source)
{
    for (QTextBlock line = block; line.isValid(); line = line.previous()) {
        const CodeEditorBlockData* data = source(line);
        const int last = line == block ? column : line.length();
        const int found = data ? data->OpenBlockCommentPosition(last) : -1;
        if (found >= 0)
            return line.position() + found;
    }
    return -1;
}

int FindBlockCommentClose(const QTextBlock& block, int column, const BlockDataSource& source)
{
    for (QTextBlock line = block; line.isValid(); line = line.next()) {
        const CodeEditorBlockData* data = source(line);
        const int found = data ? data->CloseBlockCommentPosition(line == block ? column : -1) : -1;
        if (found >= 0)
            return line.position() + found;
    }
    return -1;
}
