#include "app/Host.h"
#include "support/Story.h"
#include "support/TestMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

using namespace host;

/// Plug-ins from outside in the assembled host, in MEL where a step does not begin with "py: ".
/// "%p" is the folder of the plug-ins. "@press TEXT" presses a button, "@idle" does what waits.
class PluginStoriesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void ComesTrue_data() { Story::AddRows(TEST_DATA_DIR); }
    void ComesTrue();

private:
    QString Run(const QString& text);
    QString Press(const QString& text);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Host> m_host;
    QStringList m_messages;
};

void PluginStoriesTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_host = std::make_unique<Host>(RunState::Interactive, m_folder->path());
    m_host->Start();
    Engine& engine = m_host->GetEngine();
    engine.echo.lineNumbers = false;
    engine.Execute(Language::Python, "from maya import cmds", false);
    engine.output.AddListener([this](const Message& message) {
        if (message.type != MessageType::History && message.type != MessageType::Result)
            m_messages += FramedText(message).trimmed();
    });
}

void PluginStoriesTest::cleanup()
{
    m_host.reset();
    m_messages.clear();
}

void PluginStoriesTest::ComesTrue()
{
    QFETCH(QStringList, steps);
    steps.replaceInStrings("%p", qEnvironmentVariable("TE2_BUILD_DIR") + "/test-plugins/api");
    QCOMPARE(Story::FaultOf(
                 steps, [this](const QString& text) { return Run(text); },
                 [this] { return std::exchange(m_messages, {}); }),
        "");
}

QString PluginStoriesTest::Run(const QString& text)
{
    const QString rest = text.section(' ', 1);
    Engine& engine = m_host->GetEngine();
    if (text.startsWith("@press "))
        return Press(rest);
    if (text == "@idle") {
        engine.idle.Drain();
        return QString();
    }
    const bool python = text.startsWith("py: ");
    const ScriptResult result
        = engine.Execute(python ? Language::Python : Language::Mel, python ? rest : text, false);
    return result.failed ? "error: " + result.errorText : result.resultText;
}

/// Presses the button with that text.
QString PluginStoriesTest::Press(const QString& text)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* button = qobject_cast<QAbstractButton*>(widget);
        if (!button || button->text() != text)
            continue;
        button->click();
        return QString();
    }
    return "error: no button " + text;
}

TE2_TEST(PluginStoriesTest)
#include "PluginStoriesTest.moc"
