#include "host/ui/UiFixture.h"
#include "support/TestMain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QtTest>

class ControlCommandsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_host = std::make_unique<UiFixture>(); }
    void cleanup() { m_host.reset(); }

    void CommandsAnswer_data();
    void CommandsAnswer();
    void CallbacksGetTheValue();
    void AControlMayDeleteItsOwnWindow();
    void ClosingRunsTheCommandAndRemovesTheWindow();
    void ARetainedWindowOutlivesItsClosing();
    void NamedWindowsComeBackWhereTheyWere();
    void TextFieldsTellOfEditsOnce();
    void ScriptedValuesDoNotCallBack();

private:
    std::unique_ptr<UiFixture> m_host;
};

void ControlCommandsTest::CommandsAnswer_data()
{
    Columns<QString, QString>("script", "result");
    // clang-format off
    Row("creation gives the full path", "window w; columnLayout c; button b", "w|c|b");
    Row("default names", "window; columnLayout; button", "window1|columnLayout1|button1");
    Row("exists of nothing", "window -exists w", "0");
    Row("exists beats other flags", "window w; window -e -title \"x\" -exists w", "1");
    Row("exists asks for the type", "window w; columnLayout c; button -exists c", "0");
    Row("control knows every control", "window w; columnLayout c; button b; control -exists b", "1");
    Row("a window is no control", "window w; control -exists w", "0");
    Row("layout knows every layout", "window w; columnLayout c; text t; layout -q -ca c", "t");
    Row("missing object", "button -q -label b", "error: Object 'b' not found.");
    Row("name in use", "window w; columnLayout c; text t; button t", "error: Object's name 't' is not unique.");
    Row("window name in use", "window w; window w", "error: Object's name 'w' is not unique.");
    Row("ambiguous name",
        "window a; columnLayout; text t; window b; columnLayout; text t; text -q -l t",
        "error: Object's name 't' is not unique.");
    Row("control without layout", "window w; button", "error: Controls must have a layout.  No layout found in window : w.");
    Row("nowhere to go", "columnLayout", "error: No current window or layout: make one first, or use -parent.");
    Row("unknown parent", "window w; columnLayout -p nobody", "error: Object 'nobody' not found.");
    Row("explicit parent keeps the current one", "window w; columnLayout c; window v; columnLayout d; text -p c t; setParent -q", "v|d");
    Row("up", "window w; columnLayout c; rowLayout r; setParent ..; setParent -q", "w|c");
    Row("up stops at the window", "window w; setParent ..; setParent ..; setParent -q", "w");
    Row("top", "window w; columnLayout c; rowLayout r; setParent -top", "w");
    Row("parent of a control", "window w; columnLayout c; button b; button -q -parent b", "w|c");
    Row("title and size",
        "window -title \"A B\" -widthHeight 300 200 w; string $t = `window -q -t w`; int $s[] = "
        "`window -q -wh w`; $t + $s[0] + $s[1]",
        "A B300200");
    Row("kept flags", "window w; columnLayout c; button -docTag \"x\" b; button -q -docTag b", "x");
    Row("a command is given back", "window w; columnLayout c; button -c \"print 1\" b; button -q -c b", "print 1");
    Row("hidden control", "window w; columnLayout c; button -vis 0 b; button -q -vis b", "0");
    Row("range before value", "window w; columnLayout c; intField -v 7 -max 5 f; intField -q -v f", "5");
    Row("fraction", "window w; columnLayout c; floatField -v 0.25 f; floatField -q -v f", "0.25");
    Row("list in order", "window w; columnLayout c; textScrollList -a \"x\" -a \"y\" -ap 1 \"z\" l; textScrollList -q -ai l", "z x y");
    Row("list selection",
        "window w; columnLayout c; textScrollList -ams 1 -a \"x\" -a \"y\" -a \"z\" -si \"z\" -sii "
        "1 l; textScrollList -q -sii l",
        "1 3");
    Row("list index out of range",
        "window w; columnLayout c; textScrollList -a \"x\" l; textScrollList -e -rii 2 l",
        "error: Item index 2 is not between 1 and 1.");
    Row("tagged items",
        "window w; columnLayout c; textScrollList -a \"x\" -a \"x\" -utg \"p\" -utg \"q\" -sut "
        "\"q\" l; textScrollList -q -sii l",
        "2");
    Row("option menu",
        "window w; columnLayout c; optionMenu o; menuItem -l \"a\"; menuItem -l \"b\"; optionMenu "
        "-e -v \"b\" o; optionMenu -q -sl o",
        "2");
    Row("option menu without that item",
        "window w; columnLayout c; optionMenu o; menuItem -l \"a\"; optionMenu -e -v \"b\" o",
        "error: Item not found: b");
    Row("delete by the wrong kind", "window w; columnLayout c; deleteUI -window c", "error: Object 'c' not found.");
    Row("deleted with everything in it", "window w; columnLayout c; button b; deleteUI w; (`window -exists w` + `button -exists b`)", "0");
    Row("listing by type", "window w; columnLayout c; button b; text t; lsUI -type \"button\" -type \"text\"", "b t");
    Row("listing paths", "window w; columnLayout c; button b; lsUI -long -type \"button\"", "w|c|b");
    Row("listing nothing", "size(`lsUI -type \"symbolButton\"`)", "0");
    Row("listing without a type", "lsUI", "error: Name at least one type of element to list.");
    Row("failed creation leaves nothing",
        "window w; columnLayout c; optionMenu o; catchQuiet(`optionMenu -v \"x\" p`); optionMenu "
        "-exists p",
        "0");
    Row("query without a flag", "window w; window -q w", "error: Nothing to query: name a flag.");
    Row("no name to edit", "window -e -title \"x\"",
        "error: This command requires at least 1 argument(s) to be specified or selected; found "
        "0.");
    // clang-format on
}

void ControlCommandsTest::CommandsAnswer()
{
    QFETCH(QString, script);
    QTEST(m_host->Run(script), "result");
}

void ControlCommandsTest::CallbacksGetTheValue()
{
    m_host->Run(
        "window w; columnLayout c;"
        "checkBox -cc \"print (\\\"changed #1;\\\")\" -onc \"print \\\"on;\\\"\" box;"
        "optionMenu -cc \"print \\\"chose #1;\\\"\" o; menuItem -l \"a\"; menuItem -l \"b\"");
    m_host->Widget<QCheckBox>("box")->click();
    QCOMPARE(m_host->TakePrinted(), "on;changed 1;");
    auto* options = m_host->Find("o")->GetWidget()->findChild<QComboBox*>();
    QTest::keyClick(options, Qt::Key_Down);
    QCOMPARE(m_host->TakePrinted(), "chose b;");
}

void ControlCommandsTest::AControlMayDeleteItsOwnWindow()
{
    m_host->Run("window w; columnLayout c; button -c \"deleteUI w; print \\\"gone\\\"\" b");
    const QPointer<QPushButton> button = m_host->Widget<QPushButton>("b");
    button->click();
    QCOMPARE(m_host->TakePrinted(), "gone");
    QCOMPARE(m_host->Run("window w; columnLayout c; button b"), "w|c|b");
    UiFixture::DeleteDeferred();
    QVERIFY(!button);
    QVERIFY(m_host->Find("w|c|b"));
}

void ControlCommandsTest::ClosingRunsTheCommandAndRemovesTheWindow()
{
    m_host->Run("window -cc \"print \\\"closed\\\"\" w; showWindow w");
    m_host->Widget<QMainWindow>("w")->close();
    QCOMPARE(m_host->TakePrinted(), "closed");
    QVERIFY(!m_host->Find("w"));
}

void ControlCommandsTest::ARetainedWindowOutlivesItsClosing()
{
    m_host->Run("window -retain w; showWindow w");
    auto* window = m_host->Widget<QMainWindow>("w");
    window->close();
    QVERIFY(m_host->Find("w") && !window->isVisible());
    m_host->Run("showWindow w");
    QVERIFY(window->isVisible());
}

void ControlCommandsTest::NamedWindowsComeBackWhereTheyWere()
{
    m_host->Run("window w; showWindow w");
    m_host->Widget<QMainWindow>("w")->setGeometry(40, 50, 333, 222);
    m_host->Run("deleteUI w");
    m_host->Restart();
    m_host->Run("window -widthHeight 100 100 w; showWindow w");
    QCOMPARE(m_host->Widget<QMainWindow>("w")->geometry(), QRect(40, 50, 333, 222));
    m_host->Run("deleteUI w; window -tlc 5 6 -widthHeight 100 100 w; showWindow w");
    QCOMPARE(m_host->Widget<QMainWindow>("w")->size(), QSize(100, 100));
}

void ControlCommandsTest::TextFieldsTellOfEditsOnce()
{
    m_host->Run("window w; columnLayout c; textField -cc \"print \\\"change #1;\\\"\""
                " -ec \"print \\\"enter #1;\\\"\" f; showWindow w");
    auto* field = m_host->Widget<QLineEdit>("f");
    QTest::keyClicks(field, "ab");
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(m_host->TakePrinted(), "enter ab;change ab;enter ab;");
}

void ControlCommandsTest::ScriptedValuesDoNotCallBack()
{
    m_host->Run("window w; columnLayout c; intField -cc \"print 1\" i; checkBox -cc \"print 2\" b;"
                "textScrollList -a \"x\" -sc \"print 3\" l; intField -e -v 3 i; checkBox -e -v 1 b;"
                "textScrollList -e -si \"x\" l");
    QCOMPARE(m_host->TakePrinted(), QString());
}

TE2_TEST(ControlCommandsTest)
#include "ControlCommandsTest.moc"
