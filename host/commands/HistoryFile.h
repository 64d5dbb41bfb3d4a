#pragma once

#include "engine/OutputStream.h"

#include <QFile>
#include <QMutex>

namespace host::commands {

/// Writes what the host's own log shows to a file as well, while it is switched on. Set up on the
/// main thread; messages may come from any.
class HistoryFile
{
public:
    HistoryFile();
    ~HistoryFile();
    HistoryFile(const HistoryFile&) = delete;
    HistoryFile& operator=(const HistoryFile&) = delete;

    QString Name() const;
    bool IsWriting() const;
    /// Empty on success, else what went wrong; writing is off then.
    QString SetName(const QString& path);
    QString SetWriting(bool on);
    /// Empties the file.
    QString Clear();

private:
    QString Reopen(bool on);
    void Append(const Message& message);

    mutable QMutex m_mutex;
    QFile m_file;
    int m_display = 0;
};

} // namespace host::commands
