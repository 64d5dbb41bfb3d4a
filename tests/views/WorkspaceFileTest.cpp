#include "views/explorer/WorkspaceFile.h"

#include "support/TestMain.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

using Result = WorkspaceFile::Result;
Q_DECLARE_METATYPE(WorkspaceFile::Result)

class WorkspaceFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void Reads_data();
    void Reads();
    void KeepsWhatItDoesNotKnow();
    void StoresPathsBelowItselfRelative();
    void MovesWithItsFolder();
    void LeavesTheOldFileWhenWritingFails();

private:
    QString Path() const { return m_directory->filePath("some.te2-workspace"); }
    void WriteFile(const QByteArray& bytes) const;
    QJsonObject ReadObject() const;

    std::unique_ptr<QTemporaryDir> m_directory;
};

void WorkspaceFileTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
}

void WorkspaceFileTest::WriteFile(const QByteArray& bytes) const
{
    QFile file(Path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

QJsonObject WorkspaceFileTest::ReadObject() const
{
    QFile file(Path());
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                          : QJsonObject();
}

void WorkspaceFileTest::Reads_data()
{
    // "folders": "%1" is the file's folder
    Columns<QByteArray, Result, QStringList>("text", "result", "folders");
    const QStringList before = {"/before"};
    Row("plain", QByteArray(R"({"version": 1, "folders": ["/a", "/b/c"]})"), Result::Ok,
        QStringList{"/a", "/b/c"});
    Row("relative, not clean, twice",
        QByteArray(R"({"folders": ["tools/", "./tools", "tools/../rigs", "/a//b"]})"), Result::Ok,
        QStringList{"%1/tools", "%1/rigs", "/a/b"});
    Row("no folders yet", QByteArray("{}"), Result::Ok, QStringList());
    Row("entries that are none", QByteArray(R"({"folders": ["/a", 7, "", null, "/b"]})"),
        Result::Ok, QStringList{"/a", "/b"});
    Row("cut off", QByteArray(R"({"version": 1, "folders": ["/a")"), Result::Unreadable, before);
    Row("no object", QByteArray(R"(["/a"])"), Result::Unreadable, before);
    Row("folders of another kind", QByteArray(R"({"folders": "/a"})"), Result::Unreadable, before);
    Row("empty", QByteArray(""), Result::Unreadable, before);
    Row("missing", QByteArray(), Result::Missing, before);
}

void WorkspaceFileTest::Reads()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, folders);
    if (!text.isNull())
        WriteFile(text);
    WorkspaceFile file;
    file.SetFolders({"/before"});
    QTEST(file.Read(Path()), "result");
    QCOMPARE(file.GetFolders(), folders.replaceInStrings("%1", m_directory->path()));
}

void WorkspaceFileTest::KeepsWhatItDoesNotKnow()
{
    WriteFile(R"({"folders": [], "later": {"deep": [1, "two"]}, "name": "n"})");
    WorkspaceFile file;
    QCOMPARE(file.Read(Path()), Result::Ok);
    QVERIFY(!file.IsNewer());
    file.SetFolders({"/elsewhere"});
    QVERIFY(file.Write(Path()));
    const QJsonObject written = ReadObject();
    QCOMPARE(written.value("later").toObject().value("deep").toArray().size(), 2);
    QCOMPARE(written.value("name").toString(), "n");
    QCOMPARE(written.value("version").toInt(), 1);
    QCOMPARE(written.value("folders").toArray().first().toString(), "/elsewhere");
    WriteFile(R"({"version": 2, "folders": []})");
    QCOMPARE(file.Read(Path()), Result::Ok);
    QVERIFY(file.IsNewer());
}

void WorkspaceFileTest::StoresPathsBelowItselfRelative()
{
    const QString here = m_directory->path();
    WorkspaceFile file;
    const QStringList folders = {here + "/tools/deep", here, QFileInfo(here).path() + "/other",
        here + "-beside", "/" + QString::fromUtf8("\xc3\xbc"), here + "/..hidden"};
    file.SetFolders(folders);
    QVERIFY(file.Write(Path()));
    const QStringList stored = ReadObject().value("folders").toVariant().toStringList();
    QCOMPARE(
        stored, (QStringList{"tools/deep", ".", folders[2], folders[3], folders[4], "..hidden"}));
    WorkspaceFile again;
    QCOMPARE(again.Read(Path()), Result::Ok);
    QCOMPARE(again.GetFolders(), folders);
}

void WorkspaceFileTest::MovesWithItsFolder()
{
    QDir directory(m_directory->path());
    QVERIFY(directory.mkdir("one"));
    WorkspaceFile file;
    file.SetFolders({directory.filePath("one/tools"), "/fixed"});
    QVERIFY(file.Write(directory.filePath("one/w.te2-workspace")));
    QVERIFY(directory.rename("one", "two"));
    QCOMPARE(file.Read(directory.filePath("two/w.te2-workspace")), Result::Ok);
    QCOMPARE(file.GetFolders(), (QStringList{directory.filePath("two/tools"), "/fixed"}));
}

void WorkspaceFileTest::LeavesTheOldFileWhenWritingFails()
{
    WorkspaceFile file;
    file.SetFolders({"/a"});
    // A folder stands in the way.
    QVERIFY(QDir().mkdir(Path()));
    QVERIFY(!file.Write(Path()));
    QVERIFY(QFileInfo(Path()).isDir());
    QVERIFY(!file.Write(m_directory->filePath("no/such/folder/x")));
}

TE2_TEST(WorkspaceFileTest)
#include "WorkspaceFileTest.moc"
