#pragma once

#include "files/RecoverySnapshot.h"

#include <QString>

#include <optional>

class QIODevice;

/// How a snapshot is written down: a line that names the format, its version, the lengths of what
/// follows and their checksum; a header as JSON; the text. Whatever is not exactly that, for having
/// been cut short, changed or never been a snapshot, is told from it. Any thread.
namespace RecoveryFile {

QByteArray Encode(const RecoverySnapshot& snapshot);
/// Nothing unless the bytes are one whole snapshot of a version that is known.
std::optional<RecoverySnapshot> Decode(const QByteArray& bytes);

/// Looks at the lengths before it reads, so that what is no snapshot costs nothing however large.
std::optional<RecoverySnapshot> Read(const QString& path);
/// Replaces the file only when everything is on the disk. Nothing is logged.
bool Write(const QString& path, const RecoverySnapshot& snapshot);

} // namespace RecoveryFile
