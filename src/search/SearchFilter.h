#pragma once

#include <QList>
#include <QRegExp>
#include <QStringList>

/// The entries of a field, parted at commas; not at those within the absolute path of something
/// that is there.
QStringList SplitSearchEntries(const QString& text);

/// The entries that name something that is there, without white space around them.
QStringList CreateSearchPaths(const QStringList& entries);

/// Parts the entries of a field: what names a file or a folder is added to `paths`, absolute and
/// without "/" at its end; of everything else a pattern with wildcards is made, without case. Blank
/// entries are left out.
QList<QRegExp> CreateSearchFilter(const QStringList& entries, QStringList& paths);

/// Where a search looks. A value.
struct SearchFilter
{
    QStringList includePaths; ///< when there are any, nothing else is searched
    QStringList excludePaths;
    QList<QRegExp> includePatterns; ///< when there are any, a file matches one of them as a whole
    QList<QRegExp> excludePatterns;

    /// Whether the patterns let a file in, by its absolute path.
    bool IncludesFile(const QString& path) const;
    /// Whether the path is one of the excluded ones or within one.
    bool IsExcluded(const QString& path) const;
    /// Whether a search of these folders, or of the included paths, comes upon the file.
    bool Reaches(const QString& path, const QStringList& folders) const;
};
