#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace host::mel {

/// One script text and the file it came from. Everything compiled from it shares it, so that
/// places can be named as long as a procedure lives. Never changes once made.
class Source
{
public:
    /// `path` is empty for a text that was typed or handed over.
    explicit Source(const QString& text, const QString& path = {});

    /// File bytes as text: UTF-8 with or without a byte order mark, anything else as Latin-1.
    static QString Decode(const QByteArray& bytes);

    const QString& Text() const { return m_text; }
    const QString& Path() const { return m_path; }
    bool IsFile() const { return !m_path.isEmpty(); }

    /// Lines and columns count from 1; offsets are UTF-16 code units from 0. A line ends at LF, CR
    /// LF or a lone CR.
    int LineOf(int offset) const;
    int ColumnOf(int offset) const;
    /// The line with its end as one LF; the last line of a text may have none.
    QString LineText(int line) const;

private:
    QString m_text;
    QString m_path;
    QVector<int> m_lineStarts;
};

} // namespace host::mel
