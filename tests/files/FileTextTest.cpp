#include "files/FileText.h"

#include "settings/FakeHost.h"
#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QtTest>

class FileTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FakeHost::errors.clear(); }
    void TextComesBack_data();
    void TextComesBack();
    void AFailedSaveLeavesTheOldText();
    void AFileThatCannotBeReadIsNoText();
};

void FileTextTest::TextComesBack_data()
{
    Columns<QString>("text");
    Row("empty", "");
    Row("no line end", "a");
    Row("blanks and line ends", " a\t\n\n b \n");
    Row("beyond the basic plane", QString::fromUtf8("\xf0\x9f\x8c\x8a \xc3\xa9"));
}

void FileTextTest::TextComesBack()
{
    QFETCH(QString, text);
    QTemporaryDir directory;
    const QString path = directory.filePath("a.py");
    QVERIFY(FileText::Write(path, text, FileText::Encoding::Utf8));
    QCOMPARE(FileText::Read(path, FileText::Encoding::Utf8), text);
}

void FileTextTest::AFailedSaveLeavesTheOldText()
{
    QTemporaryDir directory;
    const QString path = directory.filePath("missing/a.py");
    QVERIFY(!FileText::Write(path, "new", FileText::Encoding::Utf8));
    QCOMPARE(FakeHost::errors, QStringList("Failed to open file for save: " + path));
}

void FileTextTest::AFileThatCannotBeReadIsNoText()
{
    QTemporaryDir directory;
    // A directory in its place cannot be read by anyone, not even by root.
    QVERIFY(QDir(directory.path()).mkdir("a.py"));
    QVERIFY(FileText::Read(directory.filePath("a.py"), FileText::Encoding::Utf8).isNull());
    QVERIFY(FileText::Read(directory.filePath("missing.py"), FileText::Encoding::Utf8).isNull());
    QCOMPARE(FakeHost::errors.size(), 2);
}

TE2_TEST(FileTextTest)
#include "FileTextTest.moc"
