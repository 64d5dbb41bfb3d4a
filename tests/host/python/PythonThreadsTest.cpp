#include "host/python/PythonFixture.h"
#include "support/TestMain.h"

#include <QtTest>

#include <thread>

using namespace host;

/// Python's threads beside the event loop, work for the main thread, and stopping.
class PythonThreadsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init() { m_host.TakeMessages(); }
    void ThreadsRunAndPrintWhileTheLoopRuns();
    void ThreadErrorsBecomeMessages();
    void ErrorsNobodyCanCatchBecomeMessages();
    void CommandsRefuseOtherThreads();
    void DeferredWorkWaitsForTheScript();
    void DeferredErrorsAreShown();
    void RefusesWhatCannotBeCalled();
    void MainThreadCallsAnswerThreads();
    void MainThreadCallsRunAtOnceOnTheMainThread();
    void StopsRunningCode_data();
    void StopsRunningCode();
    void StopReachesCallbacksWithinCommands();

private:
    /// Runs the text while another thread asks to stop once `ready` was printed.
    QStringList RunAndStop(const QString& text);

    PythonFixture m_host;
};

void PythonThreadsTest::initTestCase()
{
    static const CommandRow ROWS[] = {
        {"runScript", "none", "", "", "command/c script c",
            [](Call& call) -> Outcome { return call.GetScript("command").Run(); }},
    };
    m_host.engine.commands.Register(ROWS);
    QVERIFY(!m_host.Execute("import threading, time\nfrom maya import cmds, mel, utils").failed);
}

void PythonThreadsTest::ThreadsRunAndPrintWhileTheLoopRuns()
{
    m_host.Execute("def work():\n"
                   "    for i in range(200): print('%d' % i, end=' ')\n"
                   "    print('end')\n"
                   "thread = threading.Thread(target=work)\n"
                   "thread.start()");
    QStringList shown;
    QTRY_VERIFY((shown += m_host.TakeTranscript()).join("").endsWith("end\n"));
    QString wanted;
    for (int i = 0; i < 200; ++i)
        wanted += QString::number(i) + " ";
    QCOMPARE(shown.join("").remove("Display: "), wanted + "end\n");
}

void PythonThreadsTest::ThreadErrorsBecomeMessages()
{
    m_host.Execute("def work():\n    1 / 0\n"
                   "thread = threading.Thread(target=work)\nthread.start()\nthread.join()");
    QCOMPARE(m_host.TakeTranscript(),
        QStringList("Error: ZeroDivisionError: file <maya console> line 2: division by zero"));
    m_host.Execute("thread = threading.Thread(target=exit)\nthread.start()\nthread.join()");
    QCOMPARE(m_host.TakeTranscript(), QStringList());
}

void PythonThreadsTest::ErrorsNobodyCanCatchBecomeMessages()
{
    m_host.Execute("class A:\n    def __del__(self): 1 / 0\nA() and None");
    const QStringList shown = m_host.TakeTranscript();
    QCOMPARE(shown.size(), 2);
    QVERIFY2(shown[0].startsWith("Warning: Exception ignored in: <function A.__del__"),
        qPrintable(shown[0]));
    QCOMPARE(shown[1], "Error: ZeroDivisionError: file <maya console> line 2: division by zero");
}

void PythonThreadsTest::CommandsRefuseOtherThreads()
{
    m_host.Execute(
        "problems = []\n"
        "def work():\n"
        "    for call in (cmds.runScript, lambda: mel.eval('1'), utils.processIdleEvents):\n"
        "        try: call()\n"
        "        except RuntimeError as e: problems.append(str(e).split('. ')[0])\n"
        "thread = threading.Thread(target=work)\nthread.start()\nthread.join()");
    QCOMPARE(m_host.Execute("problems").value.ToTextList(),
        QStringList({"maya.cmds can only be called from the main thread",
            "maya.mel.eval() can only be called from the main thread",
            "maya.utils.processIdleEvents() can only be called from the main thread"}));
}

void PythonThreadsTest::DeferredWorkWaitsForTheScript()
{
    m_host.Execute("def later(a, b=0): print('later', a, b)\n"
                   "utils.executeDeferred(later, 1, b=2)\n"
                   "utils.executeDeferred('print(\"text\")')\n"
                   "print('first')");
    QTRY_COMPARE(m_host.engine.idle.Count(), 0);
    QCOMPARE(m_host.TakeTranscript(), QStringList("Display: first\nlater 1 2\ntext\n"));

    m_host.Execute(
        "utils.executeDeferred(print, 'now')\nutils.processIdleEvents()\nprint('after')");
    QCOMPARE(m_host.TakeTranscript(), QStringList("Display: now\nafter\n"));
}

void PythonThreadsTest::DeferredErrorsAreShown()
{
    m_host.Execute("utils.executeDeferred(lambda: 1 / 0)\nutils.executeDeferred('nope')");
    QTRY_COMPARE(m_host.engine.idle.Count(), 0);
    QCOMPARE(m_host.TakeTranscript(),
        QStringList({"Error: ZeroDivisionError: file <maya console> line 1: division by zero",
            "Error: NameError: file <maya console> line 1: name 'nope' is not defined"}));
}

void PythonThreadsTest::RefusesWhatCannotBeCalled()
{
    QCOMPARE(m_host.Run("utils.executeDeferred(5)"),
        QStringList("Error: TypeError: file <maya console> line 1: "
                    "executeDeferred() needs a function or a text as its first argument"));
}

void PythonThreadsTest::MainThreadCallsAnswerThreads()
{
    m_host.Execute("found = []\n"
                   "@utils.runOnMainThread\n"
                   "def where(): return threading.current_thread() is threading.main_thread()\n"
                   "def work():\n"
                   "    ask = utils.executeInMainThreadWithResult\n"
                   "    found.append(str(where()))\n"
                   "    found.append(str(ask(max, 3, 8)))\n"
                   "    found.append(str(ask('1 + 1')))\n"
                   "    found.append(str(ask('x = 1')))\n"
                   "    try: ask(lambda: {}['key'])\n"
                   "    except KeyError as e: found.append(repr(e))\n"
                   "thread = threading.Thread(target=work)\nthread.start()\n"
                   // The main thread goes on in Python for a while.
                   "sum(range(200000))");
    QTRY_COMPARE(m_host.Execute("found").value.ToTextList(),
        QStringList({"True", "8", "2", "None", "KeyError('key')"}));
    QCOMPARE(m_host.TakeTranscript(), QStringList());
}

void PythonThreadsTest::MainThreadCallsRunAtOnceOnTheMainThread()
{
    QCOMPARE(m_host.Run("utils.executeInMainThreadWithResult(divmod, 7, 2)"),
        QStringList("Result: (3, 1)"));
    QCOMPARE(m_host.Run("utils.executeInMainThreadWithResult('6 * 7')"), QStringList("Result: 42"));
}

QStringList PythonThreadsTest::RunAndStop(const QString& text)
{
    std::atomic<bool> ready{false};
    const int listener = m_host.engine.output.AddListener(
        [&](const Message& message) { ready = ready || message.text == "ready"; });
    std::thread stopper([&] {
        while (!ready)
            std::this_thread::yield();
        m_host.engine.interrupt.Request();
    });
    const QStringList shown = m_host.Run(text);
    ready = true;
    stopper.join();
    m_host.engine.output.Remove(listener);
    m_host.engine.interrupt.Clear();
    return shown;
}

void PythonThreadsTest::StopsRunningCode_data()
{
    Columns<QString>("text");
    Row("endless loop", "while True: pass");
    Row("loop that catches exceptions", "while True:\n  try: 1 / 0\n  except Exception: pass");
    Row("sleep", "time.sleep(100)");
    Row("waiting for an event", "threading.Event().wait()");
    Row("waiting for a program", "import subprocess; subprocess.run(['sleep', '100'])");
}

void PythonThreadsTest::StopsRunningCode()
{
    QFETCH(QString, text);
    const QStringList shown = RunAndStop("print('ready', end='')\n" + text);
    QCOMPARE(shown.size(), 2);
    QVERIFY2(shown[1].startsWith("Error: KeyboardInterrupt: file ")
            && shown[1].endsWith(": Stopped on request."),
        qPrintable(shown[1]));
    QCOMPARE(m_host.Run("1"), QStringList("Result: 1"));
}

void PythonThreadsTest::StopReachesCallbacksWithinCommands()
{
    const QStringList shown = RunAndStop("def callback():\n"
                                         "    print('ready', end='')\n"
                                         "    while True: pass\n"
                                         "cmds.runScript(command=callback)\n"
                                         "print('not reached')");
    QCOMPARE(shown[0], "Display: ready");
    QVERIFY2(shown[1].startsWith("Error: KeyboardInterrupt: file <maya console> line 3"),
        qPrintable(shown[1]));
    QVERIFY(!shown.join("").contains("not reached"));
}

TE2_TEST(PythonThreadsTest)
#include "PythonThreadsTest.moc"
