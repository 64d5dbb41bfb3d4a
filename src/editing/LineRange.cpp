#include "editing/LineRange.h"

#include <QTextCursor>
#include <QTextDocument>

LineRange LineRange::Of(const QTextCursor& cursor)
{
    const QTextDocument* document = cursor.document();
    const QTextBlock first = document->findBlock(cursor.selectionStart());
    QTextBlock last = document->findBlock(cursor.selectionEnd());
    if (first != last && last.position() == cursor.selectionEnd())
        last = last.previous();
    return {first, last};
}

QString LineRange::Text() const
{
    QString text = first.text();
    for (QTextBlock block = first; block != last;) {
        block = block.next();
        text += QLatin1Char('\n') + block.text();
    }
    return text;
}

bool SpansLines(const QTextCursor& cursor)
{
    const QTextDocument* document = cursor.document();
    return document->findBlock(cursor.selectionStart())
        != document->findBlock(cursor.selectionEnd());
}
