#include "commands/Commands.h"
#include "host/python/PythonFixture.h"
#include "support/Story.h"
#include "support/TestMain.h"

#include <QtTest>

using namespace host;

/// The stories of the data folder, in Python where a step does not begin with "mel: ". "%p" is the
/// folder of the plug-ins beside them, "%d" one of the story's own.
class PythonStoriesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void ComesTrue_data() { Story::AddRows(TEST_DATA_DIR); }
    void ComesTrue();

private:
    QString Run(const QString& text);
    QString Execute(Language language, const QString& text);
    QStringList TakeMessages();

    std::unique_ptr<PythonFixture> m_host;
};

void PythonStoriesTest::init()
{
    qputenv("MAYA_PLUG_IN_PATH", TEST_DATA_DIR "/plug-ins");
    m_host = std::make_unique<PythonFixture>();
    commands::RegisterCommands(m_host->engine);
    m_host->engine.echo.lineNumbers = false;
    Run("from maya import cmds, mel, utils, OpenMaya as om1, OpenMayaMPx as mpx\n"
        "from maya.api import OpenMaya as om");
}

void PythonStoriesTest::cleanup()
{
    commands::ReleaseCommands(m_host->engine);
    m_host.reset();
    qunsetenv("MAYA_PLUG_IN_PATH");
}

void PythonStoriesTest::ComesTrue()
{
    QFETCH(QStringList, steps);
    steps.replaceInStrings("%p", TEST_DATA_DIR "/plug-ins");
    steps.replaceInStrings("%d", m_host->directory.path());
    QCOMPARE(Story::FaultOf(
                 steps, [this](const QString& text) { return Run(text); },
                 [this] { return TakeMessages(); }),
        "");
}

/// Runs a text, or does what the host itself does.
QString PythonStoriesTest::Run(const QString& text)
{
    const QString rest = text.section(' ', 1);
    if (text == "@idle")
        m_host->engine.idle.Drain();
    else if (text.startsWith("@fire "))
        m_host->engine.events.Fire(rest);
    else if (text.startsWith("@until "))
        return QTest::qWaitFor([&] { return Run(rest) == "True"; }) ? "" : "error: in vain";
    else if (text.startsWith("mel: "))
        return Execute(Language::Mel, rest);
    else
        return Execute(Language::Python, text);
    return QString();
}

QString PythonStoriesTest::Execute(Language language, const QString& text)
{
    const ScriptResult result = m_host->engine.Execute(language, text, false);
    return result.failed ? "error: " + result.errorText : result.resultText;
}

QStringList PythonStoriesTest::TakeMessages()
{
    QStringList messages;
    for (const QString& line : m_host->TakeTranscript())
        messages += line.trimmed();
    return messages;
}

TE2_TEST(PythonStoriesTest)
#include "PythonStoriesTest.moc"
