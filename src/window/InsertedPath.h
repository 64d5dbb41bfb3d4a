#pragma once

#include <QString>
#include <QStringList>

/// How a path is written into a script. A value.
struct PathStyle
{
    QString relativeTo; ///< a folder; empty: the path is absolute
    bool forwardSlashes = true;
    bool escapeBackslashes = false; ///< looked at without forward slashes only
};

/// What the insert-path dialog makes of what is typed. Without widgets.
namespace InsertedPath {

/// The whole path: "~/" is the home folder, and what has no root begins in `base`.
QString Absolute(const QString& typed, const QString& base);
/// Whether there is a way from a folder of this system to the path: not so to another drive or
/// another machine.
bool CanBeRelative(const QString& typed);
/// What goes into the script; empty when nothing is typed.
QString Text(const QString& typed, const QString& base, const PathStyle& style);
/// What `typed` can go on as, in the order of names, folders with a slash at the end; as it is
/// typed up to the last slash. At most `maximum` entries of the folder are looked at.
QStringList Completions(const QString& typed, const QString& base, int maximum);

} // namespace InsertedPath
