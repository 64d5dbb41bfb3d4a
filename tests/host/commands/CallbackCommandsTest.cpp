#include "CommandsFixture.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

namespace {

class FakeLoader : public PluginLoader
{
public:
    Outcome Load(Plugin& plugin) override
    {
        plugin.vendor = "Somebody";
        plugin.commands = QStringList{plugin.name + "Run"};
        return plugin.name == "broken" ? Outcome(Error{"Cannot load broken."}) : Outcome();
    }
    Outcome Unload(Plugin&, bool) override { return {}; }
};

} // namespace

/// Scripts that the host keeps for later: jobs, run-time commands, plug-ins to load at start.
class CallbackCommandsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { m_host = std::make_unique<CommandsFixture>(); }
    void cleanup() { m_host.reset(); }

    void JobsRunWhenTheirEventComes();
    void AJobMayEndItself();
    void ProtectedJobsNeedForce();
    void IdleJobsRunWhileNothingElseDoes();
    void OptionVariableJobs();
    void BadJobsAreRefused_data();
    void BadJobsAreRefused();
    void JobsEndWithTheSession();

    void RunTimeCommandsAreCalledLikeAnyOther();
    void RunTimeCommandsAreEditedAndDeleted();
    void RunTimeCommandsGiveWayToNothing();
    void SavedRunTimeCommandsComeBack();

    void PluginsAreLoadedOnce();
    void PluginsAreAskedAbout();
    void AutoloadIsKept();

private:
    /// Runs the text and returns what it printed.
    QString Printed(const QString& text)
    {
        m_host->TakeMessages();
        m_host->Run(text);
        return m_host->TakeMessages().join('|');
    }
    void UseFakePlugins();

    std::unique_ptr<CommandsFixture> m_host;
};

void CallbackCommandsTest::JobsRunWhenTheirEventComes()
{
    QCOMPARE(m_host->Run("scriptJob -event SelectionChanged \"print a\""), "1");
    QCOMPARE(m_host->Run("scriptJob -runOnce 1 -event \"SelectionChanged\" \"print b\""), "2");
    m_host->Run("scriptJob -e SceneOpened \"noSuchThing\"");
    m_host->TakeMessages();
    Events& events = m_host->GetEngine().events;
    events.Fire("SelectionChanged");
    events.Fire("SelectionChanged");
    events.Fire("SceneOpened");
    QCOMPARE(m_host->TakeMessages(),
        (QStringList{
            "print: a", "print: b", "print: a", "error: Cannot find procedure \"noSuchThing\"."}));
    QCOMPARE(Printed("print(`scriptJob -listJobs`)"),
        "print: 1: \"-event\" \"SelectionChanged\" \"print a\"\n\n"
        "3: \"-event\" \"SceneOpened\" \"noSuchThing\"\n\n");
    QCOMPARE(m_host->Run("scriptJob -exists 1") + m_host->Run("scriptJob -exists 2"), "10");
}

void CallbackCommandsTest::AJobMayEndItself()
{
    m_host->Run("scriptJob -event Undo \"print x; scriptJob -kill 1\"");
    m_host->GetEngine().events.Fire("Undo");
    m_host->GetEngine().events.Fire("Undo");
    QCOMPARE(m_host->TakeMessages(), QStringList{"print: x"});
}

void CallbackCommandsTest::ProtectedJobsNeedForce()
{
    m_host->Run("scriptJob -protected -event Undo \"print x\"");
    m_host->Run("scriptJob -permanent -event Redo \"print y\"");
    QVERIFY(m_host->Run("scriptJob -kill 1").startsWith("error: "));
    m_host->Run("scriptJob -killAll");
    QCOMPARE(m_host->Run("size(`scriptJob -listJobs`)"), "2");
    QCOMPARE(
        m_host->Run("scriptJob -kill 1 -force; scriptJob -kill 99; scriptJob -exists 1;"), "0");
    m_host->Run("scriptJob -killAll -force");
    QCOMPARE(m_host->Run("size(`scriptJob -listJobs`)"), "0");
}

void CallbackCommandsTest::IdleJobsRunWhileNothingElseDoes()
{
    m_host->Run("int $turns = 0; scriptJob -idleEvent \"global int $turns; $turns++\";"
                "scriptJob -event idle \"global int $turns; $turns += 100\";");
    QTRY_VERIFY(m_host->Run("int $now = $turns").toInt() >= 202);
    m_host->Run("scriptJob -kill 1 -kill 2");
    QCOMPARE(m_host->Run("size(`scriptJob -listJobs`)"), "0");
}

void CallbackCommandsTest::OptionVariableJobs()
{
    m_host->Run("scriptJob -optionVarChanged \"size\" \"print(`optionVar -q size`)\"");
    QCOMPARE(Printed("optionVar -iv size 4; optionVar -iv other 1; optionVar -remove size"),
        "print: 4|print: 0");
}

void CallbackCommandsTest::BadJobsAreRefused_data()
{
    Columns<QString, QString>("text", "error");
    Row("unknown event", "scriptJob -event noEvent \"print x\"", "Invalid event name 'noEvent'.");
    Row("nothing to wait for", "scriptJob", "scriptJob needs something to wait for and a script.");
    Row("no such window", "scriptJob -uiDeleted win \"print x\"", "Object 'win' not found.");
    Row("no such parent", "scriptJob -parent win -event Undo \"print x\"",
        "Object 'win' not found.");
}

void CallbackCommandsTest::BadJobsAreRefused()
{
    QFETCH(QString, text);
    QFETCH(QString, error);
    QCOMPARE(m_host->Run(text), "error: " + error);
    QCOMPARE(m_host->Run("size(`scriptJob -listJobs`)"), "0");
}

void CallbackCommandsTest::JobsEndWithTheSession()
{
    m_host->Run("scriptJob -event Undo \"print x\"; scriptJob -ovc v \"print y\"");
    m_host->Restart();
    m_host->GetEngine().events.Fire("Undo");
    m_host->Run("optionVar -iv v 1");
    QCOMPARE(m_host->TakeMessages(), QStringList());
}

void CallbackCommandsTest::RunTimeCommandsAreCalledLikeAnyOther()
{
    m_host->Run("runTimeCommand -annotation \"Say it\" -command \"print hi; 3 + 4;\" Greet");
    QCOMPARE(Printed("Greet"), "print: hi");
    QCOMPARE(m_host->Run("int $sum = `Greet`"), "7");
    QCOMPARE(m_host->Run("runTimeCommand -q -annotation Greet"), "Say it");
    QCOMPARE(m_host->Run("runTimeCommand -q -command Greet"), "print hi; 3 + 4;");
    QCOMPARE(m_host->Run("runTimeCommand -q -commandLanguage Greet"), "mel");
    m_host->Run("runTimeCommand -command \"noSuchThing\" Fails");
    // The error is shown once, where it happened.
    QCOMPARE(Printed("Fails; print never;"), "error: Cannot find procedure \"noSuchThing\".");
}

void CallbackCommandsTest::RunTimeCommandsAreEditedAndDeleted()
{
    m_host->Run("runTimeCommand -command \"print a\" -category Tools One;"
                "runTimeCommand -default true -command \"print d\" Two;");
    m_host->Run("runTimeCommand -e -command \"print b\" -addKeyword x -addKeyword y One");
    QCOMPARE(Printed("One"), "print: b");
    QCOMPARE(m_host->Run("runTimeCommand -q -keywords One"), "x,y");
    QCOMPARE(m_host->Run("runTimeCommand -q -commandArray"), "One Two");
    QCOMPARE(m_host->Run("runTimeCommand -q -userCommandArray"), "One");
    QCOMPARE(m_host->Run("runTimeCommand -q -categoryArray"), "Tools");
    QVERIFY(m_host->Run("runTimeCommand -e -delete Two").startsWith("error: "));
    m_host->Run("runTimeCommand -e -delete One");
    QCOMPARE(m_host->Run("runTimeCommand -exists One"), "0");
    QCOMPARE(m_host->Run("One"), "error: Cannot find procedure \"One\".");
}

void CallbackCommandsTest::RunTimeCommandsGiveWayToNothing()
{
    m_host->Run("runTimeCommand -command \"print a\" One");
    QCOMPARE(m_host->Run("runTimeCommand -command \"print b\" One"),
        "error: The command 'One' already exists.");
    QVERIFY(m_host->Run("runTimeCommand -command \"x\" about").startsWith("error: "));
    QVERIFY(m_host->Run("runTimeCommand -command \"x\" \"two words\"").startsWith("error: "));
    QVERIFY(m_host->Run("runTimeCommand -cl perl -command \"x\" P").startsWith("error: "));
    QVERIFY(m_host->Run("runTimeCommand -q -command Nobody").startsWith("error: "));
    QCOMPARE(Printed("One"), "print: a");
}

void CallbackCommandsTest::SavedRunTimeCommandsComeBack()
{
    m_host->Run("runTimeCommand -label \"A \\\"quoted\\\" label\""
                " -command \"print \\\"back\\\\\\\\slash\\\\n\\\";\\nprint 2;\" Kept;"
                "runTimeCommand -default 1 -command \"print no\" Own;"
                "runTimeCommand -e -save;");
    const QString command = m_host->Run("runTimeCommand -q -command Kept");
    m_host->Restart();
    QCOMPARE(m_host->TakeMessages(), QStringList());
    QCOMPARE(m_host->Run("runTimeCommand -q -command Kept"), command);
    QCOMPARE(m_host->Run("runTimeCommand -q -label Kept"), "A \"quoted\" label");
    QCOMPARE(Printed("Kept"), "print: back\\slash\n|print: 2");
    QCOMPARE(m_host->Run("runTimeCommand -exists Own"), "0");
}

void CallbackCommandsTest::UseFakePlugins()
{
    m_host->GetEngine().plugins.SetLoader(std::make_unique<FakeLoader>());
    const QString folder = m_host->Path("plug-ins");
    QDir().mkpath(folder);
    for (const char* name : {"/tool.so", "/broken.so"}) {
        QFile file(folder + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    qputenv("MAYA_PLUG_IN_PATH", folder.toUtf8());
}

void CallbackCommandsTest::PluginsAreLoadedOnce()
{
    UseFakePlugins();
    QCOMPARE(m_host->Run("loadPlugin tool"), "tool");
    QCOMPARE(Printed("loadPlugin tool"), "warning: Plug-in, \"tool\", is already loaded.");
    QCOMPARE(Printed("loadPlugin -quiet tool.so"), QString());
    QCOMPARE(m_host->Run("loadPlugin broken"), "error: Cannot load broken.");
    QCOMPARE(m_host->Run("loadPlugin missing"),
        "error: Plug-in, \"missing\", was not found on MAYA_PLUG_IN_PATH.");
    QCOMPARE(m_host->Run("unloadPlugin tool"), "tool");
    QVERIFY(m_host->Run("unloadPlugin tool").startsWith("error: "));
}

void CallbackCommandsTest::PluginsAreAskedAbout()
{
    UseFakePlugins();
    QCOMPARE(m_host->Run("pluginInfo -q -loaded tool"), "0");
    QVERIFY(m_host->Run("pluginInfo -q -vendor tool").startsWith("error: "));
    m_host->Run("loadPlugin tool");
    QCOMPARE(m_host->Run("pluginInfo -q -loaded tool"), "1");
    QCOMPARE(m_host->Run("pluginInfo -q -listPlugins"), "tool");
    QCOMPARE(m_host->Run("pluginInfo -q -vendor tool"), "Somebody");
    QCOMPARE(m_host->Run("pluginInfo -q -command tool"), "toolRun");
    QCOMPARE(m_host->Run("pluginInfo -q -path tool"), m_host->Path("plug-ins/tool.so"));
}

void CallbackCommandsTest::AutoloadIsKept()
{
    UseFakePlugins();
    m_host->Run("pluginInfo -e -autoload true tool; pluginInfo -e -autoload true \"/x/other.so\";"
                "pluginInfo -e -autoload false missing; pluginInfo -savePluginPrefs;");
    m_host->Restart();
    m_host->GetEngine().plugins.SetLoader(std::make_unique<FakeLoader>());
    QCOMPARE(m_host->GetEngine().plugins.autoload, (QStringList{"tool", "other"}));
    QCOMPARE(m_host->Run("pluginInfo -q -autoload other"), "1");
    // The file is a script as well.
    m_host->Run("source \"" + m_host->Path("maya/2024/prefs/pluginPrefs.mel") + "\"");
    m_host->GetEngine().idle.Drain();
    QCOMPARE(m_host->Run("pluginInfo -q -loaded tool"), "1");
    qunsetenv("MAYA_PLUG_IN_PATH");
}

TE2_TEST(CallbackCommandsTest)
#include "CallbackCommandsTest.moc"
