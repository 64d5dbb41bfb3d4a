#include "views/quickhelp/QuickHelpText.h"

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
    // "flags": "long short type"
    Columns<QStringList, QStringList>("triples", "flags");
    Row("sorted by long name",
        QStringList{"-w", "-width", "Length", "-ax", "-axis", "Length", "-Z", "-Zoom", ""},
        QStringList{"axis ax Length", "width w Length", "Zoom Z "});
    Row("each once", QStringList{"-q", "-query", "", "-q", "-query", ""}, QStringList{"query q "});
    Row("nothing of nothing", QStringList{"", "", "", "-", "", "String"}, QStringList{});
    Row("no long name", QStringList{"-x", "", "on|off"}, QStringList{"x x on|off"});
    Row("a single name with a type", QStringList{"-uvSet", "String", ""},
        QStringList{"uvSet  String"});
    Row("words that are no flag", QStringList{"Command", "Type:", "Command"}, QStringList{});
    Row("cut off", QStringList{"-q", "-query", "", "-e"}, QStringList{"query q "});
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
    Columns<QString, QString>("text", "name");
    Row("dotted", "cmds.polyCube", "cmds.polyCube");
    Row("call", "  maya.cmds.ls(selection=True)", "maya.cmds.ls");
    Row("MEL call", "move -r 1 2 3;", "move");
    Row("variable", "$gMain", "gMain");
    Row("trailing dot", "cmds.", "cmds");
    Row("letters of any script", QString::fromUtf8("größe.maß"), QString::fromUtf8("größe.maß"));
    Row("no name", " 12 + 3", "");
}

void QuickHelpTextTest::FindsTheName()
{
    QFETCH(QString, text);
    QTEST(QuickHelpText::DottedNameIn(text), "name");
}

void QuickHelpTextTest::FindsADefinition_data()
{
    Columns<QString, QString, int>("script", "header", "line");
    Row("global", "// f\nglobal proc string[] f(int $a,\n    string $b[])\n{\n}",
        "global proc string[] f(int $a, string $b[])", 2);
    Row("local, without a result", "\n\nproc f () {}", "proc f ()", 3);
    Row("a longer name", "global proc af() {}\nglobal proc fa() {}", "", 0);
    Row("only called", "f(1);", "", 0);
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
