#include "host/ui/window/WindowFixture.h"
#include "support/TestMain.h"

#include <QFile>
#include <QScreen>
#include <QVBoxLayout>
#include <QtTest>

/// The commands workspaceControl and workspaceControlState, and what stays over a restart.
class WorkspaceControlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_host = std::make_unique<WindowFixture>(); }
    void cleanup() { m_host.reset(); }

    void CommandsAnswer_data();
    void CommandsAnswer();
    void NewControlIsTheCurrentParent();
    void UiScriptRunsOnceWhenShownEmpty();
    void UiScriptGivenLaterWaitsUntilShown();
    void CloseHidesOrDeletes();
    void FramesApplyToTheWindow();
    void FloatingWindowIsNotTheMainWindow();
    void ForeignWidgetsDieWithTheControl();
    void PanelsComeBackAfterARestart();
    void MissingPluginKeepsThePlace();
    void DamagedFileIsSaidAndLeft();
    void HostileGeometryIsReachable();

private:
    std::unique_ptr<WindowFixture> m_host;
};

void WorkspaceControlTest::CommandsAnswer_data()
{
    Columns<QString, QString>("script", "result");
    // clang-format off
    Row("creation gives the name", "workspaceControl p", "p");
    Row("default name", "workspaceControl", "workspaceControl1");
    Row("exists without -q", "workspaceControl p; workspaceControl -exists p", "1");
    Row("missing does not exist", "workspaceControl -q -exists p", "0");
    Row("missing cannot be asked", "workspaceControl -q -visible p", "error: Object 'p' not found.");
    Row("name taken", "workspaceControl p; workspaceControl p", "error: Object's name 'p' is not unique.");
    Row("visible by default", "workspaceControl p; workspaceControl -q -visible p", "1");
    Row("created hidden", "workspaceControl -floating 1 -visible 0 p; workspaceControl -q -visible p", "0");
    Row("floating is known while hidden", "workspaceControl -floating 1 -visible 0 p; workspaceControl -q -floating p", "1");
    Row("restore shows", "workspaceControl -vis 0 p; workspaceControl -e -restore p; workspaceControl -q -visible p", "1");
    Row("restore expands",
        "workspaceControl -fl 1 p; workspaceControl -e -collapse 1 p; "
        "workspaceControl -e -restore p; workspaceControl -q -collapse p",
        "0");
    Row("collapse of a window", "workspaceControl -fl 1 p; workspaceControl -e -collapse 1 p; workspaceControl -q -collapse p", "1");
    Row("collapse is kept while hidden",
        "workspaceControl -fl 1 p; workspaceControl -e -collapse 1 p; workspaceControl -e -visible "
        "0 "
        "p; workspaceControl -e -visible 1 p; workspaceControl -q -collapse p",
        "1");
    Row("label", "workspaceControl -label \"My Panel\" p; workspaceControl -q -label p", "My Panel");
    Row("label without one", "workspaceControl p; workspaceControl -q -label p", "p");
    Row("front tab", "workspaceControl a; workspaceControl b; workspaceControl -q -raise a", "0");
    Row("raised tab", "workspaceControl a; workspaceControl b; workspaceControl -e -raise a; workspaceControl -q -raise a", "1");
    Row("docks and floats", "workspaceControl -fl 1 p; workspaceControl -e -fl 0 p; workspaceControl -q -floating p", "0");
    Row("tab in a window", "workspaceControl -fl 1 a; workspaceControl -ttc a -1 b; workspaceControl -q -floating b", "1");
    Row("tab beside nothing", "workspaceControl -ttc nothing -1 b", "error: Object 'nothing' not found.");
    Row("failed creation leaves nothing", "catchQuiet(`workspaceControl -ttc nothing -1 b`); workspaceControl -exists b", "0");
    Row("unknown side", "workspaceControl -dtm middle 1 p", "error: Invalid dock position \"middle\": use left, right, top or bottom.");
    Row("resized side", "workspaceControl -dtm left 1 p; workspaceControl -e -rsw 300 p; workspaceControl -q -width p", "300");
    Row("kept flags come back", "workspaceControl -widthProperty fixed p; workspaceControl -q -widthProperty p", "fixed");
    Row("close deletes what is not retained",
        "workspaceControl -retain 0 p; workspaceControl -e -close p; workspaceControl -exists p",
        "0");
    Row("close keeps what is retained", "workspaceControl p; workspaceControl -e -close p; workspaceControl -exists p", "1");
    Row("deleteUI", "workspaceControl p; deleteUI p; workspaceControl -exists p", "0");
    Row("listed", "workspaceControl a; workspaceControl b; lsUI -type workspaceControl", "a b");
    Row("state before the control",
        "workspaceControlState -e -tlc 30 40 -width 500 -height 300 p; "
        "workspaceControlState -q -tlc p",
        "30 40");
    Row("state size", "workspaceControlState -e -wh 500 300 p; workspaceControlState -q -width p", "500");
    Row("unknown state", "workspaceControlState -q -tlc p", "error: Object 'p' not found.");
    Row("state removed", "workspaceControlState -tlc 1 2 p; workspaceControlState -remove p; workspaceControlState -exists p", "0");
    Row("bad state string", "workspaceControl p; workspaceControl -e -ss \"junk\" p", "error: Invalid workspace control state string.");
    Row("state string round trip",
        "workspaceControl -fl 1 -label L p; string $s = `workspaceControl -q -ss p`; "
        "workspaceControl "
        "-e -fl 0 -label M p; workspaceControl -e -ss $s p; $x = `workspaceControl -q -label p` + "
        "`workspaceControl -q -fl p`",
        "L1");
    // clang-format on
}

void WorkspaceControlTest::CommandsAnswer()
{
    QFETCH(QString, script);
    QFETCH(QString, result);
    QCOMPARE(m_host->Run(script), result);
}

void WorkspaceControlTest::NewControlIsTheCurrentParent()
{
    QCOMPARE(m_host->Run("workspaceControl -floating 1 -visible 0 p; setParent -q"), "p");
    QCOMPARE(m_host->GetWindow().CurrentParent(), m_host->Panel("p"));
    QCOMPARE(m_host->Panel("p")->objectName(), "p");
    QCOMPARE(m_host->Run("workspaceControl -uiScript \"columnLayout c\" q; setParent -q"), "q");
}

void WorkspaceControlTest::UiScriptRunsOnceWhenShownEmpty()
{
    m_host->Run(
        "int $runs = 0; workspaceControl -uiScript \"$runs++; button -parent `columnLayout` "
        "b\" p");
    m_host->RunIdle();
    m_host->Run("workspaceControl -e -visible 0 p; workspaceControl -e -restore p");
    QCoreApplication::processEvents();
    m_host->RunIdle();
    QCOMPARE(m_host->Run("$x = $runs"), "1");
    QVERIFY(m_host->Panel("b") && m_host->Panel("p")->isAncestorOf(m_host->Panel("b")));
}

void WorkspaceControlTest::UiScriptGivenLaterWaitsUntilShown()
{
    m_host->Run("int $runs = 0; workspaceControl -visible 0 p; "
                "workspaceControl -e -uiScript \"$runs++; columnLayout c\" p");
    m_host->RunIdle();
    QCOMPARE(m_host->Run("$x = $runs"), "0");
    m_host->Run("workspaceControl -e -restore p");
    m_host->RunIdle();
    QCOMPARE(m_host->Run("$x = $runs"), "1");
}

void WorkspaceControlTest::CloseHidesOrDeletes()
{
    m_host->Run("workspaceControl -floating 1 -closeCommand \"print \\\"bye \\\"\" a; "
                "workspaceControl -retain 0 -closeCommand \"print \\\"gone \\\"\" b");
    m_host->Run("workspaceControl -e -close a; workspaceControl -e -close b");
    QCOMPARE(m_host->TakePrinted(), "bye gone ");
    QVERIFY(m_host->Panel("a") && !m_host->Panel("a")->isVisible());
    QVERIFY(!m_host->GetControls().Contains("b"));
    m_host->Run("workspaceControl -e -close a");
    QCOMPARE(m_host->TakePrinted(), QString()); // it was closed already
}

void WorkspaceControlTest::FramesApplyToTheWindow()
{
    m_host->Run("workspaceControlState -e -tlc 60 90 -width 420 -height 310 p; "
                "workspaceControl -floating 1 p");
    QWidget* window = m_host->Panel("p")->window();
    QCOMPARE(window->geometry(), QRect(90, 60, 420, 310));
    m_host->Run("workspaceControlState -e -tlc 70 80 p");
    QCOMPARE(window->geometry(), QRect(80, 70, 420, 310));
    window->setGeometry(11, 22, 333, 244);
    QTRY_COMPARE(m_host->Run("workspaceControlState -q -wh p"), "333 244");
    QCOMPARE(m_host->Run("workspaceControlState -q -tlc p"), "22 11");
}

void WorkspaceControlTest::FloatingWindowIsNotTheMainWindow()
{
    m_host->Run("workspaceControl -floating 1 p");
    QVERIFY(m_host->Panel("p")->window() != &m_host->GetWindow());
    QVERIFY(m_host->Panel("p")->isVisible());
    m_host->Run("workspaceControl -e -floating 0 p");
    QCOMPARE(m_host->Panel("p")->window(), static_cast<QWidget*>(&m_host->GetWindow()));
}

void WorkspaceControlTest::ForeignWidgetsDieWithTheControl()
{
    m_host->Run("workspaceControl -retain 0 p");
    const QPointer<QWidget> foreign = new QWidget;
    foreign->setObjectName("foreign");
    QCOMPARE(m_host->GetWindow().AddWidget(foreign, m_host->Panel("p"), {}), "p|foreign");
    QVERIFY(m_host->Panel("p")->isAncestorOf(foreign));
    m_host->Run("workspaceControl -e -close p");
    QTRY_VERIFY(!foreign);
}

void WorkspaceControlTest::PanelsComeBackAfterARestart()
{
    m_host->Run("workspaceControl -label One -uiScript \"text -parent `columnLayout` t1\" one;"
                "workspaceControlState -e -tlc 60 90 -wh 420 310 two;"
                "workspaceControl -floating 1 -label Two two;"
                "workspaceControl -dtm left 1 three; workspaceControl -visible 0 four");
    m_host->Restart();
    m_host->RunIdle();
    QCOMPARE(m_host->TakeWarnings(), QStringList());
    QCOMPARE(m_host->Run("workspaceControl -q -label one"), "One");
    QTRY_VERIFY((m_host->RunIdle(), m_host->Panel("t1") != nullptr));
    QCOMPARE(m_host->Panel("two")->window()->geometry(), QRect(90, 60, 420, 310));
    QCOMPARE(m_host->Run("workspaceControl -q -floating three"), "0");
    QVERIFY(m_host->Panel("three")->isVisible());
    QCOMPARE(m_host->Run("workspaceControl -q -visible four"), "0");
}

void WorkspaceControlTest::MissingPluginKeepsThePlace()
{
    m_host->Run("workspaceControl -requiredPlugin notThere -label Kept p");
    m_host->Restart();
    QCOMPARE(m_host->Run("workspaceControl -exists p"), "0");
    m_host->Restart();
    QFile file(m_host->WorkspacePath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("Kept"));
    QCOMPARE(m_host->TakeWarnings(), QStringList());
}

void WorkspaceControlTest::DamagedFileIsSaidAndLeft()
{
    const auto write = [this](const QByteArray& text) {
        QFile file(m_host->WorkspacePath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        m_host->GetWindow().LoadWorkspace();
    };
    write("{\"controls\": [");
    QCOMPARE(m_host->TakeWarnings().size(), 1);
    write(R"({"controls": [{"name": "good"}, {"name": "bad one"}]})");
    QCOMPARE(m_host->TakeWarnings().size(), 1);
    m_host->GetControls().BuildSaved();
    QVERIFY(m_host->GetControls().Contains("good"));
}

void WorkspaceControlTest::HostileGeometryIsReachable()
{
    m_host->Run("workspaceControlState -e -tlc -9000 -9000 -wh 30000 30000 p; "
                "workspaceControl -floating 1 p");
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY(screen.contains(m_host->Panel("p")->window()->geometry()));
}

TE2_TEST(WorkspaceControlTest)
#include "WorkspaceControlTest.moc"
