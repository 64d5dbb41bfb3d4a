#include "plugin/HostSession.h"

#include <QtTest>

HostSession::HostSession(host::RunState state)
{
    qputenv("MAYA_APP_DIR", m_directory.path().toLocal8Bit());
    m_host = std::make_unique<host::Host>(state, m_directory.path());
    m_host->Start();
    GetEngine().output.AddListener(
        [this](const host::Message& message) { m_messages.append(message); });
}

bool HostSession::LoadPlugin()
{
    const QString path = qEnvironmentVariable("TE2_BUILD_DIR") + "/plug-ins/TarnwickEditor2.so";
    return GetEngine().plugins.Load(path).Ok();
}

bool HostSession::Mel(const QString& text)
{
    return !GetEngine().Execute(host::Language::Mel, text, false).failed;
}

bool HostSession::Python(const QString& text)
{
    return !GetEngine().Execute(host::Language::Python, text, false).failed;
}

QString HostSession::MelResult(const QString& text)
{
    return GetEngine().Execute(host::Language::Mel, text, false).resultText;
}

QStringList HostSession::Messages(host::MessageType type) const
{
    QStringList texts;
    for (const host::Message& message : m_messages) {
        if (message.type == type)
            texts += message.text;
    }
    return texts;
}

void HostSession::RunIdle()
{
    QTRY_COMPARE(GetEngine().idle.Count(), 0);
}
