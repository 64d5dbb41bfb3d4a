#include "host/api/ApiFixture.h"
#include "support/TestMain.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MCommandMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MGlobal.h>

#include <QSemaphore>
#include <QtTest>

#include <stdexcept>
#include <thread>

using host::MessageType;

namespace {

struct Record
{
    QStringList texts;
    MCallbackId own = 0;
    MCallbackId other = 0;
    MCallbackId seen = 0;
};

void OnOutput(const MString& text, MCommandMessage::MessageType type, void* clientData)
{
    auto& record = *static_cast<Record*>(clientData);
    record.texts += QString::number(type) + ':' + text.asUTF8();
    record.seen = MMessage::currentCallbackId();
}

} // namespace

/// Callbacks for output and events.
class CallbacksTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<ApiFixture>(); }
    void cleanup() { m_host.reset(); }

    void OutputArrivesAsItIs();
    void FiltersKeepMessagesFromTheHostOnly();
    void RemovesEachIdOnce();
    void RemovesItselfAndOthersWhileCalled();
    void EventsNeedAKnownName();
    void ExceptionsStopAtTheBorder();
    void PluginsHearOfCalls();
    void RemovalWaitsForOtherThreads();
    void CallbacksEndWithTheHost();

private:
    std::unique_ptr<ApiFixture> m_host;
};

void CallbacksTest::OutputArrivesAsItIs()
{
    Record record;
    MStatus status;
    record.own = MCommandMessage::addCommandOutputCallback(OnOutput, &record, &status);
    QVERIFY(status && record.own);
    for (int type = 0; type <= int(MessageType::StackTrace); ++type)
        m_host->engine.output.Write(static_cast<MessageType>(type), "x");
    m_host->engine.output.Display(QString::fromUtf8("é\n"));
    QCOMPARE(record.texts,
        (QStringList{"0:x", "1:x", "2:x", "3:x", "4:x", "5:x", "6:x", QString::fromUtf8("1:é\n")}));
    QCOMPARE(record.seen, record.own);
    QCOMPARE(MMessage::currentCallbackId(), MCallbackId(0));
    std::thread([this] { m_host->engine.output.Display("y"); }).join();
    QCOMPARE(record.texts.last(), "1:y");
    QVERIFY(MMessage::removeCallback(record.own));
}

void CallbacksTest::FiltersKeepMessagesFromTheHostOnly()
{
    Record record;
    MCallbackIdArray ids;
    ids.append(MCommandMessage::addCommandOutputCallback(OnOutput, &record));
    ids.append(MCommandMessage::addCommandOutputFilterCallback(
        [](const MString& text, MCommandMessage::MessageType, bool& filterOutput, void*) {
            filterOutput = text == "secret";
        }));
    m_host->engine.output.Info("secret");
    m_host->engine.output.Info("public");
    QCOMPARE(m_host->Texts(MessageType::Info), QStringList{"public"});
    QCOMPARE(record.texts, (QStringList{"2:secret", "2:public"}));
    QVERIFY(MMessage::removeCallbacks(ids));
    m_host->engine.output.Info("secret");
    QCOMPARE(m_host->Texts(MessageType::Info).last(), "secret");
    QCOMPARE(record.texts.size(), 2);
}

void CallbacksTest::RemovesEachIdOnce()
{
    Record record;
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(OnOutput, &record);
    QCOMPARE(MEventMessage::removeCallback(id).statusCode(), MS::kSuccess);
    QCOMPARE(MMessage::removeCallback(id).statusCode(), MS::kFailure);
    QCOMPARE(MMessage::removeCallback(0).statusCode(), MS::kInvalidParameter);
    QCOMPARE(MMessage::removeCallback(id + 1000).statusCode(), MS::kInvalidParameter);
    MStatus status;
    QCOMPARE(MCommandMessage::addCommandOutputCallback(nullptr, nullptr, &status), MCallbackId(0));
    QCOMPARE(status.statusCode(), MS::kInvalidParameter);
}

void CallbacksTest::RemovesItselfAndOthersWhileCalled()
{
    Record record;
    record.own = MCommandMessage::addCommandOutputCallback(
        [](const MString& text, MCommandMessage::MessageType type, void* data) {
            OnOutput(text, type, data);
            auto& both = *static_cast<Record*>(data);
            MMessage::removeCallback(both.own);
            MMessage::removeCallback(both.other);
        },
        &record);
    record.other = MCommandMessage::addCommandOutputCallback(OnOutput, &record);
    m_host->engine.output.Display("once");
    m_host->engine.output.Display("twice");
    QCOMPARE(record.texts, QStringList{"1:once"});
}

void CallbacksTest::EventsNeedAKnownName()
{
    int count = 0;
    const auto add = [](void* data) { ++*static_cast<int*>(data); };
    MStatus status;
    QCOMPARE(MEventMessage::addEventCallback("noSuchEvent", add, &count, &status), MCallbackId(0));
    QCOMPARE(status.statusCode(), MS::kUnknownParameter);
    const MCallbackId id = MEventMessage::addEventCallback("quitApplication", add, &count, &status);
    QVERIFY(id && status);
    m_host->engine.events.Fire("quitApplication");
    MMessage::removeCallback(id);
    m_host->engine.events.Fire("quitApplication");
    QCOMPARE(count, 1);
    MStringArray names;
    QVERIFY(MEventMessage::getEventNames(names));
    QVERIFY(names.indexOf("quitApplication") >= 0);
}

void CallbacksTest::ExceptionsStopAtTheBorder()
{
    Record record;
    MCommandMessage::addCommandOutputCallback(
        [](const MString&, MCommandMessage::MessageType, void*) {
            throw std::runtime_error("in a callback");
        });
    MCommandMessage::addCommandOutputCallback(OnOutput, &record);
    MEventMessage::addEventCallback("idle", [](void*) { throw std::runtime_error("in an event"); });
    m_host->engine.output.Display("x");
    m_host->engine.events.Fire("idle");
    QCOMPARE(record.texts, (QStringList{"1:x", "4:idle: unhandled exception: in an event"}));
}

void CallbacksTest::PluginsHearOfCalls()
{
    using host::CallNotice;
    QVERIFY(m_host->Load("ListeningPlugin").Ok());
    host::CallListeners& listeners = m_host->engine.callListeners;
    {
        const host::CallScope outer(listeners, "work", CallNotice::Kind::Procedure);
        const host::CallScope inner(listeners, "ls", CallNotice::Kind::Command);
        listeners.TellCommand("ls -sl;");
    }
    m_host->engine.events.Fire("SelectionChanged");
    m_host->engine.idle.Drain();
    const auto heard = [](const char* name) {
        return QString::fromUtf8(MGlobal::optionVarStringValue(name).asUTF8());
    };
    QCOMPARE(heard("heardCommands"), "ls -sl;;");
    QCOMPARE(heard("heardCalls"), "work>1p;ls>2c;ls<2c;work<1p;");
    QCOMPARE(heard("heardEvents"), "SelectionChanged;idle;");
    QVERIFY(m_host->engine.plugins.Unload("ListeningPlugin", false).Ok());
    QVERIFY(!listeners.HearsCommands() && !listeners.HearsCalls());
    QVERIFY(m_host->Texts(MessageType::Warning).isEmpty());
}

void CallbacksTest::RemovalWaitsForOtherThreads()
{
    struct Meeting
    {
        QSemaphore entered;
        QSemaphore leave;
        std::atomic<bool> left{false};
    } meeting;
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(
        [](const MString&, MCommandMessage::MessageType, void* data) {
            auto& shared = *static_cast<Meeting*>(data);
            shared.entered.release();
            shared.leave.acquire();
            shared.left = true;
        },
        &meeting);
    std::thread printer([this] { m_host->engine.output.Display("x"); });
    meeting.entered.acquire();
    std::thread doorman([&] { meeting.leave.release(); });
    QVERIFY(MMessage::removeCallback(id));
    QVERIFY(meeting.left);
    doorman.join();
    printer.join();
}

void CallbacksTest::CallbacksEndWithTheHost()
{
    Record record;
    const MCallbackId id = MCommandMessage::addCommandOutputCallback(OnOutput, &record);
    m_host.reset();
    QCOMPARE(MMessage::removeCallback(id).statusCode(), MS::kFailure);
    m_host = std::make_unique<ApiFixture>();
    m_host->engine.output.Display("x");
    QVERIFY(record.texts.isEmpty());
}

TE2_TEST(CallbacksTest)
#include "CallbacksTest.moc"
