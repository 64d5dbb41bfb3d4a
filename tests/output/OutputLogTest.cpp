#include "output/OutputTextEdit.h"
#include "settings/KeyBindings.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class OutputLogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_output = std::make_unique<OutputTextEdit>(&m_keyBindings); }
    void cleanup() { m_output.reset(); }
    void WritesEveryPieceAtOnce();
    void KeepsEveryCharacter();
    void BeginsAnewInTheSameFile();
    void RefusesWhatIsNoFile_data();
    void RefusesWhatIsNoFile();
    void KeepsWritingWhenAnotherFileCannotBeOpened();
    void StopsWhenTheDiskIsFull();
    void StopsWhenTheFolderIsGone();
    void GoesOnInARenamedFile();

private:
    static QString Written(const QString& path);

    KeyBindings m_keyBindings;
    QTemporaryDir m_directory;
    std::unique_ptr<OutputTextEdit> m_output;
};

QString OutputLogTest::Written(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return "?";
    const QByteArray all = file.readAll();
    return QString::fromUtf8(all.constData(), all.size());
}

void OutputLogTest::WritesEveryPieceAtOnce()
{
    const QString path = m_directory.filePath("pieces.log");
    m_output->AppendText("before\n");
    QVERIFY(m_output->BeginWriteToFile(path));
    m_output->AppendText("hidden\n");
    QCOMPARE(Written(path), "hidden\n");
    m_output->show();
    QCOMPARE(Written(path), "hidden\n");
    QString expected = "hidden\n";
    // Also those which are shown only later.
    for (int i = 0; i < 3000; ++i) {
        m_output->AppendText(QString("%1\n").arg(i));
        expected += QString("%1\n").arg(i);
    }
    QCOMPARE(Written(path), expected);
    m_output->EndWriteToFile();
    m_output->AppendText("after\n");
    QCOMPARE(Written(path), expected);
}

void OutputLogTest::KeepsEveryCharacter()
{
    const QString path = m_directory.filePath("characters.log");
    const QString wave = QString::fromUtf8("\xf0\x9f\x8c\x8a");
    QVERIFY(m_output->BeginWriteToFile(path));
    m_output->AppendText(QString::fromUtf8("\xc3\xa9 ") + QChar(0) + "\r\n");
    // A character that arrives in two halves.
    m_output->AppendText(wave.left(1));
    m_output->AppendText(wave.mid(1));
    QCOMPARE(Written(path), QString::fromUtf8("\xc3\xa9 ") + QChar(0) + "\r\n" + wave);
}

void OutputLogTest::BeginsAnewInTheSameFile()
{
    const QString path = m_directory.filePath("same.log");
    QVERIFY(m_output->BeginWriteToFile(path));
    m_output->AppendText("first\n");
    QVERIFY(m_output->BeginWriteToFile(path));
    m_output->AppendText("second\n");
    QCOMPARE(Written(path), "second\n");
}

void OutputLogTest::RefusesWhatIsNoFile_data()
{
    Columns<QString>("name");
    Row("in a folder that is missing", "missing/out.log");
    Row("a folder", "");
}

void OutputLogTest::RefusesWhatIsNoFile()
{
    QFETCH(QString, name);
    QVERIFY(!m_output->BeginWriteToFile(m_directory.filePath(name)));
    QVERIFY(!m_output->IsWriteToFileActive());
    QVERIFY(m_output->GetWriteToFilePath().isEmpty());
}

void OutputLogTest::KeepsWritingWhenAnotherFileCannotBeOpened()
{
    const QString path = m_directory.filePath("kept.log");
    QVERIFY(m_output->BeginWriteToFile(path));
    QVERIFY(!m_output->BeginWriteToFile(m_directory.filePath("missing/out.log")));
    m_output->AppendText("still\n");
    QCOMPARE(Written(path), "still\n");
}

void OutputLogTest::StopsWhenTheDiskIsFull()
{
    QVERIFY2(QFile::exists("/dev/full"), "a device that is always full stands in for the disk");
    QSignalSpy stopped(m_output.get(), &OutputTextEdit::WriteToFileEnded);
    QVERIFY(m_output->BeginWriteToFile("/dev/full"));
    m_output->show();
    m_output->AppendText("shown all the same\n");
    m_output->AppendText("and said once\n");
    QVERIFY(!m_output->IsWriteToFileActive());
    QTRY_COMPARE(stopped.count(), 1);
    QCOMPARE(m_output->GetText(), "shown all the same\nand said once\n");
}

void OutputLogTest::StopsWhenTheFolderIsGone()
{
    QSignalSpy stopped(m_output.get(), &OutputTextEdit::WriteToFileEnded);
    QVERIFY(QDir(m_directory.path()).mkdir("gone"));
    QVERIFY(m_output->BeginWriteToFile(m_directory.filePath("gone/out.log")));
    m_output->AppendText("written\n");
    QVERIFY(m_output->IsWriteToFileActive());
    QVERIFY(QDir(m_directory.filePath("gone")).removeRecursively());
    m_output->AppendText("lost\n");
    QVERIFY(!m_output->IsWriteToFileActive());
    QTRY_COMPARE(stopped.count(), 1);
}

void OutputLogTest::GoesOnInARenamedFile()
{
    const QString renamed = m_directory.filePath("old.log");
    QVERIFY(m_output->BeginWriteToFile(m_directory.filePath("new.log")));
    m_output->AppendText("one\n");
    QVERIFY(QFile::rename(m_directory.filePath("new.log"), renamed));
    m_output->AppendText("two\n");
    QVERIFY(m_output->IsWriteToFileActive());
    QCOMPARE(Written(renamed), "one\ntwo\n");
}

TE2_TEST(OutputLogTest)
#include "OutputLogTest.moc"
