#include "language/MelParser.h"
#include "language/PythonParser.h"
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
    Columns<QString, QString>("script", "result");
    Row("empty", "", "");
    Row("import list", "import os, sys", "4:os@7/0|4:sys@11/0");
    Row("each at its own place", "import sysos, os,,  , os", "4:sysos@7/0|4:os@14/0|4:os@22/0");
    Row("import with more on the line", "import os, sys; x = 1", "");
    Row("import and comment", "import a.b # TODO", "4:a.b@7/0");
    Row("nothing imported: the comment is read", "import # TODO", "I7-13 TODO:");
    Row("import as", "import\ta.b  as  c # d", "5:c = a.b@16/0");
    Row("import as nothing", "import a as ", "");
    Row("import as something unusual", "import a as b, c", "");
    Row("a module named as", "import as as b", "5:b = as@13/0");
    Row("as without a name", "import a as", "");
    Row("important", "important = 1", "");
    Row("from", "from math import sqrt as s", "6:s = sqrt (math)@25/0");
    Row("from, several", "from .m import x,y as z ,, x",
        "6:x (.m)@15/0|6:z = y (.m)@22/0|6:x (.m)@27/0");
    Row("from, in brackets", "from a import (b, c)", "");
    Row("from, tab", "from a import b\t", "");
    Row("from, star", "from a import *", "");
    Row("from, two words", "from a import b c", "6:b c (a)@14/0");
    Row("main guard", "if __name__ == \"__main__\":\n  x", "7:__main__@16/0");
    Row("main guard, other quotes", "if __name__ ==  '__main__':\n  x", "7:__main__@17/0");
    Row("main guard, tight", "if __name__=='__main__':\n  x", "");
    Row("class", "class  A(B):\n  def f(self):\n    pass", "11:A@7/0|8:f@19/1");
    Row("tab behind def", "def\tf(): pass", "8:f@4/0");
    Row("no name", "class (A): pass", "");
    Row("form feed before def", "\fdef f(): pass", "");
    Row("async", "async def f(): pass", "");
    Row("in a block", "if x:\n\timport a\n\tdef f(): pass", "4:a@14/1|8:f@21/1");
    Row("static", "@staticmethod\ndef f(): pass", "9:f@18/0");
    Row("class method", "@x\n@classmethod\ndef f(): pass", "10:f@20/0");
    Row("nearest wins", "@classmethod\n@staticmethod\ndef f(): pass", "9:f@31/0");
    Row("decorator called", "@staticmethod()\ndef f(): pass", "8:f@20/0");
    Row("decorator with a blank", "@staticmethod \ndef f(): pass", "8:f@19/0");
    Row("comment below decorator", "@staticmethod\n#\ndef f(): pass", "8:f@20/0");
    Row("empty line below decorator", "@staticmethod\n\ndef f(): pass", "9:f@19/0");
    Row("column 0 is level 0", "if x:\n  y\n def f(): pass\ndef g(): pass",
        "8:f@15/0|8:g@29/0|E10-11 Unindent does not match any outer indentation level");
    Row("class word in brackets", "f(\nclassy, imports)\ndef f(): pass", "8:f@24/0");
}

void ParserTest::PythonStatements()
{
    QFETCH(QString, script);
    PythonParser parser;
    QTEST(Described(parser, script), "result");
}

void ParserTest::PythonMessages_data()
{
    Columns<QString, QString>("script", "result");
    Row("stray closers: the first", "x)\n)", "E1-2 Unexpected ')'");
    Row("open bracket, statement follows", "f(\n\n  def g(): pass\n)",
        "8:g@10/0|E2-2 Expected a ')'|E4-6 Unexpected indent");
    Row("brace before others", "{[(\nfrom", "E3-3 Expected a '}'");
    Row("square bracket alone", "[ # x\nimport a", "4:a@13/0|E5-5 Expected a ']'");
    Row("open at the end", "f((", "");
    Row("colon in brackets", "x[1:\n2]\ny", "");
    Row("expected block after a comment", "def f():\n # c\nx",
        "8:f@4/0|E14-14 Expected an indented block");
    Row("blanks and comment behind colon", "if x: # TODO\n  y", "");
    Row("code behind colon", "if x: return\ny", "");
    Row("unexpected indent, once", "x\n  y\n    z", "E2-4 Unexpected indent");
    Row("tab against spaces", "if x:\n\ty\n        z",
        "E9-17 Unindent does not match any outer indentation level");
    Row("tabs and spaces, once", "if x:\n \ty\n \tz", "W6-8 Indent contains both tabs and spaces");
    Row("no warning after a wrong dedent", "if x:\n  y\n \tz\n \tz",
        "E10-12 Unexpected indent|"
        "W10-12 Indent contains both tabs and spaces");
    Row("unterminated", "x = 'abc\ndef f():\n  y", "E4-8 Unterminated String");
    Row("unterminated at the end", "'abc", "E0-4 Unterminated String");
    Row("every unterminated one", "'\n\"", "E0-1 Unterminated String|E2-3 Unterminated String");
    Row("escaped quote", "'a\\'b' 'c\\\\'\ndef f(): pass", "8:f@17/0");
    Row("continued", "'a\\\nb'\ndef f(): pass", "8:f@11/0");
    Row("continued at the end", "'a\\", "E0-3 Unterminated String");
    Row("empty strings", "'' \"\"\ndef f(): pass", "8:f@10/0");
    Row("docstring", "\"\"\"a ' # ( TODO\n  def\n\"\"\"\ndef f(): pass", "8:f@30/0|I0-22 TODO:");
    Row("escaped docstring end", "'''TODO \\''' TODO '''\nx", "I10-18 TODO:");
    Row("open docstring", "'''TODO\n", "I0-9 TODO:");
    Row("comment", "x # TODO: y\n# TODOS\n#TODO", "I2-11 TODO:|I20-25 TODO:");
    Row("word of other letters", u8"# \u00e4TODO", "");
}

void ParserTest::MelScripts_data()
{
    Columns<QString, QString>("script", "result");
    Row("empty", "", "");
    Row("blank", "\n \n", "");
    Row("blank line first", " \nx;",
        "W0-0 Empty line(s) at start of file. Line numbers in trace may be incorrect.");
    Row("blanks first", "  x;", "");
    Row("global proc", "global proc string[] listItems() {\n}", "1:listItems@21/0");
    Row("proc", "proc foo(int $a) {}\n proc int[] bar () {}", "2:foo@5/0|2:bar@32/0");
    Row("type glued to the keyword", "procint foo() {}", "2:foo@8/0");
    Row("name begins like a type", "proc int intFoo() {}", "2:intFoo@9/0");
    Row("name glued to its type", "proc int[]bar () {}", "2:int@5/0");
    Row("keyword alone on its line", "global\nproc foo() {}", "2:foo@12/0");
    Row("in a block", "{ proc foo() {} }", "2:foo@7/1");
    Row("nested", "proc a() { proc b() {} }\nproc c() {}", "2:a@5/0|2:c@30/0");
    Row("after a nested one's end", "proc a() { proc b() {} proc c() {} }", "2:a@5/0|2:c@28/1");
    Row("global variable", "global int $a, $b;global string $c[];\n\tglobal vector[] $d_1;",
        "3:$a@11/0|3:$d_1@55/0");
    Row("two blanks before the name", "global int  $a;", "");
    Row("unknown type", "global double $a;", "");
    Row("within a word", "myproc foo() {} ;proc bar() {}", "");
    Row("incomplete header swallows a letter", "proc foo proc bar() {}", "2:foo@5/0");
    Row("line comment", "// TODO fix\n// TODOS", "I1-11 TODO:");
    Row("block comment", "/* TODO\n proc x() {} */ a", "I1-21 TODO:");
    Row("not a block comment", "/*/ TODO */", "I1-9 TODO:");
    Row("open block comment", "x /* TODO", "I3--1 TODO:");
    Row("string", "\"\\\" // TODO proc a() {}\"; proc b() {}", "2:b@31/0");
    Row("slash", "$a = 1 / 2; proc b() {}", "2:b@17/0");
}

void ParserTest::MelScripts()
{
    QFETCH(QString, script);
    MelParser parser;
    QTEST(Described(parser, script), "result");
}

void ParserTest::MelKeepsItsErrors_data()
{
    Columns<QString, QString>("script", "result");
    Row("unterminated", "a \"b", "E2-4 Unterminated String");
    Row("statement ends in parentheses", "a(;b[;", "E2-3 Expected a ')'");
    Row("statement ends in brackets", "a[;", "E2-3 Expected a ']'");
    Row("surplus", "}{", "E0-1 Unexpected '}'");
    Row("open brace at the end", "{ x", "E3-3 Expected a '}'");
    Row("nested", "proc a() { proc b() {} }",
        "2:a@5/0|E11-16 Procedures cannot be nested within each other. Expected a '}'.");
    Row("invalid name", "proc a..b() {}", "E0-9 Invalid procedure name");
    Row("missing name", "proc int $a", "E0-9 Invalid procedure name");
    Row("no parameters", "proc a {}", "2:a@5/0|E5-6 Expected a '('");
    Row("nothing behind", "proc a ", "2:a@5/0|E5-6 Expected a '('");
    Row("bad parameters", "proc a (-) {}", "2:a@5/0|E5-6 Expected a ')'");
    Row("no body", "proc a () x", "2:a@5/0|E5-6 Expected a '{'");
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
    QCOMPARE(Described(python, "def f(): pass"), "8:f@4/0");
    QCOMPARE(Described(python, mixed), first);
    MelParser mel;
    Described(mel, "proc a() { (");
    QCOMPARE(Described(mel, "proc b() {}"), "2:b@5/0");
    QVERIFY(mel.IsMel() && !mel.IsPython() && python.IsPython() && !python.IsMel());
    QCOMPARE(mel.GetFilePath(), "x.py");
}

// A quadratic pass over any of these would run into the test's time-out.
void ParserTest::StaysLinear_data()
{
    Columns<QString>("piece");
    Row("empty lines in brackets", "(\n\n");
    Row("backslashes", "'\\\\\\\\");
    Row("colons", ": :");
    Row("headers", " proc a( ");
    Row("globals", " global proc a() ");
    Row("imports", "import a as\n");
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
