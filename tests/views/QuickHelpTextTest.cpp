#include "views/QuickHelpText.h"

#include "support/TestMain.h"

#include <QtTest>

class QuickHelpTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void MakesFlagsOfTriples_data();
    void MakesFlagsOfTriples();
    void FindsTheName_data();
    void FindsTheName();
    void FindsADefinition_data();
    void FindsADefinition();
};

void QuickHelpTextTest::MakesFlagsOfTriples_data()
{
    QTest::addColumn<QStringList>("triples");
    QTest::addColumn<QStringList>("flags"); // "long short type"
    QTest::newRow("sorted by long name") << QStringList{"-w", "-width", "Length", "-ax", "-axis",
        "Length", "-Z", "-Zoom", ""} << QStringList{"axis ax Length", "width w Length", "Zoom Z "};
    QTest::newRow("each once") << QStringList{"-q", "-query", "", "-q", "-query", ""}
                               << QStringList{"query q "};
    QTest::newRow("nothing of nothing")
        << QStringList{"", "", "", "-", "", "String"} << QStringList{};
    QTest::newRow("no long name") << QStringList{"-x", "", "on|off"} << QStringList{"x x on|off"};
    QTest::newRow("a single name with a type")
        << QStringList{"-uvSet", "String", ""} << QStringList{"uvSet  String"};
    QTest::newRow("words that are no flag")
        << QStringList{"Command", "Type:", "Command"} << QStringList{};
    QTest::newRow("cut off") << QStringList{"-q", "-query", "", "-e"} << QStringList{"query q "};
}

void QuickHelpTextTest::MakesFlagsOfTriples()
{
    QFETCH(QStringList, triples);
    QStringList flags;
    for (const QuickHelpTopic::Flag& flag : QuickHelpText::Flags(triples))
        flags += flag.longName + " " + flag.shortName + " " + flag.type;
    QTEST(flags, "flags");
}

void QuickHelpTextTest::FindsTheName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("dotted") << "cmds.polyCube"
                            << "cmds.polyCube";
    QTest::newRow("call") << "  maya.cmds.ls(selection=True)"
                          << "maya.cmds.ls";
    QTest::newRow("MEL call") << "move -r 1 2 3;"
                              << "move";
    QTest::newRow("variable") << "$gMain"
                              << "gMain";
    QTest::newRow("trailing dot") << "cmds."
                                  << "cmds";
    QTest::newRow("letters of any script")
        << QString::fromUtf8("größe.maß") << QString::fromUtf8("größe.maß");
    QTest::newRow("no name") << " 12 + 3"
                             << "";
}

void QuickHelpTextTest::FindsTheName()
{
    QFETCH(QString, text);
    QTEST(QuickHelpText::DottedNameIn(text), "name");
}

void QuickHelpTextTest::FindsADefinition_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("header");
    QTest::addColumn<int>("line");
    QTest::newRow("global") << "// f\nglobal proc string[] f(int $a,\n    string $b[])\n{\n}"
                            << "global proc string[] f(int $a, string $b[])" << 2;
    QTest::newRow("local, without a result") << "\n\nproc f () {}"
                                             << "proc f ()" << 3;
    QTest::newRow("a longer name") << "global proc af() {}\nglobal proc fa() {}"
                                   << "" << 0;
    QTest::newRow("only called") << "f(1);"
                                 << "" << 0;
}

void QuickHelpTextTest::FindsADefinition()
{
    QFETCH(QString, script);
    const QuickHelpText::Definition definition = QuickHelpText::DefinitionIn(script, "f");
    QTEST(definition.header, "header");
    QTEST(definition.line, "line");
}

TE2_TEST(QuickHelpTextTest)
#include "QuickHelpTextTest.moc"
