#pragma once

class QByteArray;
class QString;
class QTextCodec;

/// Bytes to text and back without losing any. A byte that is no character of its codec becomes an
/// odd character: one of U+DC80 to U+DCFF by itself, which no file can hold otherwise. It is edited
/// like any other and becomes its byte again. Linear.
namespace TextBytes {

enum class OddCharacters {
    AsBytes,
    Replaced, ///< by the character that stands for unknown ones
};

// A byte-order mark in front is a character like others.

/// False when there are bytes that are no characters.
bool DecodeExactly(const QByteArray& bytes, const QTextCodec& codec, QString& text);
QString Decode(const QByteArray& bytes, const QTextCodec& codec);
QByteArray Encode(const QString& text, const QTextCodec& codec, OddCharacters odd);
bool HasOddCharacters(const QString& text);
/// Whether the codec has all characters but the odd ones.
bool CanHold(const QString& text, const QTextCodec& codec);

} // namespace TextBytes
