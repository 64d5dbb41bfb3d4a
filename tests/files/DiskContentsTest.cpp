#include "files/DiskContents.h"

#include "files/FileText.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

using Change = DiskContents::Change;
using Act = std::function<void(const QString& path)>;

Q_DECLARE_METATYPE(Act)
Q_DECLARE_METATYPE(Change)

namespace {

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

void SetTime(const QString& path, const QDateTime& time)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

/// With the same size and time: what a copy that keeps times leaves.
void ReplaceUnnoticed(const QString& path)
{
    const QDateTime time = QFileInfo(path).lastModified();
    Write(path + ".new", "TEXT");
    SetTime(path + ".new", time);
    QVERIFY(QFile::remove(path));
    QVERIFY(QFile::rename(path + ".new", path));
}

/// Nobody may read this one, whoever he is.
void MakeUnreadable(const QString& path)
{
    const QString nobodys = "/proc/sys/net/ipv4/route/flush";
    if (QFile::setPermissions(path, QFileDevice::Permissions())
        && !QFile(path).open(QIODevice::ReadOnly))
        return;
    if (QFile(nobodys).open(QIODevice::ReadOnly) || !QFile::exists(nobodys))
        QSKIP("everything can be read here");
    QVERIFY(QFile::remove(path));
    QVERIFY(QFile::link(nobodys, path));
}

} // namespace

/// Whether somebody else has changed a file.
class DiskContentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void TellsEachChangeOnce_data();
    void TellsEachChangeOnce();
    void WhatIsNotKnownDoesNotChange();
};

void DiskContentsTest::TellsEachChangeOnce_data()
{
    Columns<Act, Change, Act, Change>("act", "change", "then", "thenChange");
    const Act nothing = [](const QString&) {};
    const Act restore = [](const QString& path) {
        QFile::remove(path);
        QDir().rmdir(path);
        Write(path, "text");
    };
    Row("nothing", nothing, Change::None, nothing, Change::None);
    Row("same size, at once", Act([](const QString& path) { Write(path, "TEXT"); }),
        Change::Content, restore, Change::Content);
    Row("same size and time", Act(ReplaceUnnoticed), Change::Content, nothing, Change::None);
    Row("touched",
        Act([](const QString& path) { SetTime(path, QDateTime::currentDateTime().addSecs(100)); }),
        Change::None, restore, Change::None);
    Row("deleted", Act([](const QString& path) { QFile::remove(path); }), Change::Gone, restore,
        Change::Content);
    Row("a folder now", Act([](const QString& path) {
        QFile::remove(path);
        QDir().mkdir(path);
    }),
        Change::Gone, restore, Change::Content);
    Row("unreadable", Act(MakeUnreadable), Change::Unreadable, restore, Change::None);
    Row("empty", Act([](const QString& path) { Write(path, ""); }), Change::Content, nothing,
        Change::None);
}

void DiskContentsTest::TellsEachChangeOnce()
{
    QFETCH(Act, act);
    QFETCH(Change, change);
    QFETCH(Act, then);
    QFETCH(Change, thenChange);
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.py");
    Write(path, "text");
    DiskContents contents;
    contents.Set(path, FileText::FingerprintOf("text"));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(contents.TakeChange(path), Change::None);
    act(path);
    QCOMPARE(contents.TakeChange(path), change);
    QCOMPARE(contents.TakeChange(path), Change::None);
    then(path);
    QCOMPARE(contents.TakeChange(path), thenChange);
    QCOMPARE(contents.TakeChange(path), Change::None);
}

void DiskContentsTest::WhatIsNotKnownDoesNotChange()
{
    const QTemporaryDir folder;
    DiskContents contents;
    QCOMPARE(contents.TakeChange(folder.filePath("a.py")), Change::None);
    QVERIFY(contents.GetFingerprint(folder.filePath("a.py")).isEmpty());
    Write(folder.filePath("b.py"), "text");
    contents.Set(folder.filePath("a.py"), FileText::FingerprintOf("text"));
    contents.Move(folder.filePath("a.py"), folder.filePath("b.py"));
    QCOMPARE(contents.TakeChange(folder.filePath("a.py")), Change::None);
    QCOMPARE(contents.TakeChange(folder.filePath("b.py")), Change::None);
    contents.Remove(folder.filePath("b.py"));
    Write(folder.filePath("b.py"), "other");
    QCOMPARE(contents.TakeChange(folder.filePath("b.py")), Change::None);
}

TE2_TEST(DiskContentsTest)
#include "DiskContentsTest.moc"
