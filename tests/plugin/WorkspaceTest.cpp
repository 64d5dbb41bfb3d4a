#include "plugin/HostSession.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QWidget>
#include <QtTest>

#include <memory>

/// The places that the editor takes in the host's windows, and gives back.
class WorkspaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { m_host->Close(); }

    void NothingIsThereBeforeItIsMade();
    void ControlIsMadeFloatingShownAndKept();
    void ExistingControlIsNotMadeAgain();
    void Geometry_data();
    void Geometry();
    void LabelIsTheTitleOnlyWhenFloating();
    void WidgetGoesIntoTheControl();
    void MenuItemIsMadeOnceAndRemoved();
    void MenuWithoutTheSubmenuIsTold();
    void ButtonIsTakenOnceAndGivenBack();
    void ScaleIsTheHosts();

private:
    std::unique_ptr<HostSession> m_host;
    const QString m_control = "TarnwickEditor2Window";
};

void WorkspaceTest::initTestCase()
{
    m_host = std::make_unique<HostSession>();
    MayaUtil::SourceApplicationScripts();
    QVERIFY(MayaUtil::GetMainWindow());
}

void WorkspaceTest::init()
{
    Settings::ResetToDefaults();
    m_host->Forget();
}

void WorkspaceTest::cleanup()
{
    m_host->Mel("if (`workspaceControl -q -exists TarnwickEditor2Window`)"
                " deleteUI -control TarnwickEditor2Window;");
    QVERIFY(!MayaUtil::WorkspaceControlExists());
}

void WorkspaceTest::NothingIsThereBeforeItIsMade()
{
    QVERIFY(!MayaUtil::WorkspaceControlExists());
    QVERIFY(!MayaUtil::WorkspaceControlVisible());
    QVERIFY(!MayaUtil::WorkspaceControlFloating());
    QVERIFY(!MayaUtil::WorkspaceControlCollapsed());
    QVERIFY(!MayaUtil::GetWorkspaceControl());
    m_host->Forget();
    MayaUtil::CloseWorkspaceControl();
    MayaUtil::UpdateWorkspaceControlGeometry();
    QCOMPARE(m_host->Errors(), QStringList());
}

void WorkspaceTest::ControlIsMadeFloatingShownAndKept()
{
    QWidget* const control = MayaUtil::CreateWorkspaceControl();
    QVERIFY(control);
    QCOMPARE(control, MayaUtil::GetWorkspaceControl());
    QVERIFY(MayaUtil::WorkspaceControlFloating());
    QVERIFY(MayaUtil::WorkspaceControlVisible());
    QCOMPARE(
        m_host->MelResult("workspaceControl -q -label " + m_control), Settings::APPLICATION_TITLE);
    MayaUtil::CloseWorkspaceControl();
    QVERIFY(!MayaUtil::WorkspaceControlVisible());
    QVERIFY(MayaUtil::WorkspaceControlExists());
    MayaUtil::SetWorkspaceControlVisible(true);
    QVERIFY(MayaUtil::WorkspaceControlVisible());
    QCOMPARE(m_host->Errors(), QStringList());
}

void WorkspaceTest::ExistingControlIsNotMadeAgain()
{
    QVERIFY(MayaUtil::CreateWorkspaceControl());
    QVERIFY(!MayaUtil::CreateWorkspaceControl());
}

void WorkspaceTest::Geometry_data()
{
    Columns<QRect, bool>("geometry", "applied");
    Row("valid", QRect(120, 90, 640, 480), true);
    Row("right of left", QRect(QPoint(300, 90), QPoint(200, 400)), false);
    Row("a corner to hold on to", QRect(-540, -430, 640, 480), true);
    Row("less than that", QRect(-541, -430, 640, 480), false);
    Row("on no screen", QRect(20000, 90, 640, 480), false);
    Row("none stored", QRect(), false);
}

void WorkspaceTest::Geometry()
{
    QFETCH(QRect, geometry);
    QFETCH(bool, applied);
    QWidget* const control = MayaUtil::CreateWorkspaceControl();
    QVERIFY(control);
    QWidget* const window = control->window();
    QVERIFY(window != MayaUtil::GetMainWindow());
    const QRect before = window->geometry();
    Settings::windowGeometry = geometry;
    MayaUtil::UpdateWorkspaceControlGeometry();
    QCOMPARE(window->geometry(), applied ? geometry : before);
}

void WorkspaceTest::LabelIsTheTitleOnlyWhenFloating()
{
    QVERIFY(MayaUtil::CreateWorkspaceControl());
    const QString title = "a \"b\\c\".py - Tarnwick Editor 2";
    MayaUtil::SetWorkspaceLabel(title);
    QCOMPARE(m_host->MelResult("workspaceControl -q -label " + m_control), title);
    QVERIFY(m_host->Mel("workspaceControl -e -dockToMainWindow \"right\" 1 " + m_control));
    QVERIFY(!MayaUtil::WorkspaceControlFloating());
    MayaUtil::SetWorkspaceLabel(title);
    QCOMPARE(
        m_host->MelResult("workspaceControl -q -label " + m_control), Settings::APPLICATION_TITLE);
}

void WorkspaceTest::WidgetGoesIntoTheControl()
{
    QWidget* const control = MayaUtil::CreateWorkspaceControl();
    auto* const widget = new QWidget;
    MayaUtil::SetWorkspaceChild(widget, nullptr);
    QVERIFY(control->isAncestorOf(widget));
}

void WorkspaceTest::MenuItemIsMadeOnceAndRemoved()
{
    const auto count = [this] {
        return m_host->MelResult(
            "int $found = 0; string $m; for ($m in `lsUI -menuItems`) { string $l = \"\"; if"
            " (!catchQuiet($l = `menuItem -q -label $m`) && $l == \"Tarnwick Editor 2\") $found++; "
            "}"
            " int $result = $found;");
    };
    QCOMPARE(count(), "0");
    MayaUtil::CreateMainMenuItem();
    MayaUtil::CreateMainMenuItem();
    QCOMPARE(count(), "1");
    MayaUtil::RemoveMainMenuItem();
    QCOMPARE(count(), "0");
    MayaUtil::RemoveMainMenuItem();
    QCOMPARE(m_host->Errors(), QStringList());
}

void WorkspaceTest::MenuWithoutTheSubmenuIsTold()
{
    const QString key = "m_WindowMenu.kGeneralEditorsLabel";
    QVERIFY(m_host->Mel("displayString -replace -value \"Elsewhere\" \"" + key + "\""));
    MayaUtil::CreateMainMenuItem();
    QCOMPARE(m_host->Errors(),
        QStringList{"[TarnwickEditor2] Failed to create 'Tarnwick Editor 2' menu item"});
    QVERIFY(m_host->Mel("displayString -replace -value \"General Editors\" \"" + key + "\""));
}

void WorkspaceTest::ButtonIsTakenOnceAndGivenBack()
{
    const QString button = m_host->MelResult("qhGetScriptEditorButtonName()");
    QVERIFY(!button.isEmpty());
    const auto state = [&] {
        return m_host->MelResult("symbolButton -q -command " + button) + '|'
            + m_host->MelResult("symbolButton -q -ann " + button);
    };
    MayaUtil::RestoreScriptEditorButton();
    QCOMPARE(state(), "ScriptEditor|Script Editor");
    MayaUtil::OverrideScriptEditorButton();
    // A second time would look for a button that is no longer the host's.
    MayaUtil::OverrideScriptEditorButton();
    QCOMPARE(state(), "tarnwickEditor2|Tarnwick Editor 2");
    MayaUtil::RestoreScriptEditorButton();
    QCOMPARE(state(), "ScriptEditor|Script Editor");
    QCOMPARE(m_host->Errors(), QStringList());
}

void WorkspaceTest::ScaleIsTheHosts()
{
    // This host follows the system (mode 0) and cannot be told otherwise.
    QCOMPARE(MayaUtil::GetCustomScaleValue(), m_host->GetEngine().ui->ScaleFactor());
}

TE2_TEST(WorkspaceTest)
#include "WorkspaceTest.moc"
