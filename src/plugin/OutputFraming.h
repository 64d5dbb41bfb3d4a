#pragma once

#include <maya/MCommandMessage.h>

#include <QString>

#include <atomic>
#include <optional>

/// Turns the host's messages into the console's lines. A message does not say which language it
/// comes from: what was echoed or printed last tells, as only MEL ends a statement with ";". Any
/// thread; messages of two threads may take each other's comment sign, never more.
class OutputFraming
{
public:
    /// What to append for the message; nothing when it is not shown. With `minimalTrace` the
    /// echoes of commands are not shown, but they still tell the language.
    std::optional<QString> Frame(
        const QString& text, MCommandMessage::MessageType type, bool minimalTrace);
    /// Back to MEL, as before the first message.
    void Reset() { m_isMel = true; }

private:
    std::atomic<bool> m_isMel{true};
};
