#include "language/MelVariableSelection.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>

namespace {

bool Matches(const QString& text, const char* pattern)
{
    return QRegularExpression(QLatin1String(pattern)).match(text).hasMatch();
}

/// Whether a "$" at `position` begins a variable. Of the capitals only A and Z count as word
/// characters before it: the class has always been spelled so and is relied upon. Guarded by
/// MelVariableSelectionTest.
bool IsVariableStart(const QTextDocument& document, int position)
{
    return position == 0 || !Matches(document.characterAt(position - 1), "^[a-zAZ0-9_]");
}

QTextCursor Selecting(const QTextCursor& cursor, int start, int end)
{
    QTextCursor selecting = cursor;
    selecting.setPosition(start);
    selecting.setPosition(end, QTextCursor::KeepAnchor);
    return selecting;
}

/// End of the word that starts at `position`, within its line.
int WordEnd(const QTextDocument& document, int position)
{
    int end = position;
    while (Matches(document.characterAt(end), "^[a-zA-Z0-9_]$"))
        ++end;
    return end;
}

} // namespace

QTextCursor WithDollarSign(const QTextCursor& cursor)
{
    const QTextDocument& document = *cursor.document();
    const int start = cursor.selectionStart();
    const QString selected = cursor.selectedText();
    if (Matches(selected, "^[a-zA-Z0-9_]+$")) {
        const bool dollar = start > 0 && document.characterAt(start - 1) == QLatin1Char('$');
        return dollar && IsVariableStart(document, start - 1)
            ? Selecting(cursor, start - 1, cursor.selectionEnd())
            : cursor;
    }
    if (selected != QLatin1String("$") || !IsVariableStart(document, start))
        return cursor;
    const int end = WordEnd(document, start + 1);
    return end > start + 1 ? Selecting(cursor, start, end) : cursor;
}
