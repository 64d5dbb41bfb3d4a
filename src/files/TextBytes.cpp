#include "files/TextBytes.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>

namespace {

constexpr int UTF8_MIB = 106;
constexpr int BLOCK = 64; // characters
constexpr ushort FIRST_ODD = 0xdc80;
constexpr ushort ODD_BITS = 0xff80; // that all of them have in common
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

uint Utf8Character(const uchar* at, int length)
{
    if (length == 1)
        return at[0];
    uint code = at[0] & (0x7f >> length);
    for (int i = 1; i < length; ++i)
        code = (code << 6) | (at[i] & 0x3f);
    return code;
}

QString DecodeOddUtf8(const QByteArray& bytes)
{
    const auto* at = reinterpret_cast<const uchar*>(bytes.constData());
    const uchar* const end = at + bytes.size();
    QString text(bytes.size(), Qt::Uninitialized); // never more than there are bytes
    QChar* const begin = text.data();
    QChar* to = begin;
    while (at < end) {
        const int length = Utf8Length(at, end);
        const uint code = length == 0 ? ODD_BASE + *at : Utf8Character(at, length);
        if (QChar::requiresSurrogates(code)) {
            *to++ = QChar(QChar::highSurrogate(code));
            *to++ = QChar(QChar::lowSurrogate(code));
        } else {
            *to++ = QChar(static_cast<ushort>(code));
        }
        at += qMax(length, 1);
    }
    text.resize(static_cast<int>(to - begin));
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

bool IsOddCode(ushort code)
{
    return (code & ODD_BITS) == FIRST_ODD;
}

/// A loop of fixed length without a way out, which the compiler does in a few steps.
bool MayHaveOdd(const ushort* codes)
{
    ushort may = 0;
    for (int i = 0; i < BLOCK; ++i)
        may |= static_cast<ushort>(IsOddCode(codes[i]) ? 1 : 0);
    return may != 0;
}

/// The size of the text when there is none.
int NextOdd(const QString& text, int from)
{
    const ushort* const codes = text.utf16();
    for (int i = from; i < text.size(); ++i) {
        while (i + BLOCK <= text.size() && !MayHaveOdd(codes + i))
            i += BLOCK;
        if (i < text.size() && IsOddCode(codes[i])
            && (i == 0 || !QChar::isHighSurrogate(codes[i - 1])))
            return i;
    }
    return text.size();
}

} // namespace

bool TextBytes::DecodeExactly(const QByteArray& bytes, const QTextCodec& codec, QString& text)
{
    bool isValid = false;
    text = DecodePart(bytes.constData(), bytes.size(), codec, &isValid);
    if (IsUtf8(codec))
        return isValid;
    // Not every codec tells what it could not read.
    return EncodePart(text.constData(), text.size(), codec) == bytes && !HasOddCharacters(text);
}

QString TextBytes::Decode(const QByteArray& bytes, const QTextCodec& codec)
{
    QString text;
    if (DecodeExactly(bytes, codec, text))
        return text;
    return IsUtf8(codec) ? DecodeOddUtf8(bytes) : DecodeOddLines(bytes, codec);
}

QByteArray TextBytes::Encode(const QString& text, const QTextCodec& codec, OddCharacters odd)
{
    QByteArray bytes;
    for (int start = 0; start <= text.size();) {
        const int end = NextOdd(text, start);
        const QByteArray part = EncodePart(text.constData() + start, end - start, codec);
        bytes += part;
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
