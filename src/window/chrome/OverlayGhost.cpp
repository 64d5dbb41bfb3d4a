#include "window/chrome/OverlayGhost.h"

#include "window/chrome/Theme.h"

#include <QPainter>

namespace {

constexpr int DURATION = 100; // ms
constexpr int SLIDE = 8; // design pixels

} // namespace

OverlayGhost::OverlayGhost(
    const QRect& area, const QPixmap& overlay, const QPixmap& behind, QWidget* parent)
    : QWidget(parent)
    , m_overlay(overlay)
    , m_behind(behind)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(area);
    const bool comes = !behind.isNull();
    m_presence.setStartValue(comes ? 0.0 : 1.0);
    m_presence.setEndValue(comes ? 1.0 : 0.0);
    m_presence.setEasingCurve(QEasingCurve::OutCubic);
    m_presence.setDuration(DURATION);
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
    painter.drawPixmap(QPointF(0.0, -(1.0 - presence) * Theme::Dp(SLIDE)), m_overlay);
}
