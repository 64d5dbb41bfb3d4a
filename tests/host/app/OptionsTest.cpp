#include "app/Options.h"

#include "support/TestMain.h"

#include <QtTest>

using namespace host;

class OptionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void TasksKeepTheirOrder();
    void EditorOpensOnlyByItself_data();
    void EditorOpensOnlyByItself();
    void MistakesAreNamed_data();
    void MistakesAreNamed();
};

void OptionsTest::TasksKeepTheirOrder()
{
    QString error;
    const auto options = ReadOptions(
        {"host", "-script", "a.py", "--batch", "-command", "-batch", "-python", "x"}, error);
    QVERIFY(options && options->batch);
    QCOMPARE(options->tasks.size(), 3);
    QVERIFY(options->tasks[0].kind == StartTask::Kind::File);
    QCOMPARE(options->tasks[1].text, "-batch"); // what follows an option is its value
    QVERIFY(options->tasks[2].kind == StartTask::Kind::Python);
}

void OptionsTest::EditorOpensOnlyByItself_data()
{
    Columns<QStringList, bool>("arguments", "opens");
    Row("nothing", QStringList{"host"}, true);
    Row("picture", QStringList{"host", "--screenshot", "a.png"}, true);
    Row("preferences", QStringList{"host", "-prefs", "/tmp/x"}, true);
    Row("a script", QStringList{"host", "-command", "x"}, false);
    Row("batch", QStringList{"host", "-batch"}, false);
}

void OptionsTest::EditorOpensOnlyByItself()
{
    QFETCH(QStringList, arguments);
    QString error;
    const auto options = ReadOptions(arguments, error);
    QVERIFY(options);
    QTEST(options->OpensEditor(), "opens");
}

void OptionsTest::MistakesAreNamed_data()
{
    Columns<QStringList, QString>("arguments", "error");
    Row("unknown", QStringList{"host", "-frob"}, "Unknown option \"-frob\". Try -help.");
    Row("a loose word", QStringList{"host", "file.mel"}, "Unknown option \"file.mel\". Try -help.");
    Row("value missing", QStringList{"host", "-command"}, "The option \"-command\" needs <mel>.");
    Row("no scale", QStringList{"host", "-scale", "big"}, "The scale is a number from 1 to 4.");
    Row("picture in batch", QStringList{"host", "-batch", "-screenshot", "a.png"},
        "There is no picture in batch mode.");
}

void OptionsTest::MistakesAreNamed()
{
    QFETCH(QStringList, arguments);
    QString error;
    QVERIFY(!ReadOptions(arguments, error));
    QTEST(error, "error");
}

TE2_TEST(OptionsTest)
#include "OptionsTest.moc"
