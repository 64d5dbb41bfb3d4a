#include "window/chrome/FocusHalo.h"

#include "window/chrome/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QVariant>

namespace {

// Design pixels.
constexpr int THICKNESS = 1;
constexpr int RADIUS = 4; ///< of the field

constexpr double ALPHA = 0.45;

} // namespace

FocusHalo::FocusHalo(QWidget* field)
    : QWidget(field->parentWidget())
    , m_field(field)
{
    setObjectName(QStringLiteral("focusHalo"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    field->installEventFilter(this);
    connect(field, &QObject::destroyed, this, &QObject::deleteLater);
    Place();
}

void FocusHalo::Place()
{
    const int thickness = Theme::Dp(THICKNESS);
    setGeometry(m_field->geometry().adjusted(-thickness, -thickness, thickness, thickness));
    setVisible(!m_field->isHidden());
    raise();
}

bool FocusHalo::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide: Place(); break;
    case QEvent::DynamicPropertyChange: update(); break;
    default: break;
    }
    return false;
}

void FocusHalo::paintEvent(QPaintEvent*)
{
    if (!m_field)
        return;
    const double thickness = Theme::Dp(THICKNESS);
    const double half = thickness / 2;
    const bool invalid = m_field->property("invalid").toBool();
    const Theme::Role role = invalid ? Theme::Role::NoResults : Theme::Role::Lake;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::WithAlpha(role, ALPHA), thickness));
    const double radius = Theme::Dp(RADIUS) + half;
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), radius, radius);
}
