#include "host/ui/window/WindowFixture.h"
#include "support/TestMain.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <thread>

using namespace host;

namespace {

/// What a plug-in does that wants to be asked before the host ends.
class CloseGuard : public QObject
{
public:
    enum class Answer { Nothing, Ignore, Eat };

    Answer answer = Answer::Nothing;
    int asked = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Close)
            return false;
        ++asked;
        if (answer == Answer::Ignore)
            event->ignore();
        return answer == Answer::Eat;
    }
};

} // namespace

class HostWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_host = std::make_unique<WindowFixture>(); }
    void cleanup() { m_host.reset(); }

    void ScriptsFindTheMainWindow_data();
    void ScriptsFindTheMainWindow();
    void CommandLineRunsBothLanguagesNames();
    void CommandLineShowsWhatTheHostSaysFromAnyThread();
    void CommandLineBringsEarlierCommandsBack();
    void SwitchesAreKept();
    void ClosingMayBeRefused_data();
    void ClosingMayBeRefused();
    void EscapeStopsARunningScript();
    void HotkeysAreKeysThatNothingElseWants();
    void InputIsDroppedWhileAScriptRuns();

private:
    template <typename T>
    T* Child(const char* name)
    {
        return m_host->GetWindow().findChild<T*>(name);
    }

    std::unique_ptr<WindowFixture> m_host;
};

void HostWindowTest::ScriptsFindTheMainWindow_data()
{
    Columns<QString, QString>("script", "result");
    Row("name of the window", "global string $gMainWindow; $x = $gMainWindow", "MayaWindow");
    Row("it is a window", "window -exists MayaWindow", "1");
    Row("one script editor button",
        "string $found[]; for ($b in `lsUI -type symbolButton`) {"
        " if (`symbolButton -q -command $b` == \"ScriptEditor\") $found[size($found)] = "
        "`symbolButton -q -annotation $b`; } $x = $found",
        "Script Editor");
    Row("windows menu is filled on request",
        "global string $gMainWindowMenu; buildViewMenu $gMainWindowMenu;"
        "$n = size(`menu -q -itemArray $gMainWindowMenu`) > 3",
        "1");
    Row("general editors submenu",
        "buildViewMenu mainWindowMenu; string $l = \"\"; for ($i in `menu -q -itemArray "
        "mainWindowMenu`) { string $t = \"\"; catchQuiet($t = `menuItem -q -label "
        "(\"mainWindowMenu|\" + $i)`); if ($t == uiRes(\"m_WindowMenu.kGeneralEditorsLabel\")) $l "
        "= $t; } $x = $l",
        "General Editors");
    Row("shelves", "tabLayout -q -childArray $gShelfTopLevel", "General Custom");
    Row("nothing is current at first", "setParent -q", "");
    Row("entries for the scene", "hostAction createCube; hostAction groupObjects; ls -sl",
        "group1");
    Row("an entry tells its command", "menuItem -q -command duplicateObjects", "duplicate -rr");
    Row("unknown action", "hostAction nonsense", "error: There is no host action \"nonsense\".");
}

void HostWindowTest::ScriptsFindTheMainWindow()
{
    QFETCH(QString, script);
    QFETCH(QString, result);
    QCOMPARE(m_host->Run("global string $gShelfTopLevel; " + script), result);
}

void HostWindowTest::CommandLineRunsBothLanguagesNames()
{
    auto* button = Child<QPushButton>("commandLineLanguage");
    QCOMPARE(button->text(), "MEL");
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(button->text(), "Python");
    QTest::mouseClick(button, Qt::LeftButton);
    auto* field = Child<QLineEdit>("commandLineField");
    auto* result = Child<QLineEdit>("commandLineResult");
    QTest::keyClicks(field, "2 * 3");
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(result->text(), "Result: 6");
    const QColor calm = result->palette().color(QPalette::Base);
    QTest::keyClicks(field, "nonsense 1");
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_VERIFY(result->text().startsWith("Error: "));
    QVERIFY(result->palette().color(QPalette::Base) != calm);
}

void HostWindowTest::CommandLineShowsWhatTheHostSaysFromAnyThread()
{
    std::thread talker([this] {
        for (int i = 0; i < 2000; ++i)
            m_host->GetEngine().output.Display(QString("line %1\n").arg(i));
    });
    talker.join();
    QTRY_COMPARE(Child<QLineEdit>("commandLineResult")->text(), "line 1999");
}

void HostWindowTest::CommandLineBringsEarlierCommandsBack()
{
    auto* field = Child<QLineEdit>("commandLineField");
    for (const char* command : {"int $a = 1", "int $b = 2"}) {
        field->clear();
        QTest::keyClicks(field, command);
        QTest::keyClick(field, Qt::Key_Return);
    }
    field->clear();
    QTest::keyClicks(field, "half typed");
    QStringList seen;
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down}) {
        QTest::keyClick(field, key);
        seen += field->text();
    }
    QCOMPARE(
        seen, QStringList({"int $b = 2", "int $a = 1", "int $a = 1", "int $b = 2", "half typed"}));
}

void HostWindowTest::SwitchesAreKept()
{
    QVERIFY(Child<QWidget>("helpLine")->isVisible());
    m_host->Run("hostAction helpLineVisible; hostAction gridVisible");
    QVERIFY(!Child<QWidget>("helpLine")->isVisible());
    m_host->GetEngine().SavePreferences();
    m_host->Restart();
    QVERIFY(!Child<QWidget>("helpLine")->isVisible());
    QVERIFY(Child<QWidget>("commandLine")->isVisible());
}

void HostWindowTest::ClosingMayBeRefused_data()
{
    Columns<int, int>("answer", "accepted");
    Row("nobody minds", int(CloseGuard::Answer::Nothing), 1);
    Row("a filter ignores the event", int(CloseGuard::Answer::Ignore), 0);
    Row("a filter eats the event", int(CloseGuard::Answer::Eat), 0);
}

void HostWindowTest::ClosingMayBeRefused()
{
    QFETCH(int, answer);
    QFETCH(int, accepted);
    CloseGuard guard;
    guard.answer = CloseGuard::Answer(answer);
    m_host->GetWindow().installEventFilter(&guard);
    QSignalSpy quit(&m_host->GetWindow(), &ui::HostWindow::QuitAccepted);
    m_host->GetWindow().close();
    QCOMPARE(guard.asked, 1);
    QCOMPARE(quit.count(), accepted);
    QCOMPARE(m_host->GetWindow().isVisible(), accepted == 0);
}

void HostWindowTest::EscapeStopsARunningScript()
{
    QTimer::singleShot(50, this, [this] { QTest::keyClick(&m_host->GetWindow(), Qt::Key_Escape); });
    QVERIFY(m_host->Run("while (1) {}").startsWith("error: "));
    QVERIFY(!m_host->GetEngine().interrupt.IsRequested());
    QCOMPARE(m_host->Run("$x = 7"), "7");
}

void HostWindowTest::HotkeysAreKeysThatNothingElseWants()
{
    m_host->Run("nameCommand -command \"print down;\" down; nameCommand -command \"print up;\" up;"
                "hotkey -keyShortcut \"k\" -name down -releaseName up;"
                "hotkey -keyShortcut \"F7\" -ctl -name down");
    ui::HostWindow& window = m_host->GetWindow();
    QTest::keyPress(&window, Qt::Key_K);
    QTest::keyRelease(&window, Qt::Key_K);
    QCOMPARE(m_host->TakePrinted(), "downup");
    auto* line = Child<QLineEdit>("commandLineField");
    QVERIFY(line);
    QTest::keyClick(line, Qt::Key_K);
    QCOMPARE(line->text(), "k");
    QCOMPARE(m_host->TakePrinted(), QString());
    QTest::keyClick(line, Qt::Key_F7, Qt::ControlModifier);
    QCOMPARE(m_host->TakePrinted(), "down");
}

void HostWindowTest::InputIsDroppedWhileAScriptRuns()
{
    auto* button = Child<QPushButton>("commandLineLanguage");
    QTimer::singleShot(50, this, [this, button] {
        QTest::mouseClick(button, Qt::LeftButton);
        m_host->GetWindow().close();
        QTest::keyClick(&m_host->GetWindow(), Qt::Key_Escape);
    });
    QSignalSpy quit(&m_host->GetWindow(), &ui::HostWindow::QuitAccepted);
    QVERIFY(m_host->Run("while (1) {}").startsWith("error: "));
    QCOMPARE(button->text(), "MEL");
    QCOMPARE(quit.count(), 0);
    QVERIFY(m_host->GetWindow().isVisible());
}

TE2_TEST(HostWindowTest)
#include "HostWindowTest.moc"
