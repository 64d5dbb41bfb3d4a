#pragma once

#include "search/SearchResult.h"

#include <QVector>

class QRegularExpression;

/// Replaces the listed hits, all of one file, on the disk. The file keeps its encoding, line ends
/// and rights, and it is written whole or not at all. Empty when it was done; otherwise why nothing
/// was: above all when a hit does not stand there any more. Interface thread.
QString ReplaceInFile(const QString& path, const QVector<SearchResult>& hits,
    const QRegularExpression& expression, const QString& replacement);
