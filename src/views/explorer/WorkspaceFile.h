#pragma once

#include <QJsonObject>
#include <QStringList>

/// A workspace as it is kept on disk: the folders, and whatever else the file holds, which is
/// written back as it was. A value; no operation shows or logs anything.
class WorkspaceFile
{
public:
    enum class Result {
        Ok,
        Missing,
        Unreadable, ///< cannot be opened, or is no workspace
    };

    /// Leaves this as it was unless the result is Ok.
    Result Read(const QString& path);
    /// Replaces the file in one step. False when that failed; then the old file is still there.
    bool Write(const QString& path) const;

    /// Absolute, in the user's order.
    QStringList GetFolders() const { return m_folders; }
    void SetFolders(const QStringList& folders) { m_folders = folders; }
    /// Written by a later version, which may mean something that would be lost.
    bool IsNewer() const;

private:
    QStringList m_folders;
    QJsonObject m_object;
};
