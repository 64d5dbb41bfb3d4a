#include "engine/Engine.h"

#include "support/TestMain.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace host;

namespace {

/// Answers as the test tells it and remembers the texts.
class FakeLanguage : public ScriptLanguage
{
public:
    ScriptResult Run(const QString& text) override
    {
        texts += text;
        if (during)
            during();
        return result;
    }
    ScriptResult RunFile(const QString&) override { return {}; }

    QStringList texts;
    ScriptResult result;
    std::function<void()> during;
};

QString Typed(const Message& message)
{
    return QString("%1:%2").arg(static_cast<int>(message.type)).arg(message.text);
}

} // namespace

/// Running texts as the script window does, events and stop requests.
class EngineTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void EchoTellsTheLanguagesApart_data();
    void EchoTellsTheLanguagesApart();
    void ResultFollowsOnlySuccessWithDisplay();
    void IdleWorkWaitsForTheScript();
    void StopRequestEndsWithTheOutermostScript();
    void ScriptsGetTheirArguments();
    void AFailedScriptIsShownAlready();
    void EventsReachThoseStillListening();
    void UnknownEventsAreRefused();
    void PreferencesSurviveASession();

private:
    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<Engine> m_engine;
    FakeLanguage m_mel;
    FakeLanguage m_python;
    QStringList m_heard;
};

void EngineTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_engine = std::make_unique<Engine>(RunState::Batch, m_directory->path());
    m_mel = FakeLanguage();
    m_python = FakeLanguage();
    m_engine->mel = &m_mel;
    m_engine->python = &m_python;
    m_heard.clear();
    m_engine->output.AddListener([this](const Message& message) { m_heard += Typed(message); });
}

void EngineTest::cleanup()
{
    m_engine.reset();
    QVERIFY(!Engine::Exists());
}

void EngineTest::EchoTellsTheLanguagesApart_data()
{
    Columns<bool, QString, QString>("mel", "text", "echo");
    Row("a missing semicolon is added", true, "ls", "ls;\n");
    Row("a semicolon is not doubled", true, "ls ; \n\n", "ls ;\n");
    Row("lines inside stay", true, "a;\nb", "a;\nb;\n");
    Row("python gets one line end", false, "x = 1\r\n\n", "x = 1\n");
    Row("python blanks stay", false, "if x:\n    y  ", "if x:\n    y  \n");
    Row("empty python", false, "", "\n");
}

void EngineTest::EchoTellsTheLanguagesApart()
{
    QFETCH(bool, mel);
    QFETCH(QString, text);
    QFETCH(QString, echo);
    m_engine->Execute(mel ? Language::Mel : Language::Python, text, true);
    QCOMPARE(m_heard, QStringList{"0:" + echo});
    QCOMPARE((mel ? m_mel : m_python).texts, QStringList{text});
}

void EngineTest::ResultFollowsOnlySuccessWithDisplay()
{
    m_mel.result.resultText = "7";
    m_engine->Execute(Language::Mel, "a", false);
    QCOMPARE(m_heard, QStringList());
    m_engine->Execute(Language::Mel, "a", true);
    QCOMPARE(m_heard, (QStringList{"0:a;\n", "5:7"}));
    m_mel.result.failed = true;
    m_engine->Execute(Language::Mel, "a", true);
    QCOMPARE(m_heard.size(), 3);
}

void EngineTest::IdleWorkWaitsForTheScript()
{
    QStringList order;
    m_mel.during = [&] {
        if (m_mel.texts.last() != "outer") {
            order += m_mel.texts.last();
            return;
        }
        m_engine->ExecuteOnIdle(Language::Mel, "later", false);
        QCoreApplication::processEvents();
        QCOMPARE(m_engine->RunningScripts(), 1);
        order += "outer";
    };
    m_engine->Execute(Language::Mel, "outer", false);
    QCOMPARE(order, QStringList{"outer"});
    QTRY_COMPARE(order, (QStringList{"outer", "later"}));
    QCOMPARE(m_engine->RunningScripts(), 0);
}

void EngineTest::StopRequestEndsWithTheOutermostScript()
{
    m_engine->interrupt.Request();
    {
        const ScriptScope outer(Language::Mel);
        QVERIFY(!m_engine->interrupt.Poll());
        m_engine->interrupt.Request();
        {
            const ScriptScope inner(Language::Python);
            QVERIFY(m_engine->interrupt.Poll());
        }
        QVERIFY(m_engine->interrupt.Poll());
    }
    QVERIFY(!m_engine->interrupt.IsRequested());
}

void EngineTest::ScriptsGetTheirArguments()
{
    const Script mel{Language::Mel, "f(#1, \"#2\", #3, #12)", nullptr};
    mel.Run({Value(5), Value(QString("x"))});
    QCOMPARE(m_mel.texts, QStringList{"f(5, \"x\", #3, #12)"});
    const Script python{Language::Python, "f() # 1 and #1", nullptr};
    python.Run({Value(5)});
    QCOMPARE(m_python.texts, QStringList{"f() # 1 and #1"});
    QVERIFY(Script().Run().Ok());
}

void EngineTest::AFailedScriptIsShownAlready()
{
    m_mel.result.failed = true;
    m_mel.result.errorText = "broken";
    const Outcome outcome = Script{Language::Mel, "x", nullptr}.Run();
    QVERIFY(!outcome.Ok());
    QCOMPARE(outcome.GetError().text, "broken");
    QVERIFY(outcome.GetError().shown);
}

void EngineTest::EventsReachThoseStillListening()
{
    QStringList order;
    Events& events = m_engine->events;
    int second = 0;
    int first = 0;
    first = events.Add("idle", [&] {
        order += "first";
        events.Remove(second);
        events.Remove(first);
        events.Add("idle", [&] { order += "new"; });
    });
    second = events.Add("idle", [&] { order += "second"; });
    events.Add("idle", [&] { order += "third"; });
    events.Fire("idle");
    QCOMPARE(order, (QStringList{"first", "third"}));
    events.Fire("idle");
    QCOMPARE(order, (QStringList{"first", "third", "third", "new"}));
}

void EngineTest::UnknownEventsAreRefused()
{
    QCOMPARE(m_engine->events.Add("noSuchEvent", [] {}), 0);
    QVERIFY(!m_engine->events.Remove(99));
    m_engine->events.Fire("noSuchEvent");
}

void EngineTest::PreferencesSurviveASession()
{
    m_engine->LoadPreferences();
    m_engine->optionVars.Set("kept", 3);
    m_engine->SavePreferences();
    m_engine.reset();
    Engine next(RunState::Batch, m_directory->path());
    next.LoadPreferences();
    QCOMPARE(next.optionVars.Get("kept"), Value(3));
    QCOMPARE(m_heard, QStringList());
}

TE2_TEST(EngineTest)
#include "EngineTest.moc"
