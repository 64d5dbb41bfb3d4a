#include "window/chrome/ComboRowDelegate.h"

#include "window/chrome/Theme.h"

#include <QPainter>

namespace {

// Design pixels.
constexpr int HEIGHT = 24;
constexpr int PADDING = 10;

} // namespace

void ComboRowDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool current = option.state & QStyle::State_Selected;
    const bool enabled = option.state & QStyle::State_Enabled;
    if (current)
        painter->fillRect(option.rect, Theme::Color(Theme::Role::MenuRow));
    painter->setFont(option.font);
    painter->setPen(Theme::Color(!enabled ? Theme::Role::Disabled
            : current                     ? Theme::Role::MenuRowText
                                          : Theme::Role::Text));
    const QRect area = option.rect.adjusted(Theme::Dp(PADDING), 0, -Theme::Dp(PADDING), 0);
    const QString text
        = option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, area.width());
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

QSize ComboRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int text = option.fontMetrics.horizontalAdvance(index.data().toString());
    return {text + 2 * Theme::Dp(PADDING), Theme::Dp(HEIGHT)};
}
