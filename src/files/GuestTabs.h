#pragma once

#include <QStringList>

#include <memory>
#include <vector>

class QLockFile;

/// The open buffers of a session that does not own the configuration: a file with one tab record
/// per line, locked for as long as the session lives. The next session that starts takes over what
/// ended ones left. Used by one thread; an object has the lock, and the file outlives it.
class GuestTabs
{
public:
    static const QString FOLDER_NAME; ///< inside the user's configuration

    /// For a session that begins; nothing is on the disk before something is written.
    explicit GuestTabs(const QString& configurationFolder);
    ~GuestTabs();
    GuestTabs(const GuestTabs&) = delete;
    GuestTabs& operator=(const GuestTabs&) = delete;

    /// What ended sessions left, the oldest first. Nobody else gets it while the objects live.
    static std::vector<std::unique_ptr<GuestTabs>> Claim(const QString& configurationFolder);

    QStringList Read() const;
    /// Replaces what is there; without any record the file goes. On failure the old one stays.
    bool Write(const QStringList& records);

private:
    bool Lock();

    QString m_folder;
    QString m_path; ///< of the file; empty before the first one is written
    std::unique_ptr<QLockFile> m_lock;
};
