#include "host/api/ApiFixture.h"
#include "support/TestMain.h"

#include <maya/MCommandResult.h>
#include <maya/MDoubleArray.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>

#include <QtTest>

#include <thread>

using host::FloatList;
using host::IntList;
using host::MessageType;
using host::Value;

Q_DECLARE_METATYPE(Value)

/// MGlobal and MCommandResult.
class GlobalTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<ApiFixture>(); }
    void cleanup() { m_host.reset(); }

    void ResultsFitOrFail_data();
    void ResultsFitOrFail();
    void TellsTheTypeOfAnyResult_data();
    void TellsTheTypeOfAnyResult();
    void MatricesKeepTheirShape();
    void VariablesChooseTheOverload();
    void ShowsTextAndResultOnRequest();
    void FailsWhenTheTextDoes();
    void RunsOnTheMainThreadOnly();
    void IdleTextsWaitTheirTurn();
    void OtherThreadsMayQueueAndDisplay();
    void IdleTasksSurviveExceptions();
    void SourcesFiles();
    void OptionVariablesConvert();
    void FailsPolitelyWithoutAHost();

private:
    std::unique_ptr<ApiFixture> m_host;
};

void GlobalTest::ResultsFitOrFail_data()
{
    Columns<Value>("value");
    // Which of int, double, string, int[], double[], string[] accept it.
    Columns<QString>("accepted");
    Row("none", Value(), "");
    Row("bool", Value(true), "i d s i[]");
    Row("int", Value(3), "i d s i[]");
    Row("double", Value(2.5), "d s d[]");
    Row("string", Value(QString("12")), "s s[]");
    Row("ints", Value(IntList{1, 2}), "i[]");
    Row("doubles", Value(FloatList{1, 2}), "d[]");
    Row("strings", Value(QStringList{"a", "b"}), "s[]");
    Row("empty array", Value(QStringList()), "i[] d[] s[]");
    Row("vector", Value(host::Vector{1, 2, 3}), "");
}

void GlobalTest::ResultsFitOrFail()
{
    QFETCH(Value, value);
    QFETCH(QString, accepted);
    m_host->mel.answers.insert("x", value);
    m_host->python.answers.insert("x", value);
    int whole = 0;
    double real = 0;
    MString text;
    MIntArray wholes;
    MDoubleArray reals;
    MStringArray texts;
    QStringList found;
    const auto note = [&](const MStatus& mel, const MStatus& python, const char* name) {
        QCOMPARE(mel, python);
        if (mel)
            found += name;
    };
    using G = MGlobal;
    note(G::executeCommand("x", whole), G::executePythonCommand("x", whole), "i");
    note(G::executeCommand("x", real), G::executePythonCommand("x", real), "d");
    note(G::executeCommand("x", text), G::executePythonCommand("x", text), "s");
    note(G::executeCommand("x", wholes), G::executePythonCommand("x", wholes), "i[]");
    note(G::executeCommand("x", reals), G::executePythonCommand("x", reals), "d[]");
    note(G::executeCommand("x", texts), G::executePythonCommand("x", texts), "s[]");
    QCOMPARE(found.join(' '), accepted);
    QCOMPARE(m_host->messages.size(), 0);
    if (accepted.contains("s "))
        QCOMPARE(QString(text.asChar()), value.Normalized().ToText());
}

void GlobalTest::TellsTheTypeOfAnyResult_data()
{
    Columns<Value, int>("value", "type");
    Row("none", Value(), int(MCommandResult::kInvalid));
    Row("bool is int", Value(false), int(MCommandResult::kInt));
    Row("int", Value(3), int(MCommandResult::kInt));
    Row("double", Value(2.5), int(MCommandResult::kDouble));
    Row("string", Value(QString("a")), int(MCommandResult::kString));
    Row("ints", Value(IntList{1}), int(MCommandResult::kIntArray));
    Row("strings", Value(QStringList{"a"}), int(MCommandResult::kStringArray));
    Row("vector", Value(host::Vector()), int(MCommandResult::kVector));
}

void GlobalTest::TellsTheTypeOfAnyResult()
{
    QFETCH(Value, value);
    QFETCH(int, type);
    m_host->mel.answers.insert("x", value);
    MCommandResult result;
    QVERIFY(MGlobal::executeCommand("x", result));
    QCOMPARE(int(result.resultType()), type);
    int number = -1;
    QCOMPARE(bool(result.getResult(number)), type == MCommandResult::kInt);
    MStatus status;
    const QString text(result.stringResult(&status).asChar());
    QCOMPARE(text, status ? value.Normalized().ToText() : QString());
}

void GlobalTest::MatricesKeepTheirShape()
{
    m_host->mel.answers.insert("x", Value(host::Matrix{2, 3, {1, 2, 3, 4, 5, 6}}));
    MCommandResult result;
    QVERIFY(MGlobal::executeCommand("x", result));
    MDoubleArray cells;
    int rows = 0;
    int columns = 0;
    QVERIFY(result.getResult(cells, rows, columns));
    QCOMPARE(rows * 10 + columns, 23);
    QCOMPARE(cells[5], 6.0);
    QVERIFY(!result.getResult(cells));
}

void GlobalTest::VariablesChooseTheOverload()
{
    m_host->mel.answers.insert("x", Value(5));
    int number = 1;
    QVERIFY(MGlobal::executeCommand("x", number));
    QCOMPARE(number, 5);
    QCOMPARE(m_host->messages.size(), 0);
    bool display = true;
    QVERIFY(MGlobal::executeCommand("x", display));
    QCOMPARE(m_host->messages.size(), 2);
    QVERIFY(display);
}

void GlobalTest::ShowsTextAndResultOnRequest()
{
    m_host->mel.answers.insert("x", Value(5));
    m_host->python.answers.insert("x", Value(6));
    QCOMPARE(MGlobal::executeCommandStringResult("x", true).asChar(), "5");
    QCOMPARE(MGlobal::executePythonCommandStringResult("x", true).asChar(), "6");
    QCOMPARE(m_host->Texts(MessageType::History), (QStringList{"x;\n", "x\n"}));
    QCOMPARE(m_host->Texts(MessageType::Result), (QStringList{"5", "6"}));
}

void GlobalTest::FailsWhenTheTextDoes()
{
    MStatus status;
    QCOMPARE(MGlobal::executeCommandStringResult("nope", true, false, &status).length(), 0u);
    QCOMPARE(status.statusCode(), MS::kFailure);
    QCOMPARE(m_host->Texts(MessageType::Error), QStringList{"Cannot find procedure \"nope\"."});
    QCOMPARE(m_host->Texts(MessageType::Result), QStringList{});
    MCommandResult result;
    QVERIFY(!MGlobal::executeCommand("nope", result));
    QCOMPARE(int(result.resultType()), int(MCommandResult::kInvalid));
}

void GlobalTest::RunsOnTheMainThreadOnly()
{
    MStatus status;
    std::thread([&] { status = MGlobal::executeCommand("x"); }).join();
    QCOMPARE(status.statusCode(), MS::kFailure);
    QVERIFY(m_host->mel.texts.isEmpty());
    m_host->engine.idle.Drain();
    QCOMPARE(m_host->Texts(MessageType::Error).size(), 1);
}

void GlobalTest::IdleTextsWaitTheirTurn()
{
    m_host->mel.answers.insert("a", Value());
    m_host->mel.answers.insert("b", Value());
    QVERIFY(MGlobal::executeCommandOnIdle("a", true));
    QVERIFY(MGlobal::executeCommandOnIdle("b"));
    QVERIFY(m_host->mel.texts.isEmpty());
    QTRY_COMPARE(m_host->mel.texts, (QStringList{"a", "b"}));
    QCOMPARE(m_host->Texts(MessageType::History), QStringList{"a;\n"});
}

void GlobalTest::OtherThreadsMayQueueAndDisplay()
{
    m_host->python.answers.insert("x", Value());
    std::thread([] {
        MGlobal::displayInfo("info");
        MGlobal::displayWarning("warning");
        MGlobal::executePythonCommandOnIdle("x");
    }).join();
    QCOMPARE(m_host->messages.size(), 0);
    QTRY_COMPARE(m_host->python.texts, QStringList{"x"});
    QCOMPARE(m_host->Texts(MessageType::Info), QStringList{"info"});
    QCOMPARE(m_host->Texts(MessageType::Warning), QStringList{"warning"});
    MGlobal::displayError("error");
    QCOMPARE(m_host->Texts(MessageType::Error), QStringList{"error"});
}

void GlobalTest::IdleTasksSurviveExceptions()
{
    int count = 0;
    MGlobal::executeTaskOnIdle([](void*) { throw 1; });
    MGlobal::executeTaskOnIdle([](void* data) { ++*static_cast<int*>(data); }, &count);
    MGlobal::executeTaskOnIdle(
        [](void* data) { *static_cast<int*>(data) += 10; }, &count, MGlobal::kHighIdlePriority);
    QTRY_COMPARE(count, 11);
    QCOMPARE(m_host->Texts(MessageType::Error), QStringList{"Idle task: unknown exception"});
}

void GlobalTest::SourcesFiles()
{
    m_host->mel.answers.insert("there.mel", Value());
    QVERIFY(MGlobal::sourceFile("there.mel"));
    QVERIFY(!MGlobal::sourceFile("missing.mel"));
    QCOMPARE(m_host->mel.files, (QStringList{"there.mel", "missing.mel"}));
}

void GlobalTest::OptionVariablesConvert()
{
    MGlobal::setOptionVarValue("int", true);
    MGlobal::setOptionVarValue("double", 2.75);
    MGlobal::setOptionVarValue("string", MString("12"));
    bool exists = false;
    QCOMPARE(MGlobal::optionVarIntValue("double", &exists), 2);
    QVERIFY(exists);
    QCOMPARE(MGlobal::optionVarDoubleValue("int"), 1.0);
    QCOMPARE(MGlobal::optionVarIntValue("string"), 0);
    QCOMPARE(MGlobal::optionVarStringValue("string").asChar(), "12");
    QCOMPARE(MGlobal::optionVarStringValue("int").asChar(), "");
    MGlobal::removeOptionVar("int");
    QCOMPARE(MGlobal::optionVarIntValue("int", &exists), 0);
    QVERIFY(!exists && !MGlobal::optionVarExists("int"));
    QVERIFY(m_host->engine.optionVars.Contains("double"));
}

void GlobalTest::FailsPolitelyWithoutAHost()
{
    m_host.reset();
    QVERIFY(!MGlobal::executeCommand("x"));
    QVERIFY(!MGlobal::executeCommandOnIdle("x"));
    QVERIFY(!MGlobal::setOptionVarValue("x", 1));
    QCOMPARE(MGlobal::optionVarIntValue("x"), 0);
    MGlobal::displayWarning("nobody listens");
}

TE2_TEST(GlobalTest)
#include "GlobalTest.moc"
