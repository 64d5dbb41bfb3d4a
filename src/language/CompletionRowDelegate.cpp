#include "language/CompletionRowDelegate.h"

#include "window/chrome/Theme.h"

#include <QPainter>

namespace {

// Design pixels.
constexpr int ROW_HEIGHT = 20;
constexpr int SIDE_PADDING = 8;
constexpr int ICON_SIZE = 14;
constexpr int ICON_GAP = 6;
constexpr int DETAIL_GAP = 16;
constexpr int LINE_PADDING = 4;

int TextStart()
{
    return Theme::Dp(SIDE_PADDING) + Theme::Dp(ICON_SIZE) + Theme::Dp(ICON_GAP);
}

void DrawIcon(QPainter& painter, const QRect& row, const QString& name)
{
    const QPixmap icon = Theme::Pixmap(name, ICON_SIZE, painter.device()->devicePixelRatioF());
    const int size = Theme::Dp(ICON_SIZE);
    const int top = row.top() + (row.height() - size) / 2;
    painter.drawPixmap(QRect(row.left() + Theme::Dp(SIDE_PADDING), top, size, size), icon);
}

} // namespace

void CompletionRowDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    using R = Theme::Role;
    constexpr int ALIGNMENT = Qt::AlignVCenter | Qt::TextSingleLine;
    if (option.state & QStyle::State_Selected)
        painter->fillRect(option.rect, Theme::Color(R::Row));
    const QString iconName = index.data(IconRole).toString();
    if (!iconName.isEmpty())
        DrawIcon(*painter, option.rect, iconName);

    painter->setFont(option.font);
    QRect area = option.rect.adjusted(TextStart(), 0, -Theme::Dp(SIDE_PADDING), 0);
    const QString detail = index.data(DetailRole).toString();
    if (!detail.isEmpty()) {
        painter->setPen(Theme::Color(R::Soft));
        painter->drawText(area, Qt::AlignRight | ALIGNMENT, detail);
        area.adjust(0, 0, -option.fontMetrics.horizontalAdvance(detail) - Theme::Dp(DETAIL_GAP), 0);
    }
    const QString name
        = option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, area.width());
    const QString typed = name.left(m_prefixLength);
    painter->setPen(Theme::Color(R::LakeText));
    painter->drawText(area, Qt::AlignLeft | ALIGNMENT, typed);
    area.setLeft(area.left() + option.fontMetrics.horizontalAdvance(typed));
    painter->setPen(Theme::Color(R::Text));
    painter->drawText(area, Qt::AlignLeft | ALIGNMENT, name.mid(typed.size()));
}

QSize CompletionRowDelegate::sizeHint(
    const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    int width = TextStart() + option.fontMetrics.horizontalAdvance(index.data().toString())
        + Theme::Dp(SIDE_PADDING);
    const QString detail = index.data(DetailRole).toString();
    if (!detail.isEmpty())
        width += option.fontMetrics.horizontalAdvance(detail) + Theme::Dp(DETAIL_GAP);
    const int line = option.fontMetrics.height() + Theme::Dp(LINE_PADDING);
    return {width, qMax(Theme::Dp(ROW_HEIGHT), line)};
}
