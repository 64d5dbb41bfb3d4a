#include "plugin/OutputQueue.h"

#include "plugin/OutputFraming.h"
#include "support/TestMain.h"

#include <QtTest>

#include <thread>
#include <vector>

/// Threads print while the interface shows what they print, and prints itself.
class OutputQueueTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EveryTextIsShownInItsOrder();
    void WhatWaitsGoesWithTheQueue();
};

void OutputQueueTest::EveryTextIsShownInItsOrder()
{
    constexpr int THREADS = 4;
    constexpr int TEXTS = 300;
    OutputFraming framing;
    QVector<QStringList> shown(THREADS + 1);
    QVector<QStringList> wanted(THREADS + 1);
    OutputQueue queue([&shown](const OutputText& output) {
        shown[output.text.section(' ', 0, 0).toInt()] += output.text; // by the one that printed it
    });
    const auto print = [&](int who, int number) {
        // The end of what is echoed tells the language of what follows.
        const QString text = QString("%1 %2%3\n").arg(who).arg(number).arg(number % 2 ? "" : ";");
        queue.Append(*framing.Frame(text, MCommandMessage::kDisplay));
        return text;
    };

    std::vector<std::thread> threads;
    for (int who = 0; who < THREADS; ++who) {
        threads.emplace_back([&print, &own = wanted[who], who] {
            for (int number = 0; number < TEXTS; ++number)
                own += print(who, number);
        });
    }
    for (int number = 0; number < TEXTS; ++number) {
        wanted[THREADS] += print(THREADS, number);
        if (number % 3 == 0)
            QCoreApplication::processEvents();
    }
    for (std::thread& thread : threads)
        thread.join();
    QCoreApplication::processEvents();
    QCOMPARE(shown, wanted);
}

void OutputQueueTest::WhatWaitsGoesWithTheQueue()
{
    QStringList shown;
    auto queue = std::make_unique<OutputQueue>(
        [&shown](const OutputText& output) { shown += output.text; });
    std::thread([&queue] { queue->Append({"before"}); }).join();
    queue->Append({"own"});
    std::thread([&queue] { queue->Append({"too late"}); }).join();
    queue.reset();
    QCoreApplication::processEvents();
    QCOMPARE(shown, (QStringList{"before", "own"}));
}

TE2_TEST(OutputQueueTest)
#include "OutputQueueTest.moc"
