#include "window/chrome/OverlayGhost.h"

#include "window/chrome/Theme.h"

#include <QPainter>

OverlayGhost::OverlayGhost(const QRect& area, const QPixmap& overlay, const QPixmap& behind,
    Motion motion, QWidget* parent)
    : QWidget(parent)
    , m_overlay(overlay)
    , m_behind(behind)
    , m_slide(motion.slide)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(area);
    const bool comes = !behind.isNull();
    m_presence.setStartValue(comes ? 0.0 : 1.0);
    m_presence.setEndValue(comes ? 1.0 : 0.0);
    m_presence.setEasingCurve(QEasingCurve::OutCubic);
    m_presence.setDuration(motion.duration);
    connect(&m_presence, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&m_presence, &QVariantAnimation::finished, this, [this] {
        hide();
        deleteLater();
    });
    raise();
    show();
    m_presence.start();
}

void OverlayGhost::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_behind.isNull())
        painter.drawPixmap(0, 0, m_behind);
    const double presence = m_presence.currentValue().toDouble();
    painter.setOpacity(presence);
    const int slide = m_slide > 0 ? Theme::Dp(m_slide) : 0;
    painter.drawPixmap(QPointF(0.0, -(1.0 - presence) * slide), m_overlay);
}
