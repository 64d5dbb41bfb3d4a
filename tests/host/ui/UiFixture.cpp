#include "host/ui/UiFixture.h"

#include "commands/Commands.h"
#include "ui/commands/InterfaceCommands.h"
#include "ui/commands/windows/Prompts.h"

#include <QCoreApplication>
#include <QEvent>

using namespace host;

UiFixture::UiFixture()
{
    Start();
}

UiFixture::~UiFixture()
{
    Stop();
}

void UiFixture::Start()
{
    m_engine = std::make_unique<Engine>(RunState::Interactive, m_directory.path());
    m_engine->LoadPreferences();
    m_engine->output.AddListener([this](const Message& message) {
        if (message.type == MessageType::Display)
            m_printed += message.text;
    });
    m_mel = std::make_unique<mel::MelLanguage>(*m_engine);
    commands::RegisterCommands(*m_engine);
    m_model = std::make_unique<ui::InterfaceModel>();
    ui::RegisterInterfaceCommands(*m_engine, *m_model);
}

void UiFixture::Stop()
{
    ui::SetPromptFunction({});
    m_model.reset();
    DeleteDeferred();
    commands::ReleaseCommands(*m_engine);
    m_mel.reset();
    m_engine.reset();
}

void UiFixture::Restart()
{
    Stop();
    Start();
}

void UiFixture::DeleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString UiFixture::Run(const QString& text)
{
    const ScriptResult result = m_engine->Execute(Language::Mel, text, false);
    return result.failed ? "error: " + result.errorText : result.value.ToResultText();
}

QString UiFixture::TakePrinted()
{
    QString printed;
    printed.swap(m_printed);
    return printed;
}
