#pragma once

#include <QString>

/// One diagnostic about a script. Either located by a span of the text (parsers: `start` and `end`
/// set, `line` and `column` -1) or by a place (pylint: `line` and `column` set, `start` and `end`
/// -1).
struct ParserMessage
{
    QString message;
    int start = -1; ///< UTF-16 offsets from 0; `end` is behind the last character
    int end = -1;
    int line = -1; ///< from 0
    int column = -1; ///< from 0
};

Q_DECLARE_TYPEINFO(ParserMessage, Q_MOVABLE_TYPE);
