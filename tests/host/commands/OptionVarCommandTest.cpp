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
    void AMissingNameIsZero();
    void RemovalsComeFirst();
    void ListsAndSizes();
    void InitialValuesDoNotOverwrite();
    void StashedValuesComeBack();
    void OnlyWhatLastsIsSaved();
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

void OptionVarCommandTest::AMissingNameIsZero()
{
    QCOMPARE(m_host->Run("optionVar -q nothing"), "0");
    QCOMPARE(m_host->Run("optionVar -exists nothing"), "0");
    QCOMPARE(m_host->Run("optionVar -arraySize nothing"), "0");
    QVERIFY(m_host->Run("optionVar -q").startsWith("error: "));
    QVERIFY(m_host->Run("optionVar -iv v").startsWith("error: Flag '-intValue' must be passed"));
}

void OptionVarCommandTest::RemovalsComeFirst()
{
    m_host->Run("optionVar -sva list a -sva list b -iv other 1");
    m_host->Run("optionVar -sva list c -remove list -remove other");
    QCOMPARE(Stored("list"), Value(QStringList{"c"}));
    QVERIFY(Stored("other").IsNone());
    m_host->Run("optionVar -sva list d -removeFromArray list 0");
    QCOMPARE(Stored("list"), Value(QStringList{"d"}));
    QVERIFY(m_host->Run("optionVar -removeFromArray list 5").startsWith("error: "));
    m_host->Run("optionVar -clearArray list");
    QCOMPARE(Stored("list"), Value(QStringList()));
}

void OptionVarCommandTest::ListsAndSizes()
{
    m_host->Run("optionVar -iv b 1 -iv a 2; optionVar -category films -iv c 3");
    QCOMPARE(m_host->Run("optionVar -list"), "a b c");
    QCOMPARE(m_host->Run("optionVar -list -category films"), "c");
    QCOMPARE(m_host->Run("optionVar -listCategories"), "films");
    m_host->Run("optionVar -default -iv a 2; optionVar -default -iv b 1; optionVar -iv b 9");
    QCOMPARE(m_host->Run("optionVar -listModified"), "b");
    m_host->Run("optionVar -iva n 1 -iva n 2");
    QCOMPARE(m_host->Run("optionVar -arraySize n"), "2");
}

void OptionVarCommandTest::InitialValuesDoNotOverwrite()
{
    m_host->Run("optionVar -iv old 1; optionVar -init -iv old 2 -iv new 3");
    QCOMPARE(Stored("old"), Value(1));
    QCOMPARE(Stored("new"), Value(3));
}

void OptionVarCommandTest::StashedValuesComeBack()
{
    m_host->Run("optionVar -iv a 1; optionVar -stash a -iv a 2");
    QCOMPARE(Stored("a"), Value(2));
    m_host->Run("optionVar -unstash a");
    QCOMPARE(Stored("a"), Value(1));
    m_host->Run("optionVar -stash a; optionVar -iv a 5; optionVar -clearStash a -unstash a");
    QCOMPARE(Stored("a"), Value(5));
}

void OptionVarCommandTest::OnlyWhatLastsIsSaved()
{
    m_host->Run("optionVar -iv lasting 1; optionVar -transient -iv passing 2");
    QCOMPARE(m_host->Run("optionVar -q passing"), "2");
    m_host->Restart();
    QCOMPARE(m_host->Run("optionVar -list"), "lasting");
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
