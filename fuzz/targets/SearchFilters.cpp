// Include and exclude patterns: the fast way answers what the patterns say.

#include "fuzz/Fuzz.h"
#include "search/SearchFilter.h"

#include <algorithm>

using fuzz::Expect;

TE2_FUZZ_TARGET(SearchFilters)
{
    const QStringList entries = input.Text(1000).split(QLatin1Char(','));
    SearchFilter filter;
    filter.includePatterns = CreateSearchFilter(entries, filter.includePaths);
    const QString path = QLatin1Char('/') + input.Text(4000);
    const bool matches = std::any_of(filter.includePatterns.begin(), filter.includePatterns.end(),
        [&path](const QRegExp& pattern) { return pattern.exactMatch(path); });
    Expect(filter.IncludesFile(path) == (matches || filter.includePatterns.isEmpty()),
        QStringLiteral("%1 lets in %2").arg(entries.join(QLatin1Char(',')), path));
    SearchFilter excluding;
    excluding.excludePatterns = filter.includePatterns;
    Expect(excluding.IncludesFile(path) == !matches,
        QStringLiteral("%1 keeps out %2").arg(entries.join(QLatin1Char(',')), path));
    for (const QString& reached : qAsConst(filter.includePaths)) {
        SearchFilter within;
        within.includePaths.append(reached);
        Expect(within.Reaches(reached, {}),
            QStringLiteral("a named path is reached: %1").arg(reached));
        within.excludePaths.append(reached);
        Expect(within.IsExcluded(reached + QLatin1String("/x")),
            QStringLiteral("what is in an excluded folder is too: %1").arg(reached));
    }
}
