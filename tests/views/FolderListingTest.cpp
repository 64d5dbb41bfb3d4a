#include "views/explorer/FolderListing.h"

#include "support/TestMain.h"
#include "views/explorer/NaturalOrder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class FolderListingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OrdersNamesNaturally_data();
    void OrdersNamesNaturally();
    void ListsFoldersFirst_data();
    void ListsFoldersFirst();
    void FollowsNoLinkUpwards();
    void HashesAbsolutePaths_data();
    void HashesAbsolutePaths();
};

void FolderListingTest::OrdersNamesNaturally_data()
{
    QTest::addColumn<QStringList>("names"); // in their order
    QTest::newRow("numbers") << QStringList{"a1", "a2", "a10", "a10b", "a11"};
    QTest::newRow("case") << QStringList{"alpha", "Beta", "gamma"};
    QTest::newRow("equal but for case") << QStringList{"README", "readme", "readme.md"};
    QTest::newRow("leading zeros") << QStringList{"f1", "f01", "f001", "f2", "f02"};
    QTest::newRow("numbers beyond any value")
        << QStringList{"v99999999999999999998", "v99999999999999999999", "v100000000000000000000"};
    QTest::newRow("a part before the whole") << QStringList{"shot", "shot.py", "shot1", "shot_a"};
    QTest::newRow("several numbers") << QStringList{"s1_2", "s1_10", "s2_1"};
    QTest::newRow("zero") << QStringList{"a0", "a00", "a1"};
}

void FolderListingTest::OrdersNamesNaturally()
{
    QFETCH(QStringList, names);
    for (int i = 0; i < names.size(); ++i) {
        for (int j = 0; j < names.size(); ++j)
            QCOMPARE(NaturalLess(names[i], names[j]), i < j);
    }
}

void FolderListingTest::ListsFoldersFirst_data()
{
    QTest::addColumn<bool>("hideCompiled");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("all") << false
                         << QStringList{"__pycache__/", "b10/", ".hidden", "a.py", "a.PYC", "a.pyo",
                                "b2.mel"};
    QTest::newRow("without compiled") << true << QStringList{"b10/", ".hidden", "a.py", "b2.mel"};
}

void FolderListingTest::ListsFoldersFirst()
{
    QFETCH(bool, hideCompiled);
    QTemporaryDir directory;
    const QDir folder(directory.path());
    QVERIFY(folder.mkdir("b10") && folder.mkdir("__pycache__"));
    for (const char* name : {"b2.mel", "a.py", "a.PYC", "a.pyo", ".hidden"})
        QVERIFY(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    QStringList names;
    for (const FolderListing::Entry& entry :
        FolderListing::Read(folder.path(), hideCompiled).entries)
        names += entry.name + (entry.folder ? "/" : "");
    QTEST(names, "names");
}

void FolderListingTest::FollowsNoLinkUpwards()
{
    QTemporaryDir directory;
    const QDir folder(directory.path());
    QVERIFY(folder.mkpath("inner/deep") && folder.mkdir("inner2"));
    const QPair<const char*, bool> links[]
        = {{".", false}, {"..", false}, {"/", false}, {"../inner2", true}, {"deep", true}};
    for (const auto& link : links) {
        const QString path = folder.filePath("inner/link");
        QFile::remove(path);
        QVERIFY(QFile::link(link.first, path));
        for (const FolderListing::Entry& entry :
            FolderListing::Read(folder.filePath("inner"), true).entries) {
            QVERIFY(entry.folder);
            QCOMPARE(entry.expandable, entry.name == "deep" || link.second);
        }
    }
}

void FolderListingTest::HashesAbsolutePaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("hash");
    // As md5sum gives it for the same bytes.
    QTest::newRow("plain") << "/shots/tools"
                           << QByteArray::fromHex("bcc8354aedf949bd047b88123505929a");
    QTest::newRow("not clean") << "/shots/./other/../tools/"
                               << QByteArray::fromHex("bcc8354aedf949bd047b88123505929a");
    QTest::newRow("beyond ASCII") << QString::fromUtf8("/shots/\xc3\xbc")
                                  << QByteArray::fromHex("70023fee6c390ac5dfb71828a18954de");
}

void FolderListingTest::HashesAbsolutePaths()
{
    QFETCH(QString, path);
    QTEST(FolderListing::Hash(path), "hash");
}

TE2_TEST(FolderListingTest)
#include "FolderListingTest.moc"
