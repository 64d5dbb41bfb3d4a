#pragma once

#include "files/LineEnds.h"

#include <QByteArray>
#include <QString>

class QTextCodec;

/// How a text stands in its file, besides what the user chose for every file: `chosen`, with line
/// feeds and without a byte-order mark. Found when a file is read and kept as long as it is open. A
/// value.
struct TextFormat
{
    QByteArray codec; ///< the toolkit's name; empty: the chosen one
    QByteArray declared; ///< the codec that the text names for itself; empty: none
    bool hasByteOrderMark = false;
    bool hasOddBytes = false; ///< some bytes were no characters
    LineEnds lineEnds;
    bool isKept = false; ///< the user wants it to stay as it is

    /// Nothing of its own.
    bool IsOrdinary() const;
    const QTextCodec& GetCodec(const QTextCodec& chosen) const;
    /// For people: "UTF-8 with BOM", "Latin-1 (declared)"; empty for the chosen codec.
    QString DescribeEncoding(const QTextCodec& chosen) const;
    /// For people: "CRLF", "CR", "Mixed line ends"; empty for line feeds.
    QString DescribeLineEnds() const;
};

struct FormattedText
{
    QString text; ///< never null
    TextFormat format;
};

/// Linear. Byte-order marks say how a file is read, then the chosen codec; where that cannot read
/// the bytes and the one that the text declares can, the declared one. FormatText gives the same
/// bytes again, whatever they were.
FormattedText ReadFormatted(const QByteArray& bytes, const QTextCodec& chosen);
QByteArray FormatText(const QString& text, const TextFormat& format, const QTextCodec& chosen);
/// As the user chose for every file; what it has no place for becomes the unknown character.
QByteArray FormatPlainly(const QString& text, const QTextCodec& chosen);
/// `format` as the text wants it now: people change what a script declares.
TextFormat FollowText(TextFormat format, const QString& text, const QTextCodec& chosen);
/// What people call a codec.
QString CodecLabel(const QTextCodec& codec);

/// Whether these bytes, from the beginning of a file, are those of something else than a text.
bool LooksBinary(const QByteArray& bytes);
