#include "window/WindowFixture.h"

#include "plugin/MayaUtil.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"

#include <QtTest>

WindowFixture::WindowFixture()
{
    qputenv("MAYA_APP_DIR", m_directory.path().toLocal8Bit());
    m_host = std::make_unique<host::Host>(host::RunState::Interactive, m_directory.path());
    m_host->Start();
    GetEngine().output.AddListener(
        [this](const host::Message& message) { m_messages.append(message); });
    MayaUtil::SourceApplicationScripts();
    Settings::ReadUserConfig();
    ColorSettings::ReadUserConfig();
}

WindowFixture::~WindowFixture()
{
    m_host.reset();
}

QStringList WindowFixture::TakeMessages(host::MessageType type)
{
    QStringList texts;
    for (const host::Message& message : qAsConst(m_messages)) {
        if (message.type == type)
            texts += message.text;
    }
    m_messages.clear();
    return texts;
}

void WindowFixture::RunIdle()
{
    QTRY_COMPARE(GetEngine().idle.Count(), 0);
}
