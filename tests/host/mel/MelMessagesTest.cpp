#include "host/mel/MelFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

namespace {

Outcome Succeed(Call&)
{
    return {};
}

Outcome Refuse(Call& call)
{
    return Error{"No object matches name: " + call.ObjectText()};
}

constexpr CommandRow COMMANDS[] = {
    {"doIt", "none", "", "[String...]", "name/n str c; visible/vis B c; size/s float float c",
        Succeed},
    {"refuse", "none", "", "String", "", Refuse},
};

} // namespace

/// Which messages go out, in which order, and what leads them.
class MelMessagesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void CompileErrorsComeInTwoMessages();
    void PlacesNameTheFile();
    void PlacesCanBeSwitchedOff();
    void ErrorsOfCommandsAreLedByThePlace();
    void StackTraceFollowsTheError();
    void EchoAllShowsEachCommandBeforeItRuns_data();
    void EchoAllShowsEachCommandBeforeItRuns();
    void EchoAllReachesIntoProceduresAndHonoursTheFilter();
    void EvalEchoShowsTextAndResult();
    void HiddenErrorsStillCountAsTheLast();
    void ErrorsOfTextsRunFromOutsideAreShown();
};

void MelMessagesTest::CompileErrorsComeInTwoMessages()
{
    MelFixture fixture;
    fixture.Run("string $b;\nint $b=1;\nprint 1;");
    const QStringList expected{"error: int $b=1;\\n",
        "error: Line 2.7: Invalid redeclaration of variable \"$b\" as a different type."};
    QCOMPARE(fixture.Log(), expected);
    fixture.Forget();
    const QString path = fixture.WriteScript("broken.mel", "print 1;\r\nprint (;\r\n");
    fixture.mel.RunFile("broken");
    const QStringList inFile{
        "error: print (;\\n", "error: \"" + path + "\" line 2.9: Syntax error"};
    QCOMPARE(fixture.Log(), inFile);
}

void MelMessagesTest::PlacesNameTheFile()
{
    MelFixture fixture;
    const QString path = fixture.WriteScript("%2 place.mel",
        "global proc inFile() {\n error \"no\"; }\nwarning \"look\";\ncatch(`inFile`);");
    QVERIFY(!fixture.mel.RunFile(path).failed);
    fixture.Run("\n inFile;");
    const QStringList expected{"warning: file: " + path + " line 3: look",
        "error: file: " + path + " line 2: no", "error: file: " + path + " line 2: no"};
    QCOMPARE(fixture.Log(), expected);
}

void MelMessagesTest::PlacesCanBeSwitchedOff()
{
    MelFixture fixture;
    fixture.engine.echo.lineNumbers = false;
    fixture.Run("print (;");
    fixture.Run("warning \"w\"; warning -sl true \"with\"; error \"e\";");
    const QStringList expected{"error: print (;", "error: Syntax error", "warning: w",
        "warning: line 1: with", "error: e"};
    QCOMPARE(fixture.Log(), expected);
}

void MelMessagesTest::ErrorsOfCommandsAreLedByThePlace()
{
    MelFixture fixture;
    fixture.engine.commands.Register(COMMANDS);
    const ScriptResult result = fixture.Run("doIt;\nrefuse foo;\nprint \"not reached\";");
    QCOMPARE(fixture.Log(), QStringList{"error: line 2: No object matches name: foo"});
    QCOMPARE(result.errorText, "No object matches name: foo");
    fixture.Forget();
    fixture.Run("doIt -foo;");
    QCOMPARE(fixture.Log(), QStringList{"error: line 1: Invalid flag '-foo'"});
}

void MelMessagesTest::StackTraceFollowsTheError()
{
    MelFixture fixture;
    const QString path = fixture.WriteScript("outer.mel", "global proc outer() {\n\n inner(); }\n");
    fixture.mel.RunFile("outer");
    fixture.Run("global proc inner() { error \"deep\"; }");
    fixture.engine.echo.stackTrace = true;
    fixture.Run("catchQuiet(`outer`);\nouter;");
    const QStringList expected{"error: line 1: deep",
        "trace: Stack trace:\\n  inner (line 1)\\n  outer (" + path
            + " line 3)\\n  <script> (line 2)"};
    QCOMPARE(fixture.Log(), expected);
}

void MelMessagesTest::EchoAllShowsEachCommandBeforeItRuns_data()
{
    Columns<QString, QString>("text", "echo");
    Row("words are quoted", "doIt a \"b c\" 5;", "doIt \"a\" \"b c\" 5;\\n");
    Row("special characters are escaped", R"(doIt "q\"b\\n\n";)", R"(doIt "q\"b\\n\n";\n)");
    Row("flags stay", "doIt -n x -vis on -s 1. 2;", "doIt -n \"x\" -vis on -s 1. 2;\\n");
    Row("call syntax", "doIt(\"-name\", \"x\", \"-5\");", "doIt -name \"x\" \"-5\";\\n");
    Row("arrays are spread", "string $a[] = {\"x\", \"y\"}; doIt $a;", "doIt \"x\" \"y\";\\n");
    Row("values, not expressions", "doIt (1 + 1) <<1,2,3>>;", "doIt 2 <<1, 2, 3>>;\\n");
}

void MelMessagesTest::EchoAllShowsEachCommandBeforeItRuns()
{
    QFETCH(QString, text);
    QFETCH(QString, echo);
    MelFixture fixture;
    fixture.engine.commands.Register(COMMANDS);
    fixture.engine.echo.echoAll = true;
    QVERIFY(!fixture.Run(text).failed);
    QCOMPARE(fixture.Log(), QStringList{"history: " + echo.replace("\n", "\\n")});
}

void MelMessagesTest::EchoAllReachesIntoProceduresAndHonoursTheFilter()
{
    MelFixture fixture;
    fixture.engine.commands.Register(COMMANDS);
    fixture.engine.echo.echoAll = true;
    fixture.engine.echo.filter = QStringList{"refuse"};
    fixture.Run("proc f() { print \"p\"; doIt inside; catchQuiet(`refuse x`); } f;");
    const QStringList expected{"display: p", "history: doIt \"inside\";\\n"};
    QCOMPARE(fixture.Log(), expected);
}

void MelMessagesTest::EvalEchoShowsTextAndResult()
{
    MelFixture fixture;
    const ScriptResult result = fixture.Run("evalEcho(\"$e = 2\") + 1");
    const QStringList expected{"history: $e = 2;\\n", "result: 2"};
    QCOMPARE(fixture.Log(), expected);
    QCOMPARE(result.resultText, "3");
}

void MelMessagesTest::HiddenErrorsStillCountAsTheLast()
{
    MelFixture fixture;
    fixture.Run("catchQuiet(`error \"quiet\"`);");
    QCOMPARE(fixture.Log(), QStringList());
    QCOMPARE(fixture.mel.LastError(), "quiet");
}

/// A plug-in's command may run a text of its own while a script hides errors.
void MelMessagesTest::ErrorsOfTextsRunFromOutsideAreShown()
{
    MelFixture fixture;
    fixture.engine.commands.Register(
        std::make_unique<Command>("runs", CommandOrigin::PlugIn, [&](Call&) -> Outcome {
            const ScriptResult result = fixture.Run("error \"within\";");
            return Error{result.errorText, ErrorKind::Runtime, true};
        }));
    const ScriptResult result = fixture.Run("catchQuiet(`runs`); runs;");
    const QStringList expected{"error: line 1: within", "error: line 1: within"};
    QCOMPARE(fixture.Log(), expected);
    QVERIFY(result.failed);
}

TE2_TEST(MelMessagesTest)
#include "MelMessagesTest.moc"
