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
    static const QString SAVING_SUFFIX; ///< of what NoteSaving leaves beside a snapshot, added
    static const QString LOCK_NAME; ///< of the lock inside a process's folder
    static const QString BROKEN_NAME; ///< of the folder of what could not be read

    /// `folder` is the recovery folder; it need not exist.
    explicit RecoveryStore(const QString& folder);
    /// What is on the disk stays there, for whoever looks for leftovers.
    ~RecoveryStore();

    /// Replaces the editor's last snapshot. On failure that one stays.
    bool Write(int id, const RecoverySnapshot& snapshot, RecoveryFile::Wait wait);
    void Remove(int id);
    /// The file that the text belongs to is about to have the content of that fingerprint. Once it
    /// has, the snapshot is worth nothing, even if there is no time left to remove it. Any thread,
    /// at any time.
    void NoteSaving(int id, const QByteArray& fingerprint) const;
    /// Gives the folder up; without snapshots it goes, and the recovery folder with it when that
    /// is empty too.
    void Close();

    /// Made with the first snapshot.
    QString GetProcessFolder() const { return m_processFolder; }

private:
    bool Open();
    bool IsOpen() const;
    QString PathOf(int id) const;

    const QString m_folder;
    const QString m_processFolder;
    std::unique_ptr<QLockFile> m_lock;
};
