#include "language/PylintWorker.h"

#include "editor/PylintMessages.h"
#include "settings/FakeHost.h"
#include "settings/Settings.h"
#include "settings/SettingsFixture.h"
#include "support/TestMain.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

/// Runs the worker against shell scripts that stand in for pylint.
class PylintWorkerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_fixture.reset(); }
    void HandsOnWhatItPrints();
    void PassesTheOptions_data();
    void PassesTheOptions();
    void PassesTheEnvironment();
    void OnlyTheNewestRequestAnswers();
    void TellsFailures_data();
    void TellsFailures();
    void TellsAMissingExecutableOnce();
    void DoesNothingWhenSwitchedOff();
    void ShowsErrorsOnRequest();
    void ShutdownStopsProcessAndThread();
    void UnderstandsPylintItself_data();
    void UnderstandsPylintItself();

private:
    void WriteExecutable(const QByteArray& body, const QString& name = "pylint");

    std::unique_ptr<SettingsFixture> m_fixture;
    std::unique_ptr<QTemporaryDir> m_directory;
};

void PylintWorkerTest::init()
{
    m_fixture = std::make_unique<SettingsFixture>();
    m_directory = std::make_unique<QTemporaryDir>();
    Settings::pylintEnabled = true;
}

void PylintWorkerTest::WriteExecutable(const QByteArray& body, const QString& name)
{
    Settings::pylintPath = m_directory->filePath(name);
    QFile file(Settings::pylintPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + body + "\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void PylintWorkerTest::HandsOnWhatItPrints()
{
    // The checked file is the last argument.
    WriteExecutable("for f; do :; done; printf \"'::E:1:2:[E1]:a: b::'\\n\"; cat \"$f\"");
    PylintWorker worker;
    QSignalSpy output(&worker, &PylintWorker::PylintOutput);
    worker.Pylint(QString::fromUtf8("x = '\xc3\xa4'"), "/a/b.py", QString());
    QVERIFY(output.wait());
    QCOMPARE(output.at(0).at(0).toString(), "/a/b.py");
    QCOMPARE(output.at(0).at(1).toStringList(),
        (QStringList{"'", "E:1:2:[E1]:a: b", QString::fromUtf8("'\nx = '\xc3\xa4'")}));
    QCOMPARE(output.at(0).at(2).toInt(), 5);

    WriteExecutable("exit 0");
    worker.Pylint("x", "/a/b.py", QString());
    QVERIFY(output.wait());
    QVERIFY(output.at(1).at(1).toStringList().isEmpty());
}

void PylintWorkerTest::PassesTheOptions_data()
{
    Columns<bool, QString, QStringList>("reduced", "configuration", "options");
    const QStringList checkers{"--disable=W,R,C,E1111",
        "--enable=import-error,unreachable,duplicate-key,unnecessary-semicolon,"
        "global-variable-not-assigned,unused-variable,binary-op-exception,bad-format-string,"
        "anomalous-backslash-in-string,bad-open-mode"};
    Row("reduced, no rc file", true, "/a/rc", checkers);
    Row("rc file", false, "/a b/rc", QStringList{"--rcfile=/a b/rc"});
    Row("plain", false, "", QStringList{});
}

void PylintWorkerTest::PassesTheOptions()
{
    QFETCH(bool, reduced);
    QFETCH(QString, configuration);
    QFETCH(QStringList, options);
    Settings::pylintUseMinimalCheckers = reduced;
    Settings::pylintConfigPath = configuration;
    WriteExecutable("for a; do printf '%s\\n' \"$a\"; done > \"$0.args\"", "my pylint");
    PylintWorker worker;
    QSignalSpy output(&worker, &PylintWorker::PylintOutput);
    worker.Pylint("x", "a.py", QString());
    QVERIFY(output.wait());
    QFile file(Settings::pylintPath + ".args");
    QVERIFY(file.open(QIODevice::ReadOnly));
    options.prepend("--msg-template='::{C}:{line}:{column}:[{msg_id}]:{msg}::'");
    options.append(worker.GetTempFilePath());
    QCOMPARE(QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts), options);
}

void PylintWorkerTest::PassesTheEnvironment()
{
    Settings::pylintPythonHomePath = "/home of python";
    WriteExecutable("echo \"$PYTHONPATH,$PYTHONHOME\"");
    PylintWorker worker;
    QSignalSpy output(&worker, &PylintWorker::PylintOutput);
    worker.Pylint("x", "a.py", "/p:/q");
    QVERIFY(output.wait());
    QCOMPARE(output.at(0).at(1).toStringList(), QStringList{"/p:/q,/home of python\n"});
}

void PylintWorkerTest::OnlyTheNewestRequestAnswers()
{
    // The first text makes it hang, the second answers.
    WriteExecutable("for f; do :; done; read line < \"$f\"; echo \"$line\"; test \"$line\" = slow "
                    "&& exec sleep 100; exit 0");
    PylintWorker worker;
    QSignalSpy output(&worker, &PylintWorker::PylintOutput);
    QSignalSpy failed(&worker, &PylintWorker::PylintFailed);
    worker.Pylint("slow\n", "first.py", QString());
    worker.Pylint("fast\n", "second.py", QString());
    QVERIFY(output.wait());
    QCOMPARE(output.size(), 1);
    QCOMPARE(output.at(0).at(0).toString(), "second.py");
    QCOMPARE(output.at(0).at(1).toStringList(), QStringList{"fast\n"});
    QVERIFY(failed.isEmpty());
}

void PylintWorkerTest::TellsFailures_data()
{
    Columns<QByteArray, bool>("body", "fails");
    Row("killed", QByteArray("kill -9 $$"), true);
    Row("usage error", QByteArray("echo usage; exit 32"), true);
    Row("no pylint in that Python", QByteArray("echo no >&2; exit 1"), true);
    Row("messages found", QByteArray("echo found; exit 2"), false);
}

void PylintWorkerTest::TellsFailures()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, fails);
    WriteExecutable(body);
    PylintWorker worker;
    QSignalSpy output(&worker, &PylintWorker::PylintOutput);
    QSignalSpy failed(&worker, &PylintWorker::PylintFailed);
    worker.Pylint("x", "a.py", QString());
    QTRY_COMPARE(output.size() + failed.size(), 1);
    QCOMPARE(failed.size(), fails ? 1 : 0);
    QVERIFY(FakeHost::errors.isEmpty());
}

void PylintWorkerTest::TellsAMissingExecutableOnce()
{
    // Worker numbers go on through the program, so only one worker here may be the first.
    PylintWorker worker;
    QSignalSpy failed(&worker, &PylintWorker::PylintFailed);
    Settings::pylintPath = "/none/pylint";
    worker.Pylint("x", "a.py", QString());
    worker.Pylint("x", "a.py", QString());
    QCOMPARE(failed.size(), 2);
    QCOMPARE(FakeHost::errors, QStringList{"Pylint executable not found: /none/pylint"});
    worker.ResetErrors();
    worker.Pylint("x", "a.py", QString());
    const bool isFirst = worker.GetTempFilePath().endsWith("/te2_worker0_temp.py");
    QCOMPARE(FakeHost::errors.size(), isFirst ? 2 : 1);

    WriteExecutable("exit 0");
    QFile::setPermissions(Settings::pylintPath, QFile::ReadOwner);
    worker.Pylint("x", "a.py", QString());
    QCOMPARE(failed.size(), 4); // there, but it cannot be started
}

void PylintWorkerTest::DoesNothingWhenSwitchedOff()
{
    WriteExecutable("touch \"$0.ran\"");
    Settings::pylintEnabled = false;
    PylintWorker worker;
    QVERIFY(QFile::exists(worker.GetTempFilePath()));
    QSignalSpy failed(&worker, &PylintWorker::PylintFailed);
    worker.Pylint("x", "a.py", QString());
    QFile file(worker.GetTempFilePath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().isEmpty() && failed.isEmpty());
    QVERIFY(!QFile::exists(Settings::pylintPath + ".ran"));
}

void PylintWorkerTest::ShowsErrorsOnRequest()
{
    WriteExecutable("echo trouble >&2");
    Settings::pylintShowErrors = true;
    PylintWorker worker;
    QSignalSpy output(&worker, &PylintWorker::PylintOutput);
    worker.Pylint("x", "a.py", QString());
    QVERIFY(output.wait());
    QCOMPARE(FakeHost::errors, QStringList{"trouble\n"});
}

void PylintWorkerTest::ShutdownStopsProcessAndThread()
{
    WriteExecutable("echo $$ > \"$0.pid\"; exec sleep 100");
    QThread thread;
    PylintWorker worker;
    worker.moveToThread(&thread);
    thread.start();
    QMetaObject::invokeMethod(&worker, [&worker] { worker.Pylint("x", "a.py", QString()); });
    QFile pid(Settings::pylintPath + ".pid");
    QTRY_VERIFY(QFileInfo(pid).size() > 0);
    QVERIFY(pid.open(QIODevice::ReadOnly));
    const QString process = "/proc/" + QString::fromUtf8(pid.readAll()).trimmed();
    QVERIFY(QFile::exists(process));
    QMetaObject::invokeMethod(&worker, &PylintWorker::Shutdown);
    QVERIFY(thread.wait(5000));
    QVERIFY(!QFile::exists(process));
}

void PylintWorkerTest::UnderstandsPylintItself_data()
{
    Columns<bool, QByteArray, QString, QString>("reduced", "configuration", "source", "found");
    const QString faults(
        "import no_such_module\n\ndef f(n):\n    return n\n    print(n)\nx = none_such\n");
    Row("reduced", true, QByteArray(), faults, "0 E0401,5 E0602|4 W0101|");
    Row("rc file", false, QByteArray("[MESSAGES CONTROL]\ndisable=C,E0602\n"), faults,
        "0 E0401|4 W0101,0 W0611|");
    // Whatever is said with a colon is left out.
    Row("does not compile", true, QByteArray(), "def f(:\n", "||");
    Row("nothing to find", true, QByteArray(), "x = 1\n", "||");
}

/// The line, from 0, and the id of each message.
static QString Places(const QVector<ParserMessage>& messages)
{
    QStringList places;
    for (const ParserMessage& message : messages)
        places += QString("%1 %2").arg(message.line).arg(message.message.mid(1, 5));
    return places.join(',');
}

void PylintWorkerTest::UnderstandsPylintItself()
{
    QFETCH(bool, reduced);
    QFETCH(QByteArray, configuration);
    QFETCH(QString, source);
    Settings::pylintPath = "/usr/bin/pylint";
    Settings::pylintUseMinimalCheckers = reduced;
    Settings::pylintConfigPath = m_directory->filePath("rc file");
    QFile file(Settings::pylintConfigPath);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(configuration) >= 0 && file.flush());
    PylintWorker worker;
    QSignalSpy output(&worker, &PylintWorker::PylintOutput);
    worker.Pylint(source, "a.py", QString());
    QVERIFY(output.wait(60000));
    const PylintMessages messages
        = ReadPylintMessages(output.at(0).at(1).toStringList(), output.at(0).at(2).toInt());
    QTEST(QString("%1|%2|%3")
              .arg(Places(messages.errors), Places(messages.warnings), Places(messages.infos)),
        "found");
}

TE2_TEST(PylintWorkerTest)
#include "PylintWorkerTest.moc"
