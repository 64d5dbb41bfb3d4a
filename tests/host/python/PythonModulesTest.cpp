#include "commands/Commands.h"
#include "host/python/PythonFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

/// The package's other modules: maya.mel, maya.OpenMaya and their relatives.
class PythonModulesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { commands::ReleaseCommands(m_host.engine); }
    void ImportsEveryModule();
    void EvaluatesMel();
    void MelReachesPython();
    void GlobalsReachTheHost_data();
    void GlobalsReachTheHost();
    void ExecutesOnIdle();
    void EventCallbacksCanBeRemoved();
    void OutputCallbacksHearEverything();
    void FailingOutputCallbacksReportOnce();
    void WidgetsAreMissingWithoutAnInterface();

private:
    PythonFixture m_host;
};

void PythonModulesTest::initTestCase()
{
    commands::RegisterCommands(m_host.engine);
    QVERIFY(!m_host.Execute("from maya import mel\nfrom maya.api import OpenMaya as om").failed);
}

void PythonModulesTest::ImportsEveryModule()
{
    QCOMPARE(m_host.Run("import maya.OpenMaya, maya.OpenMayaAnim, maya.OpenMayaCloth\n"
                        "import maya.OpenMayaFX, maya.OpenMayaMPx, maya.OpenMayaRender\n"
                        "import maya.OpenMayaUI, maya.standalone, maya.utils\n"
                        "import maya.api.OpenMaya, maya.api.OpenMayaUI\n"
                        "import maya.api.OpenMayaAnim, maya.api.OpenMayaRender\n"
                        "maya.standalone.initialize(name='python')"),
        QStringList());
}

void PythonModulesTest::EvaluatesMel()
{
    QCOMPARE(m_host.Run("mel.eval('$s = \"word\"'), mel.eval('$i = {1, 2}'), mel.eval('')"),
        QStringList("Result: ('word', [1, 2], None)"));
    QCOMPARE(m_host.Run("mel.eval('nothingLikeThis')"),
        QStringList({"Error: line 1: Cannot find procedure \"nothingLikeThis\".",
            "Error: RuntimeError: file <maya console> line 1: Error occurred during execution of "
            "MEL "
            "script\nline 1: Cannot find procedure \"nothingLikeThis\"."}));
    QCOMPARE(m_host.Run("mel.eval(5)"),
        QStringList("Error: TypeError: file <maya console> line 1: "
                    "eval() argument must be str, not int"));
}

void PythonModulesTest::MelReachesPython()
{
    QCOMPARE(
        m_host.Run("mel.eval('$i = python(\"[1, 2]\")'), mel.eval('$n = python(\"True\") + 1')"),
        QStringList("Result: ([1, 2], 2)"));
    m_host.TakeMessages();
    QVERIFY(
        m_host.engine.Execute(Language::Mel, "python(\"1 / 0\"); print(\"on\");", false).failed);
    QCOMPARE(m_host.TakeTranscript(),
        QStringList("Error: ZeroDivisionError: file <maya console> line 1: division by zero"));
}

void PythonModulesTest::GlobalsReachTheHost_data()
{
    Columns<QString, QStringList>("call", "shown");
    const auto row
        = [](const char* call, const QStringList& shown) { Row(call, QString(call), shown); };
    row("displayInfo('a')", {"Info: a"});
    row("displayWarning('a')", {"Warning: a"});
    row("displayError('a')", {"Error: a"});
    row("apiVersion()", {"Result: 20240000"});
    row("mayaState() == om.MGlobal.kInteractive", {"Result: True"});
    row("executeCommand('$s = \"a\"', True)", {"History: $s = \"a\";\n", "Result: a", "Result: a"});
    row("executeCommand('error(\"It failed.\")')", {"Error: It failed."});
    row("executeCommandStringResult('$i = {1, 2}')", {"Result: [1, 2]"});
    row("executePythonCommandStringResult('1 + 1')", {"Result: 2"});
    row("setOptionVarValue('n', 3) or om.MGlobal.optionVarIntValue('n')", {"Result: 3"});
    row("optionVarStringValue('n')", {"Result: "});
    row("removeOptionVar('n'), om.MGlobal.optionVarExists('n')", {"Result: (True, False)"});
    row("setOptionVarValue('n', {})", {"Error: TypeError: An option variable cannot hold dict"});
}

void PythonModulesTest::GlobalsReachTheHost()
{
    QFETCH(QString, call);
    QFETCH(QStringList, shown);
    m_host.engine.echo.lineNumbers = false;
    QCOMPARE(m_host.Run("om.MGlobal." + call), shown);
    m_host.engine.echo.lineNumbers = true;
}

void PythonModulesTest::ExecutesOnIdle()
{
    m_host.Execute("om.MGlobal.executePythonCommandOnIdle('print(5)')\n"
                   "om.MGlobal.executeCommandOnIdle('$s = \"word\"', True)");
    m_host.TakeMessages();
    QTRY_COMPARE(m_host.engine.idle.Count(), 0);
    QCOMPARE(m_host.TakeTranscript(),
        QStringList({"Display: 5\n", "History: $s = \"word\";\n", "Result: word"}));
}

void PythonModulesTest::EventCallbacksCanBeRemoved()
{
    m_host.Execute(
        "first = om.MEventMessage.addEventCallback('quitApplication', print, 'first')\n"
        "second = om.MEventMessage.addEventCallback('quitApplication', print, 'second')\n"
        "om.MMessage.removeCallback(first)");
    m_host.TakeMessages();
    m_host.engine.events.Fire("quitApplication");
    QCOMPARE(m_host.TakeTranscript(), QStringList("Display: second\n"));
    m_host.Execute("om.MMessage.removeCallbacks([second])");
    QVERIFY(m_host.Run("om.MMessage.removeCallback(first)")[0].startsWith("Error: RuntimeError:"));
    QVERIFY(m_host.Run("om.MEventMessage.addEventCallback('noEvent', print)")[0].startsWith(
        "Error: ValueError:"));
}

void PythonModulesTest::OutputCallbacksHearEverything()
{
    m_host.Execute(
        "import threading\nheard = []\n"
        "listener = om.MCommandMessage.addCommandOutputCallback(\n"
        "    lambda text, kind, data: heard.append('%s %s %s' % (kind, text, data)), 'x')\n"
        "print('a', end='')\n"
        "thread = threading.Thread(target=print, args=('b',), kwargs={'end': ''})\n"
        "thread.start()\nthread.join()");
    m_host.engine.output.Warning("w");
    m_host.Execute("om.MMessage.removeCallback(listener)\nprint('c')");
    QCOMPARE(m_host.Execute("heard").value.ToTextList(), QStringList({"1 a x", "1 b x", "3 w x"}));
}

void PythonModulesTest::FailingOutputCallbacksReportOnce()
{
    m_host.Execute(
        "listener = om.MCommandMessage.addCommandOutputCallback(lambda text, kind, data: 1 / 0)");
    m_host.TakeMessages();
    m_host.Execute("print('a', end='')");
    QCOMPARE(m_host.TakeTranscript(),
        QStringList({"Display: a",
            "Error: ZeroDivisionError: file <maya console> line 1: division by zero"}));
    m_host.Execute("om.MMessage.removeCallback(listener)");
}

void PythonModulesTest::WidgetsAreMissingWithoutAnInterface()
{
    m_host.Execute("import maya.OpenMayaUI as ui");
    QCOMPARE(m_host.Run("ui.MQtUtil.mainWindow(), ui.MQtUtil.findControl('x')"),
        QStringList("Result: (None, None)"));
}

TE2_TEST(PythonModulesTest)
#include "PythonModulesTest.moc"
