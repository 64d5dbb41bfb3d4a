#include "language/MelParser.h"
#include "language/PythonParser.h"
#include "support/ScriptRows.h"
#include "support/TestMain.h"

namespace {

/// Shows what the MEL parser finds and keeps to itself.
class TellingMelParser : public MelParser
{
protected:
    void AppendError(const QString& message, int start, int end) override
    {
        BaseParser::AppendError(message, start, end);
    }
};

QString Described(const QVector<ParserMessage>& messages, char kind)
{
    QStringList lines;
    for (const ParserMessage& message : messages) {
        lines += QString("%1%2-%3 %4")
                     .arg(kind)
                     .arg(message.start)
                     .arg(message.end)
                     .arg(message.message);
        if (message.line != -1 || message.column != -1)
            lines += "located by line";
    }
    return lines.join('|');
}

/// "type:name@position/level" of each item, then messages as "E<start>-<end> text", by "|".
QString Described(BaseParser& parser, const QString& script)
{
    parser.Parse(script, "x.py");
    QStringList parts;
    for (const ParserItem& item : parser.GetItems()) {
        parts += QString("%1:%2@%3/%4")
                     .arg(int(item.type))
                     .arg(item.name)
                     .arg(item.position)
                     .arg(item.level);
    }
    parts << Described(parser.GetErrors(), 'E') << Described(parser.GetWarnings(), 'W')
          << Described(parser.GetInfos(), 'I');
    parts.removeAll(QString());
    return parts.join('|');
}

} // namespace

class ParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void PythonStatements_data();
    void PythonStatements();
    void PythonMessages_data();
    void PythonMessages() { PythonStatements(); }
    void MelScripts_data();
    void MelScripts();
    void MelKeepsItsErrors_data();
    void MelKeepsItsErrors();
    void ParagraphSeparatorsEndLines();
    void EachPassStartsAfresh();
    void StaysLinear_data();
    void StaysLinear();
};

void ParserTest::PythonStatements_data()
{
    ScriptColumns();
    ScriptRow("empty", "", "");
    ScriptRow("import list", "import os, sys", "4:os@7/0|4:sys@11/0");
    ScriptRow(
        "each at its own place", "import sysos, os,,  , os", "4:sysos@7/0|4:os@14/0|4:os@22/0");
    ScriptRow("import with more on the line", "import os, sys; x = 1", "");
    ScriptRow("import and comment", "import a.b # TODO", "4:a.b@7/0");
    ScriptRow("nothing imported: the comment is read", "import # TODO", "I7-13 TODO:");
    ScriptRow("import as", "import\ta.b  as  c # d", "5:c = a.b@16/0");
    ScriptRow("import as nothing", "import a as ", "");
    ScriptRow("import as something unusual", "import a as b, c", "");
    ScriptRow("a module named as", "import as as b", "5:b = as@13/0");
    ScriptRow("as without a name", "import a as", "");
    ScriptRow("important", "important = 1", "");
    ScriptRow("from", "from math import sqrt as s", "6:s = sqrt (math)@25/0");
    ScriptRow("from, several", "from .m import x,y as z ,, x",
        "6:x (.m)@15/0|6:z = y (.m)@22/0|6:x (.m)@27/0");
    ScriptRow("from, in brackets", "from a import (b, c)", "");
    ScriptRow("from, tab", "from a import b\t", "");
    ScriptRow("from, star", "from a import *", "");
    ScriptRow("from, two words", "from a import b c", "6:b c (a)@14/0");
    ScriptRow("main guard", "if __name__ == \"__main__\":\n  x", "7:__main__@16/0");
    ScriptRow("main guard, other quotes", "if __name__ ==  '__main__':\n  x", "7:__main__@17/0");
    ScriptRow("main guard, tight", "if __name__=='__main__':\n  x", "");
    ScriptRow("class", "class  A(B):\n  def f(self):\n    pass", "11:A@7/0|8:f@19/1");
    ScriptRow("tab behind def", "def\tf(): pass", "8:f@4/0");
    ScriptRow("no name", "class (A): pass", "");
    ScriptRow("form feed before def", "\fdef f(): pass", "");
    ScriptRow("async", "async def f(): pass", "");
    ScriptRow("in a block", "if x:\n\timport a\n\tdef f(): pass", "4:a@14/1|8:f@21/1");
    ScriptRow("static", "@staticmethod\ndef f(): pass", "9:f@18/0");
    ScriptRow("class method", "@x\n@classmethod\ndef f(): pass", "10:f@20/0");
    ScriptRow("nearest wins", "@classmethod\n@staticmethod\ndef f(): pass", "9:f@31/0");
    ScriptRow("decorator called", "@staticmethod()\ndef f(): pass", "8:f@20/0");
    ScriptRow("decorator with a blank", "@staticmethod \ndef f(): pass", "8:f@19/0");
    ScriptRow("comment below decorator", "@staticmethod\n#\ndef f(): pass", "8:f@20/0");
    ScriptRow("empty line below decorator", "@staticmethod\n\ndef f(): pass", "9:f@19/0");
    ScriptRow("column 0 is level 0", "if x:\n  y\n def f(): pass\ndef g(): pass",
        "8:f@15/0|8:g@29/0|E10-11 Unindent does not match any outer indentation level");
    ScriptRow("class word in brackets", "f(\nclassy, imports)\ndef f(): pass", "8:f@24/0");
}

void ParserTest::PythonStatements()
{
    QFETCH(QString, script);
    PythonParser parser;
    QTEST(Described(parser, script), "result");
}

void ParserTest::PythonMessages_data()
{
    ScriptColumns();
    ScriptRow("stray closers: the first", "x)\n)", "E1-2 Unexpected ')'");
    ScriptRow("open bracket, statement follows", "f(\n\n  def g(): pass\n)",
        "8:g@10/0|E2-2 Expected a ')'|E4-6 Unexpected indent");
    ScriptRow("brace before others", "{[(\nfrom", "E3-3 Expected a '}'");
    ScriptRow("square bracket alone", "[ # x\nimport a", "4:a@13/0|E5-5 Expected a ']'");
    ScriptRow("open at the end", "f((", "");
    ScriptRow("colon in brackets", "x[1:\n2]\ny", "");
    ScriptRow("expected block after a comment", "def f():\n # c\nx",
        "8:f@4/0|E14-14 Expected an indented block");
    ScriptRow("blanks and comment behind colon", "if x: # TODO\n  y", "");
    ScriptRow("code behind colon", "if x: return\ny", "");
    ScriptRow("unexpected indent, once", "x\n  y\n    z", "E2-4 Unexpected indent");
    ScriptRow("tab against spaces", "if x:\n\ty\n        z",
        "E9-17 Unindent does not match any outer indentation level");
    ScriptRow(
        "tabs and spaces, once", "if x:\n \ty\n \tz", "W6-8 Indent contains both tabs and spaces");
    ScriptRow("no warning after a wrong dedent", "if x:\n  y\n \tz\n \tz",
        "E10-12 Unexpected indent|"
        "W10-12 Indent contains both tabs and spaces");
    ScriptRow("unterminated", "x = 'abc\ndef f():\n  y", "E4-8 Unterminated String");
    ScriptRow("unterminated at the end", "'abc", "E0-4 Unterminated String");
    ScriptRow(
        "every unterminated one", "'\n\"", "E0-1 Unterminated String|E2-3 Unterminated String");
    ScriptRow("escaped quote", "'a\\'b' 'c\\\\'\ndef f(): pass", "8:f@17/0");
    ScriptRow("continued", "'a\\\nb'\ndef f(): pass", "8:f@11/0");
    ScriptRow("continued at the end", "'a\\", "E0-3 Unterminated String");
    ScriptRow("empty strings", "'' \"\"\ndef f(): pass", "8:f@10/0");
    ScriptRow(
        "docstring", "\"\"\"a ' # ( TODO\n  def\n\"\"\"\ndef f(): pass", "8:f@30/0|I0-22 TODO:");
    ScriptRow("escaped docstring end", "'''TODO \\''' TODO '''\nx", "I10-18 TODO:");
    ScriptRow("open docstring", "'''TODO\n", "I0-9 TODO:");
    ScriptRow("comment", "x # TODO: y\n# TODOS\n#TODO", "I2-11 TODO:|I20-25 TODO:");
    ScriptRow("word of other letters", u8"# \u00e4TODO", "");
}

void ParserTest::MelScripts_data()
{
    ScriptColumns();
    ScriptRow("empty", "", "");
    ScriptRow("blank", "\n \n", "");
    ScriptRow("blank line first", " \nx;",
        "W0-0 Empty line(s) at start of file. Line numbers in trace may be incorrect.");
    ScriptRow("blanks first", "  x;", "");
    ScriptRow("global proc", "global proc string[] listItems() {\n}", "1:listItems@21/0");
    ScriptRow("proc", "proc foo(int $a) {}\n proc int[] bar () {}", "2:foo@5/0|2:bar@32/0");
    ScriptRow("type glued to the keyword", "procint foo() {}", "2:foo@8/0");
    ScriptRow("name begins like a type", "proc int intFoo() {}", "2:intFoo@9/0");
    ScriptRow("name glued to its type", "proc int[]bar () {}", "2:int@5/0");
    ScriptRow("keyword alone on its line", "global\nproc foo() {}", "2:foo@12/0");
    ScriptRow("in a block", "{ proc foo() {} }", "2:foo@7/1");
    ScriptRow("nested", "proc a() { proc b() {} }\nproc c() {}", "2:a@5/0|2:c@30/0");
    ScriptRow(
        "after a nested one's end", "proc a() { proc b() {} proc c() {} }", "2:a@5/0|2:c@28/1");
    ScriptRow("global variable", "global int $a, $b;global string $c[];\n\tglobal vector[] $d_1;",
        "3:$a@11/0|3:$d_1@55/0");
    ScriptRow("two blanks before the name", "global int  $a;", "");
    ScriptRow("unknown type", "global double $a;", "");
    ScriptRow("within a word", "myproc foo() {} ;proc bar() {}", "");
    ScriptRow("incomplete header swallows a letter", "proc foo proc bar() {}", "2:foo@5/0");
    ScriptRow("line comment", "// TODO fix\n// TODOS", "I1-11 TODO:");
    ScriptRow("block comment", "/* TODO\n proc x() {} */ a", "I1-21 TODO:");
    ScriptRow("not a block comment", "/*/ TODO */", "I1-9 TODO:");
    ScriptRow("open block comment", "x /* TODO", "I3--1 TODO:");
    ScriptRow("string", "\"\\\" // TODO proc a() {}\"; proc b() {}", "2:b@31/0");
    ScriptRow("slash", "$a = 1 / 2; proc b() {}", "2:b@17/0");
}

void ParserTest::MelScripts()
{
    QFETCH(QString, script);
    MelParser parser;
    QTEST(Described(parser, script), "result");
}

void ParserTest::MelKeepsItsErrors_data()
{
    ScriptColumns();
    ScriptRow("unterminated", "a \"b", "E2-4 Unterminated String");
    ScriptRow("statement ends in parentheses", "a(;b[;", "E2-3 Expected a ')'");
    ScriptRow("statement ends in brackets", "a[;", "E2-3 Expected a ']'");
    ScriptRow("surplus", "}{", "E0-1 Unexpected '}'");
    ScriptRow("open brace at the end", "{ x", "E3-3 Expected a '}'");
    ScriptRow("nested", "proc a() { proc b() {} }",
        "2:a@5/0|E11-16 Procedures cannot be nested within each other. Expected a '}'.");
    ScriptRow("invalid name", "proc a..b() {}", "E0-9 Invalid procedure name");
    ScriptRow("missing name", "proc int $a", "E0-9 Invalid procedure name");
    ScriptRow("no parameters", "proc a {}", "2:a@5/0|E5-6 Expected a '('");
    ScriptRow("nothing behind", "proc a ", "2:a@5/0|E5-6 Expected a '('");
    ScriptRow("bad parameters", "proc a (-) {}", "2:a@5/0|E5-6 Expected a ')'");
    ScriptRow("no body", "proc a () x", "2:a@5/0|E5-6 Expected a '{'");
}

void ParserTest::MelKeepsItsErrors()
{
    QFETCH(QString, script);
    TellingMelParser telling;
    QTEST(Described(telling, script), "result");
    MelParser parser;
    parser.Parse(script, QString());
    QVERIFY(parser.GetErrors().isEmpty());
    QCOMPARE(parser.GetItems().size(), telling.GetItems().size());
}

void ParserTest::ParagraphSeparatorsEndLines()
{
    const QString script = "class A:\n  def f(self)):\n    '''TODO'''\n  x = 'a\n";
    QString blocks = script;
    blocks.replace('\n', QChar::ParagraphSeparator);
    PythonParser parser;
    const QString expected = Described(parser, script);
    QVERIFY(expected.contains("Unterminated") && expected.contains("TODO"));
    QCOMPARE(Described(parser, blocks), expected);
}

void ParserTest::EachPassStartsAfresh()
{
    PythonParser python;
    const QString mixed = "@staticmethod\nx)\n  y(\n  \t'";
    const QString first = Described(python, mixed);
    QVERIFY(first.contains("Unexpected ')'") && first.contains("Unexpected indent"));
    QCOMPARE(Described(python, "def f(): pass"), QString("8:f@4/0"));
    QCOMPARE(Described(python, mixed), first);
    MelParser mel;
    Described(mel, "proc a() { (");
    QCOMPARE(Described(mel, "proc b() {}"), QString("2:b@5/0"));
    QVERIFY(mel.IsMel() && !mel.IsPython() && python.IsPython() && !python.IsMel());
    QCOMPARE(mel.GetFilePath(), QString("x.py"));
}

// A quadratic pass over any of these would run into the test's time-out.
void ParserTest::StaysLinear_data()
{
    QTest::addColumn<QString>("piece");
    QTest::newRow("empty lines in brackets") << "(\n\n";
    QTest::newRow("backslashes") << "'\\\\\\\\";
    QTest::newRow("colons") << ": :";
    QTest::newRow("headers") << " proc a( ";
    QTest::newRow("globals") << " global proc a() ";
    QTest::newRow("imports") << "import a as\n";
}

void ParserTest::StaysLinear()
{
    QFETCH(QString, piece);
    const QString script = piece.repeated(300000);
    MelParser().Parse(script, QString());
    PythonParser().Parse(script, QString());
}

TE2_TEST(ParserTest)
#include "ParserTest.moc"
