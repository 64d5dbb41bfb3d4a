#include "app/Host.h"
#include "support/TestMain.h"
#include "ui/window/HostWindow.h"
#include "ui/workspace/WorkspaceControls.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace host;

/// The end of the host. It comes once per process, so this is one story told in order.
class QuitOrderTest : public QObject
{
    Q_OBJECT

public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == QEvent::Close && m_refuses;
    }

private Q_SLOTS:
    void initTestCase();
    void ARefusedQuitChangesNothing();
    void AScriptEndsBeforeTheHostDoes();
    void PanelsAreSavedAsThePersonLeftThem();
    void cleanupTestCase();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Host> m_host;
    bool m_refuses = true;
    int m_fired = 0;
};

void QuitOrderTest::initTestCase()
{
    m_host = std::make_unique<Host>(RunState::Interactive, m_folder.path());
    m_host->Start();
    m_host->GetWindow()->installEventFilter(this);
    QVERIFY(m_host->RunTask({StartTask::Kind::Mel, "workspaceControl -label Mine p"}));
    m_host->GetEngine().events.Add("quitApplication", [this] {
        ++m_fired;
        // Plug-ins take their panels away now.
        m_host->RunTask({StartTask::Kind::Mel, "workspaceControl -e -close p"});
    });
}

void QuitOrderTest::ARefusedQuitChangesNothing()
{
    QSignalSpy finished(m_host.get(), &Host::Finished);
    QVERIFY(m_host->RunTask({StartTask::Kind::Mel, "quit"}));
    QCoreApplication::processEvents();
    QCOMPARE(m_fired, 0);
    QCOMPARE(finished.count(), 0);
    QVERIFY(m_host->GetWindow()->isVisible());
}

void QuitOrderTest::AScriptEndsBeforeTheHostDoes()
{
    QSignalSpy finished(m_host.get(), &Host::Finished);
    m_refuses = false;
    QVERIFY(m_host->RunTask({StartTask::Kind::Mel, "quit -exitCode 3; optionVar -iv afterQuit 5"}));
    QCOMPARE(finished.count(), 0);
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), 3);
    m_host->Shutdown();
    QCOMPARE(m_fired, 1);
}

void QuitOrderTest::PanelsAreSavedAsThePersonLeftThem()
{
    const QString folder = m_folder.filePath("2024/prefs");
    QFile panels(folder + "/workspaces.json");
    QVERIFY(panels.open(QIODevice::ReadOnly));
    QStringList problems;
    const ui::SavedWorkspace saved = ui::ReadWorkspace(panels.readAll(), problems);
    QCOMPARE(saved.controls.size(), 1);
    QVERIFY(saved.controls[0].visible);
    QFile variables(folder + "/optionVars.json");
    QVERIFY(variables.open(QIODevice::ReadOnly));
    QVERIFY(variables.readAll().contains("afterQuit"));
}

void QuitOrderTest::cleanupTestCase()
{
    m_host.reset();
    QVERIFY(!Engine::Exists());
}

TE2_TEST(QuitOrderTest)
#include "QuitOrderTest.moc"
