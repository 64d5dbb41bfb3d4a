#pragma once

#include "editor/CodeEditorProperties.h"

#include <QChar>

/// The null character for anything but a bracket.
QChar MatchingBrace(QChar character);
bool IsOpeningBrace(QChar character);
bool IsClosingBrace(QChar character);
/// Whether a quote typed between the two gets a partner. A square bracket deliberately goes with
/// a second opening one only.
bool IsMatchingBraces(QChar open, QChar close);
/// Any of the three quote characters, whatever the language.
bool IsQuote(QChar character);
bool IsQuoteOf(CodeEditorLanguage language, QChar character);
