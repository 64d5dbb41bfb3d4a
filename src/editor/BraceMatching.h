#pragma once

#include "editing/BlockDataSource.h"

#include <QTextBlock>

/// Where the partner of the bracket at `column` of `block` stands, as a position in the document.
/// Brackets pair by kind and nesting; those in strings and comments do not count, as no record
/// names them. -1 when there is no bracket, no partner within `maximumBlocks` lines, or a line
/// without record comes first.
int FindMatchingBrace(
    const QTextBlock& block, int column, int maximumBlocks, const BlockDataSource& blockData);
