#include "files/TextBytes.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>

namespace {

constexpr int UTF8_MIB = 106;
constexpr ushort FIRST_ODD = 0xdc80;
constexpr ushort LAST_ODD = 0xdcff;
constexpr ushort ODD_BASE = 0xdc00; // added to a byte

bool IsUtf8(const QTextCodec& codec)
{
    return codec.mibEnum() == UTF8_MIB;
}

QString DecodePart(const char* bytes, int size, const QTextCodec& codec, bool* isValid = nullptr)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = codec.toUnicode(bytes, size, &state);
    if (isValid)
        *isValid = state.invalidChars == 0 && state.remainingChars == 0;
    return text;
}

QByteArray EncodePart(const QChar* text, int size, const QTextCodec& codec)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec.fromUnicode(text, size, &state);
}

bool IsContinuation(uchar byte)
{
    return (byte & 0xc0) == 0x80;
}

/// Of the character that begins here: 0 when none does. Neither longer forms than needed nor
/// surrogates are characters.
int Utf8Length(const uchar* at, const uchar* end)
{
    if (at[0] < 0x80)
        return 1;
    const int length = at[0] >= 0xf0 ? 4 : at[0] >= 0xe0 ? 3 : 2;
    if (at[0] < 0xc2 || at[0] > 0xf4 || end - at < length)
        return 0;
    for (int i = 1; i < length; ++i) {
        if (!IsContinuation(at[i]))
            return 0;
    }
    const bool isTooLong = (at[0] == 0xe0 && at[1] < 0xa0) || (at[0] == 0xf0 && at[1] < 0x90);
    const bool isNone = (at[0] == 0xed && at[1] > 0x9f) || (at[0] == 0xf4 && at[1] > 0x8f);
    return isTooLong || isNone ? 0 : length;
}

QString DecodeOddUtf8(const QByteArray& bytes, const QTextCodec& codec)
{
    const auto* const begin = reinterpret_cast<const uchar*>(bytes.constData());
    const uchar* const end = begin + bytes.size();
    const uchar* valid = begin; // from here to `at` all are characters
    QString text;
    const auto takeValid = [&](const uchar* at) {
        const auto size = static_cast<int>(at - valid);
        text += DecodePart(reinterpret_cast<const char*>(valid), size, codec);
    };
    for (const uchar* at = begin; at < end;) {
        const int length = Utf8Length(at, end);
        if (length == 0) {
            takeValid(at);
            text += QChar(static_cast<ushort>(ODD_BASE + *at));
            valid = at + 1;
        }
        at += qMax(length, 1);
    }
    takeValid(end);
    return text;
}

/// A line that does not come back as it was keeps its plain characters alone.
QString DecodeOddLine(const QByteArray& line, const QTextCodec& codec)
{
    const QString text = DecodePart(line.constData(), line.size(), codec);
    if (EncodePart(text.constData(), text.size(), codec) == line)
        return text;
    QString plain;
    for (const char byte : line) {
        const auto code = static_cast<uchar>(byte);
        plain += QChar(static_cast<ushort>(code < 0x80 ? code : ODD_BASE + code));
    }
    return plain;
}

QString DecodeOddLines(const QByteArray& bytes, const QTextCodec& codec)
{
    QString text;
    for (int start = 0; start < bytes.size();) {
        const int end = bytes.indexOf('\n', start);
        const int length = (end < 0 ? bytes.size() : end + 1) - start;
        text += DecodeOddLine(QByteArray::fromRawData(bytes.constData() + start, length), codec);
        start += length;
    }
    return text;
}

bool IsOdd(const QString& text, int index)
{
    const ushort code = text[index].unicode();
    return code >= FIRST_ODD && code <= LAST_ODD
        && (index == 0 || !text[index - 1].isHighSurrogate());
}

/// The size of the text when there is none.
int NextOdd(const QString& text, int from)
{
    const ushort* const codes = text.utf16();
    while (from < text.size()
        && (codes[from] < FIRST_ODD || codes[from] > LAST_ODD || !IsOdd(text, from)))
        ++from;
    return from;
}

} // namespace

QString TextBytes::Decode(const QByteArray& bytes, const QTextCodec& codec)
{
    bool isValid = false;
    const QString text = DecodePart(bytes.constData(), bytes.size(), codec, &isValid);
    if (IsUtf8(codec))
        return isValid ? text : DecodeOddUtf8(bytes, codec);
    // Not every codec tells what it could not read.
    return EncodePart(text.constData(), text.size(), codec) == bytes ? text
                                                                     : DecodeOddLines(bytes, codec);
}

QByteArray TextBytes::Encode(const QString& text, const QTextCodec& codec, OddCharacters odd)
{
    QByteArray bytes;
    for (int start = 0; start <= text.size();) {
        const int end = NextOdd(text, start);
        const QByteArray part = EncodePart(text.constData() + start, end - start, codec);
        bytes = bytes.isEmpty() ? part : bytes + part;
        if (end < text.size() && odd == OddCharacters::AsBytes) {
            bytes += static_cast<char>(text[end].unicode() - ODD_BASE);
        } else if (end < text.size()) {
            const QChar replacement(QChar::ReplacementCharacter);
            bytes += EncodePart(&replacement, 1, codec);
        }
        start = end + 1;
    }
    return bytes;
}

bool TextBytes::HasOddCharacters(const QString& text)
{
    return NextOdd(text, 0) < text.size();
}

bool TextBytes::CanHold(const QString& text, const QTextCodec& codec)
{
    if (IsUtf8(codec))
        return true;
    for (int start = 0; start <= text.size();) {
        const int end = NextOdd(text, start);
        const QString part = QString::fromRawData(text.constData() + start, end - start);
        if (!codec.canEncode(part))
            return false;
        start = end + 1;
    }
    return true;
}
