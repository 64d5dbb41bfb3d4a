#include "window/chrome/TextLook.h"

#include "settings/Settings.h"

#include <QFontMetricsF>
#include <QPlainTextEdit>

namespace {

QPalette Colored(QPalette palette, const QTextCharFormat& plain, const QTextCharFormat& selected)
{
    palette.setColor(QPalette::Text, plain.foreground().color());
    palette.setColor(QPalette::Base, plain.background().color());
    palette.setColor(QPalette::HighlightedText, selected.foreground().color());
    palette.setColor(QPalette::Highlight, selected.background().color());
    return palette;
}

} // namespace

QFont TextLook::ZoomedFont(const QFont& base, int& zoom)
{
    int size = base.pointSize();
    if (zoom != 0) {
        size = qBound(Settings::MINIMUM_FONT_SIZE, size + zoom, Settings::MAXIMUM_FONT_SIZE);
        zoom = size - base.pointSize();
    }
    const double scale = Settings::customScaleValue;
    if (scale > 0.0 && !qFuzzyCompare(scale, 1.0))
        size = static_cast<int>(size * scale);
    QFont font = base;
    font.setPointSize(qMax(1, size));
    return font;
}

void TextLook::ApplyColors(
    QPlainTextEdit& edit, const QTextCharFormat& plain, const QTextCharFormat& selected)
{
    edit.setPalette(Colored(edit.palette(), plain, selected));
    edit.viewport()->setPalette(Colored(edit.viewport()->palette(), plain, selected));
}

QTextOption TextLook::Option(const QFont& font, int tabSize, bool wordWrap)
{
    QTextOption option;
    option.setWrapMode(wordWrap ? QTextOption::WordWrap : QTextOption::NoWrap);
    option.setTabStopDistance(
        QFontMetricsF(font).horizontalAdvance(QLatin1Char(' ')) * qMax(1, tabSize));
    return option;
}
