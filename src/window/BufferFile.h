#pragma once

#include <QString>

/// The files that keep the text of internal buffers between sessions. UTF-8. Every failure is
/// logged; none loses what was stored before.
namespace BufferFile {

/// Null when the file cannot be read, which has been logged; an empty file gives an empty text.
QString Read(const QString& path);

/// Replaces the file only when the whole text is on the disk.
bool Write(const QString& path, const QString& text);

} // namespace BufferFile
