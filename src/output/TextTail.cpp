#include "output/TextTail.h"

namespace {

bool IsBreak(ushort character)
{
    return character == '\n' || character == '\r' || character == 0x2029 || character == 0xfdd0
        || character == 0xfdd1;
}

} // namespace

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
