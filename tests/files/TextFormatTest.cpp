#include "files/TextFormat.h"

#include "files/TextBytes.h"
#include "support/TestMain.h"

#include <QTextCodec>
#include <QtTest>

#include <random>

namespace {

const QTextCodec& Codec(const QByteArray& name)
{
    return *QTextCodec::codecForName(name);
}

} // namespace

class TextFormatTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void SaysHowATextStands_data();
    void SaysHowATextStands();
    void AnyBytesComeBack_data();
    void AnyBytesComeBack();
    void MixedLineEndsStayWithTheirLines_data();
    void MixedLineEndsStayWithTheirLines();
    void FollowsWhatATextDeclares_data();
    void FollowsWhatATextDeclares();
    void WrittenPlainlyNothingOfItsOwnIsLeft();
    void KnowsWhatACodecHolds();
    void LooksBinary_data();
    void LooksBinary();
};

void TextFormatTest::SaysHowATextStands_data()
{
    // "description": encoding|line ends
    Columns<QByteArray, QString, QString>("bytes", "text", "description");
    const auto row
        = [](const char* name, const QByteArray& bytes, const char* text, const char* description) {
              Row(name, bytes, QString::fromUtf8(text), QString(description));
          };
    const QByteArray latin = "# coding: latin-1\nx = '\xe9'\n";
    // clang-format off
    row("nothing", "", "", "|");
    row("ordinary", "a\n\xc3\xa9\n", "a\n\xc3\xa9\n", "|");
    row("mark", "\xef\xbb\xbf""a\n", "a\n", "UTF-8 with BOM|");
    row("mark alone", "\xef\xbb\xbf", "", "UTF-8 with BOM|");
    row("two marks", "\xef\xbb\xbf\xef\xbb\xbf", "\xef\xbb\xbf\xef\xbb\xbf", "UTF-8 with BOM|");
    row("16 bits", QByteArray("\xff\xfe" "a\0\r\0\n\0", 8), "a\n", "UTF-16 LE|CRLF");
    row("16 bits, big end", QByteArray("\xfe\xff\0a", 4), "a", "UTF-16 BE|");
    row("32 bits", QByteArray("\xff\xfe\0\0" "a\0\0\0", 8), "a", "UTF-32 LE|");
    row("windows", "a\r\n\r\nb", "a\n\nb", "|CRLF");
    row("macintosh", "a\r\rb\r", "a\n\nb\n", "|CR");
    row("mixed", "a\r\nb\nc\rd", "a\nb\nc\nd", "|Mixed line ends");
    row("paragraphs", "a\xe2\x80\xa9" "b", "a\nb", "|Mixed line ends");
    row("mark and windows", "\xef\xbb\xbf" "a\r\n", "a\n", "UTF-8 with BOM|CRLF");
    row("declared", latin, "# coding: latin-1\nx = '\xc3\xa9'\n", "Latin-1 (declared)|");
    row("declared below", "#!x\r\n# vim: set fileencoding=cp1252 :\r\n'\x80'",
        "#!x\n# vim: set fileencoding=cp1252 :\n'\xe2\x82\xac'", "windows-1252 (declared)|CRLF");
    row("declared and plain", "#coding=iso8859-15\n", "#coding=iso8859-15\n", "ISO-8859-15 (declared)|");
    row("the first line counts", "# coding: utf-8\n# coding: latin-1\n",
        "# coding: utf-8\n# coding: latin-1\n", "|");
    row("declared in vain", "# coding: latin-1\n\xc3\xa9", "# coding: latin-1\n\xc3\xa9", "|");
    row("declared below code", "x\n# coding: latin-1\n", "x\n# coding: latin-1\n", "|");
    row("declared too late", "#\n\n# coding: latin-1\n", "#\n\n# coding: latin-1\n", "|");
    row("declared, not known", "# coding: rot13\n", "# coding: rot13\n", "|");
    row("declared, but not for plain text", "# coding: utf-7\na + b\n",
        "# coding: utf-7\na + b\n", "|");
    row("declared, in plain bytes", "# coding: iso-2022-jp\n'\x1b$B4A\x1b(B'\n",
        "# coding: iso-2022-jp\n'\xe6\xbc\xa2'\n", "ISO-2022-JP (declared)|");
    row("declared, not readable so", "# coding: utf-16\n", "# coding: utf-16\n", "|");
    // clang-format on
}

void TextFormatTest::SaysHowATextStands()
{
    QFETCH(QByteArray, bytes);
    const QTextCodec& chosen = Codec("UTF-8");
    const FormattedText read = ReadFormatted(bytes, chosen);
    QTEST(read.text, "text");
    QTEST(
        read.format.DescribeEncoding(chosen) + '|' + read.format.DescribeLineEnds(), "description");
    QCOMPARE(FormatText(read.text, read.format, chosen), bytes);
}

void TextFormatTest::AnyBytesComeBack_data()
{
    Columns<QByteArray>("codec");
    for (const char* codec : {"UTF-8", "ISO-8859-1", "windows-1252", "Shift_JIS", "EUC-JP",
             "ISO-2022-JP", "GB18030", "Big5", "US-ASCII"})
        Row(codec, QByteArray(codec));
}

/// What is harmful is put together by chance, always the same.
void TextFormatTest::AnyBytesComeBack()
{
    QFETCH(QByteArray, codec);
    const QList<QByteArray> pieces = {"a", "\n", "\r", "\r\n", "\xef\xbb\xbf", "\xff\xfe",
        "\xfe\xff", QByteArray(1, '\0'), "# coding: latin-1\n", "# coding: sjis", "\xc3\xa9",
        "\xe2\x82\xac", "\xf0\x9f\x8c\x8a", "\xed\xa0\xbc", "\xed\xb2\x80", "\xe2\x80\xa9",
        "\xef\xb7\x90", "\xc2\xa0", "\xf4\x90\x80\x80", "\xc0\xaf", "\x80", "\xff", "\x1b$B",
        "\x1b(B", "\\", "\x81", "\x5c"};
    std::minstd_rand random(1);
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes;
        for (int left = int(random() % 9); left > 0; --left)
            bytes += pieces[int(random() % pieces.size())];
        const FormattedText read = ReadFormatted(bytes, Codec(codec));
        QVERIFY(
            !read.text.isNull() && !read.text.contains('\r') && !read.text.contains(QChar(0x2029)));
        QCOMPARE(FormatText(read.text, read.format, Codec(codec)).toHex(' '), bytes.toHex(' '));
    }
}

void TextFormatTest::MixedLineEndsStayWithTheirLines_data()
{
    // "text": what "a\r\nb\nc\rd\r\ne" was made to
    Columns<QString, QString>("text", "saved");
    Row("a changed line", "a\nB\nc\nd\ne", "a\r\nB\nc\rd\r\ne");
    Row("two changed lines", "A\nb\nC\nd\ne", "A\r\nb\nC\rd\r\ne");
    Row("a new line", "a\nb\nx\nc\nd\ne", "a\r\nb\nx\nc\rd\r\ne");
    Row("new lines in front", "x\ny\na\nb\nc\nd\ne", "x\r\ny\r\na\r\nb\nc\rd\r\ne");
    Row("a line less", "a\nc\nd\ne", "a\r\nc\rd\r\ne");
    Row("far apart", "x\na\nb\nc\ne\ny\n", "x\r\na\r\nb\nc\re\ry\r");
    Row("nothing", "", "");
    Row("something else", "1\n2\n3\n4\n5\n6\n7", "1\r\n2\n3\r4\r\n5\r\n6\r\n7");
}

void TextFormatTest::MixedLineEndsStayWithTheirLines()
{
    QFETCH(QString, text);
    QFETCH(QString, saved);
    const FormattedText read = ReadFormatted("a\r\nb\nc\rd\r\ne", Codec("UTF-8"));
    QCOMPARE(FormatText(text, read.format, Codec("UTF-8")), saved.toUtf8());
}

void TextFormatTest::FollowsWhatATextDeclares_data()
{
    Columns<QByteArray, QString, QByteArray>("bytes", "text", "saved");
    const QString latin = QString::fromUtf8("# coding: latin-1\n\xc3\xa9");
    const QString plain = QString::fromUtf8("\xc3\xa9");
    Row("comes", QByteArray("x"), latin, QByteArray("# coding: latin-1\n\xe9"));
    Row("goes", QByteArray("# coding: latin-1\n\xe9"), plain, QByteArray("\xe9"));
    Row("changes", QByteArray("# coding: latin-1\n\xe9"), "# coding: utf-8\n" + plain,
        QByteArray("# coding: utf-8\n\xc3\xa9"));
    Row("stays in vain", QByteArray("# coding: latin-1\n\xc3\xa9"), latin + plain,
        QByteArray("# coding: latin-1\n\xc3\xa9\xc3\xa9"));
    Row("below a mark", QByteArray("\xef\xbb\xbf"), latin,
        QByteArray("\xef\xbb\xbf# coding: latin-1\n\xc3\xa9"));
}

void TextFormatTest::FollowsWhatATextDeclares()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    const QTextCodec& chosen = Codec("UTF-8");
    const TextFormat format = FollowText(ReadFormatted(bytes, chosen).format, text, chosen);
    QTEST(FormatText(text, format, chosen), "saved");
}

void TextFormatTest::WrittenPlainlyNothingOfItsOwnIsLeft()
{
    const FormattedText read = ReadFormatted("\xef\xbb\xbf"
                                             "a\xff\r\nb",
        Codec("UTF-8"));
    QCOMPARE(read.format.DescribeEncoding(Codec("UTF-8")), "UTF-8 with BOM");
    QCOMPARE(FormatPlainly(read.text, Codec("UTF-8")), "a\xef\xbf\xbd\nb");
}

void TextFormatTest::KnowsWhatACodecHolds()
{
    const QString euro(QChar(0x20ac));
    const QString odd(QChar(0xdc80));
    QVERIFY(TextBytes::CanHold(euro, Codec("UTF-8")));
    QVERIFY(!TextBytes::CanHold("a" + odd + euro, Codec("ISO-8859-1")));
    QVERIFY(TextBytes::CanHold("a" + odd + euro, Codec("windows-1252")));
    // Half of a character beyond the basic plane is no odd character.
    QVERIFY(!TextBytes::HasOddCharacters(QString::fromUtf8("\xf0\xa0\x82\x80")));
}

void TextFormatTest::LooksBinary_data()
{
    Columns<QByteArray, bool>("bytes", "binary");
    Row("text", QByteArray("a\xff"), false);
    Row("nothing", QByteArray(), false);
    Row("zero", QByteArray("a\0b", 3), true);
    Row("16 bits",
        QByteArray("\xff\xfe"
                   "a\0",
            4),
        false);
    Row("mark and zero", QByteArray("\xef\xbb\xbf\0", 4), true);
}

void TextFormatTest::LooksBinary()
{
    QFETCH(QByteArray, bytes);
    QTEST(::LooksBinary(bytes), "binary");
}

TE2_TEST(TextFormatTest)
#include "TextFormatTest.moc"
