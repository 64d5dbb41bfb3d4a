#include "files/SessionLock.h"

#include "files/GuestTabs.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <cstdlib>

namespace {

const char* const FOLDER_VARIABLE = "TE2_TEST_SESSION_FOLDER";

/// What the other process does: it holds what it got until nobody writes to it any more.
void ActAsOtherSession(const QString& folder)
{
    {
        const SessionLock lock(folder);
        GuestTabs tabs(folder);
        const bool written = tabs.Write({"first", "sëcond"});
        std::puts(lock.IsOwner() && written ? "owner" : "guest");
        std::fflush(stdout);
        std::getchar();
    }
    std::_Exit(0);
}

} // namespace

/// Which of several processes owns the preferences, and what the others leave.
class SessionLockTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void TheFirstProcessOwns_data();
    void TheFirstProcessOwns();
    void TakesOverLocks_data();
    void TakesOverLocks();
    void WithoutALockEverybodyOwns();
    void TabsOfALivingSessionAreItsOwn();
    void TabsAreReplaced();

private:
    void StartOther();
    void EndOther(bool killed);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QProcess> m_other;
};

void SessionLockTest::initTestCase()
{
    const QString folder = qEnvironmentVariable(FOLDER_VARIABLE);
    if (!folder.isEmpty())
        ActAsOtherSession(folder);
}

void SessionLockTest::StartOther()
{
    m_other = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(FOLDER_VARIABLE, m_folder->path());
    m_other->setProcessEnvironment(environment);
    m_other->start(QCoreApplication::applicationFilePath(), {"SessionLockTest", "-silent"});
    QByteArray said;
    QTRY_VERIFY_WITH_TIMEOUT((said += m_other->readAllStandardOutput()).contains("owner"), 20000);
}

void SessionLockTest::EndOther(bool killed)
{
    if (killed)
        m_other->kill();
    else
        m_other->closeWriteChannel();
    QVERIFY(m_other->waitForFinished());
}

void SessionLockTest::TheFirstProcessOwns_data()
{
    Columns<bool>("killed");
    Row("until it ends", false);
    Row("until it is killed", true);
}

void SessionLockTest::TheFirstProcessOwns()
{
    QFETCH(bool, killed);
    StartOther();
    const SessionLock second(m_folder->path());
    QVERIFY(!second.IsOwner());
    QVERIFY(second.GetOtherOwner().contains(QString::number(m_other->processId())));
    EndOther(killed);
    // Nobody becomes the owner later on.
    QVERIFY(!second.IsOwner());
    const SessionLock third(m_folder->path());
    QVERIFY(third.IsOwner());
    QVERIFY(third.GetOtherOwner().isEmpty());
    const SessionLock fourth(m_folder->path());
    QVERIFY(!fourth.IsOwner());
}

void SessionLockTest::TakesOverLocks_data()
{
    Columns<QByteArray, bool>("content", "isOwner");
    const QByteArray application = QCoreApplication::applicationName().toUtf8();
    const QByteArray machine = QSysInfo::machineHostName().toUtf8();
    const QByteArray ours = application + '\n' + machine + '\n' + QSysInfo::machineUniqueId() + '\n'
        + QSysInfo::bootUniqueId() + '\n';
    const QByteArray process = QByteArray::number(QCoreApplication::applicationPid());
    Row("number in use again", process + '\n' + ours, true);
    Row("no such process", "99999999\n" + ours, true);
    Row("another machine", process + '\n' + application + "\nelsewhere\n0123456789\nabc\n", false);
    Row("never finished", QByteArray(), true);
}

void SessionLockTest::TakesOverLocks()
{
    QFETCH(QByteArray, content);
    QFile file(m_folder->filePath(SessionLock::FILE_NAME));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    {
        const SessionLock lock(m_folder->path());
        QTEST(lock.IsOwner(), "isOwner");
    }
    // What is somebody else's stays.
    QTEST(!QFile::exists(file.fileName()), "isOwner");
}

void SessionLockTest::WithoutALockEverybodyOwns()
{
    QVERIFY(SessionLock(QString()).IsOwner());
    QVERIFY(SessionLock(m_folder->filePath("gone")).IsOwner());
}

void SessionLockTest::TabsOfALivingSessionAreItsOwn()
{
    StartOther();
    QVERIFY(GuestTabs::Claim(m_folder->path()).empty());
    EndOther(true);
    {
        const auto claimed = GuestTabs::Claim(m_folder->path());
        QCOMPARE(int(claimed.size()), 1);
        QCOMPARE(claimed[0]->Read(), QStringList({"first", "sëcond"}));
        QVERIFY(GuestTabs::Claim(m_folder->path()).empty());
    }
    // Nobody took them: the next one may.
    const auto again = GuestTabs::Claim(m_folder->path());
    QCOMPARE(int(again.size()), 1);
    QVERIFY(again[0]->Write({}));
    QVERIFY(GuestTabs::Claim(m_folder->path()).empty());
}

void SessionLockTest::TabsAreReplaced()
{
    const QString folder = m_folder->filePath(GuestTabs::FOLDER_NAME);
    {
        GuestTabs tabs(m_folder->path());
        QVERIFY(tabs.Write({}));
        QVERIFY(!QDir(folder).exists());
        QVERIFY(tabs.Write({"old"}));
        QVERIFY(tabs.Write({"new", "newer"}));
        QCOMPARE(tabs.Read(), QStringList({"new", "newer"}));
        QVERIFY(tabs.Write({}));
    }
    QVERIFY(!QDir(folder).exists());
}

TE2_TEST(SessionLockTest)
#include "SessionLockTest.moc"
