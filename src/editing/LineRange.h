#pragma once

#include <QTextBlock>

class QTextCursor;

/// Lines that a command works on, both included.
struct LineRange
{
    QTextBlock first;
    QTextBlock last;

    /// The lines that the selection touches, or the cursor's; a selection that ends at the start
    /// of a line leaves that line out.
    static LineRange Of(const QTextCursor& cursor);

    int Start() const { return first.position(); }
    /// Before the line end of the last line.
    int End() const { return last.position() + last.length() - 1; }
    QString Text() const; ///< lines parted by line feeds
};

/// Whether the selection starts and ends in different lines.
bool SpansLines(const QTextCursor& cursor);
