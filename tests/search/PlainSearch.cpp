#include "search/PlainSearch.h"

#include "search/SearchFilter.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

namespace {

void MatchLine(const QString& line, int position, const QRegularExpression& expression,
    QVector<SearchResult>& hits)
{
    QRegularExpressionMatchIterator matches = expression.globalMatch(line);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        SearchResult hit;
        hit.lineText = line.trimmed();
        hit.position = position + match.capturedStart();
        hit.length = match.capturedLength();
        hits.append(hit);
    }
}

} // namespace

QVector<SearchResult> PlainSearch::InText(const QString& text, const QRegularExpression& expression)
{
    QVector<SearchResult> hits;
    int position = 0;
    const QStringList lines = text.split(QLatin1Char('\n'), Qt::KeepEmptyParts);
    for (const QString& line : lines) {
        MatchLine(line, position, expression, hits);
        position += line.size() + 1;
    }
    return hits;
}

QVector<SearchResult> PlainSearch::InFile(const QString& path, const QRegularExpression& expression)
{
    QVector<SearchResult> hits;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return hits;
    QTextStream stream(&file);
    int position = 0;
    QString line;
    while (stream.readLineInto(&line)) {
        MatchLine(line, position, expression, hits);
        position += line.size() + 1;
    }
    return hits;
}

QVector<SearchResult> PlainSearch::InFolder(
    const QString& folder, const QRegularExpression& expression, const SearchFilter& filter)
{
    QVector<SearchResult> hits;
    const QFileInfoList entries = QDir(folder).entryInfoList(
        QDir::Files | QDir::Dirs | QDir::Drives | QDir::NoSymLinks | QDir::NoDotAndDotDot,
        QDir::Name | QDir::IgnoreCase | QDir::DirsLast);
    for (const QFileInfo& entry : entries) {
        const QString path = entry.absoluteFilePath();
        QVector<SearchResult> found;
        if (filter.IsExcluded(path))
            continue;
        if (entry.isDir())
            found = InFolder(path, expression, filter);
        else if (filter.IncludesFile(path))
            found = InFile(path, expression);
        for (SearchResult& hit : found) {
            if (hit.filePath.isEmpty())
                hit.filePath = path;
        }
        hits += found;
    }
    return hits;
}
