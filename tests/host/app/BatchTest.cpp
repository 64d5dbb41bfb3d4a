#include "support/TestMain.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int PROCESS_LIMIT_MS = 60000;

} // namespace

/// The program itself, as a shell sees it.
class BatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OutputAndExitCode_data();
    void OutputAndExitCode();
    void UnusablePreferencesAreSaid();
    void UserSetupRunsBeforeTheScripts();
    void PictureIsWritten();

private:
    struct Run
    {
        int exitCode = -1;
        QString output;
        QString errors;
    };

    Run RunHost(const QStringList& arguments);
    void Write(const QString& name, const QByteArray& text);

    QTemporaryDir m_folder;
};

BatchTest::Run BatchTest::RunHost(const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("MAYA_APP_DIR", m_folder.path());
    environment.insert("XDG_RUNTIME_DIR", m_folder.path());
    environment.remove("MAYA_PLUG_IN_PATH");
    process.setProcessEnvironment(environment);
    process.start(qEnvironmentVariable("TE2_BUILD_DIR") + "/bin/tarnwick-host", arguments);
    if (!process.waitForFinished(PROCESS_LIMIT_MS) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

void BatchTest::Write(const QString& name, const QByteArray& text)
{
    QFile file(m_folder.filePath(name));
    QDir().mkpath(QFileInfo(file).path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void BatchTest::OutputAndExitCode_data()
{
    Columns<QStringList, int, QString, QString>("arguments", "exitCode", "output", "errors");
    const auto row = [](const char* name, const QStringList& arguments, int exitCode,
                         const char* output, const char* errors) {
        Row(name, QStringList("-batch") + arguments, exitCode, QString(output), QString(errors));
    };
    row("print", {"-command", "print \"one\\ntwo\""}, 0, "one\ntwo", "");
    row("Python", {"-python", "print('hi', 1)"}, 0, "hi 1\n", "");
    row("warning", {"-command", "warning -noContext \"careful\""}, 0, "", "Warning: careful\n");
    row("error", {"-command", "error -noContext \"no\""}, 1, "", "Error: no\n");
    row("syntax error", {"-command", "float $x = ;"}, 1, "", "Error: ");
    row("one of two fails", {"-command", "error \"no\"", "-command", "print \"still\""}, 1, "still",
        "Error: ");
    row("deferred work is done", {"-command", "evalDeferred \"print \\\"later\\\"\""}, 0, "later",
        "");
    row("exit code", {"-command", "quit -exitCode 7"}, 7, "", "");
    row("nothing runs after quit", {"-command", "quit", "-command", "print 1"}, 0, "", "");
    row("file missing", {"-script", "/nowhere/x.mel"}, 1, "",
        "Error: Script file not found: /nowhere/x.mel\n");
    row("no windows", {"-command", "window"}, 1, "", "Error: ");
    row("no panels", {"-command", "workspaceControl p"}, 1, "", "Error: ");
    row("unknown option", {"-frob"}, 2, "", "Unknown option \"-frob\". Try -help.\n");
}

void BatchTest::OutputAndExitCode()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, errors);
    const Run run = RunHost(arguments);
    QTEST(run.exitCode, "exitCode");
    QTEST(run.output, "output");
    if (errors.isEmpty() || errors.endsWith('\n'))
        QCOMPARE(run.errors, errors);
    else
        QVERIFY2(run.errors.startsWith(errors), qPrintable(run.errors));
}

void BatchTest::UnusablePreferencesAreSaid()
{
    Write("file", "not a folder");
    const Run run = RunHost({"-batch", "-prefs", m_folder.filePath("file"), "-command", "print 1"});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, "1");
    QVERIFY2(
        run.errors.contains("Warning: Cannot create preferences folder"), qPrintable(run.errors));
}

void BatchTest::UserSetupRunsBeforeTheScripts()
{
    Write("2024/scripts/userSetup.mel", "global proc hello() { print \"from setup \"; }");
    Write("2024/scripts/userSetup.py", "greeting = 'and Python'");
    const Run run = RunHost({"-batch", "-command", "hello", "-python", "print(greeting)"});
    QFile::remove(m_folder.filePath("2024/scripts/userSetup.mel"));
    QFile::remove(m_folder.filePath("2024/scripts/userSetup.py"));
    QCOMPARE(run.output, "from setup and Python\n");
    QCOMPARE(run.exitCode, 0);
}

void BatchTest::PictureIsWritten()
{
    const QString path = m_folder.filePath("window.png");
    const Run run = RunHost({"-prefs", m_folder.filePath("pictured"), "--screenshot", path,
        "-command", "workspaceControl -floating 1 -label P p"});
    QCOMPARE(run.exitCode, 0);
    const QImage picture(path);
    QVERIFY(picture.width() > 400 && picture.height() > 300);
    const Run refused = RunHost({"--screenshot", "/nowhere/at/all.png", "-command", "int $i;"});
    QCOMPARE(refused.exitCode, 1);
    QVERIFY2(refused.errors.contains("Cannot write the picture"), qPrintable(refused.errors));
}

TE2_TEST(BatchTest)
#include "BatchTest.moc"
