#include "language/PylintWorker.h"
#include "settings/FakeHost.h"
#include "support/TestMain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

/// Speaks to the worker on its thread as a group of editors does.
class PylintThreadTest : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void OptionsTaken(const PylintOptions& options);
    void SourceCode(const QString& source, const QString& path, const QString& pythonPath);
    void ShutdownWorkers();

private Q_SLOTS:
    void initTestCase();
    void AnswersTheLastAndStops_data();
    void AnswersTheLastAndStops();

private:
    void Request(const QString& source);
    QString FindProcess() const;

    static constexpr int PATIENCE = 60000; // ms
    QTemporaryDir m_folder;
    PylintOptions m_options;
};

void PylintThreadTest::initTestCase()
{
    qRegisterMetaType<PylintOptions>("PylintOptions");
    FakeHost::prefsDirectory = m_folder.path() + '/';
    FakeHost::version = "2024";
    m_options.isEnabled = true;
    m_options.path = m_folder.filePath("pylint");
    QFile file(m_options.path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    // What is checked, the last argument, says whether it takes its time.
    file.write("#!/bin/sh\nfor f; do :; done\nread line < \"$f\"\n"
               "test \"$line\" = slow && echo $$ > \"$0.pid\" && exec sleep 100\necho \"$line\"\n");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void PylintThreadTest::Request(const QString& source)
{
    // Changed between the requests, as somebody may change them at any time.
    m_options.pythonHomePath = '/' + source;
    m_options.usesMinimalCheckers = !m_options.usesMinimalCheckers;
    Q_EMIT OptionsTaken(m_options);
    Q_EMIT SourceCode(source + '\n', source + ".py", "/modules");
}

/// What runs for a slow text; empty before it runs.
QString PylintThreadTest::FindProcess() const
{
    QFile file(m_options.path + ".pid");
    const bool isThere = file.open(QIODevice::ReadOnly);
    const QByteArray number = isThere ? file.readAll() : QByteArray();
    return number.endsWith('\n') ? "/proc/" + QString::fromUtf8(number).trimmed() : QString();
}

void PylintThreadTest::AnswersTheLastAndStops_data()
{
    Columns<QStringList, bool>("before", "busy");
    Row("one", QStringList{}, false);
    Row("started again", QStringList{"a", "b", "slow", "c"}, false);
    Row("stopped while it runs", QStringList{"a", "slow"}, true);
}

void PylintThreadTest::AnswersTheLastAndStops()
{
    QFETCH(QStringList, before);
    QFETCH(bool, busy);
    QFile::remove(m_options.path + ".pid");
    QThread thread;
    auto* const worker = new PylintWorker;
    QStringList answers;
    connect(this, &PylintThreadTest::ShutdownWorkers, worker, &PylintWorker::Shutdown);
    connect(this, &PylintThreadTest::OptionsTaken, worker, &PylintWorker::SetOptions);
    connect(this, &PylintThreadTest::SourceCode, worker, &PylintWorker::Pylint);
    connect(worker, &PylintWorker::PylintOutput, this,
        [&](const QString& path, const QStringList& results) {
            answers += path + results.join("");
        });
    // A busy machine may take longer to start or end a process than the worker waits.
    QString wanted = "last";
    connect(worker, &PylintWorker::PylintFailed, this, [&] { Request(wanted); });
    connect(&thread, &QThread::finished, worker, &QObject::deleteLater);
    worker->moveToThread(&thread);
    thread.start();

    for (const QString& source : before)
        Request(source);
    Request(wanted);
    // An older one may have answered before it was asked again.
    QTRY_VERIFY_WITH_TIMEOUT(!answers.isEmpty() && answers.last() == "last.pylast\n", PATIENCE);
    QString process;
    if (busy) {
        QFile::remove(m_options.path + ".pid");
        wanted = "slow";
        Request(wanted);
        QTRY_VERIFY_WITH_TIMEOUT(!(process = FindProcess()).isEmpty(), PATIENCE);
    }
    Q_EMIT ShutdownWorkers();
    QVERIFY(thread.wait());
    QTRY_VERIFY(process.isEmpty() || !QFile::exists(process));
}

TE2_TEST(PylintThreadTest)
#include "PylintThreadTest.moc"
