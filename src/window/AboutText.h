#pragma once

#include <QString>
#include <QVector>

/// What the about dialog tells: about the program, what it runs in and where its files are.
struct AboutRow
{
    QString name;
    QString value; ///< "unknown" where the host did not tell
    bool isFolder = false; ///< the value is one that can be opened
};

namespace AboutText {

QVector<AboutRow> Rows();
/// For reports of errors: a line "name: value" for each row.
QString Plain(const QVector<AboutRow>& rows);
/// A table with links to the folders.
QString Html(const QVector<AboutRow>& rows);
/// Of the program and of what it contains, each under its name.
QString Licences();

} // namespace AboutText
