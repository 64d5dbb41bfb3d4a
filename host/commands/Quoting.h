#pragma once

#include <QString>

namespace host::commands {

/// A MEL string that means `text`, in its quotes.
QString Quoted(const QString& text);

} // namespace host::commands
