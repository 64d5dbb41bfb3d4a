#include "editing/FlagText.h"

#include "support/TestMain.h"

#include <QtTest>

class FlagTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void WritesAFlag_data();
    void WritesAFlag();
};

void FlagTextTest::WritesAFlag_data()
{
    Columns<bool, QString, QString>("python", "before", "written");
    const auto row = [](const char* name, bool python, const char* before, const char* written) {
        Row(name, python, QString(before), QString(written));
    };
    row("MEL", false, "polyCube -w 1 ", "-axis ");
    row("directly behind the command", false, "polyCube", " -axis ");
    row("behind a text", false, "ls \"a\"", " -axis ");
    row("in a call of MEL", false, "`polyCube ", "-axis ");
    row("first argument", true, "cmds.polyCube(", "axis=");
    row("behind a comma", true, "cmds.polyCube(w=1, ", "axis=");
    row("behind an argument", true, "cmds.polyCube(w=1", ", axis=");
    row("on a line of its own", true, "cmds.polyCube(w=1,\n    ", "axis=");
    row("empty script", true, "", "axis=");
}

void FlagTextTest::WritesAFlag()
{
    QFETCH(bool, python);
    QFETCH(QString, before);
    QTEST(python ? FlagText::InPython("axis", before) : FlagText::InMel("axis", before), "written");
}

TE2_TEST(FlagTextTest)
#include "FlagTextTest.moc"
