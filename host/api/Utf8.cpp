#include "api/Utf8.h"

namespace host::api {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;
constexpr char32_t LAST_CHARACTER = 0x10FFFF;

/// Number of bytes that a leading byte announces; 0 for a byte that cannot lead.
int SequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Smallest character that needs so many bytes: anything below is an overlong form.
constexpr char32_t SMALLEST[] = {0, 0, 0x80, 0x800, 0x10000};

/// The character at `text`; `length` becomes the bytes it takes, at least 1.
char32_t DecodeOne(const char* text, size_t available, size_t& length)
{
    const auto lead = static_cast<unsigned char>(*text);
    const int wanted = SequenceLength(lead);
    length = 1;
    if (wanted == 1)
        return lead;
    if (wanted == 0 || static_cast<size_t>(wanted) > available)
        return REPLACEMENT;
    char32_t character = lead & (0xFFU >> (wanted + 1));
    for (int i = 1; i < wanted; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return REPLACEMENT;
        character = (character << 6) | (next & 0x3FU);
    }
    if (character < SMALLEST[wanted] || character > LAST_CHARACTER)
        return REPLACEMENT;
    length = static_cast<size_t>(wanted);
    return character;
}

} // namespace

void AppendUtf8(std::string& text, char32_t character)
{
    if (character > LAST_CHARACTER)
        character = REPLACEMENT;
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    const int length = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    const unsigned int leadBits = 0xF00U >> length & 0xFFU;
    text += static_cast<char>(leadBits | character >> (6 * (length - 1)));
    for (int i = length - 2; i >= 0; --i)
        text += static_cast<char>(0x80U | (character >> (6 * i) & 0x3FU));
}

std::u32string DecodeUtf8(const char* text, size_t size)
{
    std::u32string characters;
    characters.reserve(size);
    for (size_t position = 0; position < size;) {
        size_t length = 1;
        characters += DecodeOne(text + position, size - position, length);
        position += length;
    }
    return characters;
}

} // namespace host::api
