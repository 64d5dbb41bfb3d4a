#include "window/chrome/OverlayShadow.h"

#include "window/chrome/Theme.h"

#include <QPainter>

#include <cmath>

namespace {

// Design pixels.
constexpr int REACH = 10;
constexpr int DROP = 3; ///< lower than its caster
constexpr double SOFTNESS = 5.0; ///< standard deviation of the blur
constexpr int RADIUS = 6;
constexpr double DARKNESS = 0.4;

/// How dark a blurred edge is at a distance from it, negative inside.
double Darkness(double distance)
{
    const double deviations = distance / Theme::Dp(SOFTNESS);
    return DARKNESS * 0.5 * std::erfc(deviations / std::sqrt(2.0));
}

/// One ring per pixel of distance.
void PaintRings(QPainter& painter, const QRectF& edge)
{
    painter.setBrush(Qt::NoBrush);
    for (int i = -Theme::Dp(DROP) - 1; i < Theme::Dp(REACH); ++i) {
        const double distance = i + 0.5;
        painter.setPen(QPen(QColor::fromRgbF(0.0, 0.0, 0.0, Darkness(distance)), 1.0));
        const double radius = qMax(1.0, Theme::Dp(RADIUS) + distance);
        painter.drawRoundedRect(
            edge.adjusted(-distance, -distance, distance, distance), radius, radius);
    }
}

} // namespace

OverlayShadow::OverlayShadow(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

QRect OverlayShadow::Around(const QRect& caster)
{
    const int reach = Theme::Dp(REACH);
    return caster.translated(0, Theme::Dp(DROP)).adjusted(-reach, -reach, reach, reach);
}

QPixmap OverlayShadow::Picture(const QSize& caster, qreal ratio)
{
    const QRect around = Around(QRect(QPoint(), caster));
    QPixmap picture(around.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-around.topLeft());
    PaintRings(painter, QRect(QPoint(0, Theme::Dp(DROP)), caster));
    return picture;
}

void OverlayShadow::Place(QWidget& caster)
{
    if (m_caster != caster.size()) {
        m_caster = caster.size();
        m_picture = QPixmap();
    }
    setGeometry(Around(caster.geometry()));
    stackUnder(&caster);
    setVisible(!caster.isHidden());
}

void OverlayShadow::paintEvent(QPaintEvent*)
{
    if (m_picture.isNull() || !qFuzzyCompare(m_picture.devicePixelRatio(), devicePixelRatioF()))
        m_picture = Picture(m_caster, devicePixelRatioF());
    QPainter(this).drawPixmap(0, 0, m_picture);
}
