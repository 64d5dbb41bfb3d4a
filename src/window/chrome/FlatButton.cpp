#include "window/chrome/FlatButton.h"

#include "window/chrome/Theme.h"

#include <QFocusEvent>
#include <QPainter>

namespace {

// Design pixels.
constexpr int ICON_SIZE = 16;
constexpr int RADIUS = 4;

constexpr double DISABLED_ALPHA = 0.4;

} // namespace

FlatButton::FlatButton(const QString& icon, const QString& label, Tint tint, QWidget* parent)
    : QToolButton(parent)
    , m_icon(icon)
    , m_tint(tint)
{
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(label);
    setToolTip(label);
}

void FlatButton::SetToolTip(const QString& toolTip)
{
    setToolTip(toolTip);
    setAccessibleDescription(toolTip);
}

void FlatButton::SetDimmed(bool dimmed)
{
    if (m_dimmed == dimmed)
        return;
    m_dimmed = dimmed;
    update();
}

void FlatButton::SetExtent(int extent)
{
    m_extent = extent;
    updateGeometry();
}

void FlatButton::SetIcon(const QString& icon)
{
    m_icon = icon;
    update();
}

void FlatButton::SetUpsideDown(bool upsideDown)
{
    m_upsideDown = upsideDown;
    update();
}

QSize FlatButton::sizeHint() const
{
    return {Theme::Dp(m_extent), Theme::Dp(m_extent)};
}

void FlatButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintBackground(painter);
    PaintIcon(painter);
    if (hasFocus() && m_focusByKey)
        Theme::DrawFocusEdge(painter, rect(), RADIUS);
}

void FlatButton::PaintBackground(QPainter& painter) const
{
    QColor fill = Qt::transparent;
    QPen edge = Qt::NoPen;
    if (isEnabled() && isDown()) {
        fill = Theme::Color(Theme::Role::Pressed);
    } else if (isEnabled() && isChecked()) {
        fill = Theme::WithAlpha(Theme::Role::Lake, 0.2);
        edge = QPen(Theme::WithAlpha(Theme::Role::Lake, 0.55), Theme::Hairline());
    } else if (isEnabled() && underMouse()) {
        fill = Theme::Color(Theme::Role::ToolHover);
    }
    painter.setPen(edge);
    painter.setBrush(fill);
    const double half = Theme::Hairline() / 2.0;
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(half, half, -half, -half), Theme::Dp(RADIUS), Theme::Dp(RADIUS));
}

QColor FlatButton::IconColor() const
{
    if (isEnabled() && isChecked())
        return Theme::Color(Theme::Role::LakeText);
    if (m_dimmed)
        return Theme::Color(Theme::Role::IdleIcon);
    if (isEnabled() && underMouse())
        return Theme::Color(Theme::Role::Strong);
    return Theme::Color(Theme::Role::Icon);
}

void FlatButton::PaintIcon(QPainter& painter) const
{
    const int extent = Theme::Dp(ICON_SIZE);
    const QRect area((width() - extent) / 2, (height() - extent) / 2, extent, extent);
    painter.save();
    painter.setOpacity(isEnabled() ? 1.0 : DISABLED_ALPHA);
    if (m_upsideDown) {
        painter.translate(0, height());
        painter.scale(1.0, -1.0);
    }
    if (m_tint == Tint::Own && !m_dimmed)
        painter.drawPixmap(area, Theme::Pixmap(m_icon, ICON_SIZE, devicePixelRatioF()));
    else
        painter.drawPixmap(
            area, Theme::TintedPixmap(m_icon, ICON_SIZE, IconColor(), devicePixelRatioF()));
    painter.restore();
}

void FlatButton::enterEvent(QEvent* event)
{
    QToolButton::enterEvent(event);
    update();
}

void FlatButton::leaveEvent(QEvent* event)
{
    QToolButton::leaveEvent(event);
    update();
}

void FlatButton::focusInEvent(QFocusEvent* event)
{
    m_focusByKey = event->reason() == Qt::TabFocusReason
        || event->reason() == Qt::BacktabFocusReason || event->reason() == Qt::ShortcutFocusReason;
    QToolButton::focusInEvent(event);
}
