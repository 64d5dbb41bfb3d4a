#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "files/RecoveryFile.h"
#include "files/RecoveryStore.h"
#include "files/SessionLock.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/explorer/WorkspaceView.h"
#include "window/FilesFixture.h"
#include "window/RecoveryNotice.h"

#include <QtTest>

#include <memory>

/// A second host on the same preferences.
class GuestSessionTest : public QObject, private FilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup();
    void LeavesTheConfigurationAlone();
    void LeavesTheWorkspaceAlone();
    void BuffersComeBack_data();
    void BuffersComeBack();
    void IsNotOfferedTheBuffersOfOthers();

private:
    void StartAgain();
    void StartAsGuest();
    QByteArray Configuration() const { return Content(Settings::GetUserConfigPath()); }

    std::unique_ptr<SessionLock> m_other;
};

void GuestSessionTest::cleanup()
{
    m_other.reset();
    QVERIFY(Finish());
}

void GuestSessionTest::StartAgain()
{
    DeleteWindow();
    Settings::ResetToDefaults();
    Settings::ReadUserConfig();
    CreateWindow();
}

void GuestSessionTest::StartAsGuest()
{
    m_window->Shutdown();
    DeleteWindow();
    m_other = std::make_unique<SessionLock>(Settings::GetUserConfigDirectory());
    QVERIFY(m_other->IsOwner());
    StartAgain();
}

void GuestSessionTest::LeavesTheConfigurationAlone()
{
    OpenFile("owner.py");
    NewBuffer("the owner's");
    const QStringList owned = m_window->GetCodeEditorPaths();
    TakeLog(host::MessageType::Warning);
    StartAsGuest();
    const QStringList warnings = TakeLog(host::MessageType::Warning);
    QCOMPARE(warnings.size(), 1);
    QVERIFY(warnings[0].startsWith("Another session"));
    QCOMPARE(Labels(), QStringList({"MEL", "Python"}));
    const QByteArray configuration = Configuration();
    const QStringList backing = BackingFiles();
    QCOMPARE(backing.size(), 3);
    OpenFile("closed.py");
    m_window->CloseFile();
    OpenFile("open.py");
    m_window->ToggleWordWrap();
    m_window->SaveState();
    QCOMPARE(Configuration(), configuration);
    m_window->Shutdown();
    DeleteWindow();
    // Its empty buffers are gone, nobody else's.
    QCOMPARE(BackingFiles(), QStringList(QFileInfo(owned[1]).fileName()));
    m_other.reset();
    StartAgain();
    QCOMPARE(m_window->GetCodeEditorPaths(), owned);
    QCOMPARE(Settings::recentFiles, QStringList({Path("open.py"), Path("closed.py")}));
    QVERIFY(!Settings::wordWrapEnabled);
}

void GuestSessionTest::LeavesTheWorkspaceAlone()
{
    const QString shared = Settings::GetDefaultWorkspacePath();
    const auto view = [this] { return m_window->findChild<WorkspaceView*>(); };
    view()->AddFolder(Path(""));
    const QByteArray before = Content(shared);
    QVERIFY(before.contains("folders"));
    StartAsGuest();
    view()->AddFolder("/tmp");
    m_window->Shutdown();
    QCOMPARE(Content(shared), before);
    // What it makes itself is its own.
    const QString own = Path("own.te2-workspace");
    view()->SaveWorkspaceAs(own);
    view()->RemoveFolder("/tmp");
    QVERIFY(!Content(own).contains("/tmp"));
    QFile::remove(shared);
}

void GuestSessionTest::BuffersComeBack_data()
{
    Columns<bool, bool>("ends", "asGuest");
    Row("at the owner's next start", true, false);
    Row("after a crash", false, false);
    Row("in the next guest", true, true);
}

void GuestSessionTest::BuffersComeBack()
{
    QFETCH(bool, ends);
    QFETCH(bool, asGuest);
    OpenFile("owner.py");
    StartAsGuest();
    CodeEditor* const editor = NewBuffer("the guest's");
    const QString path = editor->GetFilePath();
    m_dialogs.Type("kept");
    m_window->Rename();
    m_window->SaveAll(true, false);
    if (ends)
        m_window->Shutdown();
    DeleteWindow();
    if (!asGuest)
        m_other.reset();
    StartAgain();
    QVERIFY(m_window->CodeEditorExists(path));
    QCOMPARE(m_window->CodeEditorExists(Path("owner.py")), !asGuest);
    QCOMPARE(m_window->GetCodeEditor(path)->GetText(), "the guest's");
    QCOMPARE(m_window->GetCodeEditor(path)->GetLabel(), "kept");
    // From now on it is this session's own.
    const QStringList paths = m_window->GetCodeEditorPaths();
    m_other.reset();
    if (!asGuest) {
        QVERIFY(!QDir(Settings::GetUserConfigDirectory() + "/sessions").exists());
        StartAgain();
        QCOMPARE(m_window->GetCodeEditorPaths(), paths);
    }
}

void GuestSessionTest::IsNotOfferedTheBuffersOfOthers()
{
    const QString buffer = NewBuffer("the owner's")->GetFilePath();
    StartAsGuest();
    {
        RecoveryStore store(Settings::GetUserConfigDirectory() + "/recovery");
        RecoverySnapshot snapshot;
        snapshot.text = "unsaved";
        snapshot.time = QDateTime::currentDateTime();
        snapshot.properties = {CodeEditorType::Buffer, CodeEditorLanguage::Python, buffer, "mine"};
        QVERIFY(store.Write(1, snapshot, RecoveryFile::Wait::No));
    }
    StartAgain();
    QVERIFY(!m_window->findChild<RecoveryNotice*>());
    m_other.reset();
    StartAgain();
    QVERIFY(m_window->findChild<RecoveryNotice*>());
}

TE2_TEST(GuestSessionTest)
#include "GuestSessionTest.moc"
