#include "plugin/HostSession.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>
#include <QTextEdit>
#include <QtTest>

#include <memory>

namespace {

const QString OWN_FILE = QFileInfo(TEST_DATA_DIR).path() + "/CommandTest.cpp";

/// The editor's window, known by its name only: the module's classes are not linked here.
QWidget* EditorWindow()
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (qstrcmp(widget->metaObject()->className(), "TarnwickEditor") == 0)
            return widget;
    }
    return nullptr;
}

} // namespace

/// The host command and the entry points, with the module as the host loads it.
class CommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<HostSession>(); }
    void init();
    void cleanup();
    void cleanupTestCase() { m_host->Close(); }

    void VersionDoesNotBuildTheWindow();
    void ClearOutputWithoutWindowClearsTheHistory();
    void OpenFile_data();
    void OpenFile();
    void FirstFlagInTheOrderWins();
    void InvalidFlagFails();
    void CollapsedControlStaysSoAtTheFirstRun();
    void PlacesAreTakenAndGivenBack();
    void CommandNameInUseFailsTheLoad();
    void UnloadedModuleIsGone();

private:
    std::unique_ptr<HostSession> m_host;
};

void CommandTest::init()
{
    QVERIFY(m_host->LoadPlugin());
    m_host->RunIdle();
    m_host->Forget();
}

void CommandTest::cleanup()
{
    m_host->Mel("catchQuiet(`unloadPlugin TarnwickEditor2`); if (`workspaceControl -q -exists"
                " TarnwickEditor2Window`) deleteUI -control TarnwickEditor2Window;");
}

void CommandTest::VersionDoesNotBuildTheWindow()
{
    QCOMPARE(m_host->MelResult("tarnwickEditor2 -v"), "2.6.4");
    QCOMPARE(m_host->MelResult("tarnwickEditor2 -version"), "2.6.4");
    QCOMPARE(m_host->MelResult("pluginInfo -q -version TarnwickEditor2"), "2.6.4");
    QCOMPARE(m_host->MelResult("pluginInfo -q -vendor TarnwickEditor2"), "Quenholt");
    QVERIFY(!EditorWindow());
}

void CommandTest::ClearOutputWithoutWindowClearsTheHistory()
{
    QVERIFY(m_host->Mel("print \"something\\n\"; tarnwickEditor2 -co;"));
    QCOMPARE(m_host->MelResult("qhGetExistingHistory()"), QString());
    QVERIFY(!EditorWindow());
}

void CommandTest::OpenFile_data()
{
    // "error": none: success
    Columns<bool, QString, QString>("withWindow", "path", "error");
    Row("empty path", false, "", "");
    Row("missing", true, "/te2 nowhere/a.mel", "File not found: /te2 nowhere/a.mel");
    Row("directory", true, "/tmp", "Invalid file path: /tmp");
    Row("without a window", false, OWN_FILE, "Tarnwick Editor 2 GUI has not been initialized.");
    Row("file", true, OWN_FILE, "");
}

void CommandTest::OpenFile()
{
    QFETCH(bool, withWindow);
    QFETCH(QString, path);
    QFETCH(QString, error);
    if (withWindow)
        QVERIFY(m_host->Mel("tarnwickEditor2"));
    m_host->Forget();
    QCOMPARE(m_host->Mel("tarnwickEditor2 -of \"" + path + "\""), error.isEmpty());
    const QStringList errors = m_host->Errors();
    if (error.isEmpty())
        QCOMPARE(errors, QStringList());
    else
        QCOMPARE(errors.value(0), "[TarnwickEditor2] " + error);
}

void CommandTest::FirstFlagInTheOrderWins()
{
    QCOMPARE(m_host->MelResult("tarnwickEditor2 -of \"/te2 nowhere\" -v"), "2.6.4");
    QVERIFY(m_host->Mel("print \"x\"; tarnwickEditor2 -rms -of \"/te2 nowhere\" -co"));
    QCOMPARE(m_host->Errors(), QStringList());
    QCOMPARE(m_host->MelResult("qhGetExistingHistory()"), QString());
}

void CommandTest::InvalidFlagFails()
{
    QVERIFY(!m_host->Mel("tarnwickEditor2 -nobody"));
    QVERIFY(!m_host->Mel("tarnwickEditor2 -of"));
    QVERIFY(!EditorWindow());
}

void CommandTest::CollapsedControlStaysSoAtTheFirstRun()
{
    // As when the host restores a layout that has the control collapsed.
    QVERIFY(m_host->Mel("workspaceControl -label x -retain 1 TarnwickEditor2Window;"
                        "workspaceControl -e -dockToMainWindow right 1 TarnwickEditor2Window;"
                        "workspaceControl -e -collapse 1 TarnwickEditor2Window;"));
    const QString collapsed = "workspaceControl -q -collapse TarnwickEditor2Window";
    QCOMPARE(m_host->MelResult(collapsed), "1");
    QVERIFY(m_host->Mel("tarnwickEditor2"));
    QCOMPARE(m_host->MelResult(collapsed), "1");
    QVERIFY(EditorWindow());
    QVERIFY(m_host->Mel("tarnwickEditor2"));
    QCOMPARE(m_host->MelResult(collapsed), "0");
}

void CommandTest::PlacesAreTakenAndGivenBack()
{
    QVERIFY(m_host->Mel("tarnwickEditor2"));
    QVERIFY(EditorWindow());
    QVERIFY(m_host->MelResult("qhGetScriptEditorButtonName()").isEmpty());
    QVERIFY(m_host->Mel("unloadPlugin TarnwickEditor2"));
    QVERIFY(!EditorWindow());
    QVERIFY(!m_host->MelResult("qhGetScriptEditorButtonName()").isEmpty());
    QCOMPARE(m_host->MelResult("exists tarnwickEditor2"), "0");
    QVERIFY(QFile::exists(m_host->PreferencesFolder() + "/tarnwickEditor2/tarnwickEditor2.ini"));
    QCOMPARE(m_host->Errors(), QStringList());
}

void CommandTest::CommandNameInUseFailsTheLoad()
{
    QVERIFY(m_host->Mel("unloadPlugin TarnwickEditor2"));
    QVERIFY(m_host->Mel("runTimeCommand -command \"print 1\" tarnwickEditor2"));
    m_host->Forget();
    const bool loaded = m_host->LoadPlugin();
    m_host->Mel("runTimeCommand -e -delete tarnwickEditor2");
    QVERIFY(!loaded);
    const QStringList errors = m_host->Errors();
    QVERIFY2(errors.value(0).startsWith("Failed to register 'tarnwickEditor2' command: "),
        qPrintable(errors.join('\n')));
    // Nothing that comes after the failed step was done.
    QVERIFY(!m_host->MelResult("qhGetScriptEditorButtonName()").isEmpty());
}

void CommandTest::UnloadedModuleIsGone()
{
    const auto isMapped = [] {
        QFile maps("/proc/self/maps");
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("/TarnwickEditor2.so");
    };
    QVERIFY(m_host->Mel("tarnwickEditor2"));
    QVERIFY(isMapped());
    QVERIFY(m_host->Mel("unloadPlugin TarnwickEditor2"));
    QVERIFY(!isMapped());
    // What the toolkit keeps of fonts and files must not point into the module.
    QVERIFY(QFontMetrics(QFont("Liberation Mono", 9)).height() > 0);
    QVERIFY(m_host->LoadPlugin() && m_host->Mel("tarnwickEditor2"));
    QVERIFY(EditorWindow());
}

/// The host without windows.
class BatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void InertButForTheClipboard();
};

void BatchTest::InertButForTheClipboard()
{
    HostSession host(host::RunState::Batch);
    QVERIFY(host.LoadPlugin());
    QCOMPARE(host.MelResult("exists tarnwickEditor2"), "0");
    QCOMPARE(host.MelResult("exists qhGetMelInfo"), "0");
    QVERIFY(!QFile::exists(host.PreferencesFolder() + "/tarnwickEditor2"));
    QGuiApplication::clipboard()->setText("from the plug-in");
    QVERIFY(host.Mel("unloadPlugin TarnwickEditor2"));
    QVERIFY(QGuiApplication::clipboard()->text().isEmpty());
    QCOMPARE(host.Errors(), QStringList());
}

TE2_TEST(CommandTest)
TE2_TEST(BatchTest)
#include "CommandTest.moc"
