#include "files/SafeFile.h"

#include "files/InterruptedSave.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <functional>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr uid_t NOBODY = 65534;
constexpr int BYTES_AT_MOST = 64 * 1024;

/// In a process of its own: what it gives up is not given up here.
pid_t Start(const std::function<bool()>& task)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(task() ? 0 : 1);
    return child;
}

bool Ends(pid_t child)
{
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool StopBeingRoot()
{
    return ::geteuid() != 0 || (::setgid(NOBODY) == 0 && ::setuid(NOBODY) == 0);
}

/// A disk that has no more room stands behind every file.
bool LimitFiles()
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {BYTES_AT_MOST, BYTES_AT_MOST};
    return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

bool Write(const QString& path, const QByteArray& bytes)
{
    QString reason;
    const bool written = SafeFile::Write(path, bytes, reason);
    return written == reason.isEmpty() && written;
}

const char* const ACCESS_LIST = "system.posix_acl_access";

/// As the kernel takes it: the owner, the group and everybody else, and a second user besides.
QByteArray MakeAccessList()
{
    constexpr quint32 NO_ID = 0xffffffff;
    const struct
    {
        quint16 tag;
        quint16 permissions;
        quint32 id;
    } ENTRIES[] = {{1, 7, NO_ID}, {2, 6, 4711}, {4, 5, NO_ID}, {16, 7, NO_ID}, {32, 1, NO_ID}};
    QByteArray list("\2\0\0\0", 4); // the version
    for (const auto& entry : ENTRIES)
        list.append(reinterpret_cast<const char*>(&entry), sizeof entry);
    return list;
}

bool SetAttribute(const QByteArray& path, const char* name, const QByteArray& value)
{
    return ::setxattr(path, name, value.constData(), static_cast<size_t>(value.size()), 0) == 0;
}

QByteArray Attribute(const QByteArray& path, const char* name)
{
    QByteArray value(256, '\0');
    const ssize_t size = ::getxattr(path, name, value.data(), static_cast<size_t>(value.size()));
    return value.left(static_cast<int>(size));
}

/// Saves one text after the other, and is killed after so many microseconds.
void SaveUntilKilled(const QString& path, const QByteArray (&texts)[2], unsigned life)
{
    const pid_t child = Start([&] {
        for (int i = 0;; ++i)
            Write(path, texts[i % 2]);
        return true;
    });
    ::usleep(life);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
}

struct stat State(const QString& path)
{
    struct stat state = {};
    ::lstat(path.toUtf8().constData(), &state);
    return state;
}

} // namespace

class SafeFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void WritesNewAndOldFiles_data();
    void WritesNewAndOldFiles();
    void KeepsWhatAFileIs();
    void KeepsLinks_data();
    void KeepsLinks();
    void WritesInPlaceWhereTheFolderIsClosed();
    void AFailureLeavesTheOldFile_data();
    void AFailureLeavesTheOldFile();
    void ADeviceThatIsFullFails();
    void AKilledProcessLeavesOldOrNew();
    void ASaveInPlaceIsFinishedAfterAKill();
    void OnlyTornFilesAreMended_data();
    void OnlyTornFilesAreMended();

private:
    QString Path(const QString& name) const { return m_folder->filePath(name); }
    QByteArray Content(const QString& name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    void MakeFile(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QStringList Names() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void SafeFileTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    // Whoever the tests become may come in.
    QCOMPARE(::chmod(m_folder->path().toUtf8().constData(), 0777), 0);
}

void SafeFileTest::WritesNewAndOldFiles_data()
{
    Columns<QString, QByteArray>("name", "bytes");
    Row("empty", "a", QByteArray());
    Row("any byte", "a", QByteArray("\0\r\n\xff", 4));
    Row("large", "a", QByteArray(3000000, 'x'));
    Row("longest name", QString(255, 'a'), QByteArray("x"));
    Row("no plain name", QString::fromUtf8(" \xc3\xa9 %1 *"), QByteArray("x"));
}

void SafeFileTest::WritesNewAndOldFiles()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QVERIFY(Write(Path(name), bytes));
    QCOMPARE(Content(name), bytes);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    QCOMPARE(State(Path(name)).st_mode & 07777, 0666 & ~mask);
    QVERIFY(Write(Path(name), "second"));
    QCOMPARE(Content(name), "second");
    QCOMPARE(Names(), QStringList(name));
}

void SafeFileTest::KeepsWhatAFileIs()
{
    QVERIFY(Write(Path("a"), "old"));
    const QByteArray path = Path("a").toUtf8();
    const bool isRoot = ::geteuid() == 0;
    if (isRoot)
        QCOMPARE(::chown(path, NOBODY, NOBODY), 0);
    QCOMPARE(::chmod(path, 04751), 0);
    const bool hasAttribute = SetAttribute(path, "user.te2", "mine");
    const bool hasAccessList = SetAttribute(path, ACCESS_LIST, MakeAccessList());
    const struct stat before = State(path);
    QVERIFY(Write(path, "new"));
    const struct stat after = State(path);
    QVERIFY2(after.st_ino != before.st_ino, "replaced, not written over");
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_gid, before.st_gid);
    if (hasAttribute)
        QCOMPARE(Attribute(path, "user.te2"), "mine");
    if (hasAccessList)
        QCOMPARE(Attribute(path, ACCESS_LIST), MakeAccessList());
    // Who cannot give the file away again leaves it where it is.
    if (isRoot) {
        QCOMPARE(::chmod(path, 0666), 0);
        QCOMPARE(::chown(path, 0, 0), 0);
        QVERIFY(Ends(Start([&] { return StopBeingRoot() && Write(path, "of nobody"); })));
        QCOMPARE(State(path).st_uid, uid_t(0));
        QCOMPARE(Content("a"), "of nobody");
        QCOMPARE(State(path).st_ino, after.st_ino);
    }
    QCOMPARE(Names(), QStringList("a"));
}

void SafeFileTest::KeepsLinks_data()
{
    // "target": of a symbolic link; empty: a hard link
    Columns<QString, QString>("target", "file");
    Row("hard link", "", "a");
    Row("symbolic link", "a", "a");
    Row("over another one", "second", "a");
    Row("out of a linked folder", "linked/../a", "inner/a");
    Row("to nothing yet", "new", "new");
}

void SafeFileTest::KeepsLinks()
{
    QFETCH(QString, target);
    QFETCH(QString, file);
    QVERIFY(QDir(m_folder->path()).mkpath("inner/most"));
    QVERIFY(QFile::link("inner/most", Path("linked")));
    QVERIFY(Write(Path("a"), "old") && Write(Path("inner/a"), "old"));
    QVERIFY(QFile::link(Path("a"), Path("second")));
    if (target.isEmpty())
        QCOMPARE(::link(Path("a").toUtf8(), Path("link").toUtf8()), 0);
    else
        QVERIFY(QFile::link(target, Path("link")));
    const struct stat before = State(Path("link"));
    QVERIFY(Write(Path("link"), "new"));
    QCOMPARE(State(Path("link")).st_ino, before.st_ino);
    QCOMPARE(Content(file), "new");
    QCOMPARE(Content("link"), "new");
    QCOMPARE(State(Path("link")).st_nlink, before.st_nlink);
}

void SafeFileTest::WritesInPlaceWhereTheFolderIsClosed()
{
    const QString folder = Path("closed");
    QVERIFY(QDir().mkdir(folder) && Write(folder + "/a", "a longer old text"));
    QCOMPARE(::chmod((folder + "/a").toUtf8(), 0666), 0);
    QCOMPARE(::chmod(folder.toUtf8(), 0555), 0);
    const auto task = [&] {
        return StopBeingRoot() && Write(folder + "/a", "new") && !Write(folder + "/b", "new");
    };
    QVERIFY(Ends(Start(task)));
    QCOMPARE(Content("closed/a"), "new");
    QVERIFY(!QFile::exists(folder + "/b"));
    QCOMPARE(::chmod(folder.toUtf8(), 0755), 0);
}

void SafeFileTest::AFailureLeavesTheOldFile_data()
{
    Columns<QString, int, int>("name", "permissions", "size");
    Row("disk full", "a", 0666, BYTES_AT_MOST + 1);
    Row("disk full in place", "second name", 0666, BYTES_AT_MOST + 1);
    Row("read-only", "a", 0444, 3);
    Row("vanished folder", "gone/a", 0666, 3);
    Row("folder", "folder", 0666, 3);
}

void SafeFileTest::AFailureLeavesTheOldFile()
{
    QFETCH(QString, name);
    QFETCH(int, permissions);
    QFETCH(int, size);
    QVERIFY(QDir(m_folder->path()).mkdir("folder"));
    QVERIFY(Write(Path("a"), "old"));
    QCOMPARE(::chmod(Path("a").toUtf8(), permissions), 0);
    if (name == "second name")
        QCOMPARE(::link(Path("a").toUtf8(), Path(name).toUtf8()), 0);
    const QStringList before = Names();
    const auto task = [&] {
        return StopBeingRoot() && LimitFiles() && !Write(Path(name), QByteArray(size, 'x'));
    };
    QVERIFY(Ends(Start(task)));
    QCOMPARE(Content("a"), "old");
    QCOMPARE(Names(), before);
}

void SafeFileTest::ADeviceThatIsFullFails()
{
    QVERIFY2(QFile::exists("/dev/full"), "a device that is always full stands in for the disk");
    QString reason;
    QVERIFY(!SafeFile::Write("/dev/full", "x", reason));
    QCOMPARE(reason, qt_error_string(ENOSPC));
    QVERIFY(Write("/dev/null", "x"));
    QVERIFY(S_ISCHR(State("/dev/null").st_mode));
}

void SafeFileTest::AKilledProcessLeavesOldOrNew()
{
    constexpr int ROUNDS = 40;
    constexpr int LONGEST_LIFE = 30 * 1000; // microseconds
    const QByteArray texts[] = {QByteArray(2000000, 'a'), QByteArray(1000000, 'b')};
    std::minstd_rand random(4711);
    // A process cleans a folder once: this one has to leave that to the others.
    MakeFile("a", texts[0]);
    MakeFile(".b.te2-save-x", "");
    int leftovers = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        SaveUntilKilled(Path("a"), texts, random() % LONGEST_LIFE);
        const QByteArray content = Content("a");
        QVERIFY(content == texts[0] || content == texts[1]);
        leftovers = qMax(leftovers, Names().size() - 2);
    }
    QVERIFY2(leftovers > 0, "nobody was killed in the middle of writing");
    // The next process cleans up, and takes nothing that is not ours.
    QVERIFY(Ends(Start([&] { return Write(Path("a"), "c"); })));
    QCOMPARE(Names(), (QStringList{".b.te2-save-x", "a"}));
}

void SafeFileTest::ASaveInPlaceIsFinishedAfterAKill()
{
    constexpr int ROUNDS = 20;
    constexpr int LONGEST_LIFE = 60 * 1000; // microseconds
    const QByteArray texts[] = {QByteArray(4000000, 'a'), QByteArray(3000000, 'b')};
    std::minstd_rand random(4711);
    InterruptedSave::SetFolder(Path("saves"));
    MakeFile("a", texts[0]);
    QCOMPARE(::link(Path("a").toUtf8(), Path("second name").toUtf8()), 0);
    for (int round = 0; round < ROUNDS; ++round) {
        SaveUntilKilled(Path("a"), texts, random() % LONGEST_LIFE);
        const QByteArray torn = Content("a");
        // Seldom torn: the kernel finishes most of what it has begun.
        const bool isMended = !InterruptedSave::FinishAll().isEmpty();
        QCOMPARE(isMended, torn != texts[0] && torn != texts[1]);
        const QByteArray content = Content("a");
        QVERIFY(content == texts[0] || content == texts[1]);
    }
    QVERIFY(Write(Path("a"), "c"));
    InterruptedSave::SetFolder(QString());
    QCOMPARE(Names(), (QStringList{"a", "second name"}));
    QVERIFY2(!QFile::exists(Path("saves")), "everything is done");
}

void SafeFileTest::OnlyTornFilesAreMended_data()
{
    Columns<QByteArray, QByteArray>("found", "expected");
    Row("the start is new", QByteArray("new contold"), QByteArray("new content!"));
    Row("put back half way", QByteArray("old contentld"), QByteArray("old contentld"));
    Row("longer than both", QByteArray("new content! and"), QByteArray("new content! and"));
    Row("shorter than both", QByteArray("new"), QByteArray("new"));
    Row("somebody else's", QByteArray("something"), QByteArray("something"));
}

void SafeFileTest::OnlyTornFilesAreMended()
{
    QFETCH(QByteArray, found);
    QFETCH(QByteArray, expected);
    InterruptedSave::SetFolder(Path("saves"));
    const auto dies = [&] {
        InterruptedSave save(Path("a").toUtf8(), "old old old", "new content!");
        ::_exit(0);
        return true;
    };
    QVERIFY(Ends(Start(dies)));
    MakeFile("a", found);
    const bool isMended = !InterruptedSave::FinishAll().isEmpty();
    InterruptedSave::SetFolder(QString());
    QCOMPARE(isMended, found != expected);
    QCOMPARE(Content("a"), expected);
}

TE2_TEST(SafeFileTest)
#include "SafeFileTest.moc"
