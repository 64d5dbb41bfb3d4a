#pragma once

class QSettings;
class QString;

/// Writing INI files that people may have edited, or that a crash cut off.
namespace IniFile {

/// The toolkit drops lines that it cannot read when it writes a file again. Call this when the file
/// is first opened: one with such lines is copied as by KeepCopy.
void KeepWhatCannotBeRead(const QSettings& file);

/// Copies the file beside itself with ".broken" at the end, and a number when there is an older
/// copy; a warning names both.
void KeepCopy(const QSettings& file);

/// Writes the file out; a failure is logged as `message` with the path in place of "%1". False
/// then.
bool Finish(QSettings& file, const QString& message);

} // namespace IniFile
