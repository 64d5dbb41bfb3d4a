// Files on disk: the bytes that come in go out again, and a text that is typed stays that text.

#include "files/CodingLine.h"
#include "files/LineEnds.h"
#include "files/TextBytes.h"
#include "files/TextFormat.h"
#include "fuzz/Fuzz.h"
#include "mel/Source.h"

#include <QTextCodec>

using fuzz::Expect;

namespace {

void ExpectSameBytes(const QByteArray& bytes, const QTextCodec& chosen)
{
    const FormattedText read = ReadFormatted(bytes, chosen);
    Expect(!read.text.isNull(), QStringLiteral("a file has a text"));
    Expect(!read.text.contains(QLatin1Char('\r')), QStringLiteral("line ends are line feeds"));
    const QByteArray written = FormatText(read.text, read.format, chosen);
    Expect(written == bytes,
        QStringLiteral("%1 as %2 came back as %3")
            .arg(QString::fromLatin1(bytes.toHex()), QString::fromLatin1(read.format.codec),
                QString::fromLatin1(written.toHex())));
    read.format.DescribeEncoding(chosen);
    read.format.DescribeLineEnds();
    LooksBinary(bytes);
}

/// Formats that a script comes to by what is typed into it can hold it.
void ExpectFollowed(const QByteArray& bytes, const QString& typed, const QTextCodec& chosen)
{
    const FormattedText read = ReadFormatted(bytes, chosen);
    const QString text = typed + read.text;
    const TextFormat format = FollowText(read.format, text, chosen);
    const QByteArray written = FormatText(text, format, chosen);
    if (!TextBytes::CanHold(text, format.GetCodec(chosen)))
        return;
    const FormattedText again = ReadFormatted(written, chosen);
    Expect(FormatText(again.text, again.format, chosen) == written,
        QStringLiteral("what was written is read: %1").arg(text));
}

void ExpectSameLineEnds(const QString& text)
{
    QString taken = text;
    const LineEnds ends = LineEnds::Take(taken);
    Expect(ends.Restore(taken) == text, QStringLiteral("line ends come back: %1").arg(text));
}

} // namespace

TE2_FUZZ_TARGET(FileTexts)
{
    static const char* const codecs[] = {"UTF-8", "ISO-8859-1", "windows-1252", "Shift_JIS"};
    const QTextCodec& chosen = *QTextCodec::codecForName(codecs[input.Number(4)]);
    const QString typed = input.Text();
    const QByteArray bytes = input.Rest();
    ExpectSameBytes(bytes, chosen);
    ExpectSameLineEnds(typed);
    ExpectFollowed(bytes, typed, chosen);
    FindDeclaredCodec(bytes);
    host::mel::Source::Decode(bytes);
}
