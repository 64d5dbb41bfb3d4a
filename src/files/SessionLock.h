#pragma once

#include <QString>

#include <memory>

class QLockFile;

/// Says which of the processes that share a preferences folder owns the open tabs and the
/// configuration: the one that asked first, for as long as it lives. Whoever is not the owner never
/// becomes it. Owned by the window, which asks before it restores anything.
class SessionLock
{
public:
    static const QString FILE_NAME; ///< inside the folder

    /// Asks at once. Without a folder, or where no lock can be had at all, there is nobody to be
    /// kept from: then everybody is an owner.
    explicit SessionLock(const QString& folder);
    /// The next one who asks may be the owner.
    ~SessionLock();

    bool IsOwner() const { return m_isOwner; }
    /// The process that owned it when this one asked, for people; empty for the owner itself.
    QString GetOtherOwner() const { return m_otherOwner; }
    /// It runs on another machine: whether it still does cannot be told from here.
    bool IsOwnerElsewhere() const { return m_isOwnerElsewhere; }
    QString GetPath() const { return m_path; }

private:
    void DescribeOwner();

    QString m_path;
    std::unique_ptr<QLockFile> m_lock; ///< null without a folder
    bool m_isOwner = true;
    QString m_otherOwner;
    bool m_isOwnerElsewhere = false;
};
