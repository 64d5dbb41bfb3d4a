#include "ui/commands/layouts/ShelfButton.h"

#include <QPainter>

namespace host::ui {

namespace {

constexpr int OVERLAY_PIXELS = 9;
constexpr int OVERLAY_MARGIN = 1;

} // namespace

ShelfButton::ShelfButton(QWidget* parent)
    : QToolButton(parent)
    , m_overlayColor(palette().color(QPalette::ButtonText))
{
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
}

void ShelfButton::SetOverlay(const QString& text)
{
    m_overlay = text;
    update();
}

void ShelfButton::SetOverlayColor(const QColor& color)
{
    m_overlayColor = color;
    update();
}

void ShelfButton::checkStateSet()
{
    QToolButton::checkStateSet();
    if (switched)
        switched();
}

void ShelfButton::paintEvent(QPaintEvent* event)
{
    QToolButton::paintEvent(event);
    if (m_overlay.isEmpty())
        return;
    QPainter painter(this);
    QFont small = font();
    small.setPixelSize(OVERLAY_PIXELS);
    painter.setFont(small);
    const QRect inside = rect().adjusted(OVERLAY_MARGIN, 0, -OVERLAY_MARGIN, -OVERLAY_MARGIN);
    const QString text
        = painter.fontMetrics().elidedText(m_overlay, Qt::ElideRight, inside.width());
    const QRect box
        = painter.fontMetrics().boundingRect(inside, Qt::AlignHCenter | Qt::AlignBottom, text);
    painter.fillRect(box, QColor(0, 0, 0, 140));
    painter.setPen(m_overlayColor);
    painter.drawText(inside, Qt::AlignHCenter | Qt::AlignBottom, text);
}

void ShelfButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    QToolButton::mouseDoubleClickEvent(event);
    Q_EMIT DoubleClicked();
}

} // namespace host::ui
