#pragma once

#include "files/RecoverySnapshot.h"

#include <QString>

#include <optional>

/// How a snapshot is written down: a line that names the format, its version, the lengths of what
/// follows and their checksum; a header as JSON; the text. Whatever is not exactly that, for having
/// been cut short, changed or never been a snapshot, is told from it. Any thread.
namespace RecoveryFile {

extern const QString UNFINISHED_SUFFIX;

QByteArray Encode(const RecoverySnapshot& snapshot);
/// Nothing unless the bytes are one whole snapshot of a version that is known.
std::optional<RecoverySnapshot> Decode(const QByteArray& bytes);

/// Looks at the lengths before it reads, so that what is no snapshot costs nothing however large.
std::optional<RecoverySnapshot> Read(const QString& path);
enum class Wait {
    No, ///< the file outlives this process
    ForDisk, ///< and the machine's sudden end as well, which may take a while
};

/// Replaces the file only by all of the new one, which stands beside it meanwhile under its name
/// and UNFINISHED_SUFFIX. Nothing is logged.
bool Write(const QString& path, const RecoverySnapshot& snapshot, Wait wait);

} // namespace RecoveryFile
