#pragma once

class QString;

/// Names of Python as they stand in scripts, with the dots between their parts. Free of widgets.
namespace PythonName {

/// Whether the text is nothing but such a name.
bool IsName(const QString& text);
/// The name around `column` (from 0) of the line, which may also stand directly behind it; empty
/// when there is none.
QString NameAt(const QString& line, int column);
/// The name around columns `start` to `end`, from its beginning through the part that holds `end`:
/// "os.path" of "os.path.join" for a cursor in "path". Empty when no one name holds both.
QString NameThrough(const QString& line, int start, int end);

} // namespace PythonName
