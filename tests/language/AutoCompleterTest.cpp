#include "language/CompletionScene.h"
#include "language/FakeVocabulary.h"
#include "language/MelAutoCompleter.h"
#include "language/MelStatement.h"
#include "support/TestMain.h"

#include <QListView>
#include <QScreen>
#include <QtTest>

using Scene = CompletionScene<MelAutoCompleter>;

class AutoCompleterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void KnowsWhatCanBeCompleted_data();
    void KnowsWhatCanBeCompleted();
    void ListsEachNameOnceInTheOrderOfItsKind();
    void SelectsTheFirstRowOfTheSameCase();
    void TakesTheOnlyNameOnRequest_data();
    void TakesTheOnlyNameOnRequest();
    void TakesItsKeysOnTheWayToTheEditor_data();
    void TakesItsKeysOnTheWayToTheEditor();
    void KeysOfTheListReachTheEditor();
    void LeavesALineEndBehindACompleteWord();
    void GoesWithTheEditor_data();
    void GoesWithTheEditor();
    void StaysOnTheScreen();
    void FindsTheCommandOfAStatement_data();
    void FindsTheCommandOfAStatement();
    void OffersTheFlagsOfACommand();
};

void AutoCompleterTest::KnowsWhatCanBeCompleted_data()
{
    Columns<QString, QString>("text", "prefix");
    Row("a word", "pol|", "pol");
    Row("its first part", "po|ly", "po");
    Row("before a bracket", "(pol|)", "pol");
    Row("behind a dot", "pCube1.tr|", "tr");
    Row("a dot", "pCube1.|)", QString());
    Row("nothing", "|", QString());
    Row("between words", "ls | pol", QString());
    Row("a flag", "unknown -q|", QString());
    Row("a flag before a bracket", "(unknown -q|)", QString());
    Row("a variable", "print $nam|", QString());
    Row("a variable before a sign", "$nam|;", QString());
    Row("letters of other alphabets", QStringLiteral("\u00e4po|"), QString());
}

void AutoCompleterTest::KnowsWhatCanBeCompleted()
{
    QFETCH(QString, text);
    QFETCH(QString, prefix);
    Scene scene(text);
    QCOMPARE(scene.completer.ValidateAndSetPrefix(scene.editor.textCursor()), !prefix.isEmpty());
    if (!prefix.isEmpty())
        QCOMPARE(scene.completer.GetPrefix(), prefix);
}

void AutoCompleterTest::ListsEachNameOnceInTheOrderOfItsKind()
{
    Scene scene("p|");
    QVERIFY(scene.Ask());
    QCOMPARE(scene.Rows(), QStringList({"proc", "polyCube", "print", "polyEvaluateAll"}));
}

void AutoCompleterTest::SelectsTheFirstRowOfTheSameCase()
{
    Scene scene("pol|");
    QVERIFY(scene.Ask());
    QCOMPARE(scene.completer.GetSelectedText(), "polyCube");
    scene.completer.SelectNext();
    scene.completer.SelectNext();
    QCOMPARE(scene.completer.GetSelectedText(), "polyEvaluateAll");
    scene.completer.SelectPrevious();
    scene.completer.SelectPrevious();
    QCOMPARE(scene.completer.GetSelectedText(), "polyCube");
}

void AutoCompleterTest::TakesTheOnlyNameOnRequest_data()
{
    Columns<QString, bool, bool, QString>("text", "isExplicit", "isShown", "accepted");
    Row("the only one, asked for", "polyC|", true, false, "polyCube");
    Row("the only one, unasked", "polyC|", false, true, QString());
    Row("several, asked for", "pol|", true, true, QString());
    Row("none, asked for", "nothing|", true, false, QString());
}

void AutoCompleterTest::TakesTheOnlyNameOnRequest()
{
    QFETCH(QString, text);
    QFETCH(bool, isExplicit);
    QFETCH(QString, accepted);
    Scene scene(text);
    QTEST(scene.Ask(isExplicit), "isShown");
    QCOMPARE(scene.accepted.value(0).value(0).toString(), accepted);
    if (!accepted.isEmpty())
        QCOMPARE(scene.accepted[0][1].toInt(), text.size() - 1);
}

void AutoCompleterTest::TakesItsKeysOnTheWayToTheEditor_data()
{
    Columns<QList<int>, QString, bool>("keys", "accepted", "isShown");
    Row("tab", QList<int>{Qt::Key_Tab}, "polyCube", false);
    Row("down, return", QList<int>{Qt::Key_Down, Qt::Key_Return}, "polyEvaluateAll", false);
    Row("down, up, enter", QList<int>{Qt::Key_Down, Qt::Key_Up, Qt::Key_Enter}, "polyCube", false);
    Row("escape", QList<int>{Qt::Key_Escape}, QString(), false);
    Row("swallowed", QList<int>{Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Backtab}, QString(),
        true);
}

void AutoCompleterTest::TakesItsKeysOnTheWayToTheEditor()
{
    QFETCH(QList<int>, keys);
    QFETCH(QString, accepted);
    Scene scene("\n\npol|\n\n");
    QVERIFY(scene.Ask());
    const int position = scene.editor.textCursor().position();
    for (const int key : keys)
        QTest::keyClick(&scene.editor, Qt::Key(key));
    QCOMPARE(scene.accepted.value(0).value(0).toString(), accepted);
    QTEST(scene.completer.isVisible(), "isShown");
    QCOMPARE(scene.editor.textCursor().position(), position);
    QCOMPARE(scene.editor.toPlainText(), "\n\npol\n\n");
}

void AutoCompleterTest::KeysOfTheListReachTheEditor()
{
    Scene scene("pol|");
    QVERIFY(scene.Ask());
    QTest::keyClick(scene.completer.findChild<QListView*>(), Qt::Key_Y);
    QCOMPARE(scene.editor.toPlainText(), "poly");
    QTest::keyClicks(&scene.completer, "C");
    QCOMPARE(scene.editor.toPlainText(), "polyC");
}

void AutoCompleterTest::LeavesALineEndBehindACompleteWord()
{
    Scene scene("polyCube|");
    QVERIFY(scene.Ask());
    QTest::keyClick(&scene.editor, Qt::Key_Return);
    QVERIFY(!scene.completer.isVisible());
    QCOMPARE(scene.editor.toPlainText(), "polyCube\n");
}

void AutoCompleterTest::GoesWithTheEditor_data()
{
    Columns<int>("event");
    Row("focus", int(QEvent::FocusOut));
    Row("hide", int(QEvent::Hide));
    Row("click", int(QEvent::MouseButtonPress));
    Row("window moved", int(QEvent::Move));
}

void AutoCompleterTest::GoesWithTheEditor()
{
    QFETCH(int, event);
    Scene scene("pol|");
    QVERIFY(scene.Ask());
    if (event == QEvent::FocusOut) {
        QFocusEvent focusOut(QEvent::FocusOut);
        QApplication::sendEvent(&scene.editor, &focusOut);
    } else if (event == QEvent::Hide) {
        scene.editor.hide();
    } else if (event == QEvent::MouseButtonPress) {
        QTest::mousePress(scene.editor.viewport(), Qt::LeftButton);
    } else {
        QMoveEvent moved(QPoint(1, 1), QPoint());
        QApplication::sendEvent(scene.editor.window(), &moved);
    }
    QVERIFY(!scene.completer.isVisible());
}

void AutoCompleterTest::StaysOnTheScreen()
{
    Scene scene("pol|");
    const QRect room = scene.editor.screen()->availableGeometry();
    scene.editor.move(room.right() - 60, room.bottom() - 40);
    QVERIFY(scene.Ask());
    QVERIFY(room.contains(scene.completer.geometry()));
    const int line = scene.editor.viewport()->mapToGlobal(scene.editor.cursorRect().topLeft()).y();
    QVERIFY(scene.completer.geometry().bottom() < line);
}

void AutoCompleterTest::FindsTheCommandOfAStatement_data()
{
    Columns<QString, QString>("text", "command");
    Row("at the start", "ls ", "ls");
    Row("behind arguments", "ls -l \"a;b\" pCube1 ", "ls");
    Row("on a later line", "polyCube -w 1\n    ", "polyCube");
    Row("second statement", "print 1; ls ", "ls");
    Row("back-quoted", "string $all[] = `ls ", "ls");
    Row("behind a back-quote", "print `ls -l` ", "print");
    Row("in a condition", "if (`polyCube ", "polyCube");
    Row("behind a condition", "if ($a > (1)) ls ", "ls");
    Row("else", "} else ls ", "ls");
    Row("case", "case 1: ls ", "ls");
    Row("a namespace", "select ns:pCube1 ", "select");
    Row("within a bracket", "ls (1 ", QString());
    Row("a variable", "$a ", QString());
    Row("an open string", "ls \"a ", QString());
    Row("a comment", "ls // ", QString());
    Row("behind a comment", "/* a */ ls ", "ls");
}

void AutoCompleterTest::FindsTheCommandOfAStatement()
{
    QFETCH(QString, text);
    QTEST(MelStatement::CommandBefore(text), "command");
}

void AutoCompleterTest::OffersTheFlagsOfACommand()
{
    FakeVocabulary::Reset();
    Scene scene("polyCube -sx 2\n    -|");
    QVERIFY(scene.Ask());
    QCOMPARE(scene.Rows(), QStringList({"-ax", "-axis", "-o", "-object", "-w", "-width"}));
    QTest::keyClicks(&scene.editor, "wi");
    QVERIFY(scene.Ask());
    QTest::keyClick(&scene.editor, Qt::Key_Return);
    QCOMPARE(scene.accepted.value(0), QVariantList({"-width", 3}));

    Scene other("polyCube; polyCube -|");
    QVERIFY(other.Ask());
    QCOMPARE(FakeVocabulary::askedFlags, QStringList("polyCube"));
    Scene unfinished("ls\npolyCube -a|");
    QVERIFY(unfinished.Ask());
    QCOMPARE(unfinished.Rows(), QStringList({"-ax", "-axis"}));
    Scene names("ls -l; po|");
    QVERIFY(names.Ask());
    QCOMPARE(names.Rows(), QStringList({"polyCube", "polyEvaluateAll"}));
}

TE2_TEST(AutoCompleterTest)
#include "AutoCompleterTest.moc"
