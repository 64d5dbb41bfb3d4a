#pragma once

#include <QtGlobal>

class QString;

/// What the system says about a file without anybody looking into it. Two equal stamps mean the
/// same content, unless the file had only just been written when one was taken.
struct FileStamp
{
    bool isFile = false; ///< otherwise there is nothing, or something else, at the path
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0; ///< bytes
    qint64 modified = 0; ///< ns since 1970
    qint64 changed = 0; ///< ns since 1970; the content, the name or the rights

    static FileStamp Of(const QString& path);

    friend bool operator==(const FileStamp& left, const FileStamp& right);
};
