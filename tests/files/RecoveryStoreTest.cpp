#include "files/RecoveryStore.h"

#include "files/FileText.h"
#include "files/RecoveryFile.h"
#include "files/RecoveryLeftovers.h"
#include "settings/FakeHost.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QtTest>

#include <sys/wait.h>
#include <unistd.h>

using RecoveryFile::Wait;

namespace {

RecoverySnapshot Snapshot(const QString& path, const QString& text)
{
    RecoverySnapshot snapshot;
    snapshot.properties = {CodeEditorType::File, CodeEditorLanguage::Python, path, "label; 'x'"};
    snapshot.group = 2;
    snapshot.cursorPosition = 7;
    snapshot.time = QDateTime::fromMSecsSinceEpoch(1700000000123, Qt::UTC);
    snapshot.baseFingerprint = QByteArray("\x00\xff\x01", 3);
    snapshot.text = text;
    return snapshot;
}

QByteArray Bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void SetBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

} // namespace

/// Snapshots on the disk: what comes back, from whom, and what is told from a snapshot.
class RecoveryStoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void SnapshotsComeBack_data();
    void SnapshotsComeBack();
    void WhatIsNoSnapshotIsToldFromOne_data();
    void WhatIsNoSnapshotIsToldFromOne();
    void EveryCutIsNoticed();
    void OnlyTheDeadLeaveSomething();
    void ADeadProcessIsFoundWhateverItsNumber_data();
    void ADeadProcessIsFoundWhateverItsNumber();
    void NothingStaysBehind();
    void WhatWasSavedIsNothingToRestore_data();
    void WhatWasSavedIsNothingToRestore();
    void BrokenOnesAreSetAside();
    void AClearedFolderIsMadeAnew();
    void TheNewestComesLast();

private:
    QString Folder() const { return m_directory->filePath("recovery"); }
    /// What another process leaves that ends without a word.
    void Leave(const QString& text);

    std::unique_ptr<QTemporaryDir> m_directory;
};

void RecoveryStoreTest::init()
{
    FakeHost::errors.clear();
    m_directory = std::make_unique<QTemporaryDir>();
}

void RecoveryStoreTest::Leave(const QString& text)
{
    const pid_t child = ::fork();
    if (child == 0) {
        RecoveryStore store(Folder());
        const bool written = store.Write(1, Snapshot("/a.py", text), Wait::ForDisk);
        ::_exit(written ? 0 : 1); // without destructors
    }
    int status = -1;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QCOMPARE(status, 0);
}

void RecoveryStoreTest::SnapshotsComeBack_data()
{
    Columns<QString, QString>("path", "text");
    Row("empty", "/a.py", "");
    Row("line ends of all kinds", "/a.py", "a\nb\r\nc\n\n");
    Row("no ASCII", QString::fromUtf8("/\u00e9/\u6f22.py"), QString::fromUtf8("\u6f22 \U0001f30a"));
    Row("null characters", "/a.py", QString::fromUtf8(QByteArray("a\0b", 3)));
    Row("half a surrogate pair", "/a.py", QString(QChar(0xd83c)) + "x");
    Row("a byte-order mark", "/a.py", QString(QChar(0xfeff)) + "x");
    Row("blanks that do not break", "/a.py", QString(QChar(0xa0)));
    Row("hostile name", "/../\"};\n\t\\%1 <b>.py", "x");
    Row("long", "/a.py", QString("0123456789\n").repeated(100000));
}

void RecoveryStoreTest::SnapshotsComeBack()
{
    QFETCH(QString, path);
    QFETCH(QString, text);
    const QString file = m_directory->filePath("snapshot");
    const RecoverySnapshot written = Snapshot(path, text);
    QVERIFY(RecoveryFile::Write(file, written, Wait::ForDisk));
    const std::optional<RecoverySnapshot> read = RecoveryFile::Read(file);
    QVERIFY(read);
    QCOMPARE(read->text, text);
    QCOMPARE(read->properties.filePath, path);
    QCOMPARE(read->properties.label, written.properties.label);
    QVERIFY(read->properties.type == CodeEditorType::File);
    QVERIFY(read->properties.language == CodeEditorLanguage::Python);
    QCOMPARE(read->group, 2);
    QCOMPARE(read->cursorPosition, 7);
    QCOMPARE(read->time, written.time);
    QCOMPARE(read->baseFingerprint, written.baseFingerprint);
}

void RecoveryStoreTest::WhatIsNoSnapshotIsToldFromOne_data()
{
    const QByteArray good = RecoveryFile::Encode(Snapshot("/a.py", "text\n"));
    const auto reframed = [](const char* header) {
        const QByteArray json(header);
        const QByteArray sum = QCryptographicHash::hash(json, QCryptographicHash::Sha1).toHex();
        return "TarnwickEditor2-recovery 1 " + QByteArray::number(json.size()) + " 0 " + sum + '\n'
            + json;
    };
    Columns<QByteArray>("bytes");
    Row("nothing", QByteArray());
    Row("something else", QByteArray("[main]\ntabs=1\n"));
    Row("no line at all", QByteArray(5000, 'x'));
    Row("one byte more", good + 'x');
    Row("one byte changed", QByteArray(good).replace("text\n", "texT\n"));
    Row("another version", QByteArray(good).replace("recovery 1 ", "recovery 2 "));
    Row("negative length", QByteArray("TarnwickEditor2-recovery 1 -5 5 00\n"));
    Row("lengths beyond every number",
        QByteArray("TarnwickEditor2-recovery 1 99999999999 99999999999 00\nx"));
    Row("lengths that make up too much",
        QByteArray("TarnwickEditor2-recovery 1 2147483647 2147483647 00\nx"));
    Row("header that is no JSON", reframed("{"));
    Row("no path", reframed("{\"type\":0,\"language\":0}"));
    Row("unknown type", reframed("{\"path\":\"/a\",\"type\":2,\"language\":0}"));
    Row("types of JSON", reframed("{\"path\":[1],\"type\":\"0\",\"language\":{}}"));
}

void RecoveryStoreTest::WhatIsNoSnapshotIsToldFromOne()
{
    QFETCH(QByteArray, bytes);
    const QString file = m_directory->filePath("snapshot");
    SetBytes(file, bytes);
    QVERIFY(!RecoveryFile::Read(file));
    QVERIFY(!RecoveryFile::Decode(bytes));
}

void RecoveryStoreTest::EveryCutIsNoticed()
{
    const QByteArray good = RecoveryFile::Encode(Snapshot("/a.py", "some text\n"));
    QVERIFY(RecoveryFile::Decode(good));
    for (int length = 0; length < good.size(); ++length)
        QVERIFY(!RecoveryFile::Decode(good.left(length)));
}

void RecoveryStoreTest::OnlyTheDeadLeaveSomething()
{
    RecoveryStore living(Folder());
    QVERIFY(living.Write(1, Snapshot("/living.py", "x"), Wait::ForDisk));
    Leave("left");
    RecoveryLeftovers leftovers;
    leftovers.Claim(Folder());
    QCOMPARE(int(leftovers.GetAll().size()), 1);
    QCOMPARE(leftovers.GetAll()[0].snapshot.text, "left");
    // Claimed once, nobody else sees it.
    RecoveryLeftovers second;
    second.Claim(Folder());
    QVERIFY(second.GetAll().empty());
    leftovers.RemoveAll();
    QVERIFY(living.Write(1, Snapshot("/living.py", "y"), Wait::ForDisk));
}

/// After a restart of the machine, or in a container, the next process has the number of the last.
void RecoveryStoreTest::ADeadProcessIsFoundWhateverItsNumber_data()
{
    Columns<bool>("knowsNumber");
    Row("the same number", true);
    Row("died while it took the lock", false);
}

void RecoveryStoreTest::ADeadProcessIsFoundWhateverItsNumber()
{
    QFETCH(bool, knowsNumber);
    Leave("left");
    const QString process = QDir(Folder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    const QString lock = QString("%1/%2/lock").arg(Folder(), process);
    QByteArray content = Bytes(lock);
    const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
    content.replace(0, content.indexOf('\n'), own);
    SetBytes(lock, knowsNumber ? content : QByteArray());
    RecoveryLeftovers leftovers;
    leftovers.Claim(Folder());
    QCOMPARE(int(leftovers.GetAll().size()), 1);
}

void RecoveryStoreTest::NothingStaysBehind()
{
    {
        RecoveryStore store(Folder());
        QVERIFY(!QDir(Folder()).exists());
        QVERIFY(store.Write(1, Snapshot("/a.py", "x"), Wait::ForDisk));
        const QFileInfo info(store.GetProcessFolder());
        QCOMPARE(int(info.permissions() & 0x0077), 0); // nobody else's business
        store.Remove(1);
        store.Close();
    }
    QVERIFY(!QDir(Folder()).exists());
    Leave("left");
    const QString process = QDir(Folder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    SetBytes(Folder() + '/' + process + "/1.te2-recovery.new", "half of it");
    {
        RecoveryLeftovers leftovers;
        leftovers.Claim(Folder());
        QCOMPARE(int(leftovers.GetAll().size()), 1);
        leftovers.RemoveAll();
    }
    QVERIFY(!QDir(Folder()).exists());
}

void RecoveryStoreTest::WhatWasSavedIsNothingToRestore_data()
{
    Columns<QByteArray, bool>("content", "offered");
    Row("died before the file was written", QByteArray("old"), true);
    Row("died before the snapshot was removed", QByteArray("saved"), false);
    Row("written by somebody else since", QByteArray("theirs"), true);
}

/// The last moments of a process that saves its text, which went on since the last snapshot.
void RecoveryStoreTest::WhatWasSavedIsNothingToRestore()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, offered);
    const QString path = m_directory->filePath("a.py");
    SetBytes(path, content);
    {
        RecoveryStore store(Folder());
        QVERIFY(store.Write(1, Snapshot(path, "unsaved"), Wait::ForDisk));
        store.NoteSaving(1, FileText::FingerprintOf("saved"));
    }
    for (int start = 0; start < 2; ++start) {
        RecoveryLeftovers leftovers;
        leftovers.Claim(Folder());
        QCOMPARE(int(leftovers.GetAll().size()), offered ? 1 : 0);
        if (start == 1)
            leftovers.RemoveAll();
    }
    QVERIFY(!QDir(Folder()).exists());
}

void RecoveryStoreTest::BrokenOnesAreSetAside()
{
    Leave("left");
    const QString process = QDir(Folder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    const QDir directory(Folder() + '/' + process);
    SetBytes(directory.filePath("2.te2-recovery"), "TarnwickEditor2-recovery 1 3 4 cut");
    SetBytes(directory.filePath("notes.txt"), "somebody's");
    QVERIFY(QFile::link("/etc/passwd", directory.filePath("3.te2-recovery")));
    QFile huge(directory.filePath("4.te2-recovery"));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64(1) << 40));
    huge.close();
    FakeHost::errors.clear();
    {
        RecoveryLeftovers leftovers;
        leftovers.Claim(Folder());
        QCOMPARE(int(leftovers.GetAll().size()), 1);
        leftovers.RemoveAll();
    }
    QCOMPARE(Bytes(directory.filePath("notes.txt")), "somebody's");
    const QDir broken(Folder() + "/broken");
    QCOMPARE(broken.entryList(QDir::Files),
        (QStringList{process + "-2.te2-recovery", process + "-4.te2-recovery"}));
    // They are not looked at again.
    RecoveryLeftovers again;
    again.Claim(Folder());
    QVERIFY(again.GetAll().empty());
}

void RecoveryStoreTest::AClearedFolderIsMadeAnew()
{
    RecoveryStore store(Folder());
    QVERIFY(store.Write(1, Snapshot("/a.py", "x"), Wait::ForDisk));
    QVERIFY(QDir(Folder()).removeRecursively());
    QVERIFY(store.Write(1, Snapshot("/a.py", "y"), Wait::ForDisk));
    RecoveryLeftovers leftovers;
    leftovers.Claim(Folder());
    QVERIFY(leftovers.GetAll().empty());
    // Where no folder can be, a snapshot fails and that is all.
    SetBytes(m_directory->filePath("file"), "x");
    QVERIFY(
        !RecoveryStore(m_directory->filePath("file")).Write(1, Snapshot("/a.py", "x"), Wait::No));
}

void RecoveryStoreTest::TheNewestComesLast()
{
    const int days[] = {3, 1, 2};
    for (const int day : days) {
        RecoveryStore store(Folder());
        RecoverySnapshot snapshot = Snapshot("/a.py", QString::number(day));
        snapshot.time = snapshot.time.addDays(day);
        QVERIFY(store.Write(1, snapshot, Wait::ForDisk));
    }
    RecoveryLeftovers leftovers;
    leftovers.Claim(Folder());
    QStringList texts;
    for (const RecoveryLeftovers::Leftover& leftover : leftovers.GetAll())
        texts += leftover.snapshot.text;
    QCOMPARE(texts, (QStringList{"1", "2", "3"}));
}

TE2_TEST(RecoveryStoreTest)
#include "RecoveryStoreTest.moc"
