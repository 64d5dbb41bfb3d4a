#include "editing/LineEdits.h"

#include "editing/EditStep.h"
#include "editing/LineRange.h"

#include <QTextBlock>
#include <QTextDocument>

namespace {

const QLatin1Char LINE_FEED('\n');

CursorPlace Shifted(const CursorPlace& place, int by)
{
    return {place.anchor + by, place.position + by};
}

bool IsBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

int TrimmedLength(const QString& line)
{
    int length = line.size();
    while (length > 0 && IsBlank(line.at(length - 1)))
        --length;
    return length;
}

/// Where a place is when the blanks that `changes` removes are gone.
int WithoutRemoved(const TextChanges& changes, int position)
{
    int removed = 0;
    for (const TextChange& change : changes) {
        if (change.position >= position)
            break;
        removed += qMin(change.removed, position - change.position);
    }
    return position - removed;
}

} // namespace

TextChanges MoveLine(QTextCursor& cursor, bool up)
{
    // Moving some lines is moving the one beside them to the other side.
    const LineRange lines = LineRange::Of(cursor);
    const QTextBlock beside = up ? lines.first.previous() : lines.last.next();
    if (!beside.isValid())
        return {};
    const QString text = beside.text();
    const int length = text.size() + 1;
    const TextChanges changes = up
        ? TextChanges{{beside.position(), length, {}, -1}, {lines.End(), 0, LINE_FEED + text, 1}}
        : TextChanges{{lines.Start(), 0, text + LINE_FEED, 1}, {lines.End(), length, {}, -1}};
    const CursorPlace place = Shifted(CursorPlace::Of(cursor), up ? -length : length);
    const EditStep step(cursor);
    ApplyChanges(*cursor.document(), changes);
    place.ApplyTo(cursor);
    return changes;
}

void CopyLine(QTextCursor& cursor, bool up)
{
    const LineRange lines = LineRange::Of(cursor);
    const QString text = LINE_FEED + lines.Text();
    const CursorPlace place = Shifted(CursorPlace::Of(cursor), up ? 0 : text.size());
    const EditStep step(cursor);
    cursor.setPosition(lines.End());
    cursor.insertText(text);
    place.ApplyTo(cursor);
}

void DeleteLines(QTextCursor& cursor)
{
    const LineRange lines = LineRange::Of(cursor);
    const int end = lines.last.next().isValid() ? lines.End() + 1 : lines.End();
    const EditStep step(cursor);
    cursor.setPosition(lines.Start());
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void InsertLineAbove(QTextCursor& cursor, const QString& line)
{
    const EditStep step(cursor);
    const int column = cursor.positionInBlock();
    cursor.setPosition(cursor.block().position());
    cursor.insertText(line + LINE_FEED);
    cursor.setPosition(cursor.position() + column);
}

void EnsureNewLineAtEof(QTextCursor& cursor)
{
    const QTextDocument& document = *cursor.document();
    if (document.isEmpty() || document.lastBlock().length() == 1)
        return;
    const CursorPlace place = CursorPlace::Of(cursor);
    const EditStep step(cursor);
    cursor.movePosition(QTextCursor::End);
    cursor.insertBlock();
    // A cursor that stood at the end went along with it.
    place.ApplyTo(cursor);
}

void TrimTrailingWhiteSpaces(QTextCursor& cursor, bool ensureNewLine)
{
    QTextDocument& document = *cursor.document();
    if (document.isEmpty())
        return;
    // A line at a time is quicker than the whole text anew.
    TextChanges changes;
    for (QTextBlock block = document.firstBlock(); block.isValid(); block = block.next()) {
        const int kept = TrimmedLength(block.text());
        const int blanks = block.length() - 1 - kept;
        if (blanks > 0)
            changes.append({block.position() + kept, blanks, {}});
    }
    const CursorPlace before = CursorPlace::Of(cursor);
    const CursorPlace after{
        WithoutRemoved(changes, before.anchor), WithoutRemoved(changes, before.position)};
    const EditStep step(cursor);
    ApplyChanges(document, changes);
    const bool endsInLineEnd = document.blockCount() > 1 && document.lastBlock().length() == 1;
    if (ensureNewLine && !endsInLineEnd) {
        cursor.movePosition(QTextCursor::End);
        cursor.insertBlock();
    }
    after.ApplyTo(cursor);
}
