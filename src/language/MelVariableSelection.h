#pragma once

#include <QTextCursor>

/// What a double click on a MEL variable selects: `cursor`, which holds the word that the text
/// widget took, with the dollar sign before the word, or with the word behind a lone dollar sign.
/// Unchanged where that gives no variable.
QTextCursor WithDollarSign(const QTextCursor& cursor);
