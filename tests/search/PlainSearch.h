#pragma once

#include "search/SearchResult.h"

#include <QVector>

class QRegularExpression;
struct SearchFilter;

/// The search in files as one would say it: every file is read as a text, line by line, and each
/// line is matched. Slow and hard to get wrong; what the real search is held against.
namespace PlainSearch {

QVector<SearchResult> InText(const QString& text, const QRegularExpression& expression);
QVector<SearchResult> InFile(const QString& path, const QRegularExpression& expression);
/// The hits have their paths.
QVector<SearchResult> InFolder(
    const QString& folder, const QRegularExpression& expression, const SearchFilter& filter);

} // namespace PlainSearch
