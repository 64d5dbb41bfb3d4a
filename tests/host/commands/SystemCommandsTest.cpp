#include "CommandsFixture.h"
#include "commands/HelpRequests.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

namespace {

QString Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString("missing");
}

/// Counts a level down and up again, or fails to.
class CountingStep : public UndoStep
{
public:
    CountingStep(int& level, const QString& name, bool works)
        : m_level(level)
        , m_name(name)
        , m_works(works)
    { }

    bool Undo() override
    {
        --m_level;
        return m_works;
    }
    bool Redo() override
    {
        ++m_level;
        return m_works;
    }
    QString Name() const override { return m_name; }

private:
    int& m_level;
    QString m_name;
    bool m_works;
};

} // namespace

/// Commands about the host itself: places, switches, history, deferred work, leaving.
class SystemCommandsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<CommandsFixture>(); }
    void cleanup() { m_host.reset(); }

    void TellsAboutItself_data();
    void TellsAboutItself();
    void FoldersEndInASlash();
    void SwitchesAnswerAsTheyWereSet();
    void SuppressedMessagesStayOutOfTheLog();
    void HistoryIsWrittenToTheFile();
    void DeferredTextsRunInOrderAndOnTheirOwn();
    void DeferredTextsEndWithTheSession();
    void HelpRequestsAreKept();
    void QuitGoesToTheApplication();
    void UndoHasNothingToUndo();
    void UndoTakesBackWhatWasRecorded();
    void UnofferedFlagsAreRefused_data();
    void UnofferedFlagsAreRefused();
    void ProjectsKeepTheirRules();
    void DisplayStringsAreNotOverwrittenByChance();

private:
    std::unique_ptr<CommandsFixture> m_host;
};

void SystemCommandsTest::TellsAboutItself_data()
{
    Columns<QString, QString>("text", "result");
    Row("release, as the plug-in asks", "about -version;", "2024");
    Row("batch", "about -batch", "1");
    Row("interface number", "about -api", "20240000");
    Row("system", "about -os", "linux64");
    Row("without a flag", "about", "Maya 2024");
    Row("calendar day", "gmatch(`about -cd`, \"[0-9]*/[0-9][0-9]/[0-9][0-9]\")", "1");
    Row("time of day has seconds", "gmatch(`date -time`, \"[0-2][0-9]:[0-5][0-9]:[0-6][0-9]\")",
        "1");
    Row("date in an own format",
        "gmatch(`date -format \"YY|MM|DD hh:mm:ss x\"`, \"??|??|?? ??:??:?? x\")", "1");
    Row("default date", "match(\"^[0-9]+/[0-9]+/[0-9]+ [0-9]+:[0-9]+:[0-9]+$\", `date`) == `date`",
        "1");
    Row("elapsed time is measured",
        "float $t = `timerX`; int $ok = (`timerX -startTime $t` >= 0 && `timerX` >= $t);", "1");
}

void SystemCommandsTest::TellsAboutItself()
{
    QFETCH(QString, text);
    QTEST(m_host->Run(text), "result");
}

void SystemCommandsTest::FoldersEndInASlash()
{
    const QString preferences = m_host->Path("maya/2024/prefs");
    QCOMPARE(m_host->Run("internalVar -userPrefDir"), preferences + '/');
    QCOMPARE(m_host->Run("internalVar -userShelfDir"), preferences + "/shelves/");
    QCOMPARE(m_host->Run("internalVar -userScriptDir"), m_host->Path("maya/2024/scripts/"));
    QCOMPARE(m_host->Run("internalVar -usd"), m_host->Path("maya/2024/scripts/"));
    QCOMPARE(m_host->Run("about -preferences"), m_host->Path("maya/2024"));
    QVERIFY(m_host->Run("internalVar").startsWith("error: "));
}

void SystemCommandsTest::SwitchesAnswerAsTheyWereSet()
{
    const EchoState& echo = m_host->GetEngine().echo;
    m_host->Run("commandEcho -state 1; stackTrace -state on; commandEcho -lineNumbers true;");
    QVERIFY(echo.echoAll && echo.stackTrace && echo.lineNumbers);
    QCOMPARE(m_host->Run("commandEcho -q -state"), "1");
    m_host->Run("commandEcho -state 0");
    QVERIFY(!echo.echoAll);
    QVERIFY(echo.lineNumbers);
    QCOMPARE(m_host->Run("stackTrace -q -state"), "1");
    m_host->Run("commandEcho -filter {\"ls\", \"print\"}; commandEcho -addFilter about ls");
    QCOMPARE(m_host->Run("commandEcho -q -filter"), "ls print about");
    m_host->Run("scriptEditorInfo -ssw 1");
    QCOMPARE(m_host->Run("scriptEditorInfo -q -suppressStackWindow"), "1");
}

void SystemCommandsTest::SuppressedMessagesStayOutOfTheLog()
{
    Engine& engine = m_host->GetEngine();
    m_host->Run("scriptEditorInfo -clearHistory; scriptEditorInfo -e -suppressWarnings true");
    engine.output.Warning("hidden");
    engine.output.Info("shown");
    QCOMPARE(engine.history.Text(), "// shown //\n");
    // Listeners such as plug-ins hear it all the same.
    QCOMPARE(m_host->TakeMessages(), (QStringList{"warning: hidden", "info: shown"}));
    QCOMPARE(m_host->Run("scriptEditorInfo -q -suppressWarnings"), "1");
    m_host->Run("scriptEditorInfo -e -sw false -ch");
    engine.output.Warning("again");
    QCOMPARE(engine.history.Text(), "// Warning: again //\n");
}

void SystemCommandsTest::HistoryIsWrittenToTheFile()
{
    const QString path = m_host->Path("log.txt");
    m_host->Run("print \"before\\n\"");
    m_host->Run("scriptEditorInfo -e -historyFilename \"" + path + "\" -writeHistory on");
    m_host->Run("print \"Gr\303\274n\\n\"; warning \"careful\"");
    m_host->GetEngine().Execute(Language::Mel, "1 + 2", true);
    const QString expected
        = QString::fromUtf8("Gr\303\274n\n// Warning: careful //\n1 + 2;\n// Result: 3 //\n");
    QCOMPARE(Read(path), expected);
    QCOMPARE(m_host->Run("scriptEditorInfo -q -historyFilename"), path);
    m_host->Run("scriptEditorInfo -e -writeHistory off");
    m_host->Run("print \"after\\n\"");
    QCOMPARE(Read(path), expected);
    m_host->Run("scriptEditorInfo -e -clearHistoryFile");
    QCOMPARE(Read(path), QString());
    const QString refused
        = m_host->Run("scriptEditorInfo -e -hfn \"" + m_host->Path("none/log.txt") + "\" -wh 1");
    QVERIFY2(refused.startsWith("error: Cannot write history file"), qPrintable(refused));
    QCOMPARE(m_host->Run("scriptEditorInfo -q -wh"), "0");
}

void SystemCommandsTest::DeferredTextsRunInOrderAndOnTheirOwn()
{
    m_host->Run("evalDeferred -lowestPriority \"print last\"; evalDeferred \"print a\";"
                "evalDeferred \"noSuchThing\"; evalDeferred -lp \"print lower\";"
                "evalDeferred \"print b\"; evalDeferred -evaluateNext \"print first\"; print now;");
    QCOMPARE(m_host->Run("string $waiting[] = `evalDeferred -list`; size($waiting);"), "6");
    QCOMPARE(m_host->TakeMessages(), QStringList{"print: now"});
    m_host->GetEngine().idle.Drain();
    QCOMPARE(m_host->TakeMessages(),
        (QStringList{"print: first", "print: a", "error: Cannot find procedure \"noSuchThing\".",
            "print: b", "print: last", "print: lower"}));
    QCOMPARE(m_host->Run("size(`evalDeferred -list`)"), "0");
    QVERIFY(m_host->Run("evalDeferred").startsWith("error: "));
}

void SystemCommandsTest::DeferredTextsEndWithTheSession()
{
    m_host->Run("evalDeferred \"print late\"");
    m_host->Restart();
    QCoreApplication::processEvents();
    m_host->GetEngine().idle.Drain();
    QCOMPARE(m_host->TakeMessages(), QStringList());
}

void SystemCommandsTest::HelpRequestsAreKept()
{
    QStringList shown;
    commands::HelpRequests& requests = commands::HelpRequests::Current();
    requests.changed = [&](const commands::HelpRequest& request) { shown += request.target; };
    m_host->Run("showHelp -docs \"Commands/ls.html\"; showHelp \"Topic\"; help -doc about;"
                "showHelp -absolute \"https://localhost/\"");
    QCOMPARE(shown,
        (QStringList{"Commands/ls.html", "Topic", "Commands/about.html", "https://localhost/"}));
    QCOMPARE(requests.All().at(0).kind, commands::HelpRequest::Kind::Docs);
    QCOMPARE(requests.All().at(3).kind, commands::HelpRequest::Kind::Address);
    QCOMPARE(m_host->TakeMessages(), QStringList());
}

void SystemCommandsTest::QuitGoesToTheApplication()
{
    QVERIFY(m_host->Run("quit").startsWith("error: "));
    int code = -1;
    m_host->GetEngine().quit = [&](int exitCode, bool) { code = exitCode; };
    m_host->Run("quit -force");
    QCOMPARE(code, 0);
    m_host->Run("quit -f -exitCode 3");
    QCOMPARE(code, 3);
}

void SystemCommandsTest::UndoHasNothingToUndo()
{
    m_host->Run("undo; redo;");
    QCOMPARE(m_host->TakeMessages(),
        (QStringList{"warning: There are no more commands to undo.",
            "warning: There are no more commands to redo."}));
    QCOMPARE(m_host->Run("undoInfo -q -undoQueueEmpty"), "1");
    QCOMPARE(
        m_host->Run("undoInfo -openChunk; undoInfo -closeChunk; undoInfo -q -undoName"), QString());
    QCOMPARE(m_host->Run("undoInfo -state off; undoInfo -q -state"), "0");
}

void SystemCommandsTest::UndoTakesBackWhatWasRecorded()
{
    int level = 0;
    host::UndoQueue& queue = m_host->GetEngine().undoQueue;
    const auto add = [&](const QString& name, bool works) {
        queue.Add(std::make_unique<CountingStep>(level, name, works));
    };
    add("first", true);
    add("second", true);
    m_host->Run("undo");
    QCOMPARE(level, -1);
    QCOMPARE(m_host->Run("undoInfo -q -undoName"), "first");
    QCOMPARE(m_host->Run("undoInfo -q -redoName"), "second");
    m_host->Run("redo");
    QCOMPARE(level, 0);
    m_host->Run("undoInfo -stateWithoutFlush off");
    add("not recorded", true);
    QCOMPARE(m_host->Run("undoInfo -q -undoName"), "second");
    m_host->Run("undoInfo -state on");
    add("stuck", false);
    QCOMPARE(m_host->Run("undo"), "error: The command could not be undone.");
    QCOMPARE(m_host->Run("undoInfo -q -undoName"), "second");
    m_host->Run("undoInfo -state off");
    QCOMPARE(m_host->Run("undoInfo -q -undoQueueEmpty"), "1");
}

void SystemCommandsTest::UnofferedFlagsAreRefused_data()
{
    Columns<QString, QString>("text", "error");
    Row("about", "about -moon", "Invalid flag '-moon'");
    Row("scene events", "scriptJob -attributeChange \"a.tx\" \"print x\"",
        "Invalid flag '-attributeChange'");
    Row("query of what cannot be queried", "commandEcho -q -addFilter",
        "Flag '-addFilter' cannot be used in query mode.");
    Row("interface scale", "mayaDpiSetting -mode 1",
        "The scale of this host's interface follows the system and "
        "cannot be set.");
}

void SystemCommandsTest::UnofferedFlagsAreRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, error);
    QCOMPARE(m_host->Run(text), "error: " + error);
}

void SystemCommandsTest::ProjectsKeepTheirRules()
{
    const QString root = m_host->Path("film");
    QVERIFY(m_host->Run("workspace -openWorkspace \"" + root + "\"").startsWith("error: "));
    QCOMPARE(m_host->Run("workspace -q -fn"), m_host->Path("maya/projects/default"));
    m_host->Run("workspace -newWorkspace \"" + root
        + "\"; workspace -fr \"scene\" \"scenes\" "
          "-fr \"images\" \"out/images\"; workspace -saveWorkspace;");
    m_host->Run("workspace -create \"scenes\"");
    QVERIFY(QFileInfo(root + "/scenes").isDir());
    m_host->Restart();
    m_host->Run("workspace -o \"" + root + "\"");
    QCOMPARE(m_host->Run("workspace -q -rootDirectory"), root + '/');
    QCOMPARE(m_host->Run("workspace -q -fileRuleEntry \"images\""), "out/images");
    QCOMPARE(m_host->Run("workspace -q -fileRule"), "images out/images scene scenes");
    QCOMPARE(m_host->Run("workspace -expandName \"a/../b\""), root + "/b");
    QCOMPARE(m_host->Run("workspace -q -active"), "film");
}

void SystemCommandsTest::DisplayStringsAreNotOverwrittenByChance()
{
    QCOMPARE(m_host->Run("uiRes(\"m_WindowMenu.kGeneralEditorsLabel\")"), "General Editors");
    m_host->Run("displayString -value \"One\" \"m_a.k\"");
    const QString refused = m_host->Run("displayString -value \"Two\" \"m_a.k\"");
    QVERIFY2(refused.startsWith("error: "), qPrintable(refused));
    m_host->Run("displayString -replace -value \"Three\" \"m_a.k\"");
    QCOMPARE(m_host->Run("displayString -q -value \"m_a.k\""), "Three");
    QCOMPARE(m_host->Run("displayString -keys \"m_a*\""), "m_a.k");
    m_host->Run("displayString -delete \"m_a.k\"");
    m_host->TakeMessages();
    QCOMPARE(m_host->Run("uiRes(\"m_a.k\")"), "m_a.k");
    QCOMPARE(m_host->TakeMessages(),
        QStringList{"warning: The interface text \"m_a.k\" does not exist."});
}

TE2_TEST(SystemCommandsTest)
#include "SystemCommandsTest.moc"
