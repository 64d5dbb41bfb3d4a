#pragma once

#include "files/PosixFile.h"

#include <QByteArray>

/// A file that is written beside the one whose place it is to take. It is locked for as long as the
/// object lives, so that nobody takes it for a leftover, and gone with it unless it was moved. Any
/// thread, one at a time; the reason of a failure is in `errno`.
class TemporaryFile
{
public:
    /// Not open afterwards when the folder takes no new file.
    TemporaryFile(const QByteArray& target, mode_t mode);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    PosixFile& GetFile() { return m_file; }
    bool MoveTo(const QByteArray& target);

    /// With its slash; empty for a path without one.
    static QByteArray FolderOf(const QByteArray& path);
    /// What killed processes left, once in each folder.
    static void RemoveLeftovers(const QByteArray& folder);

private:
    bool Create(const QByteArray& path, mode_t mode);

    QByteArray m_path;
    PosixFile m_file;
    bool m_isMoved = false;
};
