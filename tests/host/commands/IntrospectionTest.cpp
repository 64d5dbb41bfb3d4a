#include "CommandsFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

namespace {

Outcome Nothing(Call&)
{
    return {};
}

const CommandRow ROW = {"gizmo", "string", "QE", "[String...]",
    "shape/sh str cqe; at/at length length cem; names/n str[] cqv; x/x - c", Nothing};

} // namespace

/// What the host tells of its commands, procedures and variables.
class IntrospectionTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<CommandsFixture>(); }
    void cleanup() { m_host.reset(); }

    void MelInfoHasEveryNameOnce();
    void HelpListsFlagsInColumns();
    void NoFlagNameStandsForTwo();

private:
    std::unique_ptr<CommandsFixture> m_host;
};

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

TE2_TEST(IntrospectionTest)
#include "IntrospectionTest.moc"
