#pragma once

#include <QString>

// Lines end where a text cursor makes a block of inserted text.

/// Index of the break behind the line that `from` is in; the text's size without one.
int LineEnd(const QString& text, int from);
/// Of the break at that index, in characters; "\r\n" is one.
int BreakLength(const QString& text, int index);

/// Index at which the last `lines` lines of the text begin, counting the piece behind the last
/// break as a line; 0 when there are no more than that. `lines` is at least
/// 1.
int TailStart(const QString& text, int lines);
