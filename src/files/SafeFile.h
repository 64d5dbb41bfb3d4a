#pragma once

class QByteArray;
class QString;

/// Files that are written whole or not at all. Any thread.
namespace SafeFile {

/// Makes `bytes` the content of the file, which need not exist. At every moment the old content or
/// the new one is there, whole: the new one is written beside the file and then takes its place,
/// with its owner, permissions and attributes; links stay links. Where a file cannot be replaced
/// (its folder is closed, it has other names, it is a device) it is written in place: the bytes are
/// known to fit before the old ones go, the old ones are put back when something fails, and the
/// next start finishes what was cut off (InterruptedSave). On failure `reason` says why, for
/// people.
bool Write(const QString& path, const QByteArray& bytes, QString& reason);

} // namespace SafeFile
