#include "window/chrome/OverlayWidget.h"

#include "window/chrome/Theme.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int FADE_DURATION = 90; // ms
constexpr int GLIDE_DURATION = 80;
constexpr double FILL_ALPHA = 0.17;
constexpr double EDGE_ALPHA = 0.75;
constexpr int EDGE_WIDTH = 2; // design pixels
constexpr int RADIUS = 4;

} // namespace

OverlayWidget::OverlayWidget(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&m_glide, &QVariantAnimation::valueChanged, this,
        [this](const QVariant& value) { setGeometry(value.toRect()); });
}

void OverlayWidget::SetRect(const QRect& rectangle)
{
    if (rectangle.isEmpty()) {
        m_glide.stop();
        m_glide.setEndValue(QRect());
        hide();
        return;
    }
    // A scroll area puts its scroll bars on top again whenever it lays itself out.
    raise();
    if (!isHidden() && m_glide.endValue().toRect() == rectangle)
        return;
    if (isHidden()) {
        m_glide.setEndValue(rectangle);
        setGeometry(rectangle);
        show();
        m_fade.setStartValue(0.0);
        m_fade.setEndValue(1.0);
        Animate(m_fade, FADE_DURATION);
        return;
    }
    m_glide.stop();
    m_glide.setStartValue(geometry());
    m_glide.setEndValue(rectangle);
    Animate(m_glide, GLIDE_DURATION);
}

/// A style without animations gets the end at once.
void OverlayWidget::Animate(QVariantAnimation& animation, int duration)
{
    const bool animated
        = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    animation.setDuration(animated ? duration : 0);
    animation.start();
}

void OverlayWidget::paintEvent(QPaintEvent*)
{
    const double edge = Theme::Dp(EDGE_WIDTH);
    const double inset = edge / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_fade.currentValue().toDouble());
    painter.setPen(QPen(Theme::WithAlpha(Theme::Role::Lake, EDGE_ALPHA), edge));
    painter.setBrush(Theme::WithAlpha(Theme::Role::Lake, FILL_ALPHA));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset),
        Theme::Dp(RADIUS), Theme::Dp(RADIUS));
}
