#include "search/FindMatching.h"

#include "search/FileBytes.h"
#include "search/TextSearch.h"

#include <QFile>
#include <QFileInfo>

namespace {

QVector<SearchResult> Named(
    QVector<SearchResult> results, const QString& filePath, const QString& fileName)
{
    for (SearchResult& result : results) {
        result.filePath = filePath;
        result.fileName = fileName;
    }
    return results;
}

} // namespace

QVector<SearchResult> FindMatchingInText(const QString& filePath, const QString& fileName,
    const QString& text, const QRegularExpression& expression)
{
    return Named(TextSearch(expression, nullptr).SearchText(text), filePath, fileName);
}

QVector<SearchResult> FindMatchingInFile(
    const QString& filePath, const QRegularExpression& expression)
{
    FileBytes file;
    const QFileInfo info(filePath);
    if (!info.isFile() || !file.Read(QFile::encodeName(filePath)))
        return {};
    return Named(TextSearch(expression, nullptr).SearchBytes(file.GetBegin(), file.GetEnd()),
        filePath, info.fileName());
}
