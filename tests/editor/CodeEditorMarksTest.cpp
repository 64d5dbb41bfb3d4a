#include "editor/CodeEditorMarks.h"

#include "editor/CodeEditorMarkToolTip.h"
#include "support/TestMain.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

namespace {

ParserMessage Span(const QString& text, int start, int end)
{
    ParserMessage message;
    message.message = text;
    message.start = start;
    message.end = end;
    return message;
}

ParserMessage Place(int line, int column)
{
    ParserMessage message;
    message.line = line;
    message.column = column;
    return message;
}

/// The text with "[" and "]" round the first error's span; without them when it is gone.
QString Marked(const QTextDocument& document, const CodeEditorMarks& marks)
{
    QString text = document.toPlainText();
    if (marks.GetCount(MarkSeverity::Error) == 0)
        return text;
    const CodeEditorMark& mark = marks.GetMarks(MarkSeverity::Error).constFirst();
    return text.insert(mark.end, ']').insert(mark.start, '[');
}

QStringList Texts(const QVector<CodeEditorMark>& marks)
{
    QStringList texts;
    for (const CodeEditorMark& mark : marks)
        texts += mark.message.message;
    return texts;
}

} // namespace

class CodeEditorMarksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void LocatesMessages_data();
    void LocatesMessages();
    void FollowsEdits_data();
    void FollowsEdits();
    void LinesFollowEdits();
    void AnswersWorstFirst();
    void ToolTipShowsPlainText();
    void ToolTipHoldsSixRows();
};

void CodeEditorMarksTest::LocatesMessages_data()
{
    Columns<int, int, int, int, QString>("start", "end", "line", "column", "marked");
    Row("a span", 1, 4, -1, -1, "a[b c]d\n  e_1+");
    Row("behind the text", 90, 95, -1, -1, "ab cd\n  e_1+[]");
    Row("over the end", 10, 95, -1, -1, "ab cd\n  e_[1+]");
    Row("ends before it starts", 4, 2, -1, -1, "ab c[]d\n  e_1+");
    Row("a word by its column", -1, -1, 0, 3, "ab [cd]\n  e_1+");
    Row("within a word", -1, -1, 1, 3, "ab cd\n  e[_1]+");
    Row("no word, so the rest of the line", -1, -1, 0, 2, "ab[ cd]\n  e_1+");
    Row("behind the line", -1, -1, 0, 40, "ab cd[]\n  e_1+");
    Row("no column", -1, -1, 1, -1, "ab cd\n[  e_1+]");
    Row("a line behind the last", -1, -1, 9, 2, "ab cd\n  [e_1]+");
}

void CodeEditorMarksTest::LocatesMessages()
{
    QFETCH(int, start);
    QFETCH(int, line);
    QFETCH(int, end);
    QFETCH(int, column);
    QTextDocument document("ab cd\n  e_1+");
    CodeEditorMarks marks;
    marks.SetMessages(
        MarkSeverity::Error, {line < 0 ? Span("x", start, end) : Place(line, column)}, document);
    QTEST(Marked(document, marks), "marked");
    const CodeEditorMark& mark = marks.GetMarks(MarkSeverity::Error).constFirst();
    QCOMPARE(mark.line, document.findBlock(mark.start).blockNumber());
}

void CodeEditorMarksTest::FollowsEdits_data()
{
    Columns<QString, int, int, QString, QString>("before", "from", "to", "inserted", "after");
    Row("typed before", "a [bcd] e", 0, 0, "xy", "xya [bcd] e");
    Row("typed right before", "a [bcd] e", 2, 2, "x", "a x[bcd] e");
    Row("typed inside", "a [bcd] e", 3, 3, "x", "a [bxcd] e");
    Row("typed right behind", "a [bcd] e", 5, 5, "x", "a [bcd]x e");
    Row("typed behind", "a [bcd] e", 7, 7, "x", "a [bcd] ex");
    Row("removed before", "a [bcd] e", 0, 2, "", "[bcd] e");
    Row("its first character removed", "a [bcd] e", 2, 3, "", "a [cd] e");
    Row("removed inside", "a [bcd] e", 3, 4, "", "a [bd] e");
    Row("replaced inside", "a [bcd] e", 3, 4, "xyz", "a [bxyzd] e");
    Row("its last character removed", "a [bcd] e", 4, 5, "", "a [bc] e");
    Row("removed behind", "a [bcd] e", 5, 7, "", "a [bcd]");
    Row("removed over its start", "a [bcd] e", 1, 3, "", "acd e");
    Row("removed over its end", "a [bcd] e", 4, 6, "", "a bce");
    Row("removed whole", "a [bcd] e", 2, 5, "", "a  e");
    Row("replaced whole", "a [bcd] e", 2, 5, "xyz", "a xyz e");
    Row("all text replaced", "a [bcd] e", 0, 7, "a bcd e", "a bcd e");
    Row("an empty span moves", "ab[]", 1, 1, "x", "axb[]");
    Row("typed at an empty span", "ab[]", 2, 2, "x", "abx[]");
    Row("an empty span in removed text", "a[]b", 0, 2, "", "");
}

void CodeEditorMarksTest::FollowsEdits()
{
    QFETCH(QString, before);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, inserted);
    const int start = before.indexOf('[');
    const int end = before.indexOf(']') - 1;
    QTextDocument document(QString(before).remove('[').remove(']'));
    document.documentLayout(); // A document without a layout tells nobody of its changes.
    CodeEditorMarks marks;
    marks.SetMessages(MarkSeverity::Error, {Span("x", start, end)}, document);
    connect(&document, &QTextDocument::contentsChange, this,
        [&marks](int position, int removed, int added) {
            marks.Offset({{position, removed, added, 0}});
        });
    QTextCursor cursor(&document);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.insertText(inserted);
    document.disconnect(this);
    QTEST(Marked(document, marks), "after");
}

void CodeEditorMarksTest::LinesFollowEdits()
{
    QTextDocument document("a\nbb\nc");
    CodeEditorMarks marks;
    marks.SetMessages(MarkSeverity::Warning,
        {Span("b", 2, 4), Span("c", 5, 6), Span("over lines", 0, 4)}, document);
    const auto lines = [&marks] {
        QVector<int> numbers;
        for (const CodeEditorMark& mark : marks.GetMarks(MarkSeverity::Warning))
            numbers += mark.line;
        return numbers;
    };
    QCOMPARE(lines(), QVector<int>({1, 2, 0}));
    // A line end typed right before a span takes it along, one inside does not.
    QVERIFY(!marks.Offset({{2, 0, 1, 1}}));
    QCOMPARE(lines(), QVector<int>({2, 3, 0}));
    QVERIFY(!marks.Offset({{4, 0, 1, 1}}));
    QCOMPARE(lines(), QVector<int>({2, 4, 0}));
    QVERIFY(!marks.Offset({{1, 1, 0, -1}}));
    QCOMPARE(lines(), QVector<int>({1, 3, 0}));
    QVERIFY(marks.Offset({{0, 3, 0, -1}}));
}

void CodeEditorMarksTest::AnswersWorstFirst()
{
    QTextDocument document("one two\nthree\nfour");
    CodeEditorMarks marks;
    marks.SetMessages(MarkSeverity::Info, {Span("i1", 0, 3), Span("i2", 8, 13)}, document);
    marks.SetMessages(MarkSeverity::Warning, {Span("w1", 4, 7), Span("w2", 0, 18)}, document);
    marks.SetMessages(MarkSeverity::Error, {Span("e1", 4, 4)}, document);
    QCOMPARE(Texts(marks.GetMarksOfLine(0, 9)), QStringList({"e1", "w1", "w2", "i1"}));
    QCOMPARE(Texts(marks.GetMarksOfLine(0, 2)), QStringList({"e1", "w1"}));
    QCOMPARE(Texts(marks.GetMarksAt(4, 9)), QStringList({"e1", "w1", "w2"}));
    QCOMPARE(Texts(marks.GetMarksAt(3, 9)), QStringList({"w2"}));
    QCOMPARE(Texts(marks.GetMarksWithin(8, 13)), QStringList({"i2", "w2"}));
    QCOMPARE(Texts(marks.GetMarksWithin(3, 4)), QStringList({"w2"}));
    QCOMPARE(marks.GetWorstOfLines(0, 3),
        QVector<int>({int(MarkSeverity::Error), int(MarkSeverity::Info), -1}));
}

void CodeEditorMarksTest::ToolTipShowsPlainText()
{
    QTextDocument document("a\nb");
    CodeEditorMarks marks;
    const QString message = "use <b>%1</b> & \"x\"\nor nothing";
    marks.SetMessages(MarkSeverity::Warning, {Span(message, 2, 3)}, document);
    const QVector<CodeEditorMark> line = marks.GetMarksOfLine(1, 9);
    QTextDocument tip;
    tip.setHtml(MarkToolTip(line, ToolTipRows::Plain, 1.0));
    QVERIFY(tip.toPlainText().contains("use <b>%1</b> & \"x\"\nor nothing"));
    QVERIFY(!tip.toPlainText().contains("2"));
    tip.setHtml(MarkToolTip(line, ToolTipRows::Numbered, 1.0));
    QVERIFY(tip.toPlainText().contains(QRegularExpression("2\\s+use")));
    QVERIFY(MarkToolTip({}, ToolTipRows::Plain, 1.0).isEmpty());
}

void CodeEditorMarksTest::ToolTipHoldsSixRows()
{
    QTextDocument document("a");
    QVector<ParserMessage> messages;
    for (int i = 0; i < 8; ++i)
        messages += Span(QString("message %1.").arg(i), 0, 1);
    CodeEditorMarks marks;
    marks.SetMessages(MarkSeverity::Info, messages, document);
    const QString tip = MarkToolTip(marks.GetMarksAt(0, 99), ToolTipRows::Plain, 1.0);
    QVERIFY(tip.contains("message 5."));
    QVERIFY(!tip.contains("message 6."));
}

TE2_TEST(CodeEditorMarksTest)
#include "CodeEditorMarksTest.moc"
