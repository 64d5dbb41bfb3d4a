#include "e2e/EditorSession.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QtTest>

/// The plug-in as the host lives: loaded, opened, closed, unloaded, loaded again.
class LifecycleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_session.Mel("catchQuiet(`unloadPlugin TarnwickEditor2`)"); }
    void UnloadingTakesTheOpenWindowAway();
    void LoadingTwiceChangesNothing();
    void ClosedPanelCollectsOutput();
    void HistoryFromBeforeIsShown();

private:
    EditorSession m_session;
};

void LifecycleTest::UnloadingTakesTheOpenWindowAway()
{
    QVERIFY(m_session.OpenEditor());
    QApplication::clipboard()->setText("left behind");
    for (int round = 0; round < 2; ++round) {
        QVERIFY(m_session.Mel("unloadPlugin TarnwickEditor2"));
        QVERIFY(!m_session.Console());
        QVERIFY(m_session.Editors().isEmpty());
        QVERIFY(QApplication::clipboard()->text().isEmpty());
        QVERIFY(!m_session.Mel("tarnwickEditor2"));
        QVERIFY(m_session.OpenEditor());
        QVERIFY(m_session.Focus("MEL"));
    }
}

void LifecycleTest::LoadingTwiceChangesNothing()
{
    QVERIFY(m_session.OpenEditor());
    QPlainTextEdit* const console = m_session.Console();
    QVERIFY(m_session.Mel("loadPlugin -quiet TarnwickEditor2"));
    QCOMPARE(m_session.Console(), console);
    QVERIFY(m_session.Mel("tarnwickEditor2"));
    QCOMPARE(m_session.Editors().size(), 2);
}

void LifecycleTest::ClosedPanelCollectsOutput()
{
    QVERIFY(m_session.OpenEditor());
    QVERIFY(m_session.Mel("workspaceControl -e -close TarnwickEditor2Window"));
    QVERIFY(m_session.Mel("print \"while closed\\n\""));
    QVERIFY(!m_session.ConsoleText().contains("while closed"));
    QVERIFY(m_session.Mel("tarnwickEditor2"));
    QTRY_VERIFY(m_session.ConsoleText().contains("while closed"));
}

void LifecycleTest::HistoryFromBeforeIsShown()
{
    QVERIFY(m_session.Mel("print \"early bird\\n\""));
    QVERIFY(m_session.OpenEditor());
    QTRY_VERIFY(m_session.ConsoleText().contains("early bird"));
}

TE2_TEST(LifecycleTest)
#include "LifecycleTest.moc"
