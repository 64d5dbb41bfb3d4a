#include "host/python/PythonFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

/// Texts as the console runs them: results, errors, the namespace, files.
class PythonRunTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host.engine.echo = EchoState(); }
    void ShowsResultsAndErrors_data();
    void ShowsResultsAndErrors();
    void GivesValues_data();
    void GivesValues();
    void ErrorPlaceFollowsTheSwitches();
    void StackTraceHoldsEveryFrame();
    void ReplacedFormattersAreUsed();
    void NamesLastBetweenTexts();
    void RunsFilesWithTheirOwnEncoding();
    void FileErrorsNameTheFile();
    void MissingFileIsAnError();
    void NestingHasALimit();
    void UsesTheSystemsLibrary();

private:
    QString WriteFile(const QString& name, const QByteArray& text);

    PythonFixture m_host;
};

QString PythonRunTest::WriteFile(const QString& name, const QByteArray& text)
{
    QFile file(m_host.directory.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void PythonRunTest::ShowsResultsAndErrors_data()
{
    Columns<QString, QStringList>("text", "shown");
    const auto row = [](const char* name, const QString& text, const QStringList& shown) {
        Row(name, text, shown);
    };
    const QString place = "file <maya console> line ";

    // clang-format off
    row("number", "1 + 2", {"Result: 3"});
    row("string without quotes", "'a' + 'b'", {"Result: ab"});
    row("empty string", "''", {"Result: "});
    row("list with quotes", "['a', 1.5]", {"Result: ['a', 1.5]"});
    row("truth", "1 == 1", {"Result: True"});
    row("None shows nothing", "None", {});
    row("statement shows nothing", "x = 5", {});
    row("nothing at all", "", {});
    row("comment only", "# nothing", {});
    row("print comes before the result", "print('a') or 7", {"Display: a\n", "Result: 7"});
    row("line feeds around an expression", "\n\n1\n\n", {"Result: 1"});
    row("carriage return and line feed", "x = 1\r\nif x:\r\n    print(x)\r\n", {"Display: 1\n"});
    row("carriage return alone", "x = 2\rif x:\r    print(x)\r", {"Display: 2\n"});
    row("byte order mark", QString(QChar(0xfeff)) + "1", {"Result: 1"});
    row("characters beyond the first plane", "'\xF0\x9F\x98\x80' + str(len('\xF0\x9F\x98\x80'))", {"Result: \xF0\x9F\x98\x80" "1"});
    row("lone surrogate in output", "print('<' + chr(0xd800) + '>')", {"Display: <" + QString(QChar(0xd800)) + ">\n"});
    row("standard error is plain output", "import sys; _ = sys.stderr.write('e\\n')", {"Display: e\n"});

    row("unknown name", "x = 1\nnope", {"Error: NameError: " + place + "2: name 'nope' is not defined"});
    row("inside a function", "def f():\n  raise ValueError('bad')\n\nf()", {"Error: ValueError: " + place + "2: bad"});
    row("without a message", "raise ValueError", {"Error: ValueError: " + place + "1"});
    row("prints before the error", "print('a')\n1/0", {"Display: a\n", "Error: ZeroDivisionError: " + place + "2: division by zero"});
    row("syntax error", "x = 1\nif x\n  pass", {"Error: SyntaxError: " + place + "2: expected ':'"});
    row("wrong indent", "x = 1\n  y = 2", {"Error: IndentationError: " + place + "2: unexpected indent"});
    row("syntax error in an imported text", "exec('a b')", {"Error: SyntaxError: file <string> line 1: invalid syntax"});
    row("null character", QString("x = 1") + QChar(0) + "\ny = 2", {"Error: ValueError: source code string cannot contain null bytes"});
    row("lone surrogate in the text", QString("'") + QChar(0xdc00) + "'",
        {"Error: UnicodeEncodeError: 'utf-8' codec can't encode character '\\udc00' in position 1: "
         "surrogates not allowed"});
    row("exit does not end the host", "import sys\nsys.exit(3)",
        {"Error: SystemExit: " + place + "2: The script asked to exit with 3; the host goes on."});
    row("exit from the site module", "exit()", {"Error: SystemExit: " + place + "1: The script asked to exit; the host goes on."});
    row("endless recursion", "def f(): f()\nf()", {"Error: RecursionError: " + place + "1: maximum recursion depth exceeded"});
    row("result that cannot be shown", "type('A', (), {'__repr__': lambda self: 1/0})()",
        {"Error: ZeroDivisionError: " + place + "1: division by zero"});
    row("reading the keyboard", "input('name? ')",
        {"Display: name? ",
            "Error: EOFError: " + place
                + "1: The host has no standard input: input() and reading sys.stdin are not "
                  "available."});
    row("exception without a text",
        "class E(Exception):\n  def __str__(self): raise KeyError\nraise E",
        {"Error: E: " + place + "3: <the exception has no text>"});
    row("several lines in a message", "raise OSError('a\\nb')", {"Error: OSError: " + place + "1: a\nb"});
    // clang-format on
}

void PythonRunTest::ShowsResultsAndErrors()
{
    QFETCH(QString, text);
    QFETCH(QStringList, shown);
    QCOMPARE(m_host.Run(text), shown);
}

void PythonRunTest::GivesValues_data()
{
    Columns<QString, int, QString>("text", "kind", "words");
    const auto row = [](const char* text, Value::Kind kind, const char* words) {
        Row(text, QString(text), static_cast<int>(kind), QString(words));
    };
    row("True", Value::Kind::Bool, "1");
    row("2147483647", Value::Kind::Int, "2147483647");
    row("-2147483648", Value::Kind::Int, "-2147483648");
    row("2147483648", Value::Kind::None, "");
    row("10 ** 400", Value::Kind::None, "");
    row("0.5", Value::Kind::Float, "0.5");
    row("'x'", Value::Kind::String, "x");
    row("[1, True]", Value::Kind::IntArray, "1 1");
    row("(1, 0.5)", Value::Kind::FloatArray, "1 0.5");
    row("['a', 'b']", Value::Kind::StringArray, "a b");
    row("[]", Value::Kind::StringArray, "");
    row("[1, 'a']", Value::Kind::None, "");
    row("[[1]]", Value::Kind::None, "");
    row("{'a': 1}", Value::Kind::None, "");
    row("x = 1", Value::Kind::None, "");
}

void PythonRunTest::GivesValues()
{
    QFETCH(QString, text);
    QFETCH(int, kind);
    QFETCH(QString, words);
    const ScriptResult result = m_host.Execute(text);
    QVERIFY(!result.failed);
    QCOMPARE(static_cast<int>(result.value.GetKind()), kind);
    QCOMPARE(result.value.ToResultText(), words);
}

void PythonRunTest::ErrorPlaceFollowsTheSwitches()
{
    m_host.engine.echo.lineNumbers = false;
    QCOMPARE(m_host.Run("nope"), QStringList("Error: NameError: name 'nope' is not defined"));
    QCOMPARE(m_host.Run("raise ValueError"), QStringList("Error: ValueError"));
    QCOMPARE(m_host.Run("a b"), QStringList("Error: SyntaxError: invalid syntax"));
    const ScriptResult result = m_host.Execute("nope");
    QVERIFY(result.failed);
    QCOMPARE(result.errorText, "name 'nope' is not defined");
}

void PythonRunTest::StackTraceHoldsEveryFrame()
{
    m_host.engine.echo.stackTrace = true;
    QCOMPARE(m_host.Run("def f():\n    nope\nf()"),
        QStringList("Error: name 'nope' is not defined\n"
                    "# Traceback (most recent call last):\n"
                    "#   File \"<maya console>\", line 3, in <module>\n"
                    "#   File \"<maya console>\", line 2, in f\n"
                    "# NameError: name 'nope' is not defined"));
}

void PythonRunTest::ReplacedFormattersAreUsed()
{
    m_host.Execute("import maya.utils as u\n"
                   "u.formatGuiException = lambda t, v, tb, d: 'my %s %d' % (t.__name__, d)\n"
                   "u.formatGuiResult = lambda o: '<%r>' % o");
    QCOMPARE(m_host.Run("1/0"), QStringList("Error: my ZeroDivisionError 1"));
    QCOMPARE(m_host.Run("2"), QStringList("Result: <2>"));
    m_host.Execute("u.formatGuiException = None\nu.formatGuiResult = u._formatGuiResult");
    QCOMPARE(m_host.Run("1/0"), QStringList("Error: ZeroDivisionError: division by zero"));
    m_host.Execute("u.formatGuiException = u._formatGuiException");
}

void PythonRunTest::NamesLastBetweenTexts()
{
    m_host.Execute("import math\ncounter = 1");
    m_host.Execute("def add():\n    global counter\n    counter += 1");
    m_host.Execute("add()");
    QCOMPARE(m_host.Run("counter, math.floor(2.5), __name__"),
        QStringList("Result: (2, 2, '__main__')"));
}

void PythonRunTest::RunsFilesWithTheirOwnEncoding()
{
    const QString path = WriteFile("latin.py",
        "# -*- coding: latin-1 -*-\r\nword = '\xe9'\r\nwhere = __file__\r\nprint('ran')\r\n");
    m_host.TakeMessages();
    QVERIFY(!m_host.python.RunFile(path).failed);
    QCOMPARE(m_host.TakeTranscript(), QStringList("Display: ran\n"));
    QCOMPARE(m_host.Run("word, where == r'" + path + "', '__file__' in globals()"),
        QStringList("Result: ('\xC3\xA9', True, False)"));

    m_host.Execute("import sys; sys.path.append(r'" + m_host.directory.path() + "')");
    QVERIFY(!m_host.python.RunFile("latin.py").failed);
}

void PythonRunTest::FileErrorsNameTheFile()
{
    const QString path = WriteFile("broken.py", "x = 1\ny = nope\n");
    m_host.TakeMessages();
    QVERIFY(m_host.python.RunFile(path).failed);
    QCOMPARE(m_host.TakeTranscript(),
        QStringList("Error: NameError: file " + path + " line 2: name 'nope' is not defined"));
}

void PythonRunTest::MissingFileIsAnError()
{
    m_host.TakeMessages();
    QVERIFY(m_host.python.RunFile("nowhere/at/all.py").failed);
    const QStringList shown = m_host.TakeTranscript();
    QCOMPARE(shown.size(), 1);
    QVERIFY2(shown[0].startsWith("Error: FileNotFoundError:") && shown[0].contains("all.py"),
        qPrintable(shown[0]));
}

void PythonRunTest::NestingHasALimit()
{
    static PythonFixture* fixture = nullptr;
    fixture = &m_host;
    static const CommandRow ROWS[]
        = {{"runAgain", "int", "", "", "", [](Call&) -> Outcome {
                const ScriptResult result = fixture->Execute("cmds.runAgain()");
                return result.failed ? Outcome(Error{result.errorText, ErrorKind::Runtime, true})
                                     : Outcome(result.value);
            }}};
    m_host.engine.commands.Register(ROWS);
    m_host.TakeMessages();
    QVERIFY(m_host.Execute("from maya import cmds\ncmds.runAgain()").failed);
    QCOMPARE(m_host.TakeTranscript(),
        QStringList(
            "Error: RecursionError: Python scripts run inside each other more than 100 times."));
}

void PythonRunTest::UsesTheSystemsLibrary()
{
    QCOMPARE(m_host.Run("import os, sys; print(os.__file__, sys.prefix, sys.argv)"),
        QStringList("Display: /usr/lib/python3.11/os.py /usr ['']\n"));
    // A module of the user's must not hide one of the library.
    const int own = m_host.Execute("sys.path.index('/usr/lib/python3.11')").value.ToInt();
    const QString folder = m_host.engine.paths.UserScriptsDirectory();
    QVERIFY(m_host.Execute("sys.path.index(r'" + folder + "')").value.ToInt() > own);
}

TE2_TEST(PythonRunTest)
#include "PythonRunTest.moc"
