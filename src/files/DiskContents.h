#pragma once

#include "files/FileStamp.h"

#include <QByteArray>
#include <QHash>
#include <QString>

/// What the open files held when their texts were last read or written, and whether somebody else
/// has changed one since. Asking costs one look at the file's entry in its folder; its content is
/// only read when that has changed. Used by one thread; nothing is logged.
class DiskContents
{
public:
    enum class Change {
        None,
        Content,
        Gone, ///< nothing is there any more, or something that is no file
        Unreadable,
    };

    /// The file has just been read or written; what it holds has this fingerprint.
    void Set(const QString& path, const QByteArray& fingerprint);
    void Move(const QString& from, const QString& to);
    void Remove(const QString& path);
    /// Of the last content known; empty for a file that is not known.
    QByteArray GetFingerprint(const QString& path) const;

    /// Tells each change once. A file that comes back counts as changed, whatever it holds.
    Change TakeChange(const QString& path);

private:
    struct Known
    {
        QByteArray fingerprint;
        FileStamp stamp;
        qint64 stamped = 0; ///< when, in ns since 1970
        Change last = Change::None;
    };

    static void Stamp(Known& known, const QString& path);
    static bool MayHaveBeenWrittenSince(const Known& known);

    QHash<QString, Known> m_known;
};
