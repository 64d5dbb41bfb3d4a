#include "output/ConsoleColors.h"

#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/chrome/TextLook.h"

QColor ConsoleForeground(const QColor& color)
{
    const QTextCharFormat plain = ColorSettings::GetOutputFormat(ColorSettings::PLAIN_TEXT, false);
    return color.isValid() ? color : plain.foreground().color();
}

QColor ConsoleBackground(const QColor& color)
{
    const QTextCharFormat plain = ColorSettings::GetOutputFormat(ColorSettings::PLAIN_TEXT, false);
    return color.isValid() ? color : plain.background().color();
}

QFont ConsoleFont()
{
    int zoom = 0;
    return TextLook::ZoomedFont(Settings::outputFont, zoom);
}
