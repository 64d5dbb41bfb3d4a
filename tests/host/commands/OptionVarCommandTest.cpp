#include "CommandsFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

/// Option variables as scripts use them, from both languages.
class OptionVarCommandTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<CommandsFixture>(); }
    void cleanup() { m_host.reset(); }

    void StoresByType_data();
    void StoresByType();
    void PythonGivesTuplesAndLists();

private:
    Value Stored(const QString& name) const { return m_host->GetEngine().optionVars.Get(name); }

    std::unique_ptr<CommandsFixture> m_host;
};

void OptionVarCommandTest::StoresByType_data()
{
    Columns<QString, QString, QString>("flags", "kind", "result");
    Row("int", "-iv v 5", "int", "5");
    Row("int from a fraction", "-iv v 2.9", "int", "2");
    Row("float from an int", "-fv v 2", "float", "2");
    Row("text keeps its digits", "-sv v 007", "string", "007");
    Row("two ints", "-iv2 v 1 2", "int[]", "1 2");
    Row("four floats", "-fv4 v 1 2 3 0.5", "float[]", "1 2 3 0.5");
    Row("appending starts an array", "-iva v 4", "int[]", "4");
    Row("appending twice", "-sva v a -sva v b", "string[]", "a b");
    Row("appending to a scalar keeps it", "-iv v 1 -iva v 2", "int[]", "1 2");
    Row("appending another kind starts anew", "-sv v x -fva v 2.5", "float[]", "2.5");
    Row("empty array", "-sa v", "string[]", "");
}

void OptionVarCommandTest::StoresByType()
{
    QFETCH(QString, flags);
    m_host->Run("optionVar " + flags);
    QTEST(KindName(Stored("v").GetKind()), "kind");
    QTEST(m_host->Run("optionVar -q v"), "result");
}

void OptionVarCommandTest::PythonGivesTuplesAndLists()
{
    const auto command = m_host->GetEngine().commands.FindCommand("optionVar");
    const auto word = [](const Value& value) { return Word{value, {}, false, {}}; };
    CommandRegistry::Run(ReadKeywords(*command, {},
        {{"sv", {{word(QString("a")), word(QString("x"))}, {word(QString("b")), word(5)}}}}));
    QCOMPARE(Stored("a"), Value(QString("x")));
    QCOMPARE(Stored("b"), Value(QString("5")));
    const Outcome asked
        = CommandRegistry::Run(ReadKeywords(*command, {}, {{"q", {{word(QString("a"))}}}}));
    QCOMPARE(asked.GetValue(), Value(QString("x")));
    const Outcome exists
        = CommandRegistry::Run(ReadKeywords(*command, {}, {{"exists", {{word(QString("a"))}}}}));
    QCOMPARE(exists.GetValue(), Value(true));
}

TE2_TEST(OptionVarCommandTest)
#include "OptionVarCommandTest.moc"
