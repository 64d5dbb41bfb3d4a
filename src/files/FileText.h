#pragma once

#include <QByteArray>
#include <QString>

class QTextCodec;

/// Scripts on disk: the one place that reads them and the one that writes them. Shows the wait
/// cursor meanwhile, so for the interface thread only. Line ends are line feeds in memory. Every
/// failure is logged.
namespace FileText {

enum class Encoding {
    Chosen, ///< of a user's file: UTF-8 or the locale's, as the user chose
    Utf8, ///< of the program's own files, which have to keep any text
};

/// Null when the file cannot be read; an empty file gives an empty text.
QString Read(const QString& path, Encoding encoding);

/// At every moment the old text or the new one is on the disk, whole.
bool Write(const QString& path, const QString& text, Encoding encoding);

// The same with bytes
bool ReadBytes(const QString& path, QByteArray& bytes);
bool WriteBytes(const QString& path, const QByteArray& bytes);

/// For the user's files.
const QTextCodec& ChosenCodec();

/// Tells one content of a file from another; empty for a file that cannot be read.
QByteArray Fingerprint(const QString& path);
QByteArray FingerprintOf(const QByteArray& bytes);

} // namespace FileText
