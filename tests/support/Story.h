#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// Texts and what comes of them, told in files. Each heading begins a story:
///
///     == Protected jobs need force
///     scriptJob -protected -event Undo "print x"
///     scriptJob -kill 1 => error: ...
///     @fire Undo >> print: x
///
/// A line is run by itself, together with the lines that stand indented below it. "=>" leads its
/// answer; without one it must not fail. ">>" leads the messages that it gives, "|" between two;
/// on a line of its own it asks for all since the last question. "\n" stands for a line end and
/// "..." at the end for any rest.
namespace Story {

/// Gives the answer to a text, which begins with "error: " when it fails.
using Run = std::function<QString(const QString& text)>;
/// Gives the messages since the last call.
using Messages = std::function<QStringList()>;

/// The column "steps" and a row for every story in the folder's files (*.story).
void AddRows(const QString& folder);

/// Empty when all is as the story tells it, else what is not.
QString FaultOf(const QStringList& steps, const Run& run, const Messages& messages);

} // namespace Story
