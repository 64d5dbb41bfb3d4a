#include "e2e/EditorSession.h"
#include "support/TestMain.h"

#include <QtTest>

/// The end of the host while the editor is open and a thread goes on printing. The host quits once
/// per process, so this is one story told in order.
class QuitTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void QuittingTakesTheWindowAway();
    void TheTextIsThereAtTheNextStart();
    void AThreadThatStillPrintsDoesNoHarm();

private:
    std::unique_ptr<EditorSession> m_session = std::make_unique<EditorSession>();
};

void QuitTest::initTestCase()
{
    QVERIFY(m_session->OpenEditor());
    QVERIFY(m_session->Python("import threading, time\n"
                              "def chatter():\n"
                              "    while True:\n"
                              "        print('still here')\n"
                              "        time.sleep(0.001)\n"
                              "threading.Thread(target=chatter, daemon=True).start()\n"));
    QTRY_VERIFY(m_session->ConsoleText().contains("still here"));
}

void QuitTest::QuittingTakesTheWindowAway()
{
    QPlainTextEdit* editor = m_session->Focus("Python");
    QVERIFY(editor);
    EditorSession::Replace(editor, "kept = 'yes'");
    m_session->GetHost().Shutdown();
    QVERIFY(!m_session->Console());
    QVERIFY(m_session->Editors().isEmpty());
}

void QuitTest::TheTextIsThereAtTheNextStart()
{
    // A new window reads what the one before it left.
    QVERIFY(m_session->Mel("tarnwickEditor2"));
    QPlainTextEdit* editor = m_session->Focus("Python");
    QVERIFY(editor);
    QCOMPARE(editor->toPlainText(), "kept = 'yes'");
    QVERIFY(m_session->Mel("unloadPlugin TarnwickEditor2"));
}

void QuitTest::AThreadThatStillPrintsDoesNoHarm()
{
    m_session.reset();
    QVERIFY(!host::Engine::Exists());
}

TE2_TEST(QuitTest)
#include "QuitTest.moc"
