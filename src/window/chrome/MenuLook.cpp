#include "window/chrome/MenuLook.h"

#include "window/chrome/Theme.h"

#include <QPainter>
#include <QStyleOption>

namespace {

// Design pixels.
constexpr int ROW_HEIGHT = 24;
constexpr int ROW_INSET = 4; ///< of the row's fill
constexpr int TEXT_LEFT = 34;
constexpr int CHECK_LEFT = 12;
constexpr int MARK_SIZE = 14;
constexpr int RIGHT_PADDING = 16;
constexpr int SHORTCUT_GAP = 26;
constexpr int ARROW_RIGHT = 12;
constexpr int SEPARATOR_SPACING = 4;
constexpr int RADIUS = 4;
constexpr int DOT_STEP = 4;
constexpr int DOTS_INSET = 10;

QRect MarkRect(const QRect& row, int left)
{
    const int size = Theme::Dp(MARK_SIZE);
    return {left, row.y() + (row.height() - size) / 2, size, size};
}

void DrawMark(const QStyleOptionMenuItem& item, QPainter& painter)
{
    const QRect area = MarkRect(item.rect, item.rect.x() + Theme::Dp(CHECK_LEFT));
    const qreal ratio = painter.device()->devicePixelRatioF();
    if (item.checked) {
        painter.drawPixmap(area,
            Theme::TintedPixmap(
                QStringLiteral("check"), MARK_SIZE, Theme::Color(Theme::Role::Lake), ratio));
    } else if (!item.icon.isNull() && item.checkType == QStyleOptionMenuItem::NotCheckable) {
        const bool enabled = item.state & QStyle::State_Enabled;
        item.icon.paint(&painter, area, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    }
}

} // namespace

void MenuLook::DrawPanel(const QRect& area, QPainter& painter)
{
    const int hairline = Theme::Hairline();
    painter.fillRect(area, Theme::Color(Theme::Role::RaiseEdge));
    painter.fillRect(
        area.adjusted(hairline, hairline, -hairline, -hairline), Theme::Color(Theme::Role::Raise));
}

void MenuLook::DrawItem(const QStyleOptionMenuItem& item, QPainter& painter)
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(item.rect.x(), item.rect.y() + Theme::Dp(SEPARATOR_SPACING),
            item.rect.width(), Theme::Hairline(), Theme::Color(Theme::Role::RaiseEdge));
        return;
    }
    const bool enabled = item.state & QStyle::State_Enabled;
    const bool selected = enabled && item.state & QStyle::State_Selected;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (selected) {
        const int inset = Theme::Dp(ROW_INSET);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::Color(Theme::Role::MenuRow));
        painter.drawRoundedRect(
            item.rect.adjusted(inset, 0, -inset, 0), Theme::Dp(RADIUS), Theme::Dp(RADIUS));
    }
    DrawMark(item, painter);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const int left = item.rect.right() + 1 - Theme::Dp(ARROW_RIGHT) - Theme::Dp(MARK_SIZE);
        painter.drawPixmap(MarkRect(item.rect, left),
            Theme::TintedPixmap(QStringLiteral("submenu"), MARK_SIZE,
                Theme::Color(enabled ? Theme::Role::Soft : Theme::Role::Disabled),
                painter.device()->devicePixelRatioF()));
    }
    const QRect text = item.rect.adjusted(Theme::Dp(TEXT_LEFT), 0, -Theme::Dp(RIGHT_PADDING), 0);
    const QStringList parts = item.text.split(QLatin1Char('\t'));
    const Theme::Role role = selected ? Theme::Role::MenuRowText : Theme::Role::Text;
    painter.setFont(item.font);
    painter.setPen(Theme::Color(enabled ? role : Theme::Role::Disabled));
    constexpr int FLAGS = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic;
    painter.drawText(text, FLAGS | Qt::AlignLeft, parts.value(0));
    if (enabled)
        painter.setPen(Theme::Color(selected ? Theme::Role::Text : Theme::Role::Soft));
    painter.drawText(text, FLAGS | Qt::AlignRight, parts.value(1));
    painter.restore();
}

void MenuLook::DrawTearOff(const QStyleOption& option, QPainter& painter)
{
    const bool selected = option.state & QStyle::State_Selected;
    const QColor color = Theme::Color(selected ? Theme::Role::Strong : Theme::Role::Faint);
    const int dot = Theme::Hairline();
    const int y = option.rect.center().y();
    const int end = option.rect.right() - Theme::Dp(DOTS_INSET);
    for (int x = option.rect.x() + Theme::Dp(DOTS_INSET); x <= end; x += Theme::Dp(DOT_STEP))
        painter.fillRect(x, y, dot, dot, color);
}

QSize MenuLook::ItemSize(const QStyleOptionMenuItem& item, const QSize& contents)
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return {contents.width(), Theme::Hairline() + 2 * Theme::Dp(SEPARATOR_SPACING)};
    int width = Theme::Dp(TEXT_LEFT) + contents.width() + Theme::Dp(RIGHT_PADDING);
    // The shortcuts' own column is added by the menu.
    if (item.text.contains(QLatin1Char('\t')))
        width += Theme::Dp(SHORTCUT_GAP);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
        width += Theme::Dp(MARK_SIZE);
    return {width, qMax(Theme::Dp(ROW_HEIGHT), contents.height())};
}
