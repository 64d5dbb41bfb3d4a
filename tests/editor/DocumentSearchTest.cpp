#include "editor/DocumentSearch.h"

#include "editor/CodeEditor.h"
#include "editor/LineSearch.h"
#include "editor/MarkedText.h"
#include "editor/SearchExpression.h"
#include "settings/KeyBindings.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

class DocumentSearchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CountsWhatItFinds_data();
    void CountsWhatItFinds();
    void CountsLongTextsInSlices();
    void CountsAnewWhenTheTextChanged();
    void CountsOnlyWhatChanged_data();
    void CountsOnlyWhatChanged();
    void SaysWhenItGaveUp();

private:
    KeyBindings m_keyBindings;
};

void DocumentSearchTest::CountsWhatItFinds_data()
{
    Columns<QString, QString, int, int>("marked", "pattern", "current", "total");
    Row("none", "[]abc", "x", -1, 0);
    Row("empty pattern", "[]abc", "", -1, 0);
    Row("cursor elsewhere", "a[]ba", "a", -1, 2);
    Row("second of three", "a\nb [a]\na", "a", 2, 3);
    Row("only the start counts", "ab [a]b", "ab", 2, 2);
    Row("empty matches", "a\n[]b\nc", "^", 2, 3);
    Row("without overlaps", "[]aaaa", "aa", 1, 2);
}

void DocumentSearchTest::CountsWhatItFinds()
{
    QFETCH(QString, marked);
    QFETCH(QString, pattern);
    CodeEditor editor({}, &m_keyBindings);
    SetMarked(editor, marked);
    int current = 0;
    int total = 7;
    editor.GetSearchResults(Typed(pattern.toUtf8()), current, total);
    QTEST(current, "current");
    QTEST(total, "total");
}

void DocumentSearchTest::CountsLongTextsInSlices()
{
    constexpr int LINES = 60000;
    const QString line = QString("some words of a line and a hit\n").repeated(LINES);
    QTextDocument document;
    QPlainTextEdit edit;
    edit.setPlainText(line);
    DocumentSearch search(edit.document(), nullptr);
    QSignalSpy counted(&search, &DocumentSearch::Counted);
    search.Search(Typed("h(i)t"), -1, -1);
    QVERIFY(!search.IsFinished());
    QVERIFY(search.GetTotal() < LINES);
    // What is asked before the count is through is right as well.
    const int last = line.size() - 4;
    QCOMPARE(search.FindPrevious(last + 10).start, last);
    QCOMPARE(search.GetNumber(last), -1);
    QTRY_VERIFY_WITH_TIMEOUT(search.IsFinished(), 30000);
    QVERIFY(counted.count() > 0);
    QCOMPARE(search.GetTotal(), LINES);
    QCOMPARE(search.GetNumber(last), LINES);
    QCOMPARE(search.FindNext(last + 1).start, -1);
    QCOMPARE(search.FindNext(last - 40).start, last - 31);
    // Nothing is counted twice.
    counted.clear();
    search.Search(Typed("h(i)t"), -1, -1);
    QVERIFY(search.IsFinished());
    QCoreApplication::processEvents();
    QCOMPARE(counted.count(), 0);
}

void DocumentSearchTest::CountsAnewWhenTheTextChanged()
{
    CodeEditor editor({}, &m_keyBindings);
    editor.SetText(QString("a hit\n").repeated(60000));
    editor.SetSearchRegEx(Typed("h(i)t"));
    QVERIFY(!editor.CountSearchResults().IsFinished());
    QTextCursor cursor(editor.document());
    cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    cursor.insertText("one hit");
    QTRY_VERIFY(editor.GetSearch().IsFinished());
    QCOMPARE(editor.GetSearch().GetTotal(), 1);
    QCOMPARE(editor.GetSearch().GetNumber(4), 1);
}

void DocumentSearchTest::CountsOnlyWhatChanged_data()
{
    Columns<QString, bool>("pattern", "inRegion");
    Row("plain text", "ab", false);
    Row("expression", "a.|^", false);
    Row("in a region", "ab", true);
}

/// After any edit everything is as a search that begins anew finds it.
void DocumentSearchTest::CountsOnlyWhatChanged()
{
    QFETCH(QString, pattern);
    QFETCH(bool, inRegion);
    QPlainTextEdit edit;
    edit.setPlainText(QString("ab abc\nx\nab\n").repeated(30));
    const QRegularExpression expression
        = CreateSearchRegEx(pattern, true, false, pattern.contains('.'));
    int start = inRegion ? 40 : -1;
    int end = inRegion ? 200 : -1;
    DocumentSearch search(edit.document(), nullptr);
    search.Search(expression, start, end);
    QRandomGenerator random(7);
    const QStringList texts = {"ab", "\n", "a", "b\nab\n", "ab\n\n\nx ab", "x"};
    connect(edit.document(), &QTextDocument::contentsChange, this,
        [&](int position, int removed, int added) {
            if (inRegion)
                DocumentSearch::OffsetRegion(start, end, position, removed, added);
        });
    for (int i = 0; i < 400; ++i) {
        QTextCursor cursor(edit.document());
        cursor.beginEditBlock();
        for (int edits = i % 11 == 0 ? 4 : 1; edits > 0; --edits) {
            cursor.setPosition(random.bounded(edit.document()->characterCount()));
            const int length = random.bounded(i % 10 == 0 ? 60 : 5);
            const int last = edit.document()->characterCount() - 1;
            cursor.setPosition(qMin(cursor.position() + length, last), QTextCursor::KeepAnchor);
            cursor.insertText(texts.at(random.bounded(texts.size())));
        }
        cursor.endEditBlock();
        if (i % 7 == 0)
            edit.undo();
        if (i % 3 == 0)
            continue; // several edits between two counts
        search.Finish();
        DocumentSearch anew(edit.document(), nullptr);
        anew.Search(expression, start, end);
        anew.Finish();
        QVERIFY(search.IsSearching(expression, start, end));
        QCOMPARE(search.GetTotal(), anew.GetTotal());
        QCOMPARE(search.GetHitBlocks(), anew.GetHitBlocks());
        const TextSpan some = anew.FindNext(random.bounded(edit.document()->characterCount()));
        QCOMPARE(search.GetNumber(some.start), anew.GetNumber(some.start));
        QCOMPARE(search.FindPrevious(some.start).start, anew.FindPrevious(some.start).start);
    }
}

void DocumentSearchTest::SaysWhenItGaveUp()
{
    CodeEditor editor({}, &m_keyBindings);
    editor.SetText(QString(60, 'a') + "c\naax\n");
    int current = 0;
    int total = 0;
    editor.GetSearchResults(Typed("(a+)+[xy]"), current, total);
    QCOMPARE(total, 1);
    QVERIFY(editor.GetSearch().HasGivenUp());
    editor.GetSearchResults(Typed("a+x"), current, total);
    QVERIFY(!editor.GetSearch().HasGivenUp());
    // Going round past such a line is no new attempt on another one.
    editor.SetSearchRegEx(Typed("(a+)+[xy]"));
    for (int i = 0; i < 2 * LineSearch::MAXIMUM_GIVEN_UP; ++i)
        QVERIFY(editor.FindNext());
    // A whole text of such lines is not tried to its end.
    editor.SetText((QString(60, 'a') + "c\n").repeated(1000) + "ax");
    editor.GetSearchResults(Typed("(a+)+[xy]"), current, total);
    QCOMPARE(total, 0);
    QVERIFY(editor.GetSearch().HasGivenUp());
    QVERIFY(!editor.FindNext());
}

TE2_TEST(DocumentSearchTest)
#include "DocumentSearchTest.moc"
