#include "window/chrome/OverlayFrame.h"

#include "window/chrome/OverlayShadow.h"
#include "window/chrome/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int RADIUS = 6; // design pixels

} // namespace

OverlayFrame::OverlayFrame(QWidget* parent)
    : QWidget(parent)
    , m_shadow(parent ? new OverlayShadow(parent) : nullptr)
{
    // The texts in it are no part of a document that it floats over.
    setBackgroundRole(QPalette::Window);
    hide();
}

OverlayFrame::~OverlayFrame()
{
    delete m_ghost;
    delete m_shadow;
}

bool OverlayFrame::IsAnimated() const
{
    return parentWidget() && parentWidget()->isVisible()
        && style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
}

/// The frame with its shadow.
QPixmap OverlayFrame::Picture()
{
    QPixmap picture = OverlayShadow::Picture(size(), devicePixelRatioF());
    QPainter painter(&picture);
    const QPoint corner = pos() - OverlayShadow::Around(geometry()).topLeft();
    render(&painter, corner, QRegion(), DrawChildren);
    return picture;
}

void OverlayFrame::Appear()
{
    if (!isHidden()) {
        raise();
        return;
    }
    delete m_ghost;
    const QRect area = OverlayShadow::Around(geometry());
    const QPixmap behind = IsAnimated() ? parentWidget()->grab(area) : QPixmap();
    show();
    raise();
    if (!behind.isNull())
        m_ghost = new OverlayGhost(area, Picture(), behind, m_motion, parentWidget());
}

void OverlayFrame::Disappear()
{
    if (isHidden())
        return;
    delete m_ghost;
    const QPixmap picture = IsAnimated() ? Picture() : QPixmap();
    hide();
    if (!picture.isNull())
        m_ghost = new OverlayGhost(
            OverlayShadow::Around(geometry()), picture, QPixmap(), m_motion, parentWidget());
}

void OverlayFrame::paintEvent(QPaintEvent*)
{
    const double hairline = Theme::Hairline();
    const double half = hairline / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::Color(Theme::Role::RaiseEdge), hairline));
    painter.setBrush(Theme::Color(Theme::Role::Raise));
    const double radius = Theme::Dp(RADIUS) - half;
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), radius, radius);
}

void OverlayFrame::PlaceShadow()
{
    if (m_shadow)
        m_shadow->Place(*this);
}

void OverlayFrame::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    PlaceShadow();
}

void OverlayFrame::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    PlaceShadow();
}

void OverlayFrame::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    PlaceShadow();
}

void OverlayFrame::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    PlaceShadow();
}

bool OverlayFrame::event(QEvent* event)
{
    // Raising is announced to the widget itself.
    if (event->type() == QEvent::ZOrderChange && !isHidden())
        PlaceShadow();
    return QWidget::event(event);
}
