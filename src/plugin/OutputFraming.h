#pragma once

#include "plugin/OutputText.h"

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
    /// What to append for the message; nothing when it is never shown.
    std::optional<OutputText> Frame(const QString& text, MCommandMessage::MessageType type);
    /// Back to MEL, as before the first message.
    void Reset() { m_isMel = true; }

private:
    std::atomic<bool> m_isMel{true};
};
