#pragma once

#include "engine/Call.h"

namespace host {

/// The words that mean a checked call. Those of a MEL script are it; Python's keywords are written
/// out, as a flag that is False or a query's True says something else as a word.
QVector<Word> WordsOf(const Call& call);

/// The call as a person would type it.
QString CallText(const QString& name, const QVector<Word>& words);

/// Keywords given to a command that does not say which it takes are an error.
std::optional<Error> KeywordError(const Call& call);

} // namespace host
