#include "window/PreferencesPageDelegate.h"

#include "window/chrome/Theme.h"

#include <QPainter>

namespace {

// Design pixels.
constexpr int ROW_HEIGHT = 30;
constexpr int ICON_SIZE = 16;
constexpr int ICON_LEFT = 12;
constexpr int ICON_GAP = 10;
constexpr int RIGHT = 8;
constexpr int WATERLINE = 2;
constexpr int WATERLINE_INSET = 6;

void PaintWaterline(QPainter& painter, const QRect& row)
{
    const int thickness = Theme::Dp(WATERLINE);
    const int inset = Theme::Dp(WATERLINE_INSET);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::Color(Theme::Role::Lake));
    painter.drawRoundedRect(
        QRectF(row.left(), row.top() + inset, thickness, row.height() - 2 * inset), thickness / 2.0,
        thickness / 2.0);
}

} // namespace

void PreferencesPageDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    using R = Theme::Role;
    const bool current = option.state & QStyle::State_Selected;
    const QRect& row = option.rect;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (current)
        painter->fillRect(row, Theme::Color(R::Row));
    else if (option.state & QStyle::State_MouseOver)
        painter->fillRect(row, Theme::Color(R::Hover));
    if (current)
        PaintWaterline(*painter, row);
    const int extent = Theme::Dp(ICON_SIZE);
    const QRect icon(
        row.left() + Theme::Dp(ICON_LEFT), row.top() + (row.height() - extent) / 2, extent, extent);
    painter->drawPixmap(icon,
        Theme::TintedPixmap(index.data(ICON_NAME).toString(), ICON_SIZE,
            Theme::Color(current ? R::Lake : R::Faint), painter->device()->devicePixelRatioF()));
    const int left = icon.right() + 1 + Theme::Dp(ICON_GAP);
    const QRect text(left, row.top(), row.right() - Theme::Dp(RIGHT) - left, row.height());
    painter->setFont(option.font);
    painter->setPen(Theme::Color(current ? R::Strong : R::Text));
    painter->drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, text.width()));
    painter->restore();
    if (option.state & QStyle::State_HasFocus && option.state & QStyle::State_KeyboardFocusChange)
        Theme::DrawFocusEdge(*painter, row, 0);
}

QSize PreferencesPageDelegate::sizeHint(
    const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return {0, qMax(Theme::Dp(ROW_HEIGHT), option.fontMetrics.height())};
}
