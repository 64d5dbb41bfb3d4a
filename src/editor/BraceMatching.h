#pragma once

#include <QTextBlock>

#include <functional>

class CodeEditorBlockData;

/// The record of a line; null where there is none.
using BlockDataSource = std::function<const CodeEditorBlockData*(const QTextBlock&)>;

/// Where the partner of the bracket at `column` of `block` stands, as a position in the document.
/// Brackets pair by kind and nesting; those in strings and comments do not count, as no record
/// names them. -1 when there is no bracket, no partner within `maximumBlocks` lines, or a line
/// without record comes first.
int FindMatchingBrace(
    const QTextBlock& block, int column, int maximumBlocks, const BlockDataSource& blockData);
