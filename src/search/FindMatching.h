#pragma once

#include "search/SearchResult.h"

#include <QVector>

class QRegularExpression;

/// Every match in the lines of the text. Nothing for an expression without pattern.
QVector<SearchResult> FindMatchingInText(const QString& filePath, const QString& fileName,
    const QString& text, const QRegularExpression& expression);

/// The same of a regular file, read in the locale's encoding; nothing for what cannot be read.
QVector<SearchResult> FindMatchingInFile(
    const QString& filePath, const QRegularExpression& expression);
