#include "CommandsFixture.h"
#include "support/TestMain.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

using namespace host;

namespace {

Outcome Nothing(Call&)
{
    return {};
}

const CommandRow ROW = {"gizmo", "string", "QE", "[String...]",
    "shape/sh str cqe; at/at length length cem; names/n str[] cqv; x/x - c", Nothing};

void Write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

/// What the host tells of its commands, procedures and variables.
class IntrospectionTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<CommandsFixture>(); }
    void cleanup() { m_host.reset(); }

    void WhatIsNamesTheKind_data();
    void WhatIsNamesTheKind();
    void AProcedureHidesACommand();
    void HostScriptsBecomeProceduresWhenCalled();
    void MelInfoHasEveryNameOnce();
    void ArgumentsOfProcedures();
    void LastErrorIsRemembered();
    void HelpListsFlagsInColumns();
    void HelpOfLessThanACommand_data();
    void HelpOfLessThanACommand();
    void HelpFindsNames();
    void NoFlagNameStandsForTwo();
    void PythonIsRefusedWithoutPython();

private:
    std::unique_ptr<CommandsFixture> m_host;
};

void IntrospectionTest::WhatIsNamesTheKind_data()
{
    Columns<QString, QString>("name", "kind");
    Row("command", "about", "Command");
    Row("language function", "substring", "Command");
    Row("run-time command", "Greet", "Run Time Command");
    Row("typed procedure", "typed", "Mel procedure entered interactively.");
    Row("int variable", "$number", "int variable");
    Row("array variable", "$names", "string[] variable");
    Row("undeclared variable", "$nothing", "Unknown");
    Row("nothing", "noSuchName", "Unknown");
    Row("empty", "", "Unknown");
}

void IntrospectionTest::WhatIsNamesTheKind()
{
    QFETCH(QString, name);
    m_host->Run("runTimeCommand -command \"print hi\" Greet; global proc typed() {}"
                "int $number = 1; string $names[];");
    QTEST(m_host->Run("whatIs \"" + name + "\""), "kind");
    QFETCH(QString, kind);
    const bool callable = kind != "Unknown" && !name.startsWith('$');
    QCOMPARE(m_host->Run("exists \"" + name + "\""), QString(callable ? "1" : "0"));
}

void IntrospectionTest::AProcedureHidesACommand()
{
    m_host->Run("global proc string about() { return \"mine\"; }");
    QCOMPARE(m_host->Run("whatIs about"), "Mel procedure entered interactively.");
}

void IntrospectionTest::HostScriptsBecomeProceduresWhenCalled()
{
    const QString file = qEnvironmentVariable("TE2_BUILD_DIR") + "/scripts/others/startsWith.mel";
    QCOMPARE(m_host->Run("whatIs startsWith"), "Script found in: " + file);
    QCOMPARE(m_host->Run("exists startsWith"), "1");
    QCOMPARE(m_host->Run("startsWith(\"ab\", \"a\")"), "1");
    QCOMPARE(m_host->Run("whatIs startsWith"), "Mel procedure found in: " + file);
    // The user's own script of that name comes first in a new session.
    Write(m_host->Path("maya/2024/scripts/startsWith.mel"),
        "global proc int startsWith(string $a, string $b) { return 7; }");
    m_host->Restart();
    QCOMPARE(m_host->Run("startsWith(\"ab\", \"a\")"), "7");
}

void IntrospectionTest::MelInfoHasEveryNameOnce()
{
    m_host->Run("runTimeCommand -command \"print hi\" Greet; global proc typed() {}"
                "global proc about() {}");
    const QStringList names
        = m_host->GetEngine().Execute(Language::Mel, "melInfo", false).value.ToTextList();
    for (const char* name : {"about", "substring", "Greet", "typed", "melInfo", "print"})
        QCOMPARE(names.count(name), 1);
    QStringList sorted = names;
    sorted.sort();
    QCOMPARE(names, sorted);
}

void IntrospectionTest::ArgumentsOfProcedures()
{
    m_host->Run("global proc typed(int $a, string $b[], vector $c) {}");
    QCOMPARE(m_host->Run("getProcArguments typed"), "int string[] vector");
    QVERIFY(m_host->Run("getProcArguments nobody").startsWith("error: "));
    m_host->Run("int $seen = 1; string $names[] = `env`;");
    QCOMPARE(m_host->Run("stringArrayContains(\"$seen\", `env`)"), "1");
}

void IntrospectionTest::LastErrorIsRemembered()
{
    m_host->Run("error \"first\"");
    m_host->Run("catchQuiet(`noSuchThing`)");
    QCOMPARE(m_host->Run("getLastError"), "Cannot find procedure \"noSuchThing\".");
}

void IntrospectionTest::HelpListsFlagsInColumns()
{
    m_host->GetEngine().commands.Register(std::make_unique<Command>(ROW));
    const QString flags = "\nSynopsis: gizmo [flags] [String...]\n"
                          "Flags:\n"
                          "   -e -edit\n"
                          "   -q -query\n"
                          "  -at -at     Length Length (multi-use)\n"
                          "   -n -names  String[...] (Query Arg Optional)\n"
                          "  -sh -shape  String\n"
                          "   -x -x\n";
    QCOMPARE(m_host->Run("help -so gizmo"), flags);
    QCOMPARE(m_host->Run("help gizmo"), flags + "\nCommand Type: Command\n");
}

void IntrospectionTest::HelpOfLessThanACommand_data()
{
    Columns<QString, QString>("name", "text");
    Row("command without flags", "melInfo", "\nSynopsis: melInfo\nNo Flags\n");
    Row("function", "tokenize", "\nSynopsis: tokenize String Any [String[]]\nNo Flags\n");
    Row("procedure", "typed", "error: Quick help is not available for \"typed\".");
    Row("run-time command", "Greet", "error: Quick help is not available for \"Greet\".");
}

void IntrospectionTest::HelpOfLessThanACommand()
{
    QFETCH(QString, name);
    m_host->Run("runTimeCommand -command \"print hi\" Greet; global proc typed() {}");
    QTEST(m_host->Run("help -so " + name), "text");
}

void IntrospectionTest::HelpFindsNames()
{
    const QString found = m_host->Run("help -list \"encode.*\"");
    QCOMPARE(found, "encodeString");
    QCOMPARE(m_host->Run("help -list \"enc*ing\""), "encodeString");
    QCOMPARE(m_host->Run("help -list \"nothing[\""), QString());
    QVERIFY(m_host->Run("size(`help -list \".*\"`)").toInt() > 100);
}

void IntrospectionTest::NoFlagNameStandsForTwo()
{
    const CommandRegistry& registry = m_host->GetEngine().commands;
    for (const QString& name : registry.CommandNames()) {
        const auto command = registry.FindCommand(name);
        QStringList used;
        if (command->CanQuery())
            used += {"q", "query"};
        if (command->CanEdit())
            used += {"e", "edit"};
        for (const Flag& flag : command->GetFlags()) {
            QVERIFY2(!used.contains(flag.longName) && !used.contains(flag.shortName),
                qPrintable(name + " -" + flag.longName));
            used += {flag.longName, flag.shortName};
        }
    }
}

void IntrospectionTest::PythonIsRefusedWithoutPython()
{
    QCOMPARE(m_host->Run("python(\"1\")"), "error: Python is not available.");
}

TE2_TEST(IntrospectionTest)
#include "IntrospectionTest.moc"
