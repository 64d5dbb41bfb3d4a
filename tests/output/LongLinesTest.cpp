#include "output/LongLines.h"

#include "editor/DocumentSearch.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

namespace {

constexpr int LONGEST_WHOLE = 20;
constexpr int PIECE = 8;

/// A document with cut lines, and beside it one that took the same text as it is.
struct Pair
{
    QTextDocument cut;
    QTextDocument whole;
    LongLines lines{&cut, LONGEST_WHOLE, PIECE};

    void Append(const QString& text)
    {
        if (lines.IsNeededFor(text))
            lines.Append(text);
        else
            Insert(cut, text);
        Insert(whole, text);
    }
    static void Insert(QTextDocument& document, const QString& text)
    {
        QTextCursor cursor(&document);
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(text);
    }
    /// Text of the cut document, as somebody reads it.
    QString Read(int start, int end)
    {
        QTextCursor cursor(&cut);
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        return lines.WithoutBreaks(cursor.selectedText(), cursor.selectionStart());
    }
    QString Text() { return lines.WithoutBreaks(cut.toPlainText(), 0); }
};

QString RandomText(QRandomGenerator& random)
{
    static const QStringList PIECES = {"a", "ab ", "ba", "\n", "\r\n", "\n\n", QString(30, 'b'),
        QString("ab ").repeated(15), QString::fromUtf8("\xf0\x9f\x8c\x8a").repeated(20)};
    QString text;
    for (int i = random.bounded(4); i >= 0; --i)
        text += PIECES.at(random.bounded(PIECES.size()));
    return text;
}

} // namespace

class LongLinesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ReadsAsIfNothingWereCut_data();
    void ReadsAsIfNothingWereCut();
    void FindsAsIfNothingWereCut_data();
    void FindsAsIfNothingWereCut();
    void CutsBehindBlanksAndNeverWithinACharacter();
};

void LongLinesTest::ReadsAsIfNothingWereCut_data()
{
    Columns<uint>("seed");
    for (uint seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void LongLinesTest::ReadsAsIfNothingWereCut()
{
    QFETCH(uint, seed);
    QRandomGenerator random(seed);
    Pair pair;
    for (int step = 0; step < 200; ++step) {
        if (random.bounded(20) == 0) {
            const int limit = random.bounded(10);
            pair.lines.SetLineLimit(limit);
            pair.whole.setMaximumBlockCount(limit);
        }
        pair.Append(RandomText(random));
        QCOMPARE(pair.Text(), pair.whole.toPlainText());
        QCOMPARE(pair.lines.GetLineCount(), pair.whole.blockCount());
        QCOMPARE(pair.lines.GetLineLimit(), pair.whole.maximumBlockCount());
        const int cut = random.bounded(pair.cut.characterCount());
        QString parts = pair.Read(0, cut) + pair.Read(cut, pair.cut.characterCount() - 1);
        QCOMPARE(parts.replace(QChar::ParagraphSeparator, '\n'), pair.Text());
    }
    for (QTextBlock block = pair.cut.begin(); block.isValid(); block = block.next())
        QVERIFY(block.length() - 1 <= (LongLines::Continues(block) ? PIECE : LONGEST_WHOLE));
}

void LongLinesTest::FindsAsIfNothingWereCut_data()
{
    Columns<QString>("pattern");
    Row("within words", "ab");
    Row("plain text with a blank", "b\\ a");
    Row("over a break", "b{9,12}");
    Row("whole lines", "^.*$");
    Row("empty", "(?=a)");
    Row("long", "(ab ){7}");
}

void LongLinesTest::FindsAsIfNothingWereCut()
{
    QFETCH(QString, pattern);
    QRandomGenerator random(7);
    Pair pair;
    for (int i = 0; i < 300; ++i)
        pair.Append(RandomText(random));
    const QRegularExpression expression(pattern);
    DocumentSearch expected(&pair.whole, nullptr);
    DocumentSearch search(&pair.cut, nullptr);
    search.SetContinuation(&LongLines::Continues);
    for (DocumentSearch* each : {&expected, &search}) {
        each->Search(expression, -1, -1);
        each->Finish();
    }
    QVERIFY(search.GetTotal() > 20);
    QCOMPARE(search.GetTotal(), expected.GetTotal());
    QVector<TextSpan> spans;
    TextSpan wanted = expected.FindNext(0);
    TextSpan found = search.FindNext(0);
    while (wanted.IsValid()) {
        QVERIFY(found.IsValid());
        spans.append(found);
        QCOMPARE(pair.Read(found.start, found.end),
            pair.whole.toPlainText().mid(wanted.start, wanted.end - wanted.start));
        QCOMPARE(search.GetNumber(found.start), spans.size());
        QVERIFY(search.IsMatch(found));
        QVERIFY(search.GetMatch(found).hasMatch());
        wanted = expected.FindNext(qMax(wanted.start + 1, wanted.end));
        found = search.FindNext(qMax(found.start + 1, found.end));
    }
    QVERIFY(!found.IsValid());
    for (int i = spans.size() - 1; i > 0; --i)
        QCOMPARE(search.FindPrevious(spans[i].start).start, spans[i - 1].start);
}

void LongLinesTest::CutsBehindBlanksAndNeverWithinACharacter()
{
    Pair pair;
    pair.Append("aaa bbb ccc ddd eee fff");
    QCOMPARE(pair.cut.begin().text(), "aaa bbb ");
    QCOMPARE(pair.cut.begin().next().text(), "ccc ddd ");
    pair.Append("\na" + QString::fromUtf8("\xf0\x9f\x8c\x8a").repeated(20));
    for (QTextBlock block = pair.cut.begin(); block.isValid(); block = block.next())
        QVERIFY(!block.text().startsWith(QChar(0xdf0a)));
}

TE2_TEST(LongLinesTest)
#include "LongLinesTest.moc"
