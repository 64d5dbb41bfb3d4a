#include "host/mel/MelFixture.h"
#include "mel/Parser.h"
#include "mel/Source.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;
using namespace host::mel;

/// What is accepted, what is refused and where, and how calls are told from commands.
class MelParserTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void AcceptsWhatRealFilesContain_data();
    void AcceptsWhatRealFilesContain();
    void RefusesWithThePlace_data();
    void RefusesWithThePlace();
    void TellsCallsFromCommands_data();
    void TellsCallsFromCommands();
    void EveryLineEndCounts();
    void FileBytesAreDecoded();
    void NestingEndsWithAnErrorNotACrash_data();
    void NestingEndsWithAnErrorNotACrash();
    void UndecidedCallsAreReadOncePerPlace();
};

void MelParserTest::AcceptsWhatRealFilesContain_data()
{
    Columns<QString>("text");
    TextRow("setParent ..;");
    TextRow("int $r = `optionVar - q Name`;");
    TextRow("select -r |a|b|c;");
    TextRow("select -r *:ctrl_*;");
    TextRow("connectAttr foo.wm[0] bar.in;");
    TextRow("connectAttr ($a + \".i\") reg.slot[$i];");
    TextRow("applyArgs 2 { \"1\",\"2\",\"\" };");
    TextRow("vector $h = `hsv_to_rgb <<$x[0], 1, 1>>`;");
    TextRow("formLayout -af $c \"left\" -10;");
    TextRow("intField -fmn -1000. -fmx .5;");
    TextRow("string $n = (string)$i;");
    TextRow("$t = (int)(`timerX` * 1000);");
    TextRow("global string $names[] = {};");
    TextRow("float $l, $r[3] = {1, 2, 3};");
    TextRow("if (!`exists foo`) source foo;");
    TextRow("setAttr ($o + \".tx\") -lock on -k ($k);");
    TextRow("foo `bar` (`baz -q`) -visible on;");
    TextRow("do{$i++;}while($i<3);");
    TextRow("if($a)b;else if($c){d;}else e;");
    TextRow("for(;;){break;}");
    TextRow("proc f(){};f;");
    TextRow("global proc string[]f(string$a[],int$b){return $a;}");
    TextRow("print(\"no semicolon at the end\")");
    TextRow("button -command (\"a \" + $b + \";\") -annotation \"x\" name;");
    TextRow("switch($a){case 1:case 2:default:}");
    TextRow("// only a comment");
    TextRow("/* never closed");
    TextRow("$a = $b ? \"x\" : `foo`;");
    TextRow("$m = <<1,2;3,4>>;");
    TextRow("matrix $m[4][4]; $m[0][1] = $v.x + $v.y;");
    TextRow("string $s = `substring $a 1 (size($a))` + `size($b)`;");
    TextRow("`foo -q`;");
    TextRow("int $i, $j = 2; $i = int($j / 2.0);");
    TextRow("if (size($a) > 0 && !catch(`delete $a`)) print \"x\";");
}

void MelParserTest::AcceptsWhatRealFilesContain()
{
    QFETCH(QString, text);
    const Parser::Result result = Parser(text).Parse();
    if (result.error)
        QFAIL(qPrintable(QString("%1 at %2").arg(result.error->text).arg(result.error->offset)));
}

void MelParserTest::RefusesWithThePlace_data()
{
    Columns<QString, QString>("text", "message");
    // clang-format off
    Row("the column is behind the offending token", "int $a;\nstring $a;",
        "Line 2.10: Invalid redeclaration of variable \"$a\" as a different type.");
    Row("undeclared", "print $undeclared;", "Line 1.18: \"$undeclared\" is an undeclared variable.");
    Row("undeclared in a compound assignment", "$u += 1;", "Line 1.3: \"$u\" is an undeclared variable.");
    Row("missing operand", "$a = 1 +;", "Line 1.10: Syntax error");
    Row("a name is no value", "$a = foo;", "Line 1.10: Syntax error");
    Row("missing bracket", "print (1;", "Line 1.10: Syntax error");
    Row("missing brace", "{ print 1;\n", "Line 2.1: Syntax error");
    Row("stray brace", "print 1; }", "Line 1.11: Syntax error");
    Row("lone dollar", "print $;", "Line 1.8: Syntax error");
    Row("keyword as a word", "addAttr -at float;", "Line 1.18: Syntax error");
    Row("operator among words", "move $x + 1;", "Line 1.10: Syntax error");
    Row("missing quote", "print \"abc;\nprint 1;", "Line 1.12: Unterminated string.");
    Row("no return", "proc int g() { print 1; }", "Line 1.26: Procedure is missing a return statement.");
    Row("value from a typeless procedure", "proc g() { return 1; }", "Line 1.18: A procedure without a return type cannot return a value.");
    Row("break outside", "if (1) break;", "Line 1.13: \"break\" stands outside of a loop.");
    Row("continue in a switch only", "switch (1) { case 1: continue; }", "Line 1.30: \"continue\" stands outside of a loop.");
    Row("a component is no target", "vector $v; $v.x = 1;", "Line 1.18: Components of a vector cannot be assigned.");
    Row("a call is no target", "f() = 1;", "Line 1.6: Syntax error");
    Row("a matrix needs sizes", "matrix $m = 1;", "Line 1.10: Matrix \"$m\" needs two sizes.");
    Row("arrays of arrays", "int $a[2][2];", "Line 1.13: Arrays have one dimension only.");
    Row("a global wants constants", "global int $g = f();", "Line 1.14: \"$g\" can only be given constant values here.");
    Row("procedures see no outer variables", "$o = 1; proc f() { print $o; }", "Line 1.28: \"$o\" is an undeclared variable.");
    Row("a block hides its variables", "{ int $in; } print $in;", "Line 1.23: \"$in\" is an undeclared variable.");
    Row("what comes first is told first", "print $first;\nprint (;", "Line 1.13: \"$first\" is an undeclared variable.");
    Row("rows of a matrix", "$m = <<1,2;3>>;", "Line 1.15: The rows of a matrix must have the same length.");
    // clang-format on
}

void MelParserTest::RefusesWithThePlace()
{
    QFETCH(QString, text);
    QFETCH(QString, message);
    MelFixture fixture;
    const ScriptResult result = fixture.Run("print \"ran\";" + QString(1, '\n') + text);
    QVERIFY(result.failed);
    QCOMPARE(fixture.Printed(), QString());
    // The line in front moved everything down by one.
    const QString line = message.section('.', 0, 0).section(' ', 1);
    message.replace(0, 5 + line.size(), "Line " + QString::number(line.toInt() + 1));
    QCOMPARE(fixture.Texts(MessageType::Error).value(1), message);
    QCOMPARE(result.errorText, message.section(": ", 1));
}

void MelParserTest::TellsCallsFromCommands_data()
{
    // "arguments": -1: a call within an expression
    Columns<QString, int>("text", "arguments");
    TextRow("f (1);", -1);
    TextRow("f(1, 2) + 1;", -1);
    TextRow("f (1)", -1);
    TextRow("f ($a)[0];", -1);
    TextRow("f(1) ? 2 : 3;", -1);
    TextRow("f (1) 2;", 2);
    TextRow("f (1) (2);", 2);
    TextRow("f (1) `g`;", 2);
    TextRow("f (1) \"x\";", 2);
    TextRow("f (1) $a;", 2);
    TextRow("f (1) -add;", 2);
    TextRow("f (1) -add 5;", 3);
    TextRow("f (1) *:x;", 2);
    TextRow("f (1) {1};", 2);
    TextRow("f (1) <<1,2,3>>;", 2);
    TextRow("f (1) - 5;", -1);
    TextRow("f (1) -5;", -1);
    TextRow("command (1) -5;", 2);
    TextRow("command (1) -lock (1);", 3);
    TextRow("command (1) - 5;", -1);
    TextRow("f (\")\") 2;", 2);
    TextRow("f (1 /* ) */) 2;", 2);
}

void MelParserTest::TellsCallsFromCommands()
{
    QFETCH(QString, text);
    QFETCH(int, arguments);
    Parser parser(text, [](const QString& name) { return name == "command"; });
    const Parser::Result result = parser.Parse();
    QVERIFY(!result.error);
    QCOMPARE(result.statements.size(), size_t(1));
    const auto& statement = static_cast<const ast::Expressions&>(*result.statements.front());
    const ast::Expression& expression = *statement.expressions.front();
    int found = -1;
    if (expression.type == ast::Expression::Type::Call) {
        const auto& call = static_cast<const ast::Call&>(expression);
        found = call.isCommand ? static_cast<int>(call.arguments.size()) : -1;
    }
    QCOMPARE(found, arguments);
}

void MelParserTest::EveryLineEndCounts()
{
    const Source source("a\r\nb\rc\nd");
    QCOMPARE(source.LineOf(0), 1);
    QCOMPARE(source.LineOf(2), 1);
    QCOMPARE(source.LineOf(3), 2);
    QCOMPARE(source.LineOf(5), 3);
    QCOMPARE(source.LineOf(7), 4);
    QCOMPARE(source.ColumnOf(8), 2);
    QCOMPARE(source.LineText(1), "a\n");
    QCOMPARE(source.LineText(2), "b\n");
    QCOMPARE(source.LineText(4), "d");

    MelFixture fixture;
    fixture.Run("// comment\rprint \"c\\\r\nr\";error \"three\";");
    QCOMPARE(fixture.Printed(), "cr");
    QCOMPARE(fixture.Texts(MessageType::Error), QStringList{"line 3: three"});
}

void MelParserTest::FileBytesAreDecoded()
{
    QCOMPARE(Source::Decode("\xEF\xBB\xBFprint \"\xC3\xA9\";"), "print \"\u00e9\";");
    QCOMPARE(Source::Decode("print \"\xE9\";"), "print \"\u00e9\";");
    QCOMPARE(Source(QString("\ufeff5")).Text(), "5");
}

void MelParserTest::NestingEndsWithAnErrorNotACrash_data()
{
    Columns<QString, QString>("opening", "closing");
    Row("parentheses", "(", ")");
    Row("calls", "size(", ")");
    Row("blocks", "{", "}");
    Row("signs", "- ", "");
    Row("casts", "(int)", "");
    Row("backticks", "size (`", "`)");
    Row("statements", "if (1) ", ";");
    Row("indices", "$a[", "]");
    Row("assignments", "$a=", "");
    Row("conditionals", "1 ? 2 : ", "");
    Row("sums", "1 + ", "");
}

void MelParserTest::NestingEndsWithAnErrorNotACrash()
{
    QFETCH(QString, opening);
    QFETCH(QString, closing);
    constexpr int LEVELS = 20000;
    MelFixture fixture;
    const ScriptResult result
        = fixture.Run(opening.repeated(LEVELS) + "size(1)" + closing.repeated(LEVELS) + ";");
    QVERIFY(result.failed);
    QVERIFY2(result.errorText.startsWith("Nested too deeply")
            || result.errorText.startsWith("More than 2000 operators"),
        qPrintable(result.errorText));
    QVERIFY(!fixture.Run(opening.repeated(50) + "size(1)" + closing.repeated(50) + ";")
                 .errorText.startsWith("Nested"));
}

/// Every level looks like an expression up to its last word; trying both readings at each would
/// take 2 to the power of the levels.
void MelParserTest::UndecidedCallsAreReadOncePerPlace()
{
    constexpr int LEVELS = 60;
    const QString text
        = QString("f (`").repeated(LEVELS) + "g" + QString("`) *:x").repeated(LEVELS) + ";";
    const Parser::Result result = Parser(text).Parse();
    QVERIFY(!result.error);
}

TE2_TEST(MelParserTest)
#include "MelParserTest.moc"
