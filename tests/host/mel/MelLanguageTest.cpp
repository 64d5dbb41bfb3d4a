#include "host/mel/MelFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;
using host::mel::ProcedureInfo;

namespace {

Outcome GiveNothing(Call&)
{
    return {};
}

Outcome GiveYes(Call&)
{
    return true;
}

Outcome GiveTexts(Call& call)
{
    return call.ObjectTexts();
}

Outcome Split(FunctionCall& call)
{
    const QStringList parts = call.Text(0).split(call.Count() == 3 ? call.Text(1) : " ");
    call.Reference(call.Count() - 1) = parts;
    return parts.size();
}

Outcome KindOf(FunctionCall& call)
{
    return KindName(call.At(0).GetKind());
}

constexpr CommandRow COMMANDS[] = {
    {"nothing", "string[]", "Q", "[String...]", "", GiveNothing},
    {"agree", "bool", "", "", "", GiveYes},
    {"texts", "string[]", "Q", "[String...]", "all/a - cq; label/l str cq", GiveTexts},
};

constexpr FunctionRow FUNCTIONS[] = {
    {"int split(string, any, [string[]&])", Split},
    {"string kindOf(number)", KindOf},
    {"string anyKindOf(any)", KindOf},
};

} // namespace

/// What the rest of the host sees: values, globals, procedures, files, limits.
class MelLanguageTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void TextHasTheValueOfItsLastStatement_data();
    void TextHasTheValueOfItsLastStatement();
    void GlobalsOutliveTheirText();
    void FailedTextDeclaresNothing();
    void GlobalsCanBeReadAndWrittenFromOutside();
    void ProceduresTellTheirSignature();
    void LocalProceduresBelongToTheirFile();
    void UnknownNamesAreLoadedFromTheScriptPath();
    void GlobalProcedureHidesACommand();
    void CommandsTakeWordsInEverySyntax_data();
    void CommandsTakeWordsInEverySyntax();
    void FunctionsConvertTheirArguments_data();
    void FunctionsConvertTheirArguments();
    void EndlessRecursionFails();
    void RequestStopsAnEndlessLoop_data();
    void RequestStopsAnEndlessLoop();
    void StoppedScriptCannotCatchThat();
    void LongTextsAreBuiltAndReadInLinearTime();
};

void MelLanguageTest::TextHasTheValueOfItsLastStatement_data()
{
    // "result": null: no result line
    Columns<QString, QString>("text", "result");
    const auto row = [](const char* text, const char* result) {
        Row(text, QString(text), (result ? QString(result) : QString()));
    };
    row("5", "5");
    row("5;;", "5");
    row("$a = 5", "5");
    row("int $a = 5.5, $b = 7;", "7");
    row("int $a;", nullptr);
    row("global int $g = 5;", nullptr);
    row("string $s = \"\";", "");
    row("$l = {\"a\", \"b\"}", "a b");
    row("$l = {1.5, 2}", "1.5 2");
    row("string $e[] = {};", nullptr);
    row("<<1,2,3>>", "1 2 3");
    row("print 1", nullptr);
    row("1; if (1) 5;", nullptr);
    row("proc int f() { return 3; } f", "3");
    row("proc f() { 3; } f", nullptr);
    row("5; proc f() {}", nullptr);
    row("nothing", nullptr);
    row("agree", "1");
    row("texts a b", "a b");
    row("eval \"1 + 1\"", "2");
    row("eval print 1", nullptr);
    row("return 4; 5;", "4");
    row("int $c[] = {1}; clear $c;", "0");
}

void MelLanguageTest::TextHasTheValueOfItsLastStatement()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    MelFixture fixture;
    fixture.engine.commands.Register(COMMANDS);
    const ScriptResult got = fixture.Run(text);
    QVERIFY2(!got.failed, qPrintable(got.errorText));
    QCOMPARE(got.resultText, result);
    QCOMPARE(got.resultText.isNull(), result.isNull());
}

void MelLanguageTest::GlobalsOutliveTheirText()
{
    MelFixture fixture;
    fixture.Run("$implicit = \"kept\"; int $list[] = {1, 2}; { int $hidden = 1; }");
    QCOMPARE(fixture.Run("$list[1] + $implicit").resultText, "2kept");
    // Declared again, they keep their values; initialised again at the top level, they change.
    fixture.Run("int $list[]; string $implicit; int $n = 1;");
    QCOMPARE(fixture.Run("size($list) + $implicit").resultText, "2kept");
    QVERIFY(fixture.Run("print $hidden;").failed);
    // A global initialiser counts once.
    fixture.Run("global int $once = 5;");
    fixture.Run("global int $once = 7;");
    QCOMPARE(fixture.Run("$once").resultText, "5");
    QVERIFY(fixture.Run("string $once;").failed);
    QCOMPARE(fixture.Run("eval(\"$once = 8\"); { $once += 1; } $once").resultText, "9");
}

void MelLanguageTest::FailedTextDeclaresNothing()
{
    MelFixture fixture;
    fixture.Run("int $new = 1; global proc never() {} print (;");
    QVERIFY(!fixture.mel.GlobalVariableNames().contains("$new"));
    QVERIFY(!fixture.mel.FindProcedure("never"));
}

void MelLanguageTest::GlobalsCanBeReadAndWrittenFromOutside()
{
    MelFixture fixture;
    QVERIFY(fixture.mel.SetGlobalVariable("$gMainWindow", QString("MayaWindow")));
    QCOMPARE(fixture.Run("$tmp = $gMainWindow").resultText, "MayaWindow");
    fixture.Run("int $i = 1; string $s[] = {\"a\"}; $u = `split \"a b\" $s`;");
    QVERIFY(fixture.mel.SetGlobalVariable("$i", QString("7")));
    QCOMPARE(fixture.mel.GlobalVariable("$i"), Value(7));
    QVERIFY(!fixture.mel.SetGlobalVariable("$i", QStringList{"x"}));
    QVERIFY(fixture.mel.SetGlobalVariable("$s", QStringList{"x", "y"}));
    QCOMPARE(fixture.Run("$s").resultText, "x y");
    QCOMPARE(fixture.mel.GlobalVariableKind("$s"), Value::Kind::StringArray);
    QCOMPARE(fixture.mel.GlobalVariableKind("$absent"), Value::Kind::None);
}

void MelLanguageTest::ProceduresTellTheirSignature()
{
    MelFixture fixture;
    const QString path = fixture.WriteScript("tool.mel",
        "\nglobal proc string[] tool(int $a, string $b[], matrix $m[2][2]) {\n"
        "return $b; }\nproc local() {}");
    fixture.mel.RunFile("tool.mel");
    fixture.Run("global proc typed() {}");
    QCOMPARE(fixture.mel.ProcedureNames(), (QStringList{"tool", "typed"}));
    const ProcedureInfo tool = fixture.mel.FindProcedure("tool").value();
    QCOMPARE(tool.file, path);
    QCOMPARE(tool.line, 2);
    QCOMPARE(tool.resultKind, Value::Kind::StringArray);
    const QVector<Value::Kind> parameters{
        Value::Kind::Int, Value::Kind::StringArray, Value::Kind::Matrix};
    QCOMPARE(tool.parameters, parameters);
    QCOMPARE(fixture.mel.FindProcedure("typed")->file, QString());
    QVERIFY(!fixture.mel.FindProcedure("local"));
}

void MelLanguageTest::LocalProceduresBelongToTheirFile()
{
    MelFixture fixture;
    fixture.WriteScript("one.mel",
        "proc string helper() { return \"one\"; }\n"
        "global proc string one() { return helper(); }");
    fixture.WriteScript("two.mel",
        "proc string helper() { return \"two\"; }\n"
        "global proc string two() { return helper(); }");
    QCOMPARE(fixture.Run("source one; source two; one() + two()").resultText, "onetwo");
    QCOMPARE(fixture.Run("helper").errorText, "Cannot find procedure \"helper\".");
    QCOMPARE(fixture.Run("early; proc early() {}").errorText, "Cannot find procedure \"early\".");
}

void MelLanguageTest::UnknownNamesAreLoadedFromTheScriptPath()
{
    MelFixture fixture;
    fixture.WriteScript(
        "autoTool.mel", "print \"loaded \"; global proc int autoTool() { return 3; }");
    fixture.WriteScript("empty.mel", "print \"empty\";");
    fixture.WriteScript("selfish.mel", "selfish;");
    QCOMPARE(fixture.Run("autoTool() + autoTool()").resultText, "6");
    QCOMPARE(fixture.Printed(), "loaded ");
    QCOMPARE(fixture.Run("empty").errorText, "Cannot find procedure \"empty\".");
    QCOMPARE(fixture.Run("selfish").errorText, "Cannot find procedure \"selfish\".");
}

void MelLanguageTest::GlobalProcedureHidesACommand()
{
    MelFixture fixture;
    fixture.engine.commands.Register(COMMANDS);
    QCOMPARE(fixture.Run("global proc string other() { return \"p\"; } texts a").resultText, "a");
    fixture.Run("global proc string texts(string $a) { return \"hidden \" + $a; }");
    QCOMPARE(fixture.Run("texts a").resultText, "hidden a");
}

void MelLanguageTest::CommandsTakeWordsInEverySyntax_data()
{
    Columns<QString, QString>("text", "result");
    Row("command", "texts -all a ($b + 1)", "a 6");
    Row("call", "texts(\"a\", $b)", "a 5");
    Row("flags in a call", "texts(\"-all\", \"a\")", "a");
    Row("a negative number is no flag", "texts(\"-5\", \"- x\")", "-5 - x");
    Row("objects keep their spelling", "texts on 0x10 1.", "on 0x10 1.");
    Row("backticks", "$r = `texts -label \"-\" a`", "a");
    Row("arrays spread", "texts $s {\"z\"}", "x y z");
    Row("nothing becomes an empty array", "string $n[] = `nothing`; size($n) + size(`nothing`)",
        "0");
    Row("yes or no is a number", "`agree` + 1", "2");
    Row("type of the variable comes from the command", "$t = `texts a`; $t[1] = 5; $t[0] + $t[1]",
        "a5");
}

void MelLanguageTest::CommandsTakeWordsInEverySyntax()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    MelFixture fixture;
    fixture.engine.commands.Register(COMMANDS);
    fixture.Run("int $b = 5; string $s[] = {\"x\", \"y\"};");
    const ScriptResult got = fixture.Run(text);
    QVERIFY2(!got.failed, qPrintable(got.errorText));
    QCOMPARE(got.resultText, result);
}

void MelLanguageTest::FunctionsConvertTheirArguments_data()
{
    Columns<QString, QString>("text", "result");
    TextRow("string $p[]; split(\"a,b\", \",\", $p) + $p[1]", "2b");
    TextRow("string $p[]; split \"a b c\" \" \" $p; size($p)", "3");
    TextRow("string $p[]; `split 1.5 \".\" $p` + $p[0]", "21");
    TextRow("kindOf(5)", "int");
    TextRow("kindOf(\"5\")", "float");
    TextRow("anyKindOf(\"5\")", "string");
    TextRow("anyKindOf({1.0})", "float[]");
    TextRow("anyKindOf on", "int");
    TextRow("kindOf()", "Wrong number of arguments on call to kindOf.");
    TextRow("string $s[]; kindOf($s)", "Cannot convert data of type string[] to type float.");
    TextRow("split({\"a\"}, 1)", "Cannot convert data of type string[] to type string.");
}

void MelLanguageTest::FunctionsConvertTheirArguments()
{
    QFETCH(QString, text);
    QFETCH(QString, result);
    MelFixture fixture;
    fixture.engine.commands.Register(FUNCTIONS);
    const ScriptResult got = fixture.Run(text);
    QCOMPARE(got.failed ? got.errorText : got.resultText, result);
}

void MelLanguageTest::EndlessRecursionFails()
{
    MelFixture fixture;
    fixture.Run("global proc int down(int $n) { return $n > 0 ? down($n - 1) : 0; }");
    QVERIFY(!fixture.Run("down(250)").failed);
    QVERIFY(fixture.Run("down(1000)").errorText.startsWith("Stack overflow"));
    fixture.Run("global proc again(string $t) { eval(\"again \\\"\\\"\"); }");
    QVERIFY(fixture.Run("again \"\"").errorText.startsWith("Stack overflow"));
    QVERIFY(!fixture.Run("down(250)").failed);
}

void MelLanguageTest::RequestStopsAnEndlessLoop_data()
{
    Columns<QString>("text");
    Row("while", "while (1) {}");
    Row("for", "for (;;) $i = 1;");
    Row("do", "do {} while (1);");
    Row("inside catch", "while (1) catch(`error x`);");
    Row("inside catchQuiet", "while (1) catchQuiet(eval(\"while (1) {}\"));");
    Row("calls", "proc f() {} proc g() { while (1) f(); } g;");
}

void MelLanguageTest::RequestStopsAnEndlessLoop()
{
    QFETCH(QString, text);
    MelFixture fixture;
    fixture.engine.interrupt.hook = [&] { fixture.engine.interrupt.Request(); };
    const ScriptResult result = fixture.Run(text + "print \"after\";");
    QCOMPARE(result.errorText, "Execution was stopped.");
    QCOMPARE(fixture.Printed(), QString());
    QVERIFY(fixture.Texts(MessageType::Error).last().endsWith("Execution was stopped."));
    fixture.engine.interrupt.hook = nullptr;
    QCOMPARE(fixture.Run("1 + 1").resultText, "2");
}

void MelLanguageTest::StoppedScriptCannotCatchThat()
{
    MelFixture fixture;
    fixture.engine.interrupt.hook = [&] { fixture.engine.interrupt.Request(); };
    const ScriptResult result = fixture.Run("catch(eval(\"while (1) {}\")); print \"after\";");
    QVERIFY(result.failed);
    QCOMPARE(fixture.Printed(), QString());
}

/// With quadratic work this takes minutes.
void MelLanguageTest::LongTextsAreBuiltAndReadInLinearTime()
{
    MelFixture fixture;
    const QString text
        = QString("setIt ($n + \".tx\") 5; $n = $n; if ($n == \"\") { print $n; }\n");
    const QString head = "string $n; global proc setIt(string $a, int $b) {}\n";
    QVERIFY(!fixture.Run(head + text.repeated(4000)).failed);
    QCOMPARE(
        fixture.Run("string $l; for ($i = 0; $i < 100000; $i++) $l += \"x\"; size($l)").resultText,
        "100000");
    QCOMPARE(
        fixture.Run("int $m[]; for ($i = 0; $i < 100000; $i++) $m[$i] = $i; size($m)").resultText,
        "100000");
}

TE2_TEST(MelLanguageTest)
#include "MelLanguageTest.moc"
