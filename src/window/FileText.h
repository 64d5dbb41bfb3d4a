#pragma once

#include <QString>

/// The one place where scripts are read from and written to disk. Shows the wait cursor meanwhile.
/// The encoding is UTF-8 when the user wants it, else the locale's.
namespace FileText {

/// Null when the file cannot be read, which has been logged; an empty file gives an empty text.
QString Read(const QString& path);

/// False when not every byte reached the disk, which has been logged.
bool Write(const QString& path, const QString& text);

} // namespace FileText
