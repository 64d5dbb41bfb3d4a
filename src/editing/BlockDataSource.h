#pragma once

#include <functional>

class CodeEditorBlockData;
class QTextBlock;

/// The record of a line; null where there is none. What is asked for within an edit block is as
/// fresh as the first edit of that line in the block: ask before, or once between two edits.
using BlockDataSource = std::function<const CodeEditorBlockData*(const QTextBlock&)>;
