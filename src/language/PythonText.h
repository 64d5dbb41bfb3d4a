#pragma once

#include <QStringView>

/// What every reader of Python lines needs to know of their characters.
namespace PythonText {

inline bool IsNameCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

/// A name, not a number.
inline bool IsName(QStringView word)
{
    return !word.isEmpty() && !word.front().isDigit();
}

inline int IndentLength(QStringView line)
{
    int length = 0;
    while (length < line.size() && line[length].isSpace())
        ++length;
    return length;
}

/// In columns, as the language counts them.
inline int IndentWidth(QStringView line)
{
    constexpr int TAB_WIDTH = 8;
    int width = 0;
    for (const QChar character : line) {
        if (!character.isSpace())
            break;
        width += character == QLatin1Char('\t') ? TAB_WIDTH - width % TAB_WIDTH : 1;
    }
    return width;
}

/// Neither empty nor a comment by itself.
inline bool IsCode(QStringView line)
{
    const int indent = IndentLength(line);
    return indent < line.size() && line[indent] != QLatin1Char('#');
}

} // namespace PythonText
