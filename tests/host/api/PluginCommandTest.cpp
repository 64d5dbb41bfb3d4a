#include "host/api/ApiFixture.h"
#include "support/TestMain.h"

#include <maya/MGlobal.h>

#include <QtTest>

using host::FloatList;
using host::IntList;
using host::Value;

Q_DECLARE_METATYPE(Value)

/// Commands of plug-ins as scripts see them.
class PluginCommandTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ApiFixture>();
        QVERIFY(m_host->Load("TypedCommand").Ok());
    }
    void cleanup() { m_host.reset(); }

    void GivesResultsOfEveryType_data();
    void GivesResultsOfEveryType();
    void DescribesItsFlagsWhenAskedFirst();
    void TakesKeywords();
    void KeywordsMeanWhatTheySay();
    void RefusesWrongFlags();
    void FailsWithTheReasonItGave();
    void FailsWithItsStatusOtherwise();
    void SurvivesAnException();
    void WordsReachACommandWithoutSyntax();
    void KeywordsNeedASyntax();
    void SimpleCommandsRun();
    void UndoesAndRedoes();
    void TextsThatMustNotBeUndoneAreNot();
    void ForgetsTheOldestStep();

private:
    host::Outcome RunKeywords(const QString& command, const QVector<host::Keyword>& keywords);

    std::unique_ptr<ApiFixture> m_host;
};

host::Outcome PluginCommandTest::RunKeywords(
    const QString& command, const QVector<host::Keyword>& keywords)
{
    const auto found = m_host->engine.commands.FindCommand(command);
    return host::CommandRegistry::Run(host::ReadKeywords(*found, {}, keywords));
}

void PluginCommandTest::GivesResultsOfEveryType_data()
{
    Columns<QString, Value>("words", "expected");
    Row("int", "-as int -c 3", Value(3));
    Row("int from float", "-as int -count 3.9", Value(3));
    Row("double", "-as double -r 0.5", Value(0.5));
    Row("bool", "-as bool -on yes", Value(true));
    Row("literal is no bool", "-as literal", Value(QString("a literal")));
    Row("string", "-as string -n \"two words\"", Value(QString("two words")));
    Row("two arguments", "-sz 3 4 -as size", Value(12));
    Row("ints", "-as ints -c 2", Value(IntList{2, 2}));
    Row("doubles", "-as doubles -r 2", Value(FloatList{2, 2}));
    Row("strings", "-as strings x \"y z\" 4", Value(QStringList{"x", "y z", "4"}));
    Row("appended", "-as appended -c 1 -r 0.5 -n x", Value(QStringList{"1", "0.5", "x"}));
    Row("repeated flag", "-lb a -as labels -label b", Value(QStringList{"a", "b"}));
    Row("none", "-as nothing", Value());
    Row("its own call", "-as command \"a b\" 2",
        Value(QString("typedCommand -as \"command\" \"a b\" 2")));
}

void PluginCommandTest::GivesResultsOfEveryType()
{
    QFETCH(QString, words);
    QFETCH(Value, expected);
    const host::ScriptResult result = m_host->Run("typedCommand " + words);
    QVERIFY2(!result.failed, qPrintable(result.errorText));
    QVERIFY2(result.value == expected, qPrintable(result.value.ToResultText()));
}

void PluginCommandTest::DescribesItsFlagsWhenAskedFirst()
{
    const auto command = m_host->engine.commands.FindCommand("typedCommand");
    QCOMPARE(command->GetOrigin(), host::CommandOrigin::PlugIn);
    QCOMPARE(command->owner, "TypedCommand");
    QVERIFY(!MGlobal::optionVarExists("typedCommandSyntax"));
    QVERIFY(command->CanQuery() && !command->CanEdit());
    QVERIFY(MGlobal::optionVarExists("typedCommandSyntax"));
    QStringList names;
    for (const host::Flag& flag : command->GetFlags())
        names += flag.shortName + '/' + flag.longName;
    QCOMPARE(names,
        (QStringList{"c/count", "on/enabled", "lb/label", "bad/misbehave", "n/name", "r/ratio",
            "as/resultType", "sz/size", "u/undoable"}));
    QVERIFY(command->FindFlag("label")->multiUse);
    QCOMPARE(command->GetObjects().maximum, 3);
}

void PluginCommandTest::TakesKeywords()
{
    const QVector<host::Keyword> keywords = {
        {"resultType", {{{QString("string"), {}, false, {}}}}},
        {"n", {{{QString("-looks like a flag"), {}, false, {}}}}},
    };
    const host::Outcome outcome = RunKeywords("typedCommand", keywords);
    QVERIFY2(outcome.Ok(), qPrintable(outcome.Ok() ? "" : outcome.GetError().text));
    QCOMPARE(outcome.GetValue().ToText(), "-looks like a flag");
}

void PluginCommandTest::KeywordsMeanWhatTheySay()
{
    const auto keyword = [](const char* name, bool value) {
        return host::Keyword{name, {{{value, {}, false, {}}}}};
    };
    const host::Outcome off
        = RunKeywords("typedCommand", {keyword("undoable", false), keyword("u", false)});
    QVERIFY(off.Ok());
    const host::Outcome query
        = RunKeywords("typedCommand", {keyword("q", true), keyword("count", true)});
    QVERIFY2(query.Ok(), qPrintable(query.Ok() ? "" : query.GetError().text));
    QCOMPARE(query.GetValue(), Value(2));
    QCOMPARE(m_host->Run("typedCommand -q").value, Value(0));
}

void PluginCommandTest::RefusesWrongFlags()
{
    QVERIFY(m_host->Run("typedCommand -nope").failed);
    QVERIFY(m_host->Run("typedCommand -edit").failed);
    QVERIFY(m_host->Run("typedCommand a b c d").failed);
    QCOMPARE(m_host->Run("typedCommand -q -count").value, Value(1));
    const host::Outcome outcome = RunKeywords("typedCommand", {{"nope", {{{1, {}, false, {}}}}}});
    QCOMPARE(outcome.GetError().text, "Invalid flag 'nope'");
    QCOMPARE(outcome.GetError().kind, host::ErrorKind::Type);
}

void PluginCommandTest::FailsWithTheReasonItGave()
{
    const host::ScriptResult result = m_host->Run("typedCommand -bad \"say why\"");
    QVERIFY(result.failed);
    QCOMPARE(result.errorText, "no such thing");
    QCOMPARE(m_host->Texts(host::MessageType::Error), QStringList{"no such thing"});
}

void PluginCommandTest::FailsWithItsStatusOtherwise()
{
    QVERIFY(m_host->Run("typedCommand -bad silently").failed);
    QCOMPARE(m_host->Texts(host::MessageType::Error),
        QStringList{"(kFailure): Unexpected Internal Failure"});
}

void PluginCommandTest::SurvivesAnException()
{
    QVERIFY(m_host->Run("typedCommand -bad throw").failed);
    QCOMPARE(m_host->Texts(host::MessageType::Error),
        QStringList{"typedCommand: unhandled exception: out of luck"});
    QVERIFY(!m_host->Run("typedCommand -as literal").failed);
    QVERIFY(m_host->engine.plugins.Unload("TypedCommand", false).Ok());
}

void PluginCommandTest::WordsReachACommandWithoutSyntax()
{
    QVERIFY(m_host->Load("RawCommand").Ok());
    QCOMPARE(m_host->Run("rawCommand a -flag \"b c\" 1.50").value,
        Value(QStringList{"a", "-flag", "b c", "1.50"}));
    QCOMPARE(m_host->Run("rawCommand x -sum 1 2 3").value, Value(6));
}

void PluginCommandTest::KeywordsNeedASyntax()
{
    QVERIFY(m_host->Load("RawCommand").Ok());
    const host::Outcome outcome = RunKeywords("rawCommand", {{"sum", {{{1, {}, false, {}}}}}});
    QVERIFY(!outcome.Ok());
    QCOMPARE(outcome.GetError().text, "Invalid flag 'sum'");
    QCOMPARE(outcome.GetError().kind, host::ErrorKind::Type);
}

void PluginCommandTest::SimpleCommandsRun()
{
    QVERIFY(m_host->Load("simpleGreeting").Ok());
    QCOMPARE(m_host->Run("simpleGreeting you").value, Value(QString("Hello you")));
    QVERIFY(m_host->engine.plugins.Unload("simpleGreeting", false).Ok());
    QVERIFY(m_host->Run("simpleGreeting you").failed);
}

void PluginCommandTest::UndoesAndRedoes()
{
    m_host->Run("typedCommand -undoable");
    m_host->Run("typedCommand -u");
    m_host->engine.undoQueue.Undo();
    QCOMPARE(m_host->Run("typedCommand -q").value, Value(1));
    m_host->engine.undoQueue.Redo();
    QCOMPARE(m_host->Run("typedCommand -q").value, Value(2));
    m_host->engine.undoQueue.Undo();
    m_host->Run("typedCommand -u"); // What was undone is lost now.
    m_host->engine.undoQueue.Redo();
    QCOMPARE(m_host->Run("typedCommand -q").value, Value(2));
    QCOMPARE(m_host->engine.undoQueue.UndoNames(),
        (QStringList{"typedCommand -u", "typedCommand -undoable"}));
    QVERIFY(m_host->engine.undoQueue.RedoNames().isEmpty());
}

void PluginCommandTest::TextsThatMustNotBeUndoneAreNot()
{
    QVERIFY(MGlobal::executeCommand("typedCommand -u"));
    QVERIFY(MGlobal::executeCommand("typedCommand -u", false, true));
    m_host->engine.undoQueue.Undo();
    m_host->engine.undoQueue.Undo();
    QCOMPARE(m_host->Run("typedCommand -q").value, Value(1));
}

void PluginCommandTest::ForgetsTheOldestStep()
{
    constexpr int STEPS = 60;
    constexpr int KEPT = 50;
    for (int i = 0; i < STEPS; ++i)
        m_host->Run("typedCommand -u");
    for (int i = 0; i < STEPS; ++i)
        m_host->engine.undoQueue.Undo();
    QCOMPARE(m_host->Run("typedCommand -q").value, Value(STEPS - KEPT));
}

TE2_TEST(PluginCommandTest)
#include "PluginCommandTest.moc"
