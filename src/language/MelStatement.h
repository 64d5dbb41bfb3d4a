#pragma once

#include <QString>

/// What can be told of a piece of MEL without parsing the script.
namespace MelStatement {

/// The command whose arguments are being typed at the end of `text`, which begins at the start of a
/// statement: its first word, or the first word behind an open back-quote. Empty inside brackets,
/// strings and comments, and where no word begins the statement.
QString CommandBefore(const QString& text);

} // namespace MelStatement
