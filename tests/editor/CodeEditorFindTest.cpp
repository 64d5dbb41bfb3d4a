#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/FindReplaceWidget.h"
#include "editor/MarkedText.h"
#include "editor/SearchExpression.h"
#include "editor/SearchHistory.h"
#include "settings/KeyBindings.h"
#include "support/TestMain.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/ToolLineEdit.h"

#include <QLabel>
#include <QPoint>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QtTest>

namespace {

/// A group with one editor in a window that is shown.
struct Group
{
    Group()
        : widget(0, &keyBindings, nullptr, nullptr)
    {
        SearchHistory::Clear();
        widget.InsertCodeEditor(
            0, {CodeEditorType::Buffer, CodeEditorLanguage::Text, "/a", "a"}, "");
        widget.resize(900, 400);
        widget.show();
        widget.activateWindow();
        (void)QTest::qWaitForWindowActive(&widget);
        widget.FocusCurrentCodeEditor();
    }
    CodeEditor& Editor() const { return *widget.GetCurrent(); }
    FindReplaceWidget& Bar() const { return *widget.GetFindReplace(); }
    ToolLineEdit* Field() const { return Bar().findChild<ToolLineEdit*>("m_searchLineEdit"); }
    QString Results() const { return Bar().findChild<QLabel*>("m_resultsLabel")->text(); }
    QString Message() const { return Bar().findChild<QLabel*>("m_messageLabel")->text(); }
    void Toggle(const char* button) const { Bar().findChild<FlatButton*>(button)->click(); }

    KeyBindings keyBindings;
    CodeEditorGroup widget;
};

} // namespace

class CodeEditorFindTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void GoesRoundTheText_data();
    void GoesRoundTheText();
    void FindsNothingWithoutAPattern();
    void StaysInItsRegion_data();
    void StaysInItsRegion();
    void CarriesTheRegionAlong();
    void ReplacesOneAndGoesOn_data();
    void ReplacesOneAndGoesOn();
    void ReplacesAll_data();
    void ReplacesAll();
    void UndoesReplaceAllInOneStep();
    void KeepsThePlaceOfReplaceAll();
    void KeepsTheRegionOfReplaceAll();
    void FollowsTyping();
    void SearchesOnFarAheadOnceCounted();
    void SeeksWhatIsSelected_data();
    void SeeksWhatIsSelected();
    void TakesTheRegionOnceAndLosesItWhenSwitchedOff();
    void ShowsWhichMatchTheCursorIsAt();
    void FindsAgainWithTheBarClosed();
    void ClosesWithEscapeInTheEditor();
    void FollowsTheCurrentTab();
    void FloatsBesideTheScrollBar();
    void ReplacesFromTheBar();

private:
    KeyBindings m_keyBindings;
};

void CodeEditorFindTest::GoesRoundTheText_data()
{
    Columns<QString, QString, bool, QString>("before", "pattern", "backward", "after");
    Row("the next one", "[]ab ab", "ab", false, "[ab] ab");
    Row("over the selected one", "[ab] ab", "ab", false, "ab [ab]");
    Row("from the last to the first", "ab [ab]", "ab", false, "[ab] ab");
    Row("from the first to the last", "[ab] ab\nab", "ab", true, "ab ab\n[ab]");
    Row("the one before the cursor", "ab[] ab", "ab", true, "[ab] ab");
    Row("the match that a selection grows to", "[a]b ab", "ab", false, "[ab] ab");
    Row("the match that ends where the selection ends", "ab a[b]", "ab", true, "ab [ab]");
    Row("only what the count counts", "a[aa]a", "aa", false, "aa[aa]");
    Row("the only one again", "x [ab]", "ab", false, "x [ab]");
    Row("nowhere", "x[]y", "ab", false, "x[]y");
    Row("an empty match steps on", "[]a\nb\nc", "^", false, "a\n[]b\nc");
    Row("an empty match steps back", "a\nb\n[]c", "^", true, "a\n[]b\nc");
    Row("an empty match at the very end", "[]a\nb", "$", true, "a\nb[]");
    Row("lines are searched one by one", "[]a\nb", "a\\sb", false, "[]a\nb");
    Row("what stands before a match counts", "[b] ab", "(?<=a)b", false, "b a[b]");
}

void CodeEditorFindTest::GoesRoundTheText()
{
    QFETCH(QString, before);
    QFETCH(QString, pattern);
    QFETCH(bool, backward);
    QFETCH(QString, after);
    CodeEditor editor({}, &m_keyBindings);
    SetMarked(editor, before);
    editor.SetSearchRegEx(Typed(pattern.toUtf8()));
    const bool found = backward ? editor.FindPrevious() : editor.FindNext();
    QTEST(Marked(editor), "after");
    QCOMPARE(found, before != after || before == "x [ab]");
}

void CodeEditorFindTest::FindsNothingWithoutAPattern()
{
    CodeEditor editor({}, &m_keyBindings);
    SetMarked(editor, "[]abc");
    for (const QRegularExpression& expression : {QRegularExpression(), QRegularExpression("(")}) {
        editor.SetSearchRegEx(expression);
        QVERIFY(!editor.FindNext());
        QVERIFY(!editor.FindPrevious());
        QCOMPARE(editor.ReplaceAll(expression, "x", false), 0);
        QCOMPARE(Marked(editor), "[]abc");
    }
}

void CodeEditorFindTest::StaysInItsRegion_data()
{
    // "starts": of the matches found one after the other
    Columns<bool, int, QVector<int>>("backward", "cursor", "starts");
    using Starts = QVector<int>;
    // "ab ab ab ab" with the middle two and the blanks around them as the region.
    Row("forwards from before", false, 0, Starts{3, 6, 3});
    Row("forwards from behind", false, 11, Starts{3, 6});
    Row("backwards from before", true, 0, Starts{6, 3, 6});
    Row("backwards from behind", true, 11, Starts{6, 3});
    Row("from inside", false, 4, Starts{6, 3});
}

void CodeEditorFindTest::StaysInItsRegion()
{
    QFETCH(bool, backward);
    QFETCH(int, cursor);
    QFETCH(QVector<int>, starts);
    CodeEditor editor({}, &m_keyBindings);
    SetMarked(editor, "a[b ab ab a]b");
    editor.SetSelectedSearchRegion();
    editor.SetSearchRegEx(Literal("ab"));
    editor.SetCursorPosition(cursor, false, false);
    for (const int start : starts) {
        QVERIFY(backward ? editor.FindPrevious() : editor.FindNext());
        QCOMPARE(editor.GetSelectedStartPosition(), start);
    }
    int current = 0;
    int total = 0;
    editor.GetSearchResults(Literal("ab"), current, total);
    QCOMPARE(total, 2);
    QCOMPARE(current, starts.last() == 3 ? 1 : 2);
}

void CodeEditorFindTest::CarriesTheRegionAlong()
{
    CodeEditor editor({}, &m_keyBindings);
    SetMarked(editor, "x [ab ab] ab");
    editor.SetSelectedSearchRegion();
    const auto type = [&editor](int position, const QString& text) {
        editor.SetCursorPosition(position, false, false);
        editor.textCursor().insertText(text);
    };
    int current = 0;
    int total = 0;
    type(0, "ab ");
    type(7, " ab ");
    editor.GetSearchResults(Literal("ab"), current, total);
    QCOMPARE(total, 3);
    // What was taken away with one of its ends comes back as it was.
    const int start = editor.GetFindInSelectionStart();
    const int end = editor.GetFindInSelectionEnd();
    for (const QPoint& taken : {QPoint(0, start + 1), QPoint(end - 1, editor.GetText().size())}) {
        editor.SetCursorSelection(taken.x(), taken.y());
        editor.textCursor().removeSelectedText();
        QVERIFY(editor.GetFindInSelectionEnd() - editor.GetFindInSelectionStart() < end - start);
        editor.undo();
        QCOMPARE(editor.GetFindInSelectionStart(), start);
        QCOMPARE(editor.GetFindInSelectionEnd(), end);
    }
}

void CodeEditorFindTest::ReplacesOneAndGoesOn_data()
{
    Columns<QString, QString, QString, QString>("before", "pattern", "text", "after");
    Row("first only goes there", "[]ab ab", "ab", "x", "[ab] ab");
    Row("replaces and goes on", "[ab] ab", "ab", "x", "x [ab]");
    Row("the last wraps", "ab [ab]", "ab", "x", "[ab] x");
    Row("the only one", "[ab]", "ab", "x", "x[]");
    Row("not into what was put in", "[ab] ab", "ab", "abab", "abab [ab]");
    Row("groups", "[f(1)] f(2)", "f\\((\\d)\\)", "g[\\1]", "g[1] [f(2)]");
    Row("in its surroundings", "a[b] ab", "(?<=a)b", "x", "ax a[b]");
    Row("empty matches step on", "[]a\nb", "^", "# ", "# a\n[]b");
    Row("at the ends of lines", "a[]\nb", "$", ";", "a;\nb[]");
}

void CodeEditorFindTest::ReplacesOneAndGoesOn()
{
    QFETCH(QString, before);
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QFETCH(QString, after);
    CodeEditor editor({}, &m_keyBindings);
    SetMarked(editor, before);
    editor.SetSearchRegEx(Typed(pattern.toUtf8()));
    editor.Replace(text);
    // The brackets of the replacement are no marks.
    QCOMPARE(Marked(editor), after);
}

void CodeEditorFindTest::ReplacesAll_data()
{
    Columns<QString, QRegularExpression, QString, QString, int>(
        "before", "expression", "text", "after", "count");
    Row("plain", "ab\nab", Literal("ab"), "\\1", "\\1\n\\1", 2);
    Row("growing", "aaa", Literal("a"), "aa", "aaaaaa", 3);
    Row("with nothing", "abab", Literal("b"), "", "aa", 2);
    Row("groups", "a=1\nb=2", Typed("(\\w)=(\\d)"), "\\2=\\1", "1=a\n2=b", 2);
    Row("line ends", "a, b, c", Typed(", "), ",\\n", "a,\nb,\nc", 2);
    Row("empty matches", "a\n\nb", Typed("^"), "# ", "# a\n# \n# b", 3);
    Row("case as typed", "Ab aB", CreateSearchRegEx("ab", false, false, false), "xY", "xY xY", 2);
    Row("nothing found", "ab", Literal("x"), "y", "ab", 0);
}

void CodeEditorFindTest::ReplacesAll()
{
    QFETCH(QString, before);
    QFETCH(QRegularExpression, expression);
    QFETCH(QString, text);
    CodeEditor editor({}, &m_keyBindings);
    editor.SetText(before);
    QTEST(editor.ReplaceAll(expression, text, false), "count");
    QTEST(editor.GetText(), "after");
}

void CodeEditorFindTest::UndoesReplaceAllInOneStep()
{
    CodeEditor editor({}, &m_keyBindings);
    const QString text = QString("a b a\n").repeated(500);
    editor.SetText(text);
    QCOMPARE(editor.ReplaceAll(Literal("a"), "longer", false), 1000);
    editor.undo();
    QCOMPARE(editor.GetText(), text);
    QVERIFY(!editor.document()->isUndoAvailable());
    editor.redo();
    QCOMPARE(editor.GetText().count("longer"), 1000);
}

void CodeEditorFindTest::KeepsThePlaceOfReplaceAll()
{
    CodeEditor editor({}, &m_keyBindings);
    editor.resize(500, 200);
    editor.SetText(QString("a b\n").repeated(1000));
    editor.show();
    editor.SetCursorSelection(2002, 2003);
    editor.ensureCursorVisible();
    const int top = editor.verticalScrollBar()->value();
    const int height = editor.cursorRect().top();
    QVERIFY(top > 400);
    editor.ReplaceAll(Literal("a"), "a\na", false);
    QCOMPARE(editor.GetSelectedText(), "b");
    QCOMPARE(editor.textCursor().blockNumber(), 1001);
    QCOMPARE(editor.verticalScrollBar()->value(), 2 * top);
    QVERIFY(editor.cursorRect().top() >= height);
}

void CodeEditorFindTest::KeepsTheRegionOfReplaceAll()
{
    CodeEditor editor({}, &m_keyBindings);
    SetMarked(editor, "ab [ab ab] ab");
    editor.SetSelectedSearchRegion();
    QCOMPARE(editor.ReplaceAll(Literal("ab"), "abc", true), 2);
    QCOMPARE(editor.GetText(), "ab abc abc ab");
    QCOMPARE(editor.GetFindInSelectionStart(), 3);
    QCOMPARE(editor.GetFindInSelectionEnd(), 10);
    QCOMPARE(editor.ReplaceAll(Literal("abc"), "a", true), 2);
    QCOMPARE(editor.GetFindInSelectionEnd(), 6);
}

void CodeEditorFindTest::FollowsTyping()
{
    Group group;
    SetMarked(group.Editor(), "[]s set self settings");
    group.widget.ShowFindReplace(false, false, true, false);
    QCOMPARE(group.Results(), "No Results");
    QTest::keyClicks(group.Field(), "s");
    QCOMPARE(Marked(group.Editor()), "[s] set self settings");
    QCOMPARE(group.Results(), "1 of 5");
    QTest::keyClicks(group.Field(), "et");
    QCOMPARE(Marked(group.Editor()), "s [set] self settings");
    QCOMPARE(group.Results(), "1 of 2");
    QTest::keyClicks(group.Field(), "t");
    QCOMPARE(Marked(group.Editor()), "s set self [sett]ings");
    QTest::keyClick(group.Field(), Qt::Key_Backspace);
    QCOMPARE(Marked(group.Editor()), "s set self [set]tings");
    QTest::keyClick(group.Field(), Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(Marked(group.Editor()), "s [set] self settings");
    group.Field()->clear();
    QCOMPARE(group.Results(), "No Results");
    QVERIFY(group.Editor().GetSearchRegEx().pattern().isEmpty());
}

void CodeEditorFindTest::SearchesOnFarAheadOnceCounted()
{
    Group group;
    group.Editor().SetText(QString("some words of a line\n").repeated(100000) + "needle");
    group.widget.ShowFindReplace(false, false, true, false);
    group.Toggle("m_regularExpressionButton");
    group.Bar().SetSearchText("n(e)edle");
    QTRY_COMPARE_WITH_TIMEOUT(group.Editor().GetSelectedText(), QString("needle"), 30000);
    QTRY_COMPARE(group.Results(), "1 of 1");
}

void CodeEditorFindTest::SeeksWhatIsSelected_data()
{
    Columns<QString, QString, QString>("marked", "sought", "after");
    Row("selection", "a [b c] d", "b c", "a [b c] d");
    Row("word under the cursor", "one tw[]o", "two", "one [two]");
    Row("several lines are no text to seek", "[a\nb]", "old", "[a\nb]");
    Row("nothing there", "a  []  b", "old", "a  []  b");
}

void CodeEditorFindTest::SeeksWhatIsSelected()
{
    QFETCH(QString, marked);
    Group group;
    group.widget.SetSearchText("old");
    SetMarked(group.Editor(), marked);
    group.widget.ShowFindReplace(false, true, true, false);
    QTEST(group.Field()->text(), "sought");
    QTEST(Marked(group.Editor()), "after");
    QVERIFY(group.Field()->hasFocus());
    QCOMPARE(group.Field()->selectedText(), group.Field()->text());
}

void CodeEditorFindTest::TakesTheRegionOnceAndLosesItWhenSwitchedOff()
{
    Group group;
    SetMarked(group.Editor(), "ab [ab ab] ab");
    group.widget.ShowFindReplace(false, false, true, false);
    group.Toggle("m_findInSelectionButton");
    QTest::keyClicks(group.Field(), "ab");
    QCOMPARE(group.Results(), "1 of 2");
    group.widget.FindNext();
    group.widget.FindNext();
    QCOMPARE(Marked(group.Editor()), "ab [ab] ab ab");
    QCOMPARE(group.Editor().GetFindInSelectionEnd(), 8);
    group.Toggle("m_findInSelectionButton");
    QCOMPARE(group.Results(), "2 of 4");
    QCOMPARE(group.Editor().GetFindInSelectionStart(), -1);
}

void CodeEditorFindTest::ShowsWhichMatchTheCursorIsAt()
{
    Group group;
    SetMarked(group.Editor(), "[]ab ab ab");
    group.widget.ShowFindReplace(false, false, true, false);
    group.Bar().SetSearchText("ab");
    group.Editor().SetCursorSelection(6, 8);
    QCOMPARE(group.Results(), "3 of 3");
    group.Editor().SetCursorSelection(2, 2);
    QCOMPARE(group.Results(), "3 of 3");
    QTest::keyClicks(&group.Editor(), "ab");
    QTRY_COMPARE(group.Results(), "3 of 4");
}

void CodeEditorFindTest::FindsAgainWithTheBarClosed()
{
    Group group;
    SetMarked(group.Editor(), "one t[]wo two");
    group.widget.SelectAndFind(false);
    QVERIFY(!group.widget.IsFindReplaceVisible());
    QCOMPARE(Marked(group.Editor()), "one two [two]");
    group.widget.FindNext();
    QCOMPARE(Marked(group.Editor()), "one [two] two");
    group.widget.FindPrevious();
    QCOMPARE(Marked(group.Editor()), "one two [two]");
    QVERIFY(group.Editor().GetSearchRegEx().pattern().isEmpty());
}

void CodeEditorFindTest::ClosesWithEscapeInTheEditor()
{
    Group group;
    SetMarked(group.Editor(), "[a]b ab");
    group.widget.ShowFindReplace(false, true, true, false);
    group.Toggle("m_findInSelectionButton");
    QVERIFY(group.widget.IsFindReplaceVisible());
    QTest::keyClick(&group.Editor(), Qt::Key_Escape);
    QVERIFY(!group.widget.IsFindReplaceVisible());
    QVERIFY(group.Editor().hasFocus());
    QVERIFY(group.Editor().GetSearchRegEx().pattern().isEmpty());
    QVERIFY(!group.Editor().IsFindInSelectionEnabled());
    QVERIFY(!group.Bar().IsFindInSelection());
    QVERIFY(group.widget.HasSearchText());
}

void CodeEditorFindTest::FollowsTheCurrentTab()
{
    Group group;
    CodeEditor& first = group.Editor();
    SetMarked(first, "[ab ab]");
    group.widget.ShowFindReplace(false, false, true, false);
    group.Toggle("m_findInSelectionButton");
    group.Bar().SetSearchText("ab");
    group.widget.InsertCodeEditor(
        1, {CodeEditorType::Buffer, CodeEditorLanguage::Text, "/b", "b"}, "ab ab ab");
    group.widget.SetCurrentIndex(1);
    QVERIFY(first.GetSearchRegEx().pattern().isEmpty());
    QVERIFY(!first.IsFindInSelectionEnabled());
    QVERIFY(!group.Bar().IsFindInSelection());
    QVERIFY(!group.Editor().GetSearchRegEx().pattern().isEmpty());
    QVERIFY(group.Results().endsWith("of 3"));
    // A removed editor takes no marks along; without any editor there is nothing to search.
    CodeEditor* removed = group.widget.RemoveCodeEditor(1);
    QVERIFY(removed->GetSearchRegEx().pattern().isEmpty());
    delete removed;
    QVERIFY(group.Results().endsWith("of 2"));
    group.widget.DeleteCodeEditor(0);
    QVERIFY(!group.widget.IsFindReplaceVisible());
    group.widget.ShowFindReplace(false, true, true, false);
    QVERIFY(!group.widget.IsFindReplaceVisible());
}

void CodeEditorFindTest::FloatsBesideTheScrollBar()
{
    Group group;
    group.widget.ShowFindReplace(true, false, true, false);
    const int margin = group.Editor().GetVerticalScrollBarWidth() + 20;
    for (const int width : {900, 600, 350}) {
        group.widget.resize(width, 400);
        QTRY_COMPARE(group.Bar().geometry().right() + 1, width - margin);
        QVERIFY(group.Bar().width() <= width - 40);
    }
    const QWidget* tabRow = group.widget.findChild<QWidget*>("tabRow");
    QCOMPARE(group.Bar().y(), tabRow->geometry().bottom() + 1);
}

void CodeEditorFindTest::ReplacesFromTheBar()
{
    Group group;
    SetMarked(group.Editor(), "[f]1 f2 f3");
    group.widget.ShowFindReplace(true, false, true, true);
    QVERIFY(group.Bar().IsReplaceVisible());
    group.Toggle("m_regularExpressionButton");
    group.Bar().SetSearchText("f(\\d)");
    group.Bar().findChild<ToolLineEdit*>("m_replaceLineEdit")->setText("\\1!");
    group.Toggle("m_replaceButton");
    QCOMPARE(Marked(group.Editor()), "1! [f2] f3");
    QCOMPARE(group.Results(), "1 of 2");
    group.Toggle("m_replaceAllButton");
    QCOMPARE(group.Editor().GetText(), "1! 2! 3!");
    QCOMPARE(group.Results(), "No Results");
    QCOMPARE(group.Message(), "2 matches replaced.");
    // What cannot be changed says so.
    group.Bar().SetSearchText("!");
    QCOMPARE(group.Message(), QString());
    group.Editor().setReadOnly(true);
    for (const char* button : {"m_replaceButton", "m_replaceAllButton"}) {
        group.Toggle(button);
        QCOMPARE(group.Message(), "This text is read-only.");
        QCOMPARE(group.Editor().GetText(), "1! 2! 3!");
    }
}

TE2_TEST(CodeEditorFindTest)
#include "CodeEditorFindTest.moc"
