#include "support/TestMain.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <random>
#include <time.h>
#include <unistd.h>

namespace {

const char* const FILES[] = {"a.py", "b.mel", "c.txt", "d.txt"};
/// Has a second name and so cannot be replaced: a save may be finished only by the next start.
const char* const WRITTEN_OVER = "d.txt";
constexpr int LONG_FILE_LINES = 20000;
/// How many times the host is killed; the whole test takes two seconds for each. More than a
/// hundred want a QTEST_FUNCTION_TIMEOUT of their own.
const char* const KILLS_VARIABLE = "TE2_FAULT_KILLS";
const char* const SEED_VARIABLE = "TE2_FAULT_SEED";
constexpr int KILLS = 12;
constexpr int LONGEST_RUN = 2000; // ms
/// One host of so many is killed while it still starts.
constexpr unsigned KILLED_EARLY = 5;
constexpr int READY_TIMEOUT = 30000; // ms
const char* const DELAYS = "60:600"; ///< of the snapshots, in ms: people have 2 s and 15 s
/// The limit of the delays, and what a busy machine may need to keep it.
constexpr int OLDEST_LOSS = 600 + 1000; // ms

qint64 Now()
{
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

QByteArray Hash(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

} // namespace

/// What may be found of one editor and its file, by what the journal says was done.
class ExpectedText
{
public:
    void OnText(qint64 time, const QByteArray& hash)
    {
        m_texts.append({time, hash});
        m_wasKilled = false;
    }
    void OnSaving(const QByteArray& hash) { m_onDisk.insert(hash); }
    void OnSaved(qint64 time, const QByteArray& hash)
    {
        m_onDisk = {hash};
        OnText(time, hash);
        m_required = m_texts.size() - 1;
    }
    /// Everything that was there has been written down.
    void OnRan() { m_required = qMax(0, m_texts.size() - 1); }
    void OnClosing() { m_isClosing = true; }
    /// With what is in the file.
    void OnOpened(qint64 time, const QByteArray& hash)
    {
        m_isClosing = false;
        m_texts = {{time, hash}};
        m_required = 0;
        m_onDisk = {hash};
    }
    void OnKilled(qint64 time)
    {
        // Who is killed while starting has not typed anything.
        for (int i = m_required; i < m_texts.size() && !m_wasKilled; ++i) {
            if (m_texts[i].first <= time - OLDEST_LOSS)
                m_required = i;
        }
        m_wasKilled = true;
    }
    bool MayBeFound(const QByteArray& hash) const
    {
        if (m_texts.isEmpty() || (m_isClosing && m_onDisk.contains(hash)))
            return true;
        for (int i = m_required; i < m_texts.size(); ++i) {
            if (m_texts[i].second == hash)
                return true;
        }
        return false;
    }
    void OnFound(qint64 time, const QByteArray& hash)
    {
        m_isClosing = false;
        m_texts = {{time, hash}};
        m_required = 0;
    }
    bool MayBeOnDisk(const QByteArray& hash) const { return m_onDisk.contains(hash); }
    void OnDisk(const QByteArray& hash) { m_onDisk = {hash}; }
    QString Describe() const
    {
        return QString("%1 texts, at least number %2").arg(m_texts.size()).arg(m_required);
    }

private:
    QVector<QPair<qint64, QByteArray>> m_texts; ///< in order, with the times they came to be
    int m_required = 0; ///< the oldest text that may be found
    QSet<QByteArray> m_onDisk; ///< what the file may hold
    bool m_isClosing = false;
    bool m_wasKilled = false; ///< since the last text
};

/// The real host with the real plug-in, killed at random moments while somebody works.
class FaultTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// What a failure is about can be looked at.
    void cleanup();
    void NothingIsLost();

private:
    void MakeFiles();
    void Start(QProcess& host, int seed);
    void WaitUntilReady();
    void Kill(QProcess& host);
    bool ReadJournal();
    bool ReadLine(const QList<QByteArray>& fields);
    bool CheckFiles();

    QTemporaryDir m_folder;
    QTemporaryDir m_preferences;
    QMap<QByteArray, ExpectedText> m_expected;
    qint64 m_journalPosition = 0;
    bool m_isReady = false;
    int m_found = 0;
    int m_runs = 0;
    int m_saves = 0;
    int m_texts = 0;
    QString m_failure;
};

void FaultTest::MakeFiles()
{
    for (const char* name : FILES) {
        QFile file(m_folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const bool isLong = QByteArray(name).endsWith(".txt");
        const QByteArray text = isLong ? QByteArray("a line\n").repeated(LONG_FILE_LINES) : "\n";
        file.write(text);
        m_expected[name].OnDisk(Hash(text));
    }
    const QByteArray path = QFile::encodeName(m_folder.filePath(WRITTEN_OVER));
    QCOMPARE(::link(path, path + ".link"), 0);
    QFile journal(m_folder.filePath("journal"));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    const QString folder = m_preferences.path() + "/2024/prefs/tarnwickEditor2";
    QVERIFY(QDir().mkpath(folder));
    QFile settings(folder + "/tarnwickEditor2.ini");
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.write("[preferences]\nsaveAllOnExecute=false\n");
}

void FaultTest::Start(QProcess& host, int seed)
{
    const QString build = qEnvironmentVariable("TE2_BUILD_DIR");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("MAYA_PLUG_IN_PATH", build + "/plug-ins:" + build + "/test-plugins/typist");
    environment.insert("TE2_TYPIST_FOLDER", m_folder.path());
    environment.insert("TE2_TYPIST_SEED", QString::number(seed));
    environment.insert("TE2_RECOVERY_DELAYS", DELAYS);
    host.setProcessEnvironment(environment);
    host.setProcessChannelMode(QProcess::MergedChannels);
    m_isReady = false;
    host.start(build + "/bin/tarnwick-host", {"-prefs", m_preferences.path()});
    QVERIFY(host.waitForStarted());
}

void FaultTest::WaitUntilReady()
{
    QVERIFY(QTest::qWaitFor([this] { return !ReadJournal() || m_isReady; }, READY_TIMEOUT));
    QVERIFY2(m_failure.isEmpty(), qPrintable(m_failure));
}

void FaultTest::Kill(QProcess& host)
{
    // It must not have ended by itself.
    QVERIFY2(host.state() == QProcess::Running, host.readAll());
    // What it writes between now and its end counts for nothing.
    const qint64 time = Now();
    host.kill();
    QVERIFY(host.waitForFinished());
    QVERIFY2(ReadJournal(), qPrintable(m_failure));
    for (ExpectedText& expected : m_expected)
        expected.OnKilled(time);
    QVERIFY2(CheckFiles(), qPrintable(m_failure));
}

bool FaultTest::CheckFiles()
{
    for (const char* name : FILES) {
        if (qstrcmp(name, WRITTEN_OVER) == 0)
            continue;
        QFile file(m_folder.filePath(name));
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : "no file";
        if (!m_expected[name].MayBeOnDisk(Hash(bytes))) {
            m_failure = QString("%1 is neither old nor new (%2 bytes)").arg(name).arg(bytes.size());
            return false;
        }
        m_expected[name].OnDisk(Hash(bytes));
    }
    return true;
}

bool FaultTest::ReadJournal()
{
    QFile journal(m_folder.filePath("journal"));
    if (!journal.open(QIODevice::ReadOnly) || !journal.seek(m_journalPosition))
        return false;
    while (!journal.atEnd()) {
        const QByteArray line = journal.readLine();
        if (!line.endsWith('\n'))
            break;
        m_journalPosition += line.size();
        if (!ReadLine(line.trimmed().split(' ')))
            return false;
    }
    return true;
}

bool FaultTest::ReadLine(const QList<QByteArray>& fields)
{
    const qint64 time = fields[0].toLongLong();
    const QByteArray what = fields.value(1);
    const QByteArray label = fields.value(2);
    const QByteArray hash = fields.value(3);
    if (what == "ready") {
        m_isReady = true;
    } else if (what == "ran") {
        ++m_runs;
        for (ExpectedText& expected : m_expected)
            expected.OnRan();
    } else if (what == "text") {
        ++m_texts;
        m_expected[label].OnText(time, hash);
    } else if (what == "saving") {
        m_expected[label].OnSaving(hash);
    } else if (what == "saved") {
        ++m_saves;
        m_expected[label].OnSaved(time, hash);
    } else if (what == "closing") {
        m_expected[label].OnClosing();
    } else if (what == "opened") {
        m_expected[label].OnOpened(time, hash);
    } else if (what == "found") {
        ++m_found;
        const ExpectedText& expected = m_expected[label];
        if (!expected.MayBeFound(hash)) {
            m_failure = QString("%1 lost at %2: %3")
                            .arg(QString(label), QString::number(time), expected.Describe());
            return false;
        }
        m_expected[label].OnFound(time, hash);
    }
    return true;
}

void FaultTest::cleanup()
{
    if (!QTest::currentTestFailed())
        return;
    m_folder.setAutoRemove(false);
    m_preferences.setAutoRemove(false);
    qInfo("see %s and %s", qPrintable(m_folder.path()), qPrintable(m_preferences.path()));
}

void FaultTest::NothingIsLost()
{
    const int kills = qEnvironmentVariableIsSet(KILLS_VARIABLE)
        ? qEnvironmentVariableIntValue(KILLS_VARIABLE)
        : KILLS;
    const int seed = qEnvironmentVariableIsSet(SEED_VARIABLE)
        ? qEnvironmentVariableIntValue(SEED_VARIABLE)
        : int(Now() % 1000);
    qInfo("%d kills, seed %d", kills, seed);
    MakeFiles();
    std::mt19937 random(static_cast<unsigned>(seed));
    for (int i = 0; i < kills; ++i) {
        QProcess host;
        Start(host, i + 1);
        if (random() % KILLED_EARLY != 0)
            WaitUntilReady();
        host.waitForFinished(static_cast<int>(random() % LONGEST_RUN));
        if (!QTest::currentTestFailed())
            Kill(host);
        if (QTest::currentTestFailed())
            return;
    }
    QProcess host;
    Start(host, kills + 1);
    WaitUntilReady();
    Kill(host);
    // Nothing was ever written by halves, and nothing lies about but what this run kept.
    QDirIterator broken(m_preferences.path(), {"broken"}, QDir::Dirs, QDirIterator::Subdirectories);
    QVERIFY2(!broken.hasNext(), "there are broken snapshots");
    QDirIterator locks(m_preferences.path(), {"lock"}, QDir::Files, QDirIterator::Subdirectories);
    for (int folders = 0; locks.hasNext(); locks.next())
        QVERIFY(++folders == 1);
    qInfo("%d texts, %d runs, %d saves, %d texts found again", m_texts, m_runs, m_saves, m_found);
    QVERIFY(m_found >= kills);
    QVERIFY(m_runs > 0 && m_saves > 0);
}

TE2_TEST(FaultTest)
#include "FaultTest.moc"
