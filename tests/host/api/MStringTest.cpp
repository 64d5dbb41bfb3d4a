#include "support/TestMain.h"

#include <maya/MQtUtil.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <QtTest>

#include <sstream>

/// The rules of MString that clients lean on.
class MStringTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void AppendsNumbersInTheirShortestForm();
    void FillsMarkers_data();
    void FillsMarkers();
    void FormatsFromItsOwnText();
    void DropsEmptyPieces_data();
    void DropsEmptyPieces();
    void CutsInsideTheText_data();
    void CutsInsideTheText();
    void ReplacesWithoutLookingBack();
    void TellsNumbersApart_data();
    void TellsNumbersApart();
    void CountsCharactersAndBytes();
    void KeepsTheWideTextInStep();
    void TakesPartsOfItself();
    void KeepsEmbeddedZeros();
    void ExpandsVariables();
    void RoundTripsThroughTheToolkit_data();
    void RoundTripsThroughTheToolkit();
};

void MStringTest::AppendsNumbersInTheirShortestForm()
{
    MString text("n");
    text += 12;
    text += 0.5;
    text += 1.0;
    text += 0.1f;
    text += 7u;
    text += true; // takes the int overload
    QCOMPARE(text.asChar(), "n120.510.171");
    const int number = 100000;
    QCOMPARE((MString() + number).asChar(), "100000");
    text.set(2.0 / 3.0, 2);
    QCOMPARE(text.asChar(), "0.67");
}

void MStringTest::FillsMarkers_data()
{
    Columns<QString, QStringList, QString>("format", "arguments", "expected");
    Row("in any order", "^2s-^1s-^2s", QStringList{"a", "b"}, "b-a-b");
    Row("tenth is not first", "^10s ^1s",
        QStringList{"1", "2", "3", "4", "5", "6", "7", "8", "9", "X"}, "X 1");
    Row("without argument stays", "^1s ^2s", QStringList{"a"}, "a ^2s");
    Row("no marker", "^ ^s ^0s ^11s ^1", QStringList{"a"}, "^ ^s ^0s ^11s ^1");
    Row("markers in arguments stay", "^1s", QStringList{"^2s", "b"}, "^2s");
    Row("empty argument", "[^1s]", QStringList{""}, "[]");
}

void MStringTest::FillsMarkers()
{
    QFETCH(QString, format);
    QFETCH(QStringList, arguments);
    QFETCH(QString, expected);
    MStringArray array;
    for (const QString& argument : arguments)
        array.append(MQtUtil::toMString(argument));
    MString text;
    QVERIFY(text.format(MQtUtil::toMString(format), array));
    QCOMPARE(MQtUtil::toQString(text), expected);
}

void MStringTest::FormatsFromItsOwnText()
{
    MString text("<^1s|^2s>");
    text.format(text, text, "x");
    QCOMPARE(text.asChar(), "<<^1s|^2s>|x>");
    text.format("no arguments ^1s");
    QCOMPARE(text.asChar(), "no arguments ^1s");
}

void MStringTest::DropsEmptyPieces_data()
{
    Columns<QString, QStringList>("text", "pieces");
    Row("plain", "a;b;c", QStringList{"a", "b", "c"});
    Row("empty ones dropped", ";;a;;b;", QStringList{"a", "b"});
    Row("no separator", "abc", QStringList{"abc"});
    Row("nothing", "", QStringList{});
    Row("separators only", ";;", QStringList{});
    Row("beyond ASCII", QString::fromUtf8("é;ü"),
        QStringList{QString::fromUtf8("é"), QString::fromUtf8("ü")});
}

void MStringTest::DropsEmptyPieces()
{
    QFETCH(QString, text);
    QFETCH(QStringList, pieces);
    for (const bool wide : {false, true}) {
        MStringArray found(1, "old");
        const MString string = MQtUtil::toMString(text);
        QVERIFY(wide ? string.split(L';', found) : string.split(';', found));
        QStringList texts;
        for (const MString& piece : found)
            texts += MQtUtil::toQString(piece);
        QCOMPARE(texts, pieces);
    }
}

void MStringTest::CutsInsideTheText_data()
{
    Columns<int, int, QString>("start", "end", "expected");
    Row("both ends included", 1, 3, "bcd");
    Row("one character", 2, 2, "c");
    Row("beyond the end", 3, 99, "de");
    Row("before the start", -5, 1, "ab");
    Row("backwards", 3, 1, "");
    Row("outside", 7, 9, "");
}

void MStringTest::CutsInsideTheText()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, expected);
    QCOMPARE(MQtUtil::toQString(MString("abcde").substring(start, end)), expected);
    QCOMPARE(MQtUtil::toQString(MString("abcde").substringW(start, end)), expected);
}

void MStringTest::ReplacesWithoutLookingBack()
{
    MString text("aXaXa");
    QVERIFY(text.substitute("a", "aa"));
    QCOMPARE(text.asChar(), "aaXaaXaa");
    QVERIFY(text.substituteFirst("X", ""));
    QCOMPARE(text.asChar(), "aaaaXaa");
    QCOMPARE(text.substitute("", "z").statusCode(), MS::kInvalidParameter);
    QCOMPARE(text.asChar(), "aaaaXaa");
}

void MStringTest::TellsNumbersApart_data()
{
    // "kinds": of "i"nt, "u"nsigned, "s"hort, "d"ouble
    Columns<QString, QString, int>("text", "kinds", "asInt");
    Row("small", "12", "iusd", 12);
    Row("negative", "-7", "isd", -7);
    Row("too long for short", "40000", "iud", 40000);
    Row("unsigned only", "4000000000", "ud", INT_MAX);
    Row("fraction", "1.75", "d", 1);
    Row("exponent", "1e3", "d", 1000);
    Row("with a tail", "12px", "", 12);
    Row("word", "x", "", 0);
    Row("nothing", "", "", 0);
}

void MStringTest::TellsNumbersApart()
{
    QFETCH(QString, text);
    QFETCH(QString, kinds);
    QFETCH(int, asInt);
    const MString string = MQtUtil::toMString(text);
    const QString found = QString(string.isInt() ? "i" : "") + (string.isUnsigned() ? "u" : "")
        + (string.isShort() ? "s" : "") + (string.isDouble() ? "d" : "");
    QCOMPARE(found, kinds);
    QCOMPARE(string.isFloat(), string.isDouble());
    QCOMPARE(string.asInt(), asInt);
}

void MStringTest::CountsCharactersAndBytes()
{
    const MString text("a\xC3\xA9\xF0\x9F\x98\x80z");
    QCOMPARE(text.length(), 8u);
    QCOMPARE(text.numChars(), 4u);
    QCOMPARE(text.index('z'), 7);
    QCOMPARE(text.indexW(L'z'), 3);
    QCOMPARE(text.rindexW(MString("\xC3\xA9")), 1);
    QCOMPARE(text.indexW('q'), -1);
    QCOMPARE(text.substringW(1, 2).asChar(), "\xC3\xA9\xF0\x9F\x98\x80");
    QVERIFY(MString(text.asWChar()) == text);
}

void MStringTest::KeepsTheWideTextInStep()
{
    MString text("one");
    QVERIFY(std::wstring(text.asWChar()) == L"one");
    text += " two";
    QVERIFY(std::wstring(text.asWChar()) == L"one two");
    text = "three";
    QVERIFY(std::wstring(text.asWChar()) == L"three");
    text.clear();
    QVERIFY(std::wstring(text.asWChar()).empty());
    QCOMPARE(text.asChar(), "");
}

void MStringTest::TakesPartsOfItself()
{
    MString text("self");
    text += text;
    QCOMPARE(text.asChar(), "selfself");
    text = text.asChar() + 4;
    QCOMPARE(text.asChar(), "self");
    const MString& same = text;
    text = same;
    QCOMPARE(text.asChar(), "self");
    QCOMPARE(("<" + text + ">").asChar(), "<self>");
}

void MStringTest::KeepsEmbeddedZeros()
{
    const MString text("a\0b", 3);
    MString copy(text);
    copy += text;
    QCOMPARE(copy.length(), 6u);
    QVERIFY(text != MString("a"));
    std::ostringstream stream;
    stream << text;
    QCOMPARE(stream.str().size(), size_t(3));
    QCOMPARE(MString("a", -1).length(), 0u);
}

void MStringTest::ExpandsVariables()
{
    qputenv("TE2_TEST_PLACE", "/place");
    qunsetenv("TE2_TEST_MISSING");
    QCOMPARE(
        MString("$TE2_TEST_PLACE/${TE2_TEST_PLACE}x").expandEnvironmentVariablesAndTilde().asChar(),
        "/place//placex");
    QCOMPARE(MString("$TE2_TEST_MISSING/a~").expandEnvironmentVariablesAndTilde().asChar(),
        "$TE2_TEST_MISSING/a~");
    const MString home = MQtUtil::toMString(QDir::homePath());
    QVERIFY(MString("~/a").expandFilePath() == home + "/a");
}

void MStringTest::RoundTripsThroughTheToolkit_data()
{
    Columns<QString>("text");
    Row("empty", "");
    Row("accents", QString::fromUtf8("Zoë — naïve"));
    Row("beyond the basic plane", QString::fromUtf8("😀𝒳"));
    Row("byte order mark", QString(QChar(0xFEFF)) + "text");
    Row("zeros", QString("a") + QChar(0) + "b" + QChar(0));
    Row("replacement character", QString(QChar(0xFFFD)));
    Row("non-characters", QString(QChar(0xFFFE)) + QChar(0xFFFF));
    Row("lone high half", QString("a") + QChar(0xD83D) + "b");
    Row("lone low half", QString(QChar(0xDE00)) + QChar(0xD83D));
    Row("line ends", "a\r\nb\n\r\t");
}

void MStringTest::RoundTripsThroughTheToolkit()
{
    QFETCH(QString, text);
    QCOMPARE(MQtUtil::toQString(MQtUtil::toMString(text)), text);
}

TE2_TEST(MStringTest)
#include "MStringTest.moc"
