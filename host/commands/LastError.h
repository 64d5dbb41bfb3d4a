#pragma once

#include <QMutex>
#include <QString>

namespace host::commands {

/// Remembers the last error that the host showed. Main thread, but errors may come from any.
class LastError
{
public:
    LastError();
    ~LastError();
    LastError(const LastError&) = delete;
    LastError& operator=(const LastError&) = delete;

    QString Text() const;

private:
    mutable QMutex m_mutex;
    QString m_text;
    int m_listener = 0;
};

} // namespace host::commands
