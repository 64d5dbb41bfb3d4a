#include "editor/TextTrimming.h"

#include "support/TestMain.h"

#include <QtTest>

class TextTrimmingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void TrimsLineEnds_data();
    void TrimsLineEnds();
};

void TextTrimmingTest::TrimsLineEnds_data()
{
    // "|" is the position, "<" the anchor.
    QTest::addColumn<QString>("before");
    QTest::addColumn<bool>("ensureNewLine");
    QTest::addColumn<QString>("after");
    QTest::newRow("empty") << "<|" << true << "<|";
    QTest::newRow("blank line between") << "a \n \t\nb<|" << false << "a\n\nb<|";
    QTest::newRow("at the end of the text") << "a\t <|" << false << "a<|";
    QTest::newRow("nothing but blanks") << " <  |" << false << "<|";
    QTest::newRow("cursor among blanks that go") << "a <  |  \nb" << false << "a<|\nb";
    QTest::newRow("cursor behind them") << "a  \n<b  \nc|" << false << "a\n<b\nc|";
    QTest::newRow("line end added") << "a<|" << true << "a<|\n";
    QTest::newRow("line end there already") << "a \n<|" << true << "a\n<|";
    QTest::newRow("line end after trimming") << "a\n  <|" << true << "a\n<|";
    QTest::newRow("other white space stays")
        << QString::fromUtf8("a\xc2\xa0\r<|") << false << QString::fromUtf8("a\xc2\xa0\r<|");
}

void TextTrimmingTest::TrimsLineEnds()
{
    QFETCH(QString, before);
    QFETCH(bool, ensureNewLine);
    CursorText text;
    text.anchor = before.indexOf('<');
    text.position = before.indexOf('|') - 1;
    text.text = QString(before).remove('<').remove('|');
    const CursorText trimmed = TrimTrailingBlanks(text, ensureNewLine);
    QString after = trimmed.text;
    after.insert(trimmed.position, '|');
    after.insert(trimmed.anchor, '<');
    QTEST(after, "after");
}

TE2_TEST(TextTrimmingTest)
#include "TextTrimmingTest.moc"
