#include "editor/TextTrimming.h"

namespace {

bool IsBlank(QChar character)
{
    return character == QLatin1Char(' ') || character == QLatin1Char('\t');
}

/// How many characters of [from, to) stand before an offset.
int CountBefore(int offset, int from, int to)
{
    return qBound(0, offset - from, to - from);
}

} // namespace

CursorText TrimTrailingBlanks(const CursorText& before, bool ensureNewLine)
{
    const QString& text = before.text;
    CursorText after = before;
    after.text.clear();
    if (text.isEmpty())
        return after;
    after.text.reserve(text.size() + 1);
    const QChar lineFeed = QLatin1Char('\n');
    for (int lineStart = 0; lineStart <= text.size();) {
        const int found = text.indexOf(lineFeed, lineStart);
        const int lineEnd = found < 0 ? text.size() : found;
        int keptEnd = lineEnd;
        while (keptEnd > lineStart && IsBlank(text.at(keptEnd - 1)))
            --keptEnd;
        after.text += text.midRef(lineStart, keptEnd - lineStart);
        after.anchor -= CountBefore(before.anchor, keptEnd, lineEnd);
        after.position -= CountBefore(before.position, keptEnd, lineEnd);
        if (found >= 0)
            after.text += lineFeed;
        lineStart = lineEnd + 1;
    }
    if (ensureNewLine && !after.text.endsWith(lineFeed))
        after.text += lineFeed;
    return after;
}
