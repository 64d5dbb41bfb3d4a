#include "files/FileTasks.h"

#include "files/Trash.h"
#include "support/Rows.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

/// What is done to files besides reading and writing, and the trash.
class FileTasksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { qputenv("XDG_DATA_HOME", m_dataHome); }
    void MovesWithoutLosingAnything_data();
    void MovesWithoutLosingAnything();
    void TheTrashKeepsEverything();
    void WithoutTrashThingsStay_data();
    void WithoutTrashThingsStay();
    void RemovesLinksNotWhatTheyLeadTo();

private:
    QString Path(const QString& name) const { return m_directory->filePath(name); }
    void Make(const QString& name, const QByteArray& text = "text") const;
    QByteArray Content(const QString& name) const;

    std::unique_ptr<QTemporaryDir> m_directory;
    QByteArray m_dataHome;
};

void FileTasksTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_dataHome = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", Path("data").toLocal8Bit());
}

void FileTasksTest::Make(const QString& name, const QByteArray& text) const
{
    QVERIFY(QDir().mkpath(QFileInfo(Path(name)).path()));
    QFile file(Path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray FileTasksTest::Content(const QString& name) const
{
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void FileTasksTest::MovesWithoutLosingAnything_data()
{
    Columns<QString, QString, bool>("from", "to", "moved");
    Row("file", "a", "b", true);
    Row("file into a folder", "a", "in/a", true);
    Row("folder", "in", "out", true);
    Row("over a file", "a", "in/taken", false);
    Row("over a folder", "a", "in", false);
    Row("folder over an empty one", "in", "empty", false);
    Row("over a link to nowhere", "a", "nowhere", false);
    Row("into itself", "in", "in/in", false);
    Row("vanished", "gone", "b", false);
    Row("no such folder", "a", "gone/a", false);
}

void FileTasksTest::MovesWithoutLosingAnything()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(bool, moved);
    Make("a");
    Make("in/taken", "other");
    QVERIFY(QDir().mkdir(Path("empty")));
    QVERIFY(QFile::link("void", Path("nowhere")));
    const bool wasThere = QFileInfo::exists(Path(from));
    QString reason;
    QCOMPARE(FileTasks::Move(Path(from), Path(to), reason), moved);
    QCOMPARE(reason.isEmpty(), moved);
    QCOMPARE(QFileInfo::exists(Path(from)), wasThere && !moved);
    if (moved)
        QVERIFY(QFileInfo::exists(Path(to)));
    else
        QCOMPARE(Content("in/taken"), QByteArray("other"));
    QVERIFY(moved || QFileInfo(Path("nowhere")).isSymLink());
}

void FileTasksTest::TheTrashKeepsEverything()
{
    const QString name = QString::fromUtf8("r\xc3\xbc %2.py");
    for (const char* text : {"first", "second"}) {
        Make(name, text);
        QVERIFY(Trash::Take(Path(name)));
        QVERIFY(!QFileInfo::exists(Path(name)));
    }
    QCOMPARE(Content("data/Trash/files/" + name), QByteArray("first"));
    QCOMPARE(Content("data/Trash/files/" + name + ".2"), QByteArray("second"));
    // What desktops put things back by.
    const QByteArray info = Content("data/Trash/info/" + name + ".2.trashinfo");
    QVERIFY(info.startsWith("[Trash Info]\nPath=/"));
    QVERIFY(info.contains("/r%C3%BC%20%252.py\nDeletionDate=2"));
    Make("in/deep/x");
    QVERIFY(QFile::link(Path("in"), Path("link")));
    QVERIFY(Trash::Take(Path("link")));
    QCOMPARE(Content("in/deep/x"), QByteArray("text"));
    QVERIFY(Trash::Take(Path("in")));
    QCOMPARE(Content("data/Trash/files/in/deep/x"), QByteArray("text"));
}

void FileTasksTest::WithoutTrashThingsStay_data()
{
    Columns<QString, QString>("obstacle", "name");
    Row("a file where the data is kept", "data", "a");
    Row("a file in place of the trash", "data/Trash", "a");
    Row("a file in place of its files", "data/Trash/files", "a");
    Row("nothing to take", "", "gone");
}

void FileTasksTest::WithoutTrashThingsStay()
{
    QFETCH(QString, obstacle);
    QFETCH(QString, name);
    Make("a");
    if (!obstacle.isEmpty())
        Make(obstacle);
    const QStringList before = QDir::current().entryList();
    QVERIFY(!Trash::Take(Path(name)));
    QCOMPARE(Content("a"), QByteArray("text"));
    // Nor does anything go to wherever the program happens to be.
    QCOMPARE(QDir::current().entryList(), before);
}

void FileTasksTest::RemovesLinksNotWhatTheyLeadTo()
{
    Make("kept/x");
    Make("in/deep/y");
    QVERIFY(QFile::link(Path("kept"), Path("in/link")));
    QVERIFY(QFile::link(Path("kept"), Path("link")));
    QString reason;
    QVERIFY(FileTasks::Remove(Path("in"), reason));
    QVERIFY(FileTasks::Remove(Path("link"), reason));
    QVERIFY(!QFileInfo::exists(Path("in")) && !QFileInfo(Path("link")).isSymLink());
    QCOMPARE(Content("kept/x"), QByteArray("text"));
    QVERIFY(!FileTasks::Remove(Path("gone"), reason));
    QVERIFY(!reason.isEmpty());
}

TE2_TEST(FileTasksTest)
#include "FileTasksTest.moc"
