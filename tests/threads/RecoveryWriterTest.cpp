#include "files/RecoveryWriter.h"

#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

/// Snapshots are written on a thread while their texts are changed and saved.
class RecoveryWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void TheLastTextsAreOnTheDisk();
};

void RecoveryWriterTest::TheLastTextsAreOnTheDisk()
{
    constexpr int EDITORS = 3;
    constexpr int SNAPSHOTS = 30 * EDITORS;
    QTemporaryDir folder;
    RecoveryWriter writer(folder.filePath("recovery"));
    int written = 0;
    int failed = 0;
    connect(&writer, &RecoveryWriter::Written, this, [&](int, bool success) {
        ++written;
        failed += success ? 0 : 1;
    });
    QThread thread;
    writer.moveToThread(&thread);
    thread.start();

    RecoverySnapshot snapshot;
    QVector<QString> pieces{"first\n", "second\n", ""};
    for (int i = 0; i < SNAPSHOTS; ++i) {
        const int id = i % EDITORS;
        snapshot.properties.filePath = QString("/scripts/%1.py").arg(id);
        // The writer shares with this thread what does not change.
        pieces[2] += QString("line %1\n").arg(i);
        QMetaObject::invokeMethod(
            &writer,
            [&writer, id, snapshot, pieces] {
                writer.Write(id, snapshot, pieces, RecoveryFile::Wait::No);
            },
            Qt::QueuedConnection);
        writer.NoteSaving(id, "fingerprint");
        if (i % 7 == 0)
            QCoreApplication::processEvents();
    }
    QMetaObject::invokeMethod(
        &writer, [&writer] { writer.Remove(0); }, Qt::QueuedConnection);
    bool isComplete = false;
    QMetaObject::invokeMethod(
        &writer, [&] { isComplete = writer.IsComplete(); }, Qt::BlockingQueuedConnection);
    QVERIFY(isComplete);
    QMetaObject::invokeMethod(
        &writer, [&writer] { writer.Close(); }, Qt::BlockingQueuedConnection);
    QCoreApplication::processEvents();
    QCOMPARE(written, SNAPSHOTS);
    QCOMPARE(failed, 0);
    thread.quit();
    QVERIFY(thread.wait());

    const QDir recovery(folder.filePath("recovery"));
    const QStringList processes = recovery.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(processes.size(), 1);
    const QDir own(recovery.filePath(processes[0]));
    const QStringList names = own.entryList({'*' + RecoveryStore::FILE_SUFFIX}, QDir::Files);
    QCOMPARE(names.size(), EDITORS - 1); // one was removed
    const auto last = RecoveryFile::Read(own.filePath(names.last()));
    QVERIFY(last);
    QCOMPARE(last->text, QStringList(pieces.toList()).join(""));
}

TE2_TEST(RecoveryWriterTest)
#include "RecoveryWriterTest.moc"
