#include "settings/FakeHost.h"
#include "settings/Settings.h"
#include "settings/SettingsFixture.h"
#include "support/TestMain.h"

#include <QFile>
#include <QSettings>
#include <QtTest>

#include <memory>

/// Places, recent files and the encodings of expanded trees.
class SettingsStateTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_files = std::make_unique<SettingsFixture>(); }
    void DirectoriesAreMadeWhenAskedFor();
    void DirectoryThatCannotBeMadeIsToldAndGivenAllTheSame();
    void WorkspacePath_data();
    void WorkspacePath();
    void EmptyWorkspaceMeansTheDefaultOne();
    void RecentFilesAreOrderedAndTrimmed();
    void RecentFileIsWrittenAtOnce();
    void RecentFilesOfOthersAreTakenIn();
    void AnotherOwnersFileGetsRecentFilesAlone();
    void RecentFileCount_data();
    void RecentFileCount();
    void FolderHashesAreCutIntoSixteenBytes();
    void OutlineKeepsSeveralValuesOfAKey();

private:
    static void WriteRecentFiles(const QStringList& paths);

    std::unique_ptr<SettingsFixture> m_files;
};

void SettingsStateTest::DirectoriesAreMadeWhenAskedFor()
{
    const QString base = m_files->ConfigDirectory();
    QCOMPARE(Settings::GetInternalBufferDirectoryPath(), base + "/internalBuffers");
    QCOMPARE(Settings::GetTempDirectoryPath(), base + "/temp");
    QCOMPARE(Settings::GetDefaultWorkspacePath(), base + "/workspaces/default.te2-workspace");
    for (const char* name : {"internalBuffers", "temp", "workspaces"})
        QVERIFY(QDir(base + '/' + name).exists());
    QVERIFY(FakeHost::errors.isEmpty());
    // A path without a closing slash is the same place.
    FakeHost::prefsDirectory.chop(1);
    QCOMPARE(Settings::GetUserConfigDirectory(), base);
}

void SettingsStateTest::DirectoryThatCannotBeMadeIsToldAndGivenAllTheSame()
{
    QFile obstacle(m_files->ConfigDirectory());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    QCOMPARE(Settings::GetUserConfigDirectory(), m_files->ConfigDirectory());
    QCOMPARE(FakeHost::errors, QStringList{"Failed to create user config directory"});
    Settings::GetWorkspacesDirectoryPath();
    QCOMPARE(FakeHost::errors.last(), "Failed to create workspaces directory");
}

void SettingsStateTest::WorkspacePath_data()
{
    // "path": "%1" stands for the workspaces folder
    Columns<QString, QString>("path", "stored");
    Row("in our folder", "%1/mine.te2-workspace", "mine.te2-workspace");
    Row("below our folder", "%1/sub/mine.te2-workspace", "sub/mine.te2-workspace");
    Row("elsewhere", "/somewhere/mine.te2-workspace", "/somewhere/mine.te2-workspace");
    Row("in a folder that begins alike", "%1other/mine.te2-workspace",
        "%1other/mine.te2-workspace");
    Row("percent signs", "%1/100%2.te2-workspace", "100%2.te2-workspace");
    Row("none", "", "");
}

void SettingsStateTest::WorkspacePath()
{
    QFETCH(QString, path);
    QFETCH(QString, stored);
    const QString folder = Settings::GetWorkspacesDirectoryPath();
    path.replace("%1", folder);
    stored.replace("%1", folder);
    Settings::workspacePath = path;
    Settings::WriteUserConfig();
    QCOMPARE(m_files->WrittenValue("workspacePath"), stored);
    Settings::workspacePath = "/changed";
    Settings::ReadUserConfig();
    QCOMPARE(Settings::workspacePath, path);
}

void SettingsStateTest::EmptyWorkspaceMeansTheDefaultOne()
{
    QCOMPARE(Settings::GetWorkspacePath(), Settings::GetDefaultWorkspacePath());
    Settings::workspacePath = "/mine";
    QCOMPARE(Settings::GetWorkspacePath(), "/mine");
}

void SettingsStateTest::RecentFilesAreOrderedAndTrimmed()
{
    for (int i = 1; i <= 9; ++i)
        Settings::AddRecentFile(QString("/%1.mel").arg(i));
    QCOMPARE(Settings::recentFiles.size(), 8);
    QCOMPARE(Settings::recentFiles.first(), "/9.mel");
    QCOMPARE(Settings::recentFiles.last(), "/2.mel");
    Settings::AddRecentFile("/4.mel");
    Settings::AddRecentFile("");
    QCOMPARE(Settings::recentFiles.mid(0, 2), QStringList({"/4.mel", "/9.mel"}));
    QCOMPARE(Settings::recentFiles.size(), 8);
    // Another case is another file.
    Settings::AddRecentFile("/4.MEL");
    QCOMPARE(Settings::recentFiles.mid(0, 2), QStringList({"/4.MEL", "/4.mel"}));
}

void SettingsStateTest::RecentFileIsWrittenAtOnce()
{
    Settings::AddRecentFile("/one.mel");
    QCOMPARE(m_files->WrittenValue("recentFiles"), "/one.mel");
}

/// As another process would.
void SettingsStateTest::WriteRecentFiles(const QStringList& paths)
{
    QSettings ini(Settings::GetUserConfigPath(), QSettings::IniFormat);
    ini.setValue("main/recentFiles", paths);
}

void SettingsStateTest::RecentFilesOfOthersAreTakenIn()
{
    Settings::ReadUserConfig();
    Settings::AddRecentFile("/ours");
    WriteRecentFiles({"/theirs", "/ours"});
    Settings::AddRecentFile("/new");
    QCOMPARE(Settings::recentFiles, QStringList({"/new", "/theirs", "/ours"}));
    // What was cleared stays away; what came meanwhile was not meant.
    Settings::ClearRecentFiles();
    WriteRecentFiles({"/later", "/new", "/theirs", "/ours"});
    Settings::WriteUserConfig();
    QCOMPARE(m_files->WrittenValue("recentFiles"), "/later");
    Settings::ClearRecentFiles();
    Settings::WriteUserConfig();
    QVERIFY(Settings::recentFiles.isEmpty());
}

void SettingsStateTest::AnotherOwnersFileGetsRecentFilesAlone()
{
    WriteRecentFiles({"/before"});
    Settings::ReadUserConfig();
    Settings::ownsUserConfig = false;
    Settings::wordWrapEnabled = true;
    Settings::AddRecentFile("/ours");
    Settings::WriteUserConfig();
    QCOMPARE(m_files->WrittenValue("recentFiles"), "/before");
    WriteRecentFiles({"/theirs", "/before"});
    Settings::MergeRecentFiles();
    QCOMPARE(m_files->WrittenValue("recentFiles"), "/ours, /theirs, /before");
    QVERIFY(m_files->WrittenValue("wordWrapEnabled").isNull());
}

void SettingsStateTest::RecentFileCount_data()
{
    Columns<int, int>("count", "length");
    Row("none", 0, 0);
    Row("some", 3, 3);
    Row("most", 10, 10);
    Row("too many", 11, 8);
    Row("negative", -1, 8);
}

void SettingsStateTest::RecentFileCount()
{
    QFETCH(int, count);
    for (int i = 0; i < 12; ++i)
        Settings::recentFiles += QString::number(i);
    Settings::UpdateRecentFiles(count);
    QTEST(Settings::numRecentFiles, "length");
    QTEST(int(Settings::recentFiles.size()), "length");
    if (!Settings::recentFiles.isEmpty())
        QCOMPARE(Settings::recentFiles.first(), "0");
}

void SettingsStateTest::FolderHashesAreCutIntoSixteenBytes()
{
    const QByteArray first(16, 'a');
    const QByteArray second(16, '\0');
    Settings::RestoreWorkspaceState(first + second + "rest");
    QCOMPARE(Settings::workspaceExpandedFolderHashes,
        QList<QByteArray>({first, second, QByteArray("rest")}));
    QCOMPARE(Settings::GetWorkspaceState(), first + second + "rest");
    Settings::RestoreWorkspaceState(QByteArray());
    QVERIFY(Settings::workspaceExpandedFolderHashes.isEmpty());
}

void SettingsStateTest::OutlineKeepsSeveralValuesOfAKey()
{
    Settings::outlineExpandedHash.insert("/a.py", "A");
    Settings::outlineExpandedHash.insert("/a.py", "AB");
    Settings::outlineExpandedHash.insert("/b.py", "C");
    const QMultiHash<QString, QString> before = Settings::outlineExpandedHash;
    const QByteArray state = Settings::GetOutlineExpandedState();
    QCOMPARE(state.left(4), QByteArray("\0\0\0\3", 4));
    Settings::outlineExpandedHash.clear();
    Settings::RestoreOutlineExpandedState(state);
    QCOMPARE(Settings::outlineExpandedHash, before);
}

TE2_TEST(SettingsStateTest)
#include "SettingsStateTest.moc"
