#pragma once

#include <QString>
#include <QVector>

class QTextDocument;

/// One replacement within a document, by its positions before any of the changes it belongs to.
struct TextChange
{
    int position = 0;
    int removed = 0; ///< characters
    QString added;
    int addedLines = 0; ///< negative when lines go
};

/// Several changes of one step, ascending and not overlapping.
using TextChanges = QVector<TextChange>;
/// What was done one after the other within a step, each by the positions that the last one left.
using TextPasses = QVector<TextChanges>;

/// Does the changes within an edit block of the caller. Cursors stay where they are between the
/// characters; one that stands exactly where something is inserted ends behind it, one that stands
/// right before what is replaced stays before it.
void ApplyChanges(QTextDocument& document, const TextChanges& changes);
