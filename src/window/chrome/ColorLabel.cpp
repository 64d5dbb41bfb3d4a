#include "window/chrome/ColorLabel.h"

#include "window/chrome/Theme.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

// Design pixels.
constexpr int WIDTH = 86;
constexpr int HEIGHT = 22;
constexpr int RADIUS = 4;

} // namespace

ColorLabel::ColorLabel(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
}

void ColorLabel::SetColor(const QColor& color)
{
    m_color = color;
    // For those who cannot see it.
    const QString text = color.isValid() ? color.name() : tr("none");
    setAccessibleDescription(text);
    setToolTip(text);
    update();
}

QSize ColorLabel::sizeHint() const
{
    return {Theme::Dp(WIDTH), Theme::Dp(HEIGHT)};
}

void ColorLabel::paintEvent(QPaintEvent*)
{
    using R = Theme::Role;
    const double hairline = Theme::Hairline();
    const R edge = hasFocus() ? R::Lake : underMouse() ? R::FieldHoverEdge : R::FieldEdge;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::Color(isEnabled() ? edge : R::DisabledEdge), hairline));
    painter.setBrush(m_color.isValid() ? m_color : Theme::Color(R::Field));
    const double half = hairline / 2;
    painter.drawRoundedRect(
        QRectF(rect()).adjusted(half, half, -half, -half), Theme::Dp(RADIUS), Theme::Dp(RADIUS));
    if (m_color.isValid())
        return;
    painter.setPen(Theme::Color(R::Faint));
    painter.drawText(rect(), Qt::AlignCenter, tr("none"));
}

void ColorLabel::mousePressEvent(QMouseEvent* event)
{
    m_isPressed = event->button() == Qt::LeftButton;
}

void ColorLabel::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isClick = m_isPressed && rect().contains(event->pos());
    m_isPressed = false;
    if (isClick)
        Q_EMIT Clicked();
}

void ColorLabel::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: Q_EMIT Clicked(); break;
    default: QWidget::keyPressEvent(event);
    }
}

void ColorLabel::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void ColorLabel::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}
