#pragma once

#include <QString>

/// Reads Python line by line and knows which lines go on: within brackets, within a string of
/// several lines, or behind a backslash. Forgives what is never closed: a line that can only begin
/// a statement ends what is open.
class PythonLineReader
{
public:
    /// Whether the line is part of the statement of the line before. Reads it.
    bool Continues(QStringView line);
    /// Whether the line read last leaves its statement unfinished.
    bool IsOpen() const { return m_depth > 0 || IsInString() || m_isJoined; }
    bool IsInString() const { return !m_quote.isNull(); }
    /// The line read last with blanks instead of strings and comments.
    const QString& GetCode() const { return m_code; }

private:
    void Read(QStringView line);
    int ReadStringStart(QStringView line, int place);

    int m_depth = 0;
    bool m_isJoined = false;
    QChar m_quote; ///< of the string of several lines that is open
    QString m_code;
};
