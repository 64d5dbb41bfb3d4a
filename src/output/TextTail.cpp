#include "output/TextTail.h"

#include <algorithm>

namespace {

bool IsBreak(ushort character)
{
    return character == '\n' || character == '\r' || character == 0x2029 || character == 0xfdd0
        || character == 0xfdd1;
}

} // namespace

int LineEnd(const QString& text, int from)
{
    const auto end = std::find_if(text.utf16() + from, text.utf16() + text.size(), IsBreak);
    return static_cast<int>(end - text.utf16());
}

int BreakLength(const QString& text, int index)
{
    return text.midRef(index, 2) == QLatin1String("\r\n") ? 2 : 1;
}

int TailStart(const QString& text, int lines)
{
    const ushort* const characters = text.utf16();
    int missing = lines;
    for (int i = text.size() - 1; i >= 0; --i) {
        if (!IsBreak(characters[i]))
            continue;
        if (--missing == 0)
            return i + 1;
        // "\r\n" is one break.
        if (characters[i] == '\n' && i > 0 && characters[i - 1] == '\r')
            --i;
    }
    return 0;
}
