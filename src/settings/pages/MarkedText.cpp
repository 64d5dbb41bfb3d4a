#include "settings/pages/MarkedText.h"

#include "window/chrome/Theme.h"

#include <QPainter>

namespace {

constexpr double GROUND_ALPHA = 0.3;

} // namespace

void DrawMarkedText(QPainter& painter, const QRect& area, const QString& text, const QString& match)
{
    const QFontMetrics metrics = painter.fontMetrics();
    const QString shown = metrics.elidedText(text, Qt::ElideRight, area.width());
    const int at = match.isEmpty() ? -1 : shown.indexOf(match, 0, Qt::CaseInsensitive);
    if (at >= 0) {
        const QRect ground(area.left() + metrics.horizontalAdvance(shown.left(at)),
            area.top() + (area.height() - metrics.height()) / 2,
            metrics.horizontalAdvance(shown.mid(at, match.size())), metrics.height());
        painter.fillRect(ground, Theme::WithAlpha(Theme::Role::Lake, GROUND_ALPHA));
    }
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}
