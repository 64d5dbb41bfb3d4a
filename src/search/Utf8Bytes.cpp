#include "search/Utf8Bytes.h"

#include <QtGlobal>

#include <cstring>

namespace {

constexpr quint64 HIGH_BITS = 0x8080808080808080u;
constexpr int WORD = sizeof(quint64);

quint64 WordAt(const char* place)
{
    quint64 word;
    std::memcpy(&word, place, WORD);
    return word;
}

/// Behind the ASCII characters from here on, give or take some.
const char* SkipAscii(const char* place, const char* end)
{
    for (; end - place >= 4 * WORD; place += 4 * WORD) {
        const quint64 all = WordAt(place) | WordAt(place + WORD) | WordAt(place + 2 * WORD)
            | WordAt(place + 3 * WORD);
        if (all & HIGH_BITS)
            break;
    }
    while (end - place >= WORD && !(WordAt(place) & HIGH_BITS))
        place += WORD;
    return place;
}

/// Bytes of the character that begins here; 0 when there is none.
int CharacterLength(const uchar* place, const uchar* end)
{
    struct Row
    {
        uchar first, last; ///< of the leading byte
        int length;
        uchar secondFirst, secondLast;
    };
    static constexpr Row ROWS[] = {
        {0xc2, 0xdf, 2, 0x80, 0xbf},
        {0xe0, 0xe0, 3, 0xa0, 0xbf},
        {0xe1, 0xec, 3, 0x80, 0xbf},
        {0xed, 0xed, 3, 0x80, 0x9f},
        {0xee, 0xef, 3, 0x80, 0xbf},
        {0xf0, 0xf0, 4, 0x90, 0xbf},
        {0xf1, 0xf3, 4, 0x80, 0xbf},
        {0xf4, 0xf4, 4, 0x80, 0x8f},
    };
    if (*place < 0x80)
        return 1;
    for (const Row& row : ROWS) {
        if (*place < row.first || *place > row.last)
            continue;
        if (end - place < row.length || place[1] < row.secondFirst || place[1] > row.secondLast)
            return 0;
        for (int i = 2; i < row.length; ++i) {
            if ((place[i] & 0xc0) != 0x80)
                return 0;
        }
        return row.length;
    }
    return 0;
}

} // namespace

bool Utf8Bytes::IsAscii(const char* begin, const char* end)
{
    const char* place = SkipAscii(begin, end);
    while (place != end && static_cast<uchar>(*place) < 0x80)
        ++place;
    return place == end;
}

bool Utf8Bytes::IsValid(const char* begin, const char* end)
{
    const char* place = SkipAscii(begin, end);
    while (place != end) {
        const int length = CharacterLength(
            reinterpret_cast<const uchar*>(place), reinterpret_cast<const uchar*>(end));
        if (length == 0)
            return false;
        place += length;
        if (length == 1 && end - place >= WORD)
            place = SkipAscii(place, end);
    }
    return true;
}

int Utf8Bytes::CountUnits(const char* begin, const char* end)
{
    int units = 0;
    // Continuations add nothing; what has four bytes is two units.
    for (const char* place = begin; place != end; ++place) {
        const auto byte = static_cast<uchar>(*place);
        units += ((byte & 0xc0) != 0x80) + (byte >= 0xf0);
    }
    return units;
}
