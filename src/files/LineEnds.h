#pragma once

#include <QByteArray>
#include <QVector>

class QString;

/// What ends the lines of a file: the same everywhere, or for each line what it had. A value.
class LineEnds
{
public:
    enum class Kind { LineFeed, CarriageReturnLineFeed, CarriageReturn, Mixed };

    /// Leaves nothing but line feeds in the text.
    static LineEnds Take(QString& text);
    /// Puts back what was taken. Of mixed ones a line that was there keeps its own, and one that is
    /// new has that of the line above.
    QString Restore(const QString& text) const;
    Kind GetKind() const { return m_kind; }

private:
    Kind m_kind = Kind::LineFeed;
    // Of mixed ones: the end of each line, and what tells the line from others.
    QByteArray m_ends;
    QVector<uint> m_lines;
};
