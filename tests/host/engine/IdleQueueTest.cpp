#include "engine/IdleQueue.h"

#include "support/TestMain.h"

#include <QtTest>

#include <thread>

using namespace host;

/// The order of deferred work, and when it may run.
class IdleQueueTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void RunsByPriorityThenInOrder();
    void DrainAlsoRunsWhatTheTasksPost();
    void NothingRunsWhileHeld();
    void ATaskNeverRunsInsideAnother();
    void OneTaskPerTurnOfTheEventLoop();
    void OtherThreadsMayPost();
    void AClosedQueueForgets();
};

void IdleQueueTest::RunsByPriorityThenInOrder()
{
    IdleQueue queue;
    QStringList order;
    const auto add = [&](const char* name) { return [&order, name] { order += name; }; };
    queue.Post(add("low 1"), IdlePriority::Low);
    queue.Post(add("lowest"), IdlePriority::VeryLow);
    queue.Post(add("high 1"), IdlePriority::High);
    queue.Post(add("low 2"), IdlePriority::Low);
    queue.Post(add("high 2"), IdlePriority::High);
    queue.PostNext(add("next"));
    QCOMPARE(queue.Count(), 6);
    QTRY_COMPARE(queue.Count(), 0);
    QTRY_COMPARE(order, (QStringList{"next", "high 1", "high 2", "low 1", "low 2", "lowest"}));
}

void IdleQueueTest::DrainAlsoRunsWhatTheTasksPost()
{
    IdleQueue queue;
    QStringList order;
    queue.Post([&] {
        order += "first";
        queue.Post([&] { order += "posted"; });
        queue.Drain(); // a running task is not interrupted
    });
    queue.Post([&] { order += "second"; });
    queue.Drain();
    QCOMPARE(order, (QStringList{"first", "second", "posted"}));
    QCOMPARE(queue.Count(), 0);
}

void IdleQueueTest::NothingRunsWhileHeld()
{
    IdleQueue queue;
    bool ran = false;
    queue.Hold();
    queue.Hold();
    queue.Post([&] { ran = true; });
    queue.Release();
    QCoreApplication::processEvents();
    QVERIFY(!ran);
    queue.Release();
    QTRY_VERIFY(ran);
}

void IdleQueueTest::ATaskNeverRunsInsideAnother()
{
    IdleQueue queue;
    QStringList order;
    queue.Post([&] {
        order += "begin";
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        order += "end";
    });
    queue.Post([&] { order += "other"; });
    QTRY_COMPARE(order.size(), 3);
    QCOMPARE(order, (QStringList{"begin", "end", "other"}));
}

void IdleQueueTest::OneTaskPerTurnOfTheEventLoop()
{
    IdleQueue queue;
    int ran = 0;
    int mostInOneTurn = 0;
    for (int i = 0; i < 5; ++i)
        queue.Post([&] { ++ran; });
    while (queue.Count() > 0 || ran < 5) {
        const int before = ran;
        QCoreApplication::processEvents();
        mostInOneTurn = qMax(mostInOneTurn, ran - before);
    }
    QCOMPARE(mostInOneTurn, 1);
}

void IdleQueueTest::OtherThreadsMayPost()
{
    IdleQueue queue;
    QThread* const owner = QThread::currentThread();
    int ranOnOwner = 0;
    std::thread([&] {
        for (int i = 0; i < 100; ++i)
            queue.Post([&] { ranOnOwner += QThread::currentThread() == owner ? 1 : 0; });
    }).join();
    QTRY_COMPARE(ranOnOwner, 100);
}

void IdleQueueTest::AClosedQueueForgets()
{
    IdleQueue queue;
    bool ran = false;
    queue.Post([&] { ran = true; });
    queue.Close();
    queue.Post([&] { ran = true; });
    queue.PostNext([&] { ran = true; });
    QCOMPARE(queue.Count(), 0);
    queue.Drain();
    QCoreApplication::processEvents();
    QVERIFY(!ran);
}

TE2_TEST(IdleQueueTest)
#include "IdleQueueTest.moc"
