#include "views/explorer/FolderReader.h"

#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

/// Folders are read on a thread while the interface goes on.
class FolderReaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void EveryFolderArrivesOnce();
    void ReadersGoWhileTheyRead();

private:
    static constexpr int PATIENCE = 60000; // ms
    static constexpr int FILES = 60;
    QTemporaryDir m_folder;
};

void FolderReaderTest::initTestCase()
{
    for (int i = 0; i < FILES; ++i) {
        QFile file(m_folder.filePath(QString("tool_%1.py").arg(i)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

void FolderReaderTest::EveryFolderArrivesOnce()
{
    constexpr int READS = 40;
    FolderReader reader(nullptr);
    QVector<int> tickets;
    connect(&reader, &FolderReader::Finished, this,
        [&](int ticket, const FolderListing::Listing& listing) {
            tickets += ticket;
            QCOMPARE(listing.absent, ticket % 2 == 1);
            QCOMPARE(listing.entries.size(), ticket % 2 == 1 ? 0 : FILES);
        });
    QVector<int> wanted;
    for (int i = 0; i < READS; ++i) {
        wanted += i;
        reader.Read(i, i % 2 == 1 ? m_folder.filePath("none") : m_folder.path(), true);
        if (i % 7 == 0)
            reader.WaitBriefly();
        if (i % 10 == 0)
            QCoreApplication::processEvents();
    }
    QTRY_COMPARE_WITH_TIMEOUT(tickets.size(), READS, PATIENCE);
    QCOMPARE(tickets, wanted);
}

void FolderReaderTest::ReadersGoWhileTheyRead()
{
    for (int round = 0; round < 20; ++round) {
        FolderReader reader(nullptr);
        for (int i = 0; i <= round; ++i)
            reader.Read(i, m_folder.path(), false);
        if (round % 3 == 0)
            reader.WaitBriefly();
    }
}

TE2_TEST(FolderReaderTest)
#include "FolderReaderTest.moc"
