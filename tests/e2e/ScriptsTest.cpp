#include "e2e/EditorSession.h"
#include "support/TestMain.h"

#include <QComboBox>
#include <QFile>
#include <QtTest>

/// Scripts as people write them, run through the editor by its key and read in its console.
class ScriptsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void RunsAndShows_data();
    void RunsAndShows();
    void ThreadsPrintInOrder();
    void AThreadThatHasEndedComesFirst();
    void MinimalVerbosityLeavesOutWhatIsRun();

private:
    static QString Script(const char* file);

    EditorSession m_session;
};

QString ScriptsTest::Script(const char* file)
{
    QFile script(QStringLiteral(TEST_DATA_DIR "/") + file);
    return script.open(QIODevice::ReadOnly) ? QString::fromUtf8(script.readAll()) : QString();
}

void ScriptsTest::initTestCase()
{
    QVERIFY(m_session.OpenEditor());
    QCOMPARE(m_session.Editors().size(), 2);
}

void ScriptsTest::RunsAndShows_data()
{
    Columns<QString, QString, QStringList>("label", "script", "lines");

    Row("MEL of 300 lines", "MEL", Script("shot_report.mel"),
        QStringList{"// Warning: Skipped: broken line without commas //", "SHOT REPORT", "attic",
            "  shots 9, frames 669, least 34, most 118, mean 74.33333333",
            "  sh0080   118  Ana   layout    |#########.|", "  animation  12",
            "cross -3 0 1, dot 2", "growth 5.0625", "grid 30 6", "version 012, next char_hero_v013",
            "upper Hero, camel Left Upper Arm",
            "a missing file is an error, and the report goes on",
            "written 27, warnings 1, file left 0", "# Result: 2044 #"});
    Row("Python with threads, json and a child process", "Python", Script("publish_check.py"),
        QStringList{"checked crate", "checked lamp", "checked rope",
            "child python 3.11, same as here: True", "crate    121", "lamp     842", "rope      64",
            "total 1027"});
    Row("Python that raises", "Python", Script("raises.py"),
        QStringList{"before the error",
            "# Error: ZeroDivisionError: file <maya console> line 6: division by zero #"});
    Row("MEL that raises", "MEL", "print \"first\\n\";\nfred 1;\nprint \"never\\n\";",
        QStringList{"first", "# Error: line 2: Cannot find procedure \"fred\". #"});
    Row("a result of each language", "Python", "2 ** 10",
        QStringList{"2 ** 10", "# Result: 1024 #"});
}

void ScriptsTest::RunsAndShows()
{
    QFETCH(QString, label);
    QFETCH(QString, script);
    QFETCH(QStringList, lines);
    QVERIFY(!script.isEmpty());
    QVERIFY(m_session.Mel("tarnwickEditor2 -clearOutput"));
    QPlainTextEdit* editor = m_session.Focus(label);
    QVERIFY(editor);

    m_session.Execute(editor, script);

    for (const QString& line : qAsConst(lines)) {
        QTRY_VERIFY2_WITH_TIMEOUT(m_session.ConsoleText().split('\n').contains(line),
            qPrintable("missing: " + line + "\nin:\n" + m_session.ConsoleText()), 10000);
    }
    QVERIFY(!m_session.ConsoleText().split('\n').contains("never reached"));
    QVERIFY(!m_session.ConsoleText().split('\n').contains("never"));
}

void ScriptsTest::ThreadsPrintInOrder()
{
    QVERIFY(m_session.Mel("tarnwickEditor2 -clearOutput"));
    QPlainTextEdit* editor = m_session.Focus("Python");
    QVERIFY(editor);

    m_session.Execute(editor,
        "import threading\n"
        "def count():\n"
        "    for i in range(200):\n"
        "        print('line %d' % i)\n"
        "threading.Thread(target=count).start()\n");

    QTRY_VERIFY(m_session.ConsoleText().contains("line 199\n"));
    QStringList expected;
    for (int i = 0; i < 200; ++i)
        expected += QString("line %1").arg(i);
    QCOMPARE(m_session.ConsoleText().split('\n').filter(QRegularExpression("^line ")), expected);
}

void ScriptsTest::AThreadThatHasEndedComesFirst()
{
    QVERIFY(m_session.Mel("tarnwickEditor2 -clearOutput"));
    QPlainTextEdit* editor = m_session.Focus("Python");
    QVERIFY(editor);

    m_session.Execute(editor,
        "import threading\n"
        "for i in range(3):\n"
        "    thread = threading.Thread(target=print, args=('thread', i))\n"
        "    thread.start()\n"
        "    thread.join()\n"
        "    print('main', i)\n");

    QTRY_VERIFY(m_session.ConsoleText().contains("main 2\n"));
    QCOMPARE(m_session.ConsoleText().split('\n').filter(QRegularExpression("^(thread|main) \\d")),
        (QStringList{"thread 0", "main 0", "thread 1", "main 1", "thread 2", "main 2"}));
}

void ScriptsTest::MinimalVerbosityLeavesOutWhatIsRun()
{
    const auto console = m_session.Console();
    QVERIFY(console);
    QComboBox* const verbosity = console->window()->findChild<QComboBox*>("m_verbosity");
    QVERIFY(verbosity);
    const QString python = "print('text')\n40 + 2 # echoed\n";
    for (const QString& mode : {QStringLiteral("Minimal"), QStringLiteral("Normal")}) {
        QVERIFY(m_session.Mel("tarnwickEditor2 -clearOutput"));
        verbosity->setCurrentIndex(verbosity->findText(mode));
        m_session.Execute(m_session.Focus("Python"), python);
        QTRY_VERIFY(m_session.ConsoleText().contains("text\n"));
        QCOMPARE(m_session.ConsoleText().contains("# echoed"), mode == "Normal");
    }
}

TE2_TEST(ScriptsTest)
#include "ScriptsTest.moc"
