#pragma once

#include <QRegularExpression>
#include <QString>

namespace host::commands {

/// The regular expressions of `match` and `substitute`: . * + ? ^ $ | ( ) [ ] and "\" before a
/// character that is meant itself. Everything else, braces too, stands for itself, and every repeat
/// takes as much as it can. The result is invalid when the expression is.
QRegularExpression MatchExpression(const QString& pattern);

/// The shell patterns of `gmatch` and `getFileList`, for the whole text: * ? [abc] [a-z] [!abc] and
/// "\" before a character that is meant itself. Always valid: a "[" that is never closed is itself.
QRegularExpression ShellExpression(const QString& pattern);

} // namespace host::commands
