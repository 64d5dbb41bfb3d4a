#pragma once

#include "engine/Call.h"

namespace host {
class Engine;
}

namespace host::mel {

/// Sends the command to the output before it runs, when all commands are to be echoed.
void EchoCommand(Engine& engine, const QString& name, const QVector<Word>& words);
/// The command as text that would run it again: strings in quotes, ";" and a line feed at the end.
QString CommandText(const QString& name, const QVector<Word>& words);
/// A string as the language writes it, quotes included.
QString QuotedText(const QString& text);

} // namespace host::mel
