#pragma once

#include <QString>

/// The files that keep the text of internal buffers between sessions. UTF-8. Every failure is
/// logged; none loses what was stored before.
namespace BufferFile {

/// The text of the file; empty, not null, when there is no such file. A file that cannot be read is
/// renamed out of the way, so that the next save does not replace it.
QString Read(const QString& path);

/// Replaces the file only when the whole text is on the disk.
bool Write(const QString& path, const QString& text);

} // namespace BufferFile
