#include "CommandsFixture.h"

#include "commands/Commands.h"

using namespace host;

namespace {

QString Described(const Message& message)
{
    switch (message.type) {
    case MessageType::Display: return "print: " + message.text;
    case MessageType::Info: return "info: " + message.text;
    case MessageType::Warning: return "warning: " + message.text;
    case MessageType::Error: return "error: " + message.text;
    default: return QString();
    }
}

} // namespace

CommandsFixture::CommandsFixture()
{
    qputenv("MAYA_LOCATION", qgetenv("TE2_BUILD_DIR"));
    Start();
}

CommandsFixture::~CommandsFixture()
{
    Stop();
    qunsetenv("MAYA_LOCATION");
}

void CommandsFixture::Start()
{
    m_engine = std::make_unique<Engine>(RunState::Batch, m_directory.filePath("maya"));
    m_engine->output.AddListener([this](const Message& message) {
        const QString text = Described(message);
        if (!text.isEmpty())
            m_messages += text;
    });
    m_engine->LoadPreferences();
    m_mel = std::make_unique<mel::MelLanguage>(*m_engine);
    commands::RegisterCommands(*m_engine);
    m_engine->echo.lineNumbers = false;
}

void CommandsFixture::Stop()
{
    commands::ReleaseCommands(*m_engine);
    m_mel.reset();
    m_engine->SavePreferences();
    m_engine.reset();
}

void CommandsFixture::Restart()
{
    Stop();
    Start();
}

QString CommandsFixture::Run(const QString& text)
{
    const ScriptResult result = m_engine->Execute(Language::Mel, text, false);
    return result.failed ? "error: " + result.errorText : result.value.ToResultText();
}

QStringList CommandsFixture::TakeMessages()
{
    return std::exchange(m_messages, QStringList());
}
