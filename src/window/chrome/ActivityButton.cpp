#include "window/chrome/ActivityButton.h"

#include "window/chrome/Theme.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

namespace {

// Design pixels.
constexpr int WIDTH = 44;
constexpr int HEIGHT = 42;
constexpr int ICON_SIZE = 22;
constexpr int WATERLINE = 2;
constexpr int WATERLINE_INSET = 10;
constexpr int COUNT_HEIGHT = 14;
constexpr int COUNT_PADDING = 4;

constexpr int LARGEST_COUNT = 99;

} // namespace

ActivityButton::ActivityButton(const QString& icon, const QString& label, QWidget* parent)
    : QAbstractButton(parent)
    , m_icon(icon)
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(label);
    setToolTip(label);
}

void ActivityButton::SetCount(int count)
{
    m_count = qMax(0, count);
    setAccessibleDescription(m_count > 0 ? tr("%1 results").arg(m_count) : QString());
    update();
}

void ActivityButton::SetWaterlineLeft(bool left)
{
    m_waterlineLeft = left;
    update();
}

QSize ActivityButton::sizeHint() const
{
    return {Theme::Dp(WIDTH), Theme::Dp(HEIGHT)};
}

QColor ActivityButton::IconColor() const
{
    if (isChecked())
        return Theme::Color(Theme::Role::Strong);
    return Theme::Color(isDown() || underMouse() ? Theme::Role::Text : Theme::Role::ActivityIcon);
}

void ActivityButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int extent = Theme::Dp(ICON_SIZE);
    const QRect area((width() - extent) / 2, (height() - extent) / 2, extent, extent);
    painter.drawPixmap(
        area, Theme::TintedPixmap(m_icon, ICON_SIZE, IconColor(), devicePixelRatioF()));
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked())
        PaintWaterline(painter);
    if (m_count > 0)
        PaintCount(painter);
    if (hasFocus() && m_focusByKey)
        Theme::DrawFocusEdge(painter, rect(), 0);
}

void ActivityButton::PaintWaterline(QPainter& painter) const
{
    const int inset = Theme::Dp(WATERLINE_INSET);
    const int thickness = Theme::Dp(WATERLINE);
    // Half of it lies outside, so that only the inner ends are round.
    const QRectF line(m_waterlineLeft ? -thickness : width() - thickness, inset, 2 * thickness,
        height() - 2 * inset);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::Color(Theme::Role::Lake));
    painter.drawRoundedRect(line, thickness / 2.0, thickness / 2.0);
}

void ActivityButton::PaintCount(QPainter& painter) const
{
    const QString text = m_count > LARGEST_COUNT ? QStringLiteral("%1+").arg(LARGEST_COUNT)
                                                 : QString::number(m_count);
    painter.setFont(Theme::SmallFont(font()));
    const int height = Theme::Dp(COUNT_HEIGHT);
    const int width = qMax(
        height, painter.fontMetrics().horizontalAdvance(text) + Theme::Dp(COUNT_PADDING) * 2);
    const QRect area(this->width() / 2, this->height() / 2, qMin(width, this->width() / 2), height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::Color(Theme::Role::DefaultButton));
    painter.drawRoundedRect(area, height / 2.0, height / 2.0);
    painter.setPen(Theme::Color(Theme::Role::White));
    painter.drawText(area, Qt::AlignCenter, text);
}

void ActivityButton::enterEvent(QEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void ActivityButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void ActivityButton::focusInEvent(QFocusEvent* event)
{
    // The arrow keys, too, move the focus with another reason than the mouse.
    m_focusByKey
        = event->reason() != Qt::MouseFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
    QAbstractButton::focusInEvent(event);
}

/// The bar moves the focus between its entries.
void ActivityButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        event->ignore();
    else
        QAbstractButton::keyPressEvent(event);
}
