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

    void SwitchesAnswerAsTheyWereSet();
    void SuppressedMessagesStayOutOfTheLog();
    void HistoryIsWrittenToTheFile();
    void HelpRequestsAreKept();
    void QuitGoesToTheApplication();
    void UndoTakesBackWhatWasRecorded();

private:
    std::unique_ptr<CommandsFixture> m_host;
};

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

TE2_TEST(SystemCommandsTest)
#include "SystemCommandsTest.moc"
