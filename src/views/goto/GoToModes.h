#pragma once

#include "views/goto/GoToWidget.h"

/// The modes of the go-to widget and the letters that their texts begin with.
namespace GoToModes {

struct Row
{
    GoToWidget::Mode mode;
    char prefix; ///< null: none
    const char* label;
};

inline constexpr Row ROWS[] = {
    {GoToWidget::Mode::Files, '\0', QT_TRANSLATE_NOOP("GoToWidget", "Go to File")},
    {GoToWidget::Mode::Symbols, '@', QT_TRANSLATE_NOOP("GoToWidget", "Go to Symbol in File")},
    {GoToWidget::Mode::Line, ':', QT_TRANSLATE_NOOP("GoToWidget", "Go to Line")},
    {GoToWidget::Mode::Commands, '>', QT_TRANSLATE_NOOP("GoToWidget", "Run a Command")},
    {GoToWidget::Mode::Help, '?', QT_TRANSLATE_NOOP("GoToWidget", "Help")},
};

inline QString PrefixOf(GoToWidget::Mode mode)
{
    for (const Row& row : ROWS) {
        if (row.mode == mode && row.prefix != '\0')
            return QString(QLatin1Char(row.prefix));
    }
    return QString();
}

inline GoToWidget::Mode ModeOf(const QString& text)
{
    for (const Row& row : ROWS) {
        if (row.prefix != '\0' && text.startsWith(QLatin1Char(row.prefix)))
            return row.mode;
    }
    return GoToWidget::Mode::Files;
}

} // namespace GoToModes
