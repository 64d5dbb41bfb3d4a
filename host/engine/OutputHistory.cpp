#include "engine/OutputHistory.h"

namespace host {

namespace {

/// Pieces of printed text are joined up to this length, so that a long loop of short prints costs
/// one entry per page instead of one per line.
constexpr int JOIN_LIMIT = 4096;

unsigned BitOf(MessageType type)
{
    return 1U << static_cast<unsigned>(type);
}

} // namespace

void OutputHistory::Append(const Message& message)
{
    const QMutexLocker lock(&m_mutex);
    if (m_suppressed & BitOf(message.type))
        return;
    m_characters += message.text.size();
    if (message.type == MessageType::Display && m_messages.size() > m_firstMessage) {
        Message& last = m_messages.last();
        if (last.type == MessageType::Display && last.language == message.language
            && last.text.size() < JOIN_LIMIT) {
            last.text += message.text;
            return;
        }
    }
    m_messages += message;
    while (m_characters > MAXIMUM_CHARACTERS && m_firstMessage < m_messages.size() - 1) {
        m_characters -= m_messages[m_firstMessage].text.size();
        m_messages[m_firstMessage].text.clear();
        ++m_firstMessage;
    }
    if (m_firstMessage > m_messages.size() / 2) {
        m_messages.remove(0, m_firstMessage);
        m_firstMessage = 0;
    }
}

void OutputHistory::Clear()
{
    const QMutexLocker lock(&m_mutex);
    m_messages.clear();
    m_firstMessage = 0;
    m_characters = 0;
}

void OutputHistory::SetSuppressed(MessageType type, bool suppressed)
{
    const QMutexLocker lock(&m_mutex);
    m_suppressed = suppressed ? m_suppressed | BitOf(type) : m_suppressed & ~BitOf(type);
}

bool OutputHistory::IsSuppressed(MessageType type) const
{
    const QMutexLocker lock(&m_mutex);
    return (m_suppressed & BitOf(type)) != 0;
}

QString OutputHistory::Text(const std::function<bool(const Message&)>& wanted) const
{
    const QMutexLocker lock(&m_mutex);
    QString text;
    for (int i = m_firstMessage; i < m_messages.size(); ++i) {
        if (!wanted || wanted(m_messages[i]))
            text += FramedText(m_messages[i]);
    }
    return text;
}

QVector<Message> OutputHistory::Messages(const std::function<bool(const Message&)>& wanted) const
{
    const QMutexLocker lock(&m_mutex);
    QVector<Message> messages;
    for (int i = m_firstMessage; i < m_messages.size(); ++i) {
        if (wanted(m_messages[i]))
            messages += m_messages[i];
    }
    return messages;
}

} // namespace host
