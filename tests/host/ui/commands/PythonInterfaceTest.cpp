#include "host/ui/UiFixture.h"
#include "python/PythonLanguage.h"
#include "support/TestMain.h"

#include <QCheckBox>
#include <QPushButton>
#include <QtTest>

class PythonInterfaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { Run("cmds.window('w'); cmds.columnLayout('c')"); }
    void cleanup() { Run("cmds.deleteUI('w') if cmds.window('w', exists=True) else None"); }

    void CallablesGetTheValue();
    void TextsArePythonUnlessSaidOtherwise();
    void ACallableMayDeleteItsControl();
    void AnErrorInACallableIsShown();
    void ResultsAndErrorsArePythons_data();
    void ResultsAndErrorsArePythons();

private:
    /// The value of an expression as `repr` shows it, or the class and text of what it raised.
    QString Value(const QString& expression);
    void Run(const QString& text);

    std::unique_ptr<UiFixture> m_host;
    std::unique_ptr<host::python::PythonLanguage> m_python;
};

void PythonInterfaceTest::initTestCase()
{
    m_host = std::make_unique<UiFixture>();
    m_python = std::make_unique<host::python::PythonLanguage>(m_host->GetEngine());
    Run("import maya.cmds as cmds");
}

void PythonInterfaceTest::cleanupTestCase()
{
    m_python.reset();
    m_host.reset();
}

void PythonInterfaceTest::Run(const QString& text)
{
    m_host->GetEngine().Execute(host::Language::Python, text, false);
}

QString PythonInterfaceTest::Value(const QString& expression)
{
    m_host->TakePrinted();
    Run("try:\n    print(repr(" + expression
        + "))\nexcept Exception as error:\n    print(type(error).__name__ + ': ' + str(error))");
    return m_host->TakePrinted().trimmed();
}

void PythonInterfaceTest::CallablesGetTheValue()
{
    Run("cmds.checkBox('box', changeCommand=lambda on: print('on' if on else 'off'))");
    auto* box = m_host->Widget<QCheckBox>("box");
    box->click();
    box->click();
    QCOMPARE(m_host->TakePrinted(), "on\noff\n");
    Run("cmds.button('b', command=lambda *values: print(len(values)))");
    m_host->Widget<QPushButton>("b")->click();
    QCOMPARE(m_host->TakePrinted(), "1\n");
    Run("cmds.floatFieldGrp('g', nf=2, value1=1.5, cc=lambda *values: print(values))\n"
        "cmds.textFieldButtonGrp('t', buttonCommand=lambda: print('pressed'))");
    QWidget* field = m_host->Find("g")->GetWidget()->focusProxy();
    QTest::keySequence(field, QKeySequence::SelectAll);
    QTest::keyClicks(field, "2");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(m_host->TakePrinted(), "(2.0, 0.0)\n");
    m_host->Find("t")->GetWidget()->findChild<QPushButton*>()->click();
    QCOMPARE(m_host->TakePrinted(), "pressed\n");
    QVERIFY(Value("cmds.button('b', q=True, command=True)").contains("<function <lambda>"));
}

void PythonInterfaceTest::TextsArePythonUnlessSaidOtherwise()
{
    Run("cmds.button('b', command='print(\"py\" * 2)')");
    m_host->Widget<QPushButton>("b")->click();
    Run("cmds.popupMenu('p'); cmds.menuItem('i', command='print(\"py\")', sourceType='python')\n"
        "cmds.menuItem('j', command='print \"mel\"', sourceType='mel')");
    m_host->Find("i")->GetAction()->trigger();
    m_host->Find("j")->GetAction()->trigger();
    QCOMPARE(m_host->TakePrinted(), "pypy\npy\nmel");
}

void PythonInterfaceTest::ACallableMayDeleteItsControl()
{
    Run("def end(*_):\n    cmds.deleteUI('w')\n    print(cmds.window('w', exists=True))\n"
        "cmds.button('b', command=end)");
    m_host->Widget<QPushButton>("b")->click();
    QCOMPARE(m_host->TakePrinted(), "False\n");
}

void PythonInterfaceTest::AnErrorInACallableIsShown()
{
    Run("cmds.button('b', command=lambda _: 1 / 0)");
    m_host->GetEngine().history.Clear();
    m_host->Widget<QPushButton>("b")->click();
    QVERIFY(m_host->GetEngine().history.Text().contains("ZeroDivisionError"));
}

void PythonInterfaceTest::ResultsAndErrorsArePythons_data()
{
    Columns<QString, QString>("expression", "result");
    Row("path", "cmds.text('t')", "'w|c|t'");
    Row("yes or no", "cmds.window('w', exists=True)", "True");
    Row("number", "cmds.intField(cmds.intField(value=4), q=True, value=True)", "4");
    Row("list", "cmds.layout('c', q=True, childArray=True) or []", "[]");
    Row("size", "cmds.window(cmds.window(widthHeight=(300, 200)), q=True, wh=True)", "[300, 200]");
    Row("repeated flag",
        "cmds.textScrollList(cmds.textScrollList(append=['a', 'b']), q=True, allItems=True)",
        "['a', 'b']");
    Row("group of numbers",
        "cmds.floatFieldGrp(cmds.floatFieldGrp(nf=2, value=(1, 2.5, 0, 0)), q=True, value=True)",
        "[1.0, 2.5]");
    Row("one of a group", "cmds.intFieldGrp(cmds.intFieldGrp(value1=3), q=True, value1=True)", "3");
    Row("columns as pairs",
        "cmds.rowLayout(numberOfColumns=2, columnWidth=[(1, 50), (2, 60)], adjustableColumn=2)",
        "'w|c|rowLayout1'");
    Row("item of a tree", "cmds.treeView(cmds.treeView(addItem=('a', '')), q=True, itemExists='a')",
        "True");
    Row("nothing of the type", "cmds.lsUI(type='symbolButton')", "None");
    Row("missing object", "cmds.button('none', q=True, label=True)",
        "RuntimeError: Object 'none' not found.");
    Row("unknown flag", "cmds.button(size=3)", "TypeError: Invalid flag 'size'");
}

void PythonInterfaceTest::ResultsAndErrorsArePythons()
{
    QFETCH(QString, expression);
    QTEST(Value(expression), "result");
}

TE2_TEST(PythonInterfaceTest)
#include "PythonInterfaceTest.moc"
