#pragma once

#include <QString>

/// Index at which the last `lines` lines of the text begin, counting the piece behind the last
/// break as a line; 0 when there are no more than that. Breaks are those that a text cursor makes
/// of inserted text. `lines` is at least 1.
int TailStart(const QString& text, int lines);
