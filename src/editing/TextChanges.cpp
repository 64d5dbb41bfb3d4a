#include "editing/TextChanges.h"

#include <QTextCursor>

void ApplyChanges(QTextDocument& document, const TextChanges& changes)
{
    QTextCursor cursor(&document);
    // From the end, so that the places before stay right.
    for (auto change = changes.crbegin(); change != changes.crend(); ++change) {
        cursor.setPosition(change->position + change->removed);
        if (!change->added.isEmpty())
            cursor.insertText(change->added);
        if (change->removed == 0)
            continue;
        cursor.setPosition(change->position);
        cursor.setPosition(change->position + change->removed, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
}
