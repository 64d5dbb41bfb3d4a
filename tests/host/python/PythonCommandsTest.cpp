#include "host/python/PythonFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

namespace {

Script kept;

/// What the command was given, as one text: mode, flags with their uses, objects.
Outcome Spell(Call& call)
{
    QStringList parts{call.IsQuery() ? "query" : call.IsEdit() ? "edit" : "create"};
    for (const QString& flag : call.GivenFlags()) {
        const QByteArray name = flag.toUtf8();
        for (int use = 0; use < call.UseCount(name); ++use) {
            QStringList arguments;
            for (int i = 0; !call.Argument(name, i, use).IsNone(); ++i)
                arguments += call.Argument(name, i, use).ToText();
            parts += flag + "(" + arguments.join(",") + ")";
        }
    }
    return (parts + call.ObjectTexts()).join(" ");
}

Outcome GiveBack(Call& call)
{
    const QString what = call.ObjectText();
    const QHash<QString, Value> values{{"none", Value()}, {"yes", true}, {"int", 7}, {"float", 0.5},
        {"text", QString("\xF0\x9F\x98\x80")}, {"vector", Vector{1, 2, 3}}, {"ints", IntList{1, 2}},
        {"vectors", VectorList{{1, 2, 3}}}, {"empty", StringList()},
        {"matrix", Matrix{1, 2, {4, 5}}}};
    return values.value(what);
}

Outcome Fail(Call& call)
{
    const QString how = call.ObjectText();
    if (how == "throw")
        throw std::runtime_error("thrown");
    const ErrorKind kind = how == "type" ? ErrorKind::Type
        : how == "value"                 ? ErrorKind::Value
                                         : ErrorKind::Runtime;
    return Error{"It failed.", kind, how == "shown"};
}

Outcome Keep(Call& call)
{
    kept = call.GetScript("command");
    return {};
}

// clang-format off
const CommandRow ROWS[] = {
    {"spell",    "string", "QE", "[String...]", "flag/f - cqe; size/s int int cqe; name/n str cqe; item/i str cqem; pair/p str int cem; list/ls str[] c; number/nr int cqe; ratio/r float c; on/o B cqe; far/fr length c; turn/t angle c; when/w time c", Spell},
    {"giveBack", "any",    "Q",  "[String]",    "", GiveBack},
    {"lsUI",     "any",    "",   "[String]",    "", GiveBack},
    {"fail",     "none",   "",   "[String]",    "", Fail},
    {"keep",     "none",   "",   "",            "command/c script c", Keep},
};
// clang-format on

} // namespace

/// maya.cmds: arguments, results, errors, names and callables.
class PythonCommandsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanup() { kept = Script(); }
    void ReadsArguments_data();
    void ReadsArguments();
    void ConvertsResultsAndErrors_data();
    void ConvertsResultsAndErrors();
    void ShownErrorsAreNotShownAgain();
    void NamesComeAndGoWithTheirCommands();
    void ErrorAndWarning();
    void CallablesAreKeptAndCalled();
    void CallablesReportTheirErrors();
    void CallablesAreReleased();
    void TextsGivenByPythonArePython();

private:
    PythonFixture m_host;
};

void PythonCommandsTest::initTestCase()
{
    m_host.engine.commands.Register(ROWS);
    QVERIFY(!m_host.Execute("from maya import cmds\nimport pathlib").failed);
}

void PythonCommandsTest::ReadsArguments_data()
{
    Columns<QString, QString>("call", "shown");
    TextRow("'a', ['b', ('c', ['d'])]", "Result: create a b c d");
    TextRow("1, 2.5, True", "Result: create 1 2.5 1");
    TextRow("pathlib.Path('/tmp/x')", "Result: create /tmp/x");
    TextRow("query=True, name=True", "Result: query name()");
    TextRow("'w', e=1, n='x'", "Result: edit name(x) w");
    TextRow("flag=True", "Result: create flag()");
    TextRow("flag=False", "Result: create");
    TextRow("on=False", "Result: create on(0)");
    TextRow("size=(3, 4)", "Result: create size(3,4)");
    TextRow("s=[3, 4.0]", "Result: create size(3,4)");
    TextRow("number='12'", "Result: create number(12)");
    TextRow("item='a'", "Result: create item(a)");
    TextRow("item=['a', 'b']", "Result: create item(a) item(b)");
    TextRow("item=[]", "Result: create");
    TextRow("pair=('a', 1)", "Result: create pair(a,1)");
    TextRow("pair=[('a', 1), ('b', 2)]", "Result: create pair(a,1) pair(b,2)");
    TextRow("list=('a', 'b')", "Result: create list(a,b)");
    TextRow("name=10**12", "Result: create name(1000000000000)");
    TextRow("ratio=10**12", "Result: create ratio(1e+12)");
    TextRow("name='\xF0\x9F\x98\x80'", "Result: create name(\xF0\x9F\x98\x80)");
    TextRow("far=5", "Result: create far(5)");
    TextRow("far='5cm'", "Result: create far(5)");
    TextRow("far='1.5 in', turn='180 deg'", "Result: create far(3.81) turn(180)");
    TextRow("when='2sec'", "Result: create when(48)");
    TextRow("when='10 60fps'", "Result: create when(4)");
    TextRow(
        "far='5deg'", "TypeError: Invalid arguments for flag 'far'.  Expected distance, got str");
    TextRow("'w', query=None", "Result: create w");
    TextRow("query='w', name=True", "Result: query name() w");
    TextRow("foo=1", "TypeError: Invalid flag 'foo'");
    TextRow("foo={}", "TypeError: Invalid flag 'foo'");
    TextRow("number='x'", "TypeError: Invalid arguments for flag 'number'.  Expected int, got str");
    TextRow("number=None",
        "TypeError: Invalid arguments for flag 'number'.  Expected int, got NoneType");
    TextRow("number={}", "TypeError: Invalid arguments for flag 'number'.  Expected int, got dict");
    TextRow("number=10**12", "OverflowError: The value of flag 'number' is too large for an int");
    TextRow(
        "size=3", "TypeError: Invalid arguments for flag 'size'.  Expected ( int, int ), got int");
    TextRow("item=[['a', ['b']]]",
        "TypeError: Invalid arguments for flag 'item'.  Expected str, got list");
    TextRow("None", "TypeError: Invalid argument: an object cannot be of type NoneType");
    TextRow("b'x'", "TypeError: Invalid argument: an object cannot be of type bytes");
    TextRow("print",
        "TypeError: Invalid argument: an object cannot be of type builtin_function_or_method");
}

void PythonCommandsTest::ReadsArguments()
{
    QFETCH(QString, call);
    QFETCH(QString, shown);
    const QString place = ": file <maya console> line 1: ";
    const int colon = shown.indexOf(": ");
    const QString error = "Error: " + shown.left(colon) + place + shown.mid(colon + 2);
    const bool works = shown.startsWith("Result");
    QCOMPARE(m_host.Run("cmds.spell(" + call + ")"), QStringList(works ? shown : error));
}

void PythonCommandsTest::ConvertsResultsAndErrors_data()
{
    Columns<QString, QString>("call", "shown");
    TextRow("giveBack('none')", "None");
    TextRow("giveBack('yes')", "True");
    TextRow("giveBack('int')", "7");
    TextRow("giveBack('float')", "0.5");
    TextRow("giveBack('text')", "'\xF0\x9F\x98\x80'");
    TextRow("giveBack('vector')", "[1.0, 2.0, 3.0]");
    TextRow("giveBack('vectors')", "[(1.0, 2.0, 3.0)]");
    TextRow("giveBack('matrix')", "[(4.0, 5.0)]");
    TextRow("giveBack('ints')", "[1, 2]");
    TextRow("giveBack('empty')", "[]");
    TextRow("giveBack('empty', q=True)", "None");
    TextRow("lsUI('empty')", "None");
    TextRow("fail('type')", "TypeError('It failed.')");
    TextRow("fail('value')", "ValueError('It failed.')");
    TextRow("fail()", "RuntimeError('It failed.')");
    TextRow("fail('throw')", "RuntimeError('thrown')");
    TextRow("fail(*range(5))", "RuntimeError('Too many objects or values.')");
}

void PythonCommandsTest::ConvertsResultsAndErrors()
{
    QFETCH(QString, call);
    QFETCH(QString, shown);
    QCOMPARE(m_host.Run("try: print(repr(cmds." + call
                 + "))\n"
                   "except Exception as problem: print(repr(problem))"),
        QStringList("Display: " + shown + "\n"));
}

void PythonCommandsTest::ShownErrorsAreNotShownAgain()
{
    m_host.TakeMessages();
    const ScriptResult result = m_host.Execute("cmds.fail('shown')");
    QVERIFY(result.failed);
    QCOMPARE(result.errorText, "It failed.");
    QCOMPARE(m_host.TakeTranscript(), QStringList());
}

void PythonCommandsTest::NamesComeAndGoWithTheirCommands()
{
    const QString missing = "Error: AttributeError: file <maya console> line 1: "
                            "module 'maya.cmds' has no attribute 'guest'";
    QCOMPARE(m_host.Run("cmds.guest()"), QStringList(missing));
    auto guest = std::make_unique<Command>(
        "guest", CommandOrigin::PlugIn, [](Call&) -> Outcome { return 5; });
    m_host.engine.commands.Register(std::move(guest));
    QCOMPARE(m_host.Run("cmds.guest(), cmds.guest is cmds.guest, 'guest' in dir(cmds)"),
        QStringList("Result: (5, True, True)"));
    m_host.Execute("from maya.cmds import *\nheld = guest");
    QCOMPARE(m_host.Run("held(), held.__name__"), QStringList("Result: (5, 'guest')"));
    m_host.engine.commands.Unregister("guest");
    QCOMPARE(m_host.Run("cmds.guest"), QStringList(missing));
    QCOMPARE(m_host.Run("'guest' in dir(cmds), hasattr(cmds, 'guest')"),
        QStringList("Result: (False, False)"));
    QCOMPARE(m_host.Run("held()"),
        QStringList("Error: RuntimeError: file <maya console> line 1: "
                    "Cannot find procedure \"guest\"."));
}

void PythonCommandsTest::ErrorAndWarning()
{
    QCOMPARE(m_host.Run("cmds.warning('careful')"), QStringList("Warning: careful"));
    QCOMPARE(m_host.Run("cmds.error('stop')\nprint('not reached')"),
        QStringList("Error: RuntimeError: file <maya console> line 1: stop"));
    QCOMPARE(m_host.Run("try: cmds.error('stop')\nexcept RuntimeError as e: print(e)"),
        QStringList("Display: stop\n"));
}

void PythonCommandsTest::CallablesAreKeptAndCalled()
{
    m_host.Execute("def pressed(*arguments):\n    print(arguments)\n    return ['a', 'b']");
    m_host.Execute("cmds.keep(command=pressed)");
    QVERIFY(kept.Description().startsWith("<function pressed at 0x"));
    m_host.TakeMessages();
    const Outcome outcome = kept.Run({Value(true), Value(QString("x"))});
    QCOMPARE(m_host.TakeTranscript(), QStringList("Display: (True, 'x')\n"));
    QVERIFY(outcome.Ok());
    QCOMPARE(outcome.GetValue(), Value(StringList{"a", "b"}));
}

void PythonCommandsTest::CallablesReportTheirErrors()
{
    m_host.Execute("cmds.keep(command=lambda: 1 / 0)");
    m_host.TakeMessages();
    const Outcome outcome = kept.Run({});
    QVERIFY(!outcome.Ok() && outcome.GetError().shown);
    QCOMPARE(m_host.TakeTranscript(),
        QStringList("Error: ZeroDivisionError: file <maya console> line 1: division by zero"));
}

void PythonCommandsTest::CallablesAreReleased()
{
    m_host.Execute("import weakref\nclass Target:\n    def __call__(self): pass\n"
                   "target = Target()\nwatch = weakref.ref(target)\n"
                   "cmds.keep(command=target)\ndel target");
    QCOMPARE(m_host.Run("watch() is None"), QStringList("Result: False"));
    kept = Script();
    QCOMPARE(m_host.Run("watch() is None"), QStringList("Result: True"));
}

void PythonCommandsTest::TextsGivenByPythonArePython()
{
    m_host.Execute("cmds.keep(c='print(1 + 1)')");
    m_host.TakeMessages();
    kept.Run();
    QCOMPARE(m_host.TakeTranscript(), QStringList("Display: 2\n"));
}

TE2_TEST(PythonCommandsTest)
#include "PythonCommandsTest.moc"
