#include "engine/OutputHistory.h"
#include "support/TestMain.h"

#include <QtTest>

#include <thread>

using namespace host;

/// Who gets what the host prints, in which order, and what its own log keeps.
class OutputStreamTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ListenersHearEverythingInOrder();
    void AFilterSilencesDisplaysWhereverItStands();
    void ARemovedListenerHearsNothingMore();
    void ListenersMayWriteButNotForever();
    void WritingFromManyThreadsLosesNothing();
    void LanguageBelongsToTheThreadAndScope();
    void FramesEachTypeOfMessage_data();
    void FramesEachTypeOfMessage();
    void HistoryJoinsPrintsAndSelects();
    void HistoryDropsTheOldestWhenFull();
    void ClearedHistoryStartsAnew();
};

void OutputStreamTest::ListenersHearEverythingInOrder()
{
    OutputStream output;
    QStringList heard;
    output.AddListener([&](const Message& message) { heard += "1:" + message.text; });
    output.AddListener([&](const Message& message) { heard += "2:" + message.text; });
    output.Info("a");
    output.Display("b\n");
    QCOMPARE(heard, (QStringList{"1:a", "2:a", "1:b\n", "2:b\n"}));
}

void OutputStreamTest::AFilterSilencesDisplaysWhereverItStands()
{
    OutputStream output;
    QStringList shown;
    QStringList heard;
    // The host's log is there before any plug-in adds a filter.
    output.AddDisplay([&](const Message& message) { shown += message.text; });
    output.AddListener([&](const Message& message) { heard += message.text; });
    const int filter
        = output.AddFilter([](const Message& message) { return message.text == "secret"; });
    output.AddDisplay([&](const Message& message) { shown += "late " + message.text; });
    output.Info("secret");
    output.Info("open");
    QCOMPARE(heard, (QStringList{"secret", "open"}));
    QCOMPARE(shown, (QStringList{"open", "late open"}));
    output.Remove(filter);
    output.Info("secret");
    QCOMPARE(shown.size(), 4);
}

void OutputStreamTest::ARemovedListenerHearsNothingMore()
{
    OutputStream output;
    int first = 0;
    int second = 0;
    int secondCalls = 0;
    first = output.AddListener([&](const Message&) {
        output.Remove(second);
        output.Remove(first);
    });
    second = output.AddListener([&](const Message&) { ++secondCalls; });
    QVERIFY(first != 0 && second != 0 && first != second);
    output.Info("x");
    output.Info("y");
    QCOMPARE(secondCalls, 0);
}

void OutputStreamTest::ListenersMayWriteButNotForever()
{
    OutputStream output;
    int count = 0;
    output.AddListener([&](const Message& message) {
        ++count;
        output.Info(message.text);
    });
    output.Info("echo");
    QCOMPARE(count, int(OutputStream::MAXIMUM_NESTING));
    output.Info("again");
    QCOMPARE(count, 2 * OutputStream::MAXIMUM_NESTING);
}

void OutputStreamTest::WritingFromManyThreadsLosesNothing()
{
    constexpr int THREADS = 4;
    constexpr int WRITES = 500;
    OutputStream output;
    OutputHistory history;
    output.AddDisplay([&](const Message& message) { history.Append(message); });
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < WRITES; ++k) {
                output.Display("x");
                output.Remove(output.AddListener([](const Message&) {}));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(history.Text().size(), THREADS * WRITES);
}

void OutputStreamTest::LanguageBelongsToTheThreadAndScope()
{
    OutputStream output;
    QVector<Language> languages;
    output.AddListener([&](const Message& message) { languages += message.language; });
    {
        const LanguageScope python(Language::Python);
        output.Info("a");
        std::thread([&] { output.Info("b"); }).join();
        {
            const LanguageScope mel(Language::Mel);
            output.Info("c");
        }
        output.Info("d");
    }
    output.Info("e");
    QCOMPARE(languages,
        (QVector<Language>{
            Language::Python, Language::Mel, Language::Mel, Language::Python, Language::Mel}));
}

void OutputStreamTest::FramesEachTypeOfMessage_data()
{
    Columns<int, QString, QString>("type", "mel", "python");
    Row("history", int(MessageType::History), "a\nb", "a\nb");
    Row("display", int(MessageType::Display), "a\nb", "a\nb");
    Row("info", int(MessageType::Info), "// a\nb //\n", "# a\nb #\n");
    Row("warning", int(MessageType::Warning), "// Warning: a\nb //\n", "# Warning: a\nb #\n");
    Row("error", int(MessageType::Error), "// Error: a\nb //\n", "# Error: a\nb #\n");
    Row("result", int(MessageType::Result), "// Result: a\nb //\n", "# Result: a\nb #\n");
    Row("stack trace", int(MessageType::StackTrace), "// a\n// b\n", "# a\n# b\n");
}

void OutputStreamTest::FramesEachTypeOfMessage()
{
    QFETCH(int, type);
    const auto messageType = static_cast<MessageType>(type);
    QTEST(FramedText({messageType, "a\nb", Language::Mel}), "mel");
    QTEST(FramedText({messageType, "a\nb", Language::Python}), "python");
}

void OutputStreamTest::HistoryJoinsPrintsAndSelects()
{
    OutputHistory history;
    history.Append({MessageType::Display, "one ", Language::Mel});
    history.Append({MessageType::Display, "two\n", Language::Mel});
    history.Append({MessageType::Display, "three\n", Language::Python});
    history.Append({MessageType::Result, "5", Language::Mel});
    QCOMPARE(history.Text(), "one two\nthree\n// Result: 5 //\n");
    const auto isMel = [](const Message& message) { return message.language == Language::Mel; };
    QCOMPARE(history.Text(isMel), "one two\n// Result: 5 //\n");
}

void OutputStreamTest::HistoryDropsTheOldestWhenFull()
{
    OutputHistory history;
    const QString page(1024 * 1024, 'p');
    const int pages = OutputHistory::MAXIMUM_CHARACTERS / page.size();
    for (int i = 0; i < pages + 5; ++i)
        history.Append({MessageType::History, page, Language::Mel});
    history.Append({MessageType::History, "last", Language::Mel});
    const QString text = history.Text();
    QVERIFY(text.endsWith("last"));
    QVERIFY(text.size() <= OutputHistory::MAXIMUM_CHARACTERS);
    QVERIFY(text.size() > OutputHistory::MAXIMUM_CHARACTERS - 2 * page.size());
}

void OutputStreamTest::ClearedHistoryStartsAnew()
{
    OutputHistory history;
    history.Append({MessageType::Display, "before", Language::Mel});
    history.Clear();
    QCOMPARE(history.Text(), QString());
    history.Append({MessageType::Display, "after", Language::Mel});
    QCOMPARE(history.Text(), "after");
}

TE2_TEST(OutputStreamTest)
#include "OutputStreamTest.moc"
