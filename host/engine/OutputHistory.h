#pragma once

#include "engine/OutputStream.h"

namespace host {

/// The host's own log of everything it printed, as its script window shows it. Written from any
/// thread, read from any thread. Keeps the last MAXIMUM_CHARACTERS, dropping whole old messages.
class OutputHistory
{
public:
    static constexpr int MAXIMUM_CHARACTERS = 32 * 1024 * 1024;

    void Append(const Message& message);
    void Clear();

    /// A suppressed type is not taken up any more; what stands in the log stays.
    void SetSuppressed(MessageType type, bool suppressed);
    bool IsSuppressed(MessageType type) const;

    /// The framed text of the messages that `wanted` accepts, oldest first.
    QString Text(const std::function<bool(const Message&)>& wanted = {}) const;
    /// The same as messages; prints may have been joined.
    QVector<Message> Messages(const std::function<bool(const Message&)>& wanted) const;

private:
    mutable QMutex m_mutex;
    QVector<Message> m_messages;
    int m_firstMessage = 0; ///< older ones are dropped already but not yet removed
    qint64 m_characters = 0;
    unsigned m_suppressed = 0; ///< one bit per MessageType
};

} // namespace host
