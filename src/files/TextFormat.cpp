#include "files/TextFormat.h"

#include "files/CodingLine.h"
#include "files/TextBytes.h"

#include <QCoreApplication>
#include <QTextCodec>

#include <algorithm>

namespace {

const QByteArray UTF8 = QByteArrayLiteral("UTF-8");
const QByteArray BYTES_CODEC = QByteArrayLiteral("ISO-8859-1"); // has a character for every byte
constexpr int HEAD = 1000; // characters in which a text declares its codec

struct MarkRow
{
    const char* codec;
    QByteArray mark;
    const char* label;
};

/// The longer marks first: one of them begins with a shorter one.
const MarkRow MARKS[] = {
    {"UTF-32LE", QByteArrayLiteral("\xff\xfe\0\0"), "UTF-32 LE"},
    {"UTF-32BE", QByteArrayLiteral("\0\0\xfe\xff"), "UTF-32 BE"},
    {"UTF-8", QByteArrayLiteral("\xef\xbb\xbf"), QT_TRANSLATE_NOOP("TextFormat", "UTF-8 with BOM")},
    {"UTF-16LE", QByteArrayLiteral("\xff\xfe"), "UTF-16 LE"},
    {"UTF-16BE", QByteArrayLiteral("\xfe\xff"), "UTF-16 BE"},
};

const MarkRow* MarkOf(const QByteArray& bytes)
{
    const auto* const row = std::find_if(std::begin(MARKS), std::end(MARKS),
        [&](const MarkRow& mark) { return bytes.startsWith(mark.mark); });
    return row == std::end(MARKS) ? nullptr : row;
}

const MarkRow& MarkOfCodec(const QByteArray& codec)
{
    return *std::find_if(std::begin(MARKS), std::end(MARKS) - 1,
        [&](const MarkRow& mark) { return codec == mark.codec; });
}

QString Translate(const char* text)
{
    return QCoreApplication::translate("TextFormat", text);
}

bool IsAscii(const QByteArray& bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte >= 0; });
}

/// A text in which every byte is a character.
QString ReadBytes(const QByteArray& bytes, TextFormat& format)
{
    format = {};
    format.codec = BYTES_CODEC;
    return QString::fromLatin1(bytes.constData(), bytes.size());
}

QString DecodeMarked(const QByteArray& bytes, const MarkRow& mark, TextFormat& format)
{
    format.codec = mark.codec;
    format.hasByteOrderMark = true;
    const QByteArray body = bytes.mid(mark.mark.size());
    const QTextCodec& codec = *QTextCodec::codecForName(format.codec);
    format.declared = FindDeclaredCodec(body);
    QString text;
    if (TextBytes::DecodeExactly(body, codec, text))
        return text;
    // Of wider characters a byte by itself is no part.
    return codec.name() == UTF8 ? TextBytes::Decode(body, codec) : ReadBytes(bytes, format);
}

QString DecodeOdd(const QByteArray& bytes, const QTextCodec& chosen, TextFormat& format)
{
    const QString text = TextBytes::Decode(bytes, chosen);
    const bool comesBack = chosen.name() == UTF8
        || TextBytes::Encode(text, chosen, TextBytes::OddCharacters::AsBytes) == bytes;
    return comesBack ? text : ReadBytes(bytes, format);
}

QString DecodeUnmarked(const QByteArray& bytes, const QTextCodec& chosen, TextFormat& format)
{
    format.declared = FindDeclaredCodec(bytes);
    const QTextCodec* const declared = format.declared.isEmpty() || format.declared == chosen.name()
        ? nullptr
        : QTextCodec::codecForName(format.declared);
    QString text;
    const bool isChosen = TextBytes::DecodeExactly(bytes, chosen, text);
    // Plain bytes say nothing against the declaration; some codecs have other characters in them.
    QString declaredText;
    if (declared && (!isChosen || IsAscii(bytes))
        && TextBytes::DecodeExactly(bytes, *declared, declaredText)) {
        format.codec = format.declared;
        return declaredText;
    }
    return isChosen ? text : DecodeOdd(bytes, chosen, format);
}

QByteArray Head(const QString& text)
{
    return text.left(HEAD).toUtf8();
}

} // namespace

bool TextFormat::IsOrdinary() const
{
    return codec.isEmpty() && !hasByteOrderMark && !hasOddBytes
        && lineEnds.GetKind() == LineEnds::Kind::LineFeed;
}

const QTextCodec& TextFormat::GetCodec(const QTextCodec& chosen) const
{
    const QTextCodec* const own = codec.isEmpty() ? nullptr : QTextCodec::codecForName(codec);
    return own ? *own : chosen;
}

QString TextFormat::DescribeEncoding(const QTextCodec& chosen) const
{
    if (hasByteOrderMark)
        return Translate(MarkOfCodec(codec).label);
    const QString label = CodecLabel(GetCodec(chosen));
    if (hasOddBytes)
        return Translate("%1 with invalid bytes").arg(label);
    if (codec.isEmpty())
        return QString();
    return codec == declared ? Translate("%1 (declared)").arg(label) : label;
}

QString TextFormat::DescribeLineEnds() const
{
    static const char* const LABELS[]
        = {"", "CRLF", "CR", QT_TRANSLATE_NOOP("TextFormat", "Mixed line ends")};
    const char* const label = LABELS[int(lineEnds.GetKind())];
    return *label ? Translate(label) : QString();
}

FormattedText ReadFormatted(const QByteArray& bytes, const QTextCodec& chosen)
{
    FormattedText result;
    TextFormat& format = result.format;
    const MarkRow* const mark = MarkOf(bytes);
    result.text = mark ? DecodeMarked(bytes, *mark, format) : DecodeUnmarked(bytes, chosen, format);
    format.hasOddBytes = TextBytes::HasOddCharacters(result.text);
    format.lineEnds = LineEnds::Take(result.text);
    if (result.text.isNull())
        result.text = QStringLiteral("");
    return result;
}

QByteArray FormatText(const QString& text, const TextFormat& format, const QTextCodec& chosen)
{
    const QByteArray bytes = TextBytes::Encode(
        format.lineEnds.Restore(text), format.GetCodec(chosen), TextBytes::OddCharacters::AsBytes);
    return format.hasByteOrderMark ? MarkOfCodec(format.codec).mark + bytes : bytes;
}

QByteArray FormatPlainly(const QString& text, const QTextCodec& chosen)
{
    return TextBytes::Encode(text, chosen, TextBytes::OddCharacters::Replaced);
}

TextFormat FollowText(TextFormat format, const QString& text, const QTextCodec& chosen)
{
    format.hasOddBytes = TextBytes::HasOddCharacters(text);
    const QByteArray declared = FindDeclaredCodec(Head(text));
    if (format.hasByteOrderMark || declared == format.declared)
        return format;
    format.declared = declared;
    format.isKept = false;
    // A text that has lost its declaration does not say what else it wants.
    if (!declared.isEmpty())
        format.codec = declared == chosen.name() ? QByteArray() : declared;
    return format;
}

QString CodecLabel(const QTextCodec& codec)
{
    const QByteArray name = codec.name();
    return name == BYTES_CODEC ? QStringLiteral("Latin-1") : QString::fromLatin1(name);
}

bool LooksBinary(const QByteArray& bytes)
{
    const MarkRow* const mark = MarkOf(bytes);
    const bool hasWideCharacters = mark && mark->codec != UTF8;
    return !hasWideCharacters && bytes.contains('\0');
}
