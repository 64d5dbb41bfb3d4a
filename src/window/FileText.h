#pragma once

#include "editor/CodeEditorProperties.h"

#include <QByteArray>
#include <QString>

/// Scripts on disk: the one place that reads them and the one that writes them. Shows the wait
/// cursor meanwhile. Line ends are line feeds in memory. A user's file has the encoding that the
/// user chose, UTF-8 or the locale's; the program's own backing files are UTF-8, which can keep any
/// text. Every failure is logged.
namespace FileText {

/// Null when the file cannot be read; an empty file gives an empty text.
QString Read(const QString& path, CodeEditorType type);

/// Replaces the file only when the whole text is on the disk; on failure the old one stays.
bool Write(const QString& path, const QString& text, CodeEditorType type);

/// Tells one content of a file from another; empty for a file that cannot be read.
QByteArray Fingerprint(const QString& path);

} // namespace FileText
