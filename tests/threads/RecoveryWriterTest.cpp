#include "files/RecoveryWriter.h"

#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

/// Snapshots are written on a thread while their texts are changed and saved.
class RecoveryWriterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void TheLastTextIsOnTheDisk();
};

void RecoveryWriterTest::TheLastTextIsOnTheDisk()
{
    constexpr int EDITORS = 3;
    constexpr int ROUNDS = 30;
    QTemporaryDir folder;
    RecoveryWriter writer(folder.filePath("recovery"));
    int written = 0;
    connect(&writer, &RecoveryWriter::Written, this, [&](int, bool success) {
        QVERIFY(success);
        ++written;
    });
    QThread thread;
    writer.moveToThread(&thread);
    thread.start();
    QVector<QString> pieces{"first\n", "second\n", ""};
    for (int i = 0; i < ROUNDS * EDITORS; ++i) {
        const int id = i % EDITORS;
        // The writer has the old pieces now, of which it and this thread share what did not change.
        pieces[2] += QString("line %1\n").arg(i);
        QMetaObject::invokeMethod(&writer, [&writer, id, pieces] {
            writer.Write(id, RecoverySnapshot(), pieces, RecoveryFile::Wait::No);
        });
        writer.NoteSaving(id, "fingerprint");
    }
    QTRY_COMPARE(written, ROUNDS * EDITORS);
    QVERIFY(writer.IsComplete());
    thread.quit();
    QVERIFY(thread.wait());

    const QDir recovery(folder.filePath("recovery"));
    QStringList texts;
    for (const QString& process : recovery.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir own(recovery.filePath(process));
        for (const QString& name : own.entryList({'*' + RecoveryStore::FILE_SUFFIX}, QDir::Files))
            texts += RecoveryFile::Read(own.filePath(name))->text;
    }
    QCOMPARE(texts.size(), EDITORS);
    QVERIFY(texts.contains(QStringList(pieces.toList()).join("")));
}

TE2_TEST(RecoveryWriterTest)
#include "RecoveryWriterTest.moc"
