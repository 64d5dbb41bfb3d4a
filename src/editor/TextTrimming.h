#pragma once

#include <QString>

/// A text with an anchor and a position in it, UTF-16 offsets.
struct CursorText
{
    QString text;
    int anchor = 0;
    int position = 0;
};

/// Takes the spaces and tabs off the end of every line, lines being parted by line feeds; with
/// `ensureNewLine` the result ends with one. Anchor and position keep their place between the
/// characters that stay. An empty text stays empty.
CursorText TrimTrailingBlanks(const CursorText& before, bool ensureNewLine);
