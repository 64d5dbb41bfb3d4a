#pragma once

class QString;

/// What people do with files and folders besides reading and writing them. Nothing is ever
/// overwritten. On failure `reason` says why, for people, and everything is as it was. Any thread.
namespace FileTasks {

/// Why nothing in the folder can be called so, for people; empty when something can. `ownPath` is
/// what the name is for, which may keep its own one; empty for something new.
QString FaultOfName(const QString& folder, const QString& name, const QString& ownPath);

/// Empty ones; the path must be free.
bool CreateFile(const QString& path, QString& reason);
bool CreateFolder(const QString& path, QString& reason);

/// Gives a file, folder or link another path. Only files go to another file system.
bool Move(const QString& from, const QString& to, QString& reason);

/// The same within one file system alone; `errno` tells why it failed.
bool Rename(const QString& from, const QString& to, QString& reason);
/// For good, a folder with all that is in it. Links go, not what they lead to.
bool Remove(const QString& path, QString& reason);

} // namespace FileTasks
