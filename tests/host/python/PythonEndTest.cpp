#include "host/python/PythonFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

/// The end of the interpreter, with all that may still be going on then. Every test also starts it
/// anew.
class PythonEndTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void DaemonThreadsMayPrintToTheEnd();
    void ThreadsGetTimeToFinish();
    void ThreadsThatStayAreNamed();
    void WaitingThreadsAreToldAboutTheEnd();
    void ExitHandlersAreHeard();
    void OpenFilesAreWritten();
    void WhatTheHostKeepsMayOutliveIt();
    void OnlyPythonPathOfTheEnvironmentCounts();

private:
    /// Runs the text and ends the interpreter.
    QString RunToTheEnd(const QString& text);
    bool WasShown(const QString& text);

    std::unique_ptr<PythonFixture> m_host;
    QMutex m_mutex;
    QString m_shown;
};

void PythonEndTest::init()
{
    m_host.reset(); // there is one engine at a time
    m_host = std::make_unique<PythonFixture>();
    m_shown.clear();
    m_host->engine.output.AddListener([this](const Message& message) {
        const QMutexLocker lock(&m_mutex);
        m_shown += message.text;
    });
}

bool PythonEndTest::WasShown(const QString& text)
{
    const QMutexLocker lock(&m_mutex);
    return m_shown.contains(text);
}

QString PythonEndTest::RunToTheEnd(const QString& text)
{
    const bool failed = m_host->Execute("import threading, time\n" + text).failed;
    m_host.reset();
    return failed ? "failed: " + m_shown : m_shown;
}

void PythonEndTest::DaemonThreadsMayPrintToTheEnd()
{
    m_host->Execute("import threading\n"
                    "def work():\n    while True: print('tick')\n"
                    "for i in range(3): threading.Thread(target=work, daemon=True).start()");
    QTRY_VERIFY(WasShown("tick"));
    m_host.reset();
    init();
    m_host->Execute("print('anew')");
    QCOMPARE(m_shown, "anew\n");
}

void PythonEndTest::ThreadsGetTimeToFinish()
{
    QCOMPARE(RunToTheEnd("def work():\n    time.sleep(0.05)\n    print('finished')\n"
                         "threading.Thread(target=work).start()"),
        "finished\n");
}

void PythonEndTest::ThreadsThatStayAreNamed()
{
    QCOMPARE(RunToTheEnd("from maya import _session\n_session.THREAD_LIMIT = 0.05\n"
                         "threading.Thread(target=threading.Event().wait, name='sleeper').start()"),
        "Python threads that did not end were left: sleeper");
}

void PythonEndTest::WaitingThreadsAreToldAboutTheEnd()
{
    QCOMPARE(RunToTheEnd("from maya import utils\n"
                         "def work():\n"
                         "    try: utils.executeInMainThreadWithResult(print, 'never')\n"
                         "    except RuntimeError as e: print(e)\n"
                         "threading.Thread(target=work).start()"),
        "The host is closing: the call was not made.\n");
}

void PythonEndTest::ExitHandlersAreHeard()
{
    const QString shown = RunToTheEnd("import atexit\n"
                                      "atexit.register(print, 'bye')\n"
                                      "atexit.register(lambda: 1 / 0)");
    QVERIFY2(shown.startsWith("Exception ignored in atexit callback: <function <lambda> at 0x"),
        qPrintable(shown));
    QVERIFY2(shown.endsWith("ZeroDivisionError: file <maya console> line 4: division by zerobye\n"),
        qPrintable(shown));
}

void PythonEndTest::OpenFilesAreWritten()
{
    QTemporaryDir directory;
    const QString path = directory.filePath("open.txt");
    QCOMPARE(RunToTheEnd("f = open(r'" + path + "', 'w')\n_ = f.write('kept')"), QString());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "kept");
}

void PythonEndTest::WhatTheHostKeepsMayOutliveIt()
{
    static Script kept;
    static const CommandRow ROWS[]
        = {{"keep", "none", "", "", "command/c script c", [](Call& call) -> Outcome {
                kept = call.GetScript("command");
                return {};
            }}};
    m_host->engine.commands.Register(ROWS);
    QCOMPARE(RunToTheEnd("from maya import cmds, utils\ncmds.keep(c=lambda: 1)\n"
                         "utils.executeDeferred(print, 'never')"),
        QString());
    init();
    QVERIFY(!kept.Run().Ok());
    kept = Script();
    QCoreApplication::processEvents();
    QCOMPARE(m_shown, QString());
}

void PythonEndTest::OnlyPythonPathOfTheEnvironmentCounts()
{
    m_host.reset();
    for (const char* name : {"PYTHONHOME", "PYTHONEXECUTABLE", "PYTHONSTARTUP", "VIRTUAL_ENV"})
        qputenv(name, "/nowhere");
    qputenv("PYTHONIOENCODING", "ascii");
    qputenv("PYTHONPATH", "/some/folder");
    init();
    for (const char* name :
        {"PYTHONHOME", "PYTHONSTARTUP", "VIRTUAL_ENV", "PYTHONIOENCODING", "PYTHONPATH"})
        qunsetenv(name);
    m_host->Execute(
        "import json, os, sys\n"
        "print(os.__file__, sys.executable, sys.getfilesystemencoding())\n"
        "print(sys.path.index('/some/folder') < sys.path.index('/usr/lib/python3.11'))");
    QCOMPARE(m_shown, "/usr/lib/python3.11/os.py /usr/bin/python3.11 utf-8\nTrue\n");
}

TE2_TEST(PythonEndTest)
#include "PythonEndTest.moc"
