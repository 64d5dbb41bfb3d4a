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
    void InsertsAFlag_data();
    void InsertsAFlag();
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
    QTest::newRow("cut off") << QStringList{"-q", "-query", "", "-e"} << QStringList{"query q "};
}

void QuickHelpTextTest::MakesFlagsOfTriples()
{
    QFETCH(QStringList, triples);
    QStringList flags;
    for (const QuickHelpText::Flag& flag : QuickHelpText::Flags(triples))
        flags += flag.longName + " " + flag.shortName + " " + flag.type;
    QTEST(flags, "flags");
}

void QuickHelpTextTest::FindsTheName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "polyCube"
                           << "polyCube";
    QTest::newRow("dotted") << "cmds.polyCube"
                            << "polyCube";
    QTest::newRow("call") << "  maya.cmds.ls(selection=True)"
                          << "ls";
    QTest::newRow("MEL call") << "move -r 1 2 3;"
                              << "move";
    QTest::newRow("variable") << "$gMain"
                              << "gMain";
    QTest::newRow("trailing dot") << "cmds."
                                  << "cmds";
    QTest::newRow("no name") << " 12 + 3"
                             << "";
}

void QuickHelpTextTest::FindsTheName()
{
    QFETCH(QString, text);
    QTEST(QuickHelpText::NameIn(text), "name");
}

void QuickHelpTextTest::InsertsAFlag_data()
{
    QTest::addColumn<bool>("python");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("inserted");
    QTest::newRow("MEL") << false << "polyCube -w 1"
                         << "-axis ";
    QTest::newRow("first argument") << true << "cmds.polyCube("
                                    << "axis=";
    QTest::newRow("behind a comma") << true << "cmds.polyCube(w=1, "
                                    << "axis=";
    QTest::newRow("behind an argument") << true << "cmds.polyCube(w=1"
                                        << ", axis=";
    QTest::newRow("on a line of its own") << true << "cmds.polyCube(w=1,\n    "
                                          << "axis=";
    QTest::newRow("empty script") << true << ""
                                  << "axis=";
}

void QuickHelpTextTest::InsertsAFlag()
{
    QFETCH(bool, python);
    QFETCH(QString, before);
    QTEST(QuickHelpText::InsertedText("axis", python, before), "inserted");
}

TE2_TEST(QuickHelpTextTest)
#include "QuickHelpTextTest.moc"
