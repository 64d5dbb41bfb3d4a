#include "search/SearchFilter.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr QLatin1Char SEPARATOR(',');
/// Of one path: so many commas in it are still understood.
constexpr int MAXIMUM_PIECES = 16;

QString AbsolutePath(const QString& entry)
{
    return QDir::cleanPath(QFileInfo(entry).absoluteFilePath());
}

bool BeginsWith(const QString& path, const QString& start)
{
    return path == start
        || path.startsWith(start.endsWith(QLatin1Char('/')) ? start : start + QLatin1Char('/'));
}

bool BeginsWithAny(const QString& path, const QStringList& starts)
{
    return std::any_of(starts.begin(), starts.end(),
        [&path](const QString& start) { return BeginsWith(path, start); });
}

/// Most patterns only name an ending, which is found out much faster.
bool MatchesWhole(const QRegExp& pattern, const QString& path)
{
    static const QRegExp WILDCARD(QStringLiteral("[*?\\[\\]\\\\]"));
    const QString text = pattern.pattern();
    if (text.startsWith(QLatin1Char('*')) && text.indexOf(WILDCARD, 1) < 0)
        return path.endsWith(text.midRef(1), pattern.caseSensitivity());
    return pattern.exactMatch(path);
}

bool MatchesAny(const QList<QRegExp>& patterns, const QString& path)
{
    return std::any_of(patterns.begin(), patterns.end(),
        [&path](const QRegExp& pattern) { return MatchesWhole(pattern, path); });
}

/// The longest path that begins with the piece `first`, commas and all; it ends before the result.
int EndOfPath(const QStringList& pieces, int first)
{
    if (!pieces.at(first).trimmed().startsWith(QLatin1Char('/')))
        return first + 1;
    const int last = std::min(pieces.size(), first + MAXIMUM_PIECES);
    for (int end = last; end > first + 1; --end) {
        const QString path = QStringList(pieces.mid(first, end - first)).join(SEPARATOR).trimmed();
        if (QFileInfo::exists(path))
            return end;
    }
    return first + 1;
}

} // namespace

QStringList SplitSearchEntries(const QString& text)
{
    const QStringList pieces = text.split(SEPARATOR);
    QStringList entries;
    for (int first = 0; first < pieces.size();) {
        const int end = EndOfPath(pieces, first);
        const QString entry = QStringList(pieces.mid(first, end - first)).join(SEPARATOR);
        if (!entry.isEmpty())
            entries.append(entry);
        first = end;
    }
    return entries;
}

QStringList CreateSearchPaths(const QStringList& entries)
{
    QStringList paths;
    for (const QString& entry : entries) {
        const QString path = entry.trimmed();
        if (!path.isEmpty() && QFileInfo::exists(path))
            paths.append(path);
    }
    return paths;
}

QList<QRegExp> CreateSearchFilter(const QStringList& entries, QStringList& paths)
{
    QList<QRegExp> patterns;
    for (const QString& entry : entries) {
        const QString text = entry.trimmed();
        if (text.isEmpty())
            continue;
        if (QFileInfo::exists(text))
            paths.append(AbsolutePath(text));
        else
            patterns.append(QRegExp(text, Qt::CaseInsensitive, QRegExp::Wildcard));
    }
    return patterns;
}

bool SearchFilter::IncludesFile(const QString& path) const
{
    if (!includePatterns.isEmpty() && !MatchesAny(includePatterns, path))
        return false;
    return !MatchesAny(excludePatterns, path);
}

bool SearchFilter::IsExcluded(const QString& path) const
{
    return BeginsWithAny(path, excludePaths);
}

bool SearchFilter::Reaches(const QString& path, const QStringList& folders) const
{
    // A file that was named itself is searched whatever the patterns say.
    if (includePaths.contains(path))
        return true;
    return IncludesFile(path) && !IsExcluded(path)
        && BeginsWithAny(path, includePaths.isEmpty() ? folders : includePaths);
}
