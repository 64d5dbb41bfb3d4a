#pragma once

#include "files/RecoveryFile.h"

#include <QString>

#include <memory>

class QLockFile;

/// The snapshots of this process: a folder of its own inside the recovery folder, locked for as
/// long as the process lives, with one file per editor. Nothing is on the disk before the first
/// snapshot. Used by one thread at a time; nothing is logged.
class RecoveryStore
{
public:
    static const QString FOLDER_NAME; ///< of the recovery folder, inside the user's configuration
    static const QString FILE_SUFFIX; ///< of snapshots, with its dot
    static const QString LOCK_NAME; ///< of the lock inside a process's folder
    static const QString BROKEN_NAME; ///< of the folder of what could not be read

    /// `folder` is the recovery folder; it need not exist.
    explicit RecoveryStore(const QString& folder);
    /// What is on the disk stays there, for whoever looks for leftovers.
    ~RecoveryStore();

    /// Replaces the editor's last snapshot. On failure that one stays.
    bool Write(int id, const RecoverySnapshot& snapshot, RecoveryFile::Wait wait);
    void Remove(int id);
    /// Gives the folder up; without snapshots it goes, and the recovery folder with it when that
    /// is empty too.
    void Close();

    /// Empty while there is no snapshot.
    QString GetProcessFolder() const { return m_processFolder; }

private:
    bool Open();
    bool IsOpen() const;
    QString PathOf(int id) const;

    QString m_folder;
    QString m_processFolder;
    std::unique_ptr<QLockFile> m_lock;
};
