#pragma once

#include "engine/OutputStream.h"
#include "engine/Value.h"

namespace host::api {

/// One call of a plug-in's command: its result, and what it said went wrong. They nest, as a
/// command may run others. Main thread only.
class CommandRun
{
public:
    CommandRun();
    ~CommandRun();
    CommandRun(const CommandRun&) = delete;
    CommandRun& operator=(const CommandRun&) = delete;

    /// The innermost one; null when no command runs.
    static CommandRun* Current();

    Value result;
    /// The result is being put together by appending.
    bool appending = false;
    /// The last error shown while it ran, by itself or by what it called; null when there was none.
    QString shownError;

private:
    CommandRun* m_outer;
};

/// Shows a message now, or at the next idle moment when called off the main thread. Without a host
/// it goes to the standard streams.
void ShowMessage(MessageType type, const QString& text);

} // namespace host::api
