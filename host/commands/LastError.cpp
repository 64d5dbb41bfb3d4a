#include "commands/LastError.h"

#include "engine/Engine.h"

namespace host::commands {

LastError::LastError()
{
    m_listener = Engine::Current().output.AddListener([this](const Message& message) {
        if (message.type != MessageType::Error)
            return;
        const QMutexLocker lock(&m_mutex);
        m_text = message.text;
    });
}

LastError::~LastError()
{
    Engine::Current().output.Remove(m_listener);
}

QString LastError::Text() const
{
    const QMutexLocker lock(&m_mutex);
    return m_text;
}

} // namespace host::commands
