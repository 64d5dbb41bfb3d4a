#pragma once

#include "editor/CodeEditorProperties.h"
#include "language/ParserItem.h"
#include "views/goto/GoToEntry.h"

#include <QList>
#include <QStringList>
#include <QVector>

#include <functional>

/// What the go-to widget lists, made of what the window knows. Without widgets.
namespace GoToEntries {

/// A file by its absolute path. Of a file in one of the folders the text begins with the name of
/// that folder, of any other it is the whole path.
GoToEntry OfFile(const QString& path, const QStringList& folders);
/// An open editor; buffers have a label instead of a path.
GoToEntry OfEditor(const CodeEditorProperties& properties, const QStringList& folders);
/// In the order of the items. `lineOf` tells the line of a position, from 1.
QVector<GoToEntry> OfSymbols(
    const QVector<ParserItem>& items, const std::function<int(int position)>& lineOf);

/// A text that may end in ":120" or ":120:8".
struct FilePlace
{
    QString name; ///< what stands before
    int line = 0; ///< from 1; 0: none
    int column = 0; ///< from 1; 0: none
};
FilePlace ParseFilePlace(const QString& text);

/// Reads "120", "120:8", "+20" and "-20". A line beyond an end of the script is the one at that
/// end; without a line `line` is 0.
FilePlace ParseLine(const QString& text, int currentLine, int lineCount);

} // namespace GoToEntries
