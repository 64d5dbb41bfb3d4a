#include "engine/CommandRegistry.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

namespace {

Outcome Nothing(Call&)
{
    return {};
}

Outcome Answer(Call&)
{
    return 42;
}

Outcome NoFunction(FunctionCall&)
{
    return {};
}

const CommandRow ROWS[] = {
    {"alpha", "string[]", "Q", "", "zeta/z str cqm; beta/b length angle e", Answer},
    {"omega", "bool", "", "String", "", Nothing},
};

} // namespace

/// The notations in which commands and functions are declared.
class CommandTableTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ReadsFlagRows();
    void SharedFlagsJoinTheirOwn();
    void ReadsObjectSynopses_data();
    void ReadsObjectSynopses();
    void ReadsFunctionSignatures_data();
    void ReadsFunctionSignatures();
    void ReferenceAndConversionOfParameters();
    void ANameBelongsToOneOwner();
    void ARunningCommandSurvivesItsRemoval();
};

void CommandTableTest::ReadsFlagRows()
{
    const Command command(ROWS[0]);
    QCOMPARE(command.GetFlags().size(), 2);
    const Flag& first = command.GetFlags().first();
    QCOMPARE(first.longName, "beta");
    QCOMPARE(first.arguments, (QVector<ArgumentType>{ArgumentType::Length, ArgumentType::Angle}));
    QCOMPARE(first.modes, int(Edit));
    const Flag* zeta = command.FindFlag("z");
    QVERIFY(zeta && zeta->multiUse && !zeta->takesList);
    QCOMPARE(zeta->modes, Create | Query);
    QVERIFY(!command.FindFlag("zet"));
    QVERIFY(command.CanQuery() && !command.CanEdit());
    QCOMPARE(command.GetResultKind(), Value::Kind::StringArray);
}

void CommandTableTest::SharedFlagsJoinTheirOwn()
{
    const Command command(ROWS[0], "middle/m - c");
    QStringList names;
    for (const Flag& flag : command.GetFlags())
        names += flag.longName;
    QCOMPARE(names, (QStringList{"beta", "middle", "zeta"}));
    QCOMPARE(command.FindFlag("m")->longName, "middle");
    QCOMPARE(command.FindFlag("zeta")->shortName, "z");
}

void CommandTableTest::ReadsObjectSynopses_data()
{
    Columns<QString, int, int>("synopsis", "minimum", "maximum");
    Row("none", "", 0, 0);
    Row("one", "String", 1, 1);
    Row("at most one", "[String]", 0, 1);
    Row("any number", "[String...]", 0, int(Objects::UNLIMITED));
    Row("numbers, then names", "Float Float Float [String...]", 3, int(Objects::UNLIMITED));
    Row("one or two", "String [String]", 1, 2);
}

void CommandTableTest::ReadsObjectSynopses()
{
    QFETCH(QString, synopsis);
    const Objects objects = ReadObjects(qPrintable(synopsis));
    QTEST(objects.minimum, "minimum");
    QTEST(objects.maximum, "maximum");
    QCOMPARE(objects.synopsis, synopsis);
}

void CommandTableTest::ReadsFunctionSignatures_data()
{
    Columns<QString, int, int>("signature", "minimum", "acceptedMost");
    Row("none", "int f()", 0, 0);
    Row("two", "int f(string, any)", 2, 2);
    Row("optional array", "int f(string, any, [string[]&])", 2, 3);
    Row("two optional ones", "int f(string, [int, float])", 1, 3);
    Row("repeating", "string f(any, ...)", 1, 99);
}

void CommandTableTest::ReadsFunctionSignatures()
{
    QFETCH(QString, signature);
    QFETCH(int, minimum);
    QFETCH(int, acceptedMost);
    const QByteArray text = signature.toLatin1();
    const Function function({text.constData(), NoFunction});
    QCOMPARE(function.name, "f");
    QVERIFY(!function.Accepts(minimum - 1));
    QVERIFY(function.Accepts(minimum));
    QVERIFY(function.Accepts(acceptedMost));
    QCOMPARE(function.Accepts(acceptedMost + 1), function.variadic);
}

void CommandTableTest::ReferenceAndConversionOfParameters()
{
    const Function function({"vector f(string[]&, number, any, float, ...)", NoFunction});
    QCOMPARE(function.resultKind, Value::Kind::Vector);
    QVERIFY(function.ParameterAt(0).reference);
    QCOMPARE(function.ParameterAt(0).kind, Value::Kind::StringArray);
    QCOMPARE(function.ParameterAt(1).conversion, Parameter::Conversion::Number);
    QCOMPARE(function.ParameterAt(2).conversion, Parameter::Conversion::Any);
    QCOMPARE(function.ParameterAt(9).kind, Value::Kind::Float);
    QVERIFY(!function.ParameterAt(9).reference);
}

void CommandTableTest::ANameBelongsToOneOwner()
{
    CommandRegistry registry;
    registry.Register(ROWS);
    QVERIFY(!registry.Register(std::make_unique<Command>(ROWS[0])));
    QVERIFY(!registry.RegisterFunction(
        std::make_unique<Function>(FunctionRow{"int alpha()", NoFunction})));
    QVERIFY(registry.RegisterFunction(
        std::make_unique<Function>(FunctionRow{"int mid(int)", NoFunction})));
    QVERIFY(!registry.Register(
        std::make_unique<Command>(CommandRow{"mid", "none", "", "", "", Nothing})));
    QCOMPARE(registry.Names(), (QStringList{"alpha", "mid", "omega"}));
    QCOMPARE(registry.CommandNames(), (QStringList{"alpha", "omega"}));
    QVERIFY(registry.Unregister("alpha"));
    QVERIFY(!registry.Unregister("alpha"));
    QVERIFY(!registry.Contains("alpha"));
}

void CommandTableTest::ARunningCommandSurvivesItsRemoval()
{
    CommandRegistry registry;
    registry.Register(ROWS);
    const auto command = registry.FindCommand("alpha");
    registry.Unregister("alpha");
    const Outcome outcome = CommandRegistry::Run(ReadWords(*command, {}));
    QVERIFY(outcome.Ok());
    QCOMPARE(outcome.GetValue(), Value(42));
    const Outcome refused = CommandRegistry::Run(ReadWords(*command, {Word::FlagNamed("nope")}));
    QVERIFY(!refused.Ok());
    QCOMPARE(refused.GetError().text, "Invalid flag '-nope'");
}

TE2_TEST(CommandTableTest)
#include "CommandTableTest.moc"
