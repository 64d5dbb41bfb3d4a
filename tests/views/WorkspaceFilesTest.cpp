#include "views/goto/WorkspaceFiles.h"

#include "settings/Settings.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class WorkspaceFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_folder.reset(); }
    void cleanupTestCase() { Settings::ResetToDefaults(); }
    void ListsLevelByLevel();
    void LeavesOutWhatNobodySeeks();
    void ReadsWhereManyLinksLeadOnce();
    void StopsAtTheMaximum();
    void LargeFoldersLeaveRoomForOthers();
    void RenewsTheList();
    void PausesAndGoesOn();

private:
    void Make(const QString& path) const;
    /// The paths below the folder, after a gathering.
    QStringList Gather(bool* changed = nullptr);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<WorkspaceFiles> m_files;
};

void WorkspaceFilesTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_files = std::make_unique<WorkspaceFiles>(nullptr);
    Settings::workspaceFolders = QStringList{m_folder->path()};
    Settings::pythonHideCompiledFiles = true;
}

void WorkspaceFilesTest::Make(const QString& path) const
{
    const QString whole = m_folder->filePath(path);
    QDir().mkpath(QFileInfo(whole).path());
    QFile file(whole);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

QStringList WorkspaceFilesTest::Gather(bool* changed)
{
    QSignalSpy finished(m_files.get(), &WorkspaceFiles::Finished);
    m_files->MarkOutdated();
    m_files->Start();
    if (!QTest::qWaitFor([&] { return !finished.isEmpty(); }, 30000))
        return {"is still gathering"};
    if (changed)
        *changed = finished.value(0).value(0).toBool();
    QStringList paths;
    for (const GoToEntry& entry : m_files->GetEntries())
        paths += QString(entry.target).remove(m_folder->path() + '/');
    return paths;
}

void WorkspaceFilesTest::ListsLevelByLevel()
{
    for (const char* path : {"b/deep/a.py", "b/z.mel", "a/y.py", "B.txt", "a.txt", "A.txt"})
        Make(path);
    QCOMPARE(
        Gather(), QStringList({"A.txt", "a.txt", "B.txt", "a/y.py", "b/z.mel", "b/deep/a.py"}));
}

void WorkspaceFilesTest::LeavesOutWhatNobodySeeks()
{
    for (const char* path : {".git/config", "__pycache__/a.pyc", "a.PYC", "b.pyo", ".pylintrc"})
        Make(path);
    QCOMPARE(Gather(), QStringList({".pylintrc"}));
    Settings::pythonHideCompiledFiles = false;
    QCOMPARE(Gather(), QStringList({".pylintrc", "a.PYC", "b.pyo"}));
    Settings::workspaceFolders = QStringList{m_folder->filePath("missing")};
    QCOMPARE(Gather(), QStringList());
}

void WorkspaceFilesTest::ReadsWhereManyLinksLeadOnce()
{
    QTemporaryDir elsewhere;
    Make("real/a.py");
    QFile::link(m_folder->path(), m_folder->filePath("real/upwards"));
    QFile::link(m_folder->filePath("real"), m_folder->filePath("again"));
    QFile::link(elsewhere.path(), m_folder->filePath("first"));
    QFile::link(elsewhere.path(), m_folder->filePath("second"));
    QVERIFY(QFile(elsewhere.filePath("b.py")).open(QIODevice::WriteOnly));
    const QStringList paths = Gather();
    QCOMPARE(paths.size(), 2);
    QCOMPARE(paths[0], QString("real/a.py"));
    QVERIFY(paths[1] == "first/b.py" || paths[1] == "second/b.py");
}

void WorkspaceFilesTest::StopsAtTheMaximum()
{
    m_files = std::make_unique<WorkspaceFiles>(nullptr, 5);
    for (const char* path : {"a", "b", "c", "f/d", "f/e", "g/f", "g/g"})
        Make(path);
    QCOMPARE(Gather(), QStringList({"a", "b", "c", "f/d", "f/e"}));
    QVERIFY(m_files->IsCut());
    QVERIFY(QDir(m_folder->filePath("g")).removeRecursively());
    QCOMPARE(Gather().size(), 5);
    QVERIFY(!m_files->IsCut());
    // A folder that has too many by itself.
    for (const char* path : {"d", "e", "h"})
        Make(path);
    QCOMPARE(Gather().size(), 5);
    QVERIFY(m_files->IsCut());
}

void WorkspaceFilesTest::LargeFoldersLeaveRoomForOthers()
{
    m_files = std::make_unique<WorkspaceFiles>(nullptr, 20);
    for (char name = 'a'; name <= 'p'; ++name)
        Make(QByteArray("a/") + name);
    Make("b/x");
    Make("c/y");
    const QStringList paths = Gather();
    QCOMPARE(paths.mid(9, 4), QStringList({"a/j", "b/x", "c/y", "a/k"}));
    QCOMPARE(paths.size(), 18);
    QVERIFY(!m_files->IsCut());
}

void WorkspaceFilesTest::RenewsTheList()
{
    Make("a.py");
    bool changed = false;
    QCOMPARE(Gather(&changed), QStringList({"a.py"}));
    QVERIFY(changed);
    Gather(&changed);
    QVERIFY(!changed);
    Make("b.py");
    // What is known stays while it is renewed.
    m_files->MarkOutdated();
    m_files->Start();
    QCOMPARE(m_files->GetEntries().size(), 1);
    QCOMPARE(Gather(&changed), QStringList({"a.py", "b.py"}));
    QVERIFY(changed);
    // The files of another workspace are nobody's.
    Settings::workspaceFolders.clear();
    m_files->Start();
    QVERIFY(m_files->GetEntries().isEmpty());
}

void WorkspaceFilesTest::PausesAndGoesOn()
{
    Make("a.py");
    QSignalSpy finished(m_files.get(), &WorkspaceFiles::Finished);
    m_files->Start();
    m_files->Stop();
    QCoreApplication::processEvents();
    QVERIFY(finished.isEmpty() && m_files->IsGathering());
    m_files->Start();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(m_files->GetEntries().size(), 1);
}

TE2_TEST(WorkspaceFilesTest)
#include "WorkspaceFilesTest.moc"
