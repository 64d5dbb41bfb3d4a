#include "CommandsFixture.h"
#include "commands/Session.h"
#include "support/Story.h"
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

/// The stories of the data folder, each with a host of its own. "%d" is its folder, which scripts
/// have in $d, "%b" that of the build. What is printed piece by piece is one message.
class CommandStoriesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup();
    void ComesTrue_data() { Story::AddRows(TEST_DATA_DIR); }
    void ComesTrue();

private:
    QString Run(const QString& text);
    QStringList TakeMessages();
    void Restart();
    void UsePlugins();

    std::unique_ptr<CommandsFixture> m_host;
};

void CommandStoriesTest::ComesTrue()
{
    QFETCH(QStringList, steps);
    m_host = std::make_unique<CommandsFixture>();
    Run("string $d = \"" + m_host->Path("") + "/\"");
    steps.replaceInStrings("%d", m_host->Path("") + '/');
    steps.replaceInStrings("%b", qEnvironmentVariable("TE2_BUILD_DIR"));
    QCOMPARE(Story::FaultOf(
                 steps, [this](const QString& text) { return Run(text); },
                 [this] { return TakeMessages(); }),
        "");
}

void CommandStoriesTest::cleanup()
{
    m_host.reset();
    qunsetenv("MAYA_PLUG_IN_PATH");
}

/// Runs a text, or does what the host itself does.
QString CommandStoriesTest::Run(const QString& text)
{
    const QString word = text.section(' ', 0, 0);
    const QString rest = text.section(' ', 1);
    if (word == "@fire")
        m_host->GetEngine().events.Fire(rest);
    else if (word == "@idle")
        m_host->GetEngine().idle.Drain();
    else if (word == "@until")
        return QTest::qWaitFor([&] { return Run(rest) == "1"; }) ? "" : "error: in vain";
    else if (word == "@restart")
        Restart();
    else if (word == "@press")
        commands::Session::Current().hotkeys.Run(
            commands::Session::Current().hotkeys.Find(rest).press);
    else if (word == "@plugins")
        UsePlugins();
    else
        return m_host->Run(text);
    return QString();
}

void CommandStoriesTest::Restart()
{
    const QString folder = m_host->Run("string $folder = $d");
    m_host->Restart();
    QCoreApplication::processEvents();
    m_host->Run("string $d = \"" + folder + '"');
}

QStringList CommandStoriesTest::TakeMessages()
{
    QStringList messages;
    for (const QString& message : m_host->TakeMessages()) {
        if (message.startsWith("print: ") && !messages.isEmpty()
            && messages.last().startsWith("print: "))
            messages.last() += message.mid(7);
        else
            messages += message;
    }
    return messages;
}

/// Two that can be found; the broken one does not load.
void CommandStoriesTest::UsePlugins()
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

TE2_TEST(CommandStoriesTest)
#include "CommandStoriesTest.moc"
