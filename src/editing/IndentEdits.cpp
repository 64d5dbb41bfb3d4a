#include "editing/IndentEdits.h"

#include "editing/EditStep.h"
#include "editing/EditingOptions.h"
#include "editing/IndentText.h"
#include "editing/LineRange.h"
#include "editing/TextColumns.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace {

QString IndentOf(const QTextBlock& block)
{
    const QString text = block.text();
    return text.left(IndentLength(text));
}

/// Turns one indent into another without touching what both end in.
void AppendIndentChange(
    TextChanges& changes, const QTextBlock& block, const QString& from, const QString& to)
{
    int common = 0;
    while (common < qMin(from.size(), to.size())
        && from.at(from.size() - 1 - common) == to.at(to.size() - 1 - common))
        ++common;
    if (common < from.size() || common < to.size())
        changes.append({block.position(), from.size() - common, to.left(to.size() - common)});
}

template <typename LineChange>
TextChanges ChangeLines(QTextCursor& cursor, const LineRange& lines, LineChange change)
{
    TextChanges changes;
    for (QTextBlock block = lines.first;; block = block.next()) {
        change(changes, block);
        if (block == lines.last)
            break;
    }
    const EditStep step(cursor);
    ApplyChanges(*cursor.document(), changes);
    return changes;
}

int HomePosition(const QTextCursor& cursor)
{
    const QTextBlock block = cursor.block();
    const int column = cursor.positionInBlock();
    const QTextLine row = block.layout()->lineForTextPosition(column);
    if (row.isValid() && row.textStart() > 0 && row.textStart() < column)
        return block.position() + row.textStart();
    const QString text = block.text();
    int firstWord = 0;
    while (firstWord < text.size() && text.at(firstWord).isSpace())
        ++firstWord;
    return block.position() + (column == firstWord ? 0 : firstWord);
}

} // namespace

TextChanges IncreaseIndent(QTextCursor& cursor, bool force, const EditingOptions& options)
{
    const QString indentStep = options.IndentStep();
    if (!force && !SpansLines(cursor)) {
        const EditStep step(cursor);
        cursor.insertText(indentStep);
        return {};
    }
    return ChangeLines(
        cursor, LineRange::Of(cursor), [&](TextChanges& changes, const QTextBlock& block) {
            const QString indent = IndentOf(block);
            // On its own, so that a cursor at the line's start always ends behind it.
            changes.append({block.position(), 0, indentStep});
            AppendIndentChange(changes, block, indent, IndentInStyle(indent, options));
        });
}

TextChanges DecreaseIndent(QTextCursor& cursor, const EditingOptions& options)
{
    return ChangeLines(
        cursor, LineRange::Of(cursor), [&](TextChanges& changes, const QTextBlock& block) {
            const QString indent = IndentOf(block);
            AppendIndentChange(changes, block, indent, Dedented(indent, 1, options));
        });
}

TextChanges ConvertTabsToSpaces(QTextCursor& cursor, const EditingOptions& options)
{
    const QTextDocument* document = cursor.document();
    const LineRange lines = cursor.hasSelection()
        ? LineRange::Of(cursor)
        : LineRange{document->firstBlock(), document->lastBlock()};
    return ChangeLines(cursor, lines, [&](TextChanges& changes, const QTextBlock& block) {
        const QString indent = IndentOf(block);
        int column = 0;
        for (int at = 0; at < indent.size(); ++at) {
            const bool isTab = indent.at(at) == QLatin1Char('\t');
            const int width = isTab ? options.tabSize - column % options.tabSize : 1;
            column += width;
            if (isTab)
                changes.append({block.position() + at, 1, QString(width, QLatin1Char(' '))});
        }
    });
}

void GoHome(QTextCursor& cursor, bool shift, bool ctrl)
{
    cursor.setPosition(
        ctrl ? 0 : HomePosition(cursor), shift ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
}
