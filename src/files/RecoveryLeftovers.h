#pragma once

#include "files/RecoverySnapshot.h"

#include <QStringList>

#include <memory>
#include <vector>

class QLockFile;

/// The snapshots that processes left which do not live any more. Claimed ones belong to this object
/// alone until it goes or lets go of them: another process does not see them meanwhile. Used by one
/// thread.
class RecoveryLeftovers
{
public:
    struct Leftover
    {
        RecoverySnapshot snapshot;
        QString file; ///< that holds it
    };

    RecoveryLeftovers();
    /// Lets go of what is left; it stays for the next start.
    ~RecoveryLeftovers();

    /// Looks through the recovery folder, which need not exist. What cannot be read is moved into
    /// a folder for such files and logged; files that have nothing to do with this stay alone.
    void Claim(const QString& folder);
    /// The oldest first.
    const std::vector<Leftover>& GetAll() const { return m_leftovers; }
    /// Deletes one snapshot: there is nothing to bring back any more.
    void Remove(int index);
    void RemoveAll();
    /// Keeps one snapshot for another start.
    void Leave(int index);

private:
    struct ClaimedFolder;

    void ClaimFolder(const QString& path);
    void SetAside(const QString& file);

    QString m_folder;
    std::vector<Leftover> m_leftovers;
    std::vector<std::unique_ptr<ClaimedFolder>> m_claimed;
};
