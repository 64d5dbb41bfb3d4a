// What the tab bar looks like.

#include "settings/Settings.h"
#include "window/chrome/CustomTabBar.h"
#include "window/chrome/CustomTabBarMetrics.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

// Design pixels.
constexpr int DOT_SIZE = 7;
constexpr int MARK_RADIUS = 4;
constexpr int WATERLINE = 2;
constexpr int WATERLINE_MARGIN = 3;
constexpr int INSERTION_LINE = 2;
constexpr int PICTURE_HEIGHT = 26;
constexpr int PICTURE_RADIUS = 4;

constexpr double DRAGGED_OPACITY = 0.55;
constexpr double PICTURE_OPACITY = 0.92;

/// The left edge of something `height` high in the middle of `area`, at the left padding.
QRect IconRect(const QRect& area)
{
    const int extent = Theme::Dp(TabMetrics::ICON_SIZE);
    return {area.left() + Theme::Dp(TabMetrics::PADDING_LEFT),
        area.top() + (area.height() - extent) / 2, extent, extent};
}

} // namespace

void CustomTabBar::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), Theme::Color(Theme::Role::Panel));
    for (int i = 0; i < m_tabs.size(); ++i) {
        if (GetTabRect(i).intersects(event->rect()))
            PaintTab(painter, i);
    }
    if (m_insertionIndex >= 0)
        PaintInsertionLine(painter);
}

void CustomTabBar::PaintTab(QPainter& painter, int index) const
{
    const QRect area = GetTabRect(index);
    const bool current = index == m_currentIndex;
    painter.setOpacity(index == m_draggedIndex ? DRAGGED_OPACITY : 1.0);
    if (current)
        painter.fillRect(area, Theme::Color(Theme::Role::Canvas));
    else if (index == m_hoveredIndex)
        painter.fillRect(area, Theme::Color(Theme::Role::TabHover));
    painter.fillRect(
        QRect(area.right() + 1 - Theme::Hairline(), area.top(), Theme::Hairline(), area.height()),
        Theme::Color(Theme::Role::TabSeparator));
    PaintLabel(painter, index);
    PaintMark(painter, index);
    if (current && hasFocus() && m_focusByKey) {
        const double inset = Theme::Hairline() / 2.0;
        painter.setPen(QPen(Theme::Color(Theme::Role::Lake), Theme::Hairline()));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(area).adjusted(inset, inset, -inset, -inset));
    }
    painter.setOpacity(1.0);
}

void CustomTabBar::PaintLabel(QPainter& painter, int index) const
{
    const Tab& tab = m_tabs[index];
    const QRect area = GetTabRect(index);
    const bool current = index == m_currentIndex;
    const QRect icon = IconRect(area);
    painter.drawPixmap(
        icon, Theme::Pixmap(tab.iconName, TabMetrics::ICON_SIZE, devicePixelRatioF()));

    const QRect label
        = area.adjusted(TabMetrics::LabelLeft(), 0, -TabMetrics::LabelRightMargin(), 0);
    const QString text = fontMetrics().elidedText(tab.text, Qt::ElideMiddle, label.width());
    painter.setPen(Theme::Color(current ? Theme::Role::Strong : Theme::Role::Soft));
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft, text);
    if (!current)
        return;
    const int width = label.left() - icon.left() + fontMetrics().horizontalAdvance(text);
    PaintWaterline(painter, {icon.topLeft(), QSize(width, area.height())});
}

void CustomTabBar::PaintMark(QPainter& painter, int index) const
{
    const Tab& tab = m_tabs[index];
    const QRect box = GetCloseRect(index);
    const bool hovered = index == m_hoveredIndex;
    const bool cross = Settings::showCloseButtonOnTabs
        && (hovered || (index == m_currentIndex && !tab.modified));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (cross) {
        const bool pointed = hovered && m_closeHovered;
        const bool pressed = pointed && m_pressedCloseIndex == index;
        if (pointed) {
            painter.setBrush(Theme::Color(pressed ? Theme::Role::Pressed : Theme::Role::ToolHover));
            painter.drawRoundedRect(box, Theme::Dp(MARK_RADIUS), Theme::Dp(MARK_RADIUS));
        }
        const int extent = Theme::Dp(TabMetrics::ICON_SIZE);
        const QRect icon(box.left() + (box.width() - extent) / 2,
            box.top() + (box.height() - extent) / 2, extent, extent);
        painter.drawPixmap(icon,
            Theme::TintedPixmap(QStringLiteral("close"), TabMetrics::ICON_SIZE,
                Theme::Color(pointed ? Theme::Role::Strong : Theme::Role::Icon),
                devicePixelRatioF()));
    } else if (tab.modified) {
        const double radius = Theme::Dp(DOT_SIZE) / 2.0;
        painter.setBrush(Theme::Color(Theme::Role::Text));
        painter.drawEllipse(QRectF(box).center(), radius, radius);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void CustomTabBar::PaintWaterline(QPainter& painter, const QRect& label) const
{
    const int height = Theme::Dp(WATERLINE);
    const QRectF line(label.left(), viewport()->height() - Theme::Dp(WATERLINE_MARGIN) - height,
        label.width(), height);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::Color(m_active ? Theme::Role::Lake : Theme::Role::IdleWaterline));
    painter.drawRoundedRect(line, height / 2.0, height / 2.0);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void CustomTabBar::PaintInsertionLine(QPainter& painter) const
{
    const int width = Theme::Dp(INSERTION_LINE);
    int x = 0;
    if (IsValid(m_insertionIndex))
        x = GetTabRect(m_insertionIndex).left();
    else if (!m_tabs.isEmpty())
        x = GetTabRect(m_tabs.size() - 1).right() + 1;
    // Whole at both ends of the bar, too.
    x = qBound(0, x - width / 2, viewport()->width() - width);
    painter.fillRect(QRect(x, 0, width, viewport()->height()), Theme::Color(Theme::Role::Lake));
}

QPixmap CustomTabBar::DragPicture(int index) const
{
    const Tab& tab = m_tabs[index];
    const int labelWidth = tab.width - TabMetrics::LabelLeft() - TabMetrics::LabelRightMargin();
    const QString text = fontMetrics().elidedText(tab.text, Qt::ElideMiddle, labelWidth);
    const QSize size(TabMetrics::LabelLeft() + fontMetrics().horizontalAdvance(text)
            + Theme::Dp(TabMetrics::PADDING_LEFT),
        Theme::Dp(PICTURE_HEIGHT));
    QPixmap picture(size * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);

    QPainter painter(&picture);
    painter.setOpacity(PICTURE_OPACITY);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font());
    const QRect area(QPoint(0, 0), size);
    const double inset = Theme::Hairline() / 2.0;
    painter.setPen(QPen(Theme::Color(Theme::Role::RaiseEdge), Theme::Hairline()));
    painter.setBrush(Theme::Color(Theme::Role::Raise));
    painter.drawRoundedRect(QRectF(area).adjusted(inset, inset, -inset, -inset),
        Theme::Dp(PICTURE_RADIUS), Theme::Dp(PICTURE_RADIUS));
    painter.drawPixmap(
        IconRect(area), Theme::Pixmap(tab.iconName, TabMetrics::ICON_SIZE, devicePixelRatioF()));
    painter.setPen(Theme::Color(Theme::Role::Strong));
    painter.drawText(
        area.adjusted(TabMetrics::LabelLeft(), 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, text);
    return picture;
}
