#include "plugin/MelText.h"

#include "plugin/OutputFraming.h"
#include "support/TestMain.h"

#include <QtTest>

/// The texts that go to the host and come from it, without a host.
class MelTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ScriptForTheShelf_data();
    void ScriptForTheShelf();
    void Variable_data();
    void Variable();
    void GeometryTakesTheTopFirst();
    void FlagsOfHelp_data();
    void FlagsOfHelp();
    void StandardLibraryIsLeftOut_data();
    void StandardLibraryIsLeftOut();
};

void MelTextTest::ScriptForTheShelf_data()
{
    Columns<QString, QString>("script", "literal");
    Row("plain", "ls", "ls");
    Row("quote", R"(print "a")", R"(print \"a\")");
    Row("backslash", R"(a\b)", R"(a\\b)");
    Row("escaped quote", R"(\")", R"(\\\")");
    Row("two lines", "a\nb", R"(a\nb)");
    Row("written line feed stays written", R"(a\nb)", R"(a\\nb)");
    Row("selection of two lines", QString("a%1b").arg(QChar(0x2029)), R"(a\nb)");
    Row("all of them", "\"\\\n", R"(\"\\\n)");
    Row("percent sign", "%1 %2", "%1 %2");
}

void MelTextTest::ScriptForTheShelf()
{
    QFETCH(QString, script);
    QFETCH(QString, literal);
    QCOMPARE(MelText::ScriptToShelf("L%2", script, true),
        "scriptToShelf(\"L%2\", \"" + literal + "\", 1)");
    QVERIFY(MelText::ScriptToShelf("L", script, false).endsWith(", 0)"));
}

void MelTextTest::Variable_data()
{
    Columns<QString, bool>("text", "isVariable");
    Row("name", "$gMainWindow_2", true);
    Row("digits only", "$1", true);
    Row("semicolon", "$a;", false);
    Row("blank inside", "$a b", false);
    Row("blank behind", "$a ", false);
    Row("line feed behind", "$a\n", false);
    Row("two lines", "$a\n$b", false);
    Row("dollar sign alone", "$", false);
    Row("no dollar sign", "a", false);
    Row("element", "$a[0]", false);
    Row("letter beyond ASCII", QString::fromUtf8("$\xc3\xa4"), false);
}

void MelTextTest::Variable()
{
    QFETCH(QString, text);
    QTEST(MelText::IsVariable(text), "isVariable");
}

void MelTextTest::GeometryTakesTheTopFirst()
{
    QCOMPARE(MelText::WorkspaceGeometry(QRect(QPoint(-10, 20), QPoint(289, 219)), "W"),
        "workspaceControlState -e -tlc 20 -10 -width 300 -height 200 W");
}

void MelTextTest::FlagsOfHelp_data()
{
    Columns<QString, QStringList>("help", "flags");
    Row("flags with and without arguments",
        "\nSynopsis: ls [flags] [String...]\nFlags:\n  -e -edit\n -ap -allPaths  on|off Int\n",
        QStringList{"-e", "-edit", "", "-ap", "-allPaths", "on|off"});
    Row("other line ends and tabs", "Synopsis\r\nFlags:\r\n\t-q\t-query\r\n",
        QStringList{"-q", "-query", ""});
    Row("no flags", "Synopsis: undo\nNo Flags\n", QStringList());
    Row("nothing before the list", "Flags:\n -q -query\n", QStringList());
    Row("two lists", "a\nFlags:\n -q\nFlags:\n -e\n", QStringList());
    Row("no help", "", QStringList());
}

void MelTextTest::FlagsOfHelp()
{
    QFETCH(QString, help);
    QTEST(MelText::FlagsOfHelp(help), "flags");
}

void MelTextTest::StandardLibraryIsLeftOut_data()
{
    Columns<QString, QString>("path", "kept");
    Row("in the middle", "/a:/usr/lib/python3.10:/b", "/a:/b:");
    Row("any case, below", "/usr/Lib/Python3/site-packages:/a", "/a:");
    Row("empty entries", ":/a::", "/a:");
    Row("another lib", "/a/lib/tools", "/a/lib/tools:");
    Row("nothing left", "/usr/lib/python3.zip", "");
}

void MelTextTest::StandardLibraryIsLeftOut()
{
    QFETCH(QString, path);
    QTEST(MelText::WithoutStandardLibrary(path, ":"), "kept");
}

/// What the console shows for the host's messages, and which comment sign it takes.
class OutputFramingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Frame_data();
    void Frame();
    void OnlyHistoryIsAnEcho();
    void PrefixLastsUntilTheNextEchoOrPrint();
};

using Type = MCommandMessage::MessageType;
Q_DECLARE_METATYPE(Type)

void OutputFramingTest::Frame_data()
{
    // "before": echoed first
    Columns<QString, Type, QString, QString>("before", "type", "text", "shown");
    const QString mel = "ls;\n";
    const QString python = "import os\n";
    Row("result of MEL", mel, Type::kResult, "a", "// Result: a //\n");
    Row("result of Python", python, Type::kResult, "a", "# Result: a #\n");
    Row("warning", python, Type::kWarning, "w", "# Warning: w #\n");
    Row("error", mel, Type::kError, "e", "// Error: e //\n");
    Row("info", mel, Type::kInfo, "i", "// i //\n");
    Row("percent signs stay", mel, Type::kInfo, "100%1 %2", "// 100%1 %2 //\n");
    Row("echo", python, Type::kHistory, "ls;\n", "ls;\n");
    Row("print", mel, Type::kDisplay, "text", "text");
    Row("kind of a later host", mel, Type(7), "text", "text");
    Row("stack trace", mel, Type::kStackTrace, "trace", QString());
    Row("print without line end makes it Python", "ls;", Type::kResult, "a", "# Result: a #\n");
}

void OutputFramingTest::Frame()
{
    QFETCH(QString, before);
    QFETCH(Type, type);
    QFETCH(QString, text);
    OutputFraming framing;
    framing.Frame(before, Type::kHistory);
    QTEST(framing.Frame(text, type).value_or(OutputText()).text, "shown");
}

void OutputFramingTest::OnlyHistoryIsAnEcho()
{
    OutputFraming framing;
    QVERIFY(framing.Frame("import os\n", Type::kHistory)->isEcho);
    for (Type type : {Type::kDisplay, Type::kInfo, Type::kWarning, Type::kError, Type::kResult})
        QVERIFY(!framing.Frame("text", type)->isEcho);
}

void OutputFramingTest::PrefixLastsUntilTheNextEchoOrPrint()
{
    OutputFraming framing;
    QCOMPARE(framing.Frame("a", Type::kInfo)->text, "// a //\n");
    framing.Frame("x\n", Type::kDisplay);
    framing.Frame("e;\n", Type::kError);
    QCOMPARE(framing.Frame("a", Type::kInfo)->text, "# a #\n");
    framing.Reset();
    QCOMPARE(framing.Frame("a", Type::kInfo)->text, "// a //\n");
}

TE2_TEST(MelTextTest)
TE2_TEST(OutputFramingTest)
#include "MelTextTest.moc"
