#include "editor/BraceMatching.h"

#include "editor/CodeEditorBlockData.h"

namespace {

/// 1 for an opening and -1 for a closing bracket that is code; 0 for anything else.
int DirectionAt(const QVector<MatchingCharInfo>& braces, int column)
{
    for (const MatchingCharInfo& brace : braces) {
        if (brace.position == column)
            return brace.direction;
    }
    return 0;
}

/// Walks one line's brackets in `direction` from behind `column`; -1 as column stands for a whole
/// line. Returns the column at which `depth` becomes 0, or -1.
int WalkLine(const QVector<MatchingCharInfo>& braces, int direction, int column, int& depth)
{
    const int count = braces.size();
    for (int i = 0; i < count; ++i) {
        const MatchingCharInfo& brace = braces.at(direction > 0 ? i : count - 1 - i);
        const bool isPassed = direction > 0 ? brace.position <= column : brace.position >= column;
        if (column >= 0 && isPassed)
            continue;
        depth += brace.direction;
        if (depth == 0)
            return brace.position;
    }
    return -1;
}

} // namespace

int FindMatchingBrace(
    const QTextBlock& block, int column, int maximumBlocks, const BlockDataSource& blockData)
{
    const QString text = block.text();
    const CodeEditorBlockData* record = blockData(block);
    if (!record || column < 0 || column >= text.size())
        return -1;
    const QChar brace = text.at(column);
    const int direction = DirectionAt(record->GetBraces(brace), column);
    if (direction == 0)
        return -1;

    int depth = direction;
    QTextBlock current = block;
    for (int i = 0; i < maximumBlocks && current.isValid(); ++i) {
        record = blockData(current);
        if (!record)
            return -1;
        const int found
            = WalkLine(record->GetBraces(brace), direction, i == 0 ? column : -1, depth);
        if (found >= 0)
            return current.position() + found;
        current = direction > 0 ? current.next() : current.previous();
    }
    return -1;
}
