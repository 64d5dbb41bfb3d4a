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
    QCOMPARE(options->tasks[1].text, QString("-batch")); // what follows an option is its value
    QVERIFY(options->tasks[2].kind == StartTask::Kind::Python);
}

void OptionsTest::EditorOpensOnlyByItself_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("opens");
    QTest::newRow("nothing") << QStringList{"host"} << true;
    QTest::newRow("picture") << QStringList{"host", "--screenshot", "a.png"} << true;
    QTest::newRow("preferences") << QStringList{"host", "-prefs", "/tmp/x"} << true;
    QTest::newRow("a script") << QStringList{"host", "-command", "x"} << false;
    QTest::newRow("batch") << QStringList{"host", "-batch"} << false;
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
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown") << QStringList{"host", "-frob"}
                             << "Unknown option \"-frob\". Try -help.";
    QTest::newRow("a loose word") << QStringList{"host", "file.mel"}
                                  << "Unknown option \"file.mel\". Try -help.";
    QTest::newRow("value missing")
        << QStringList{"host", "-command"} << "The option \"-command\" needs <mel>.";
    QTest::newRow("no scale") << QStringList{"host", "-scale", "big"}
                              << "The scale is a number from 1 to 4.";
    QTest::newRow("picture in batch") << QStringList{"host", "-batch", "-screenshot", "a.png"}
                                      << "There is no picture in batch mode.";
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
