#include "ui/workspace/FloatingTitleBar.h"

#include "ui/window/HostColors.h"
#include "ui/window/HostIcons.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>

namespace host::ui {

namespace {

constexpr int ICON = 14;
constexpr int ICON_LEFT = 13;
constexpr int TEXT_LEFT = 34;
constexpr int BUTTON = 24;

} // namespace

FloatingTitleBar::FloatingTitleBar(QWidget* window)
    : QWidget(window)
{
    setObjectName(QStringLiteral("floatingTitleBar"));
    setFixedHeight(HEIGHT);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 7, 0);
    layout->setSpacing(0);
    layout->addStretch();
    using T = FloatingTitleBar;
    m_collapseButton = AddButton(
        "collapseButton", QStringLiteral("host_minimize"), tr("Collapse"), &T::CollapseClicked);
    m_fillButton = AddButton(
        "maximizeButton", QStringLiteral("host_maximize"), tr("Maximize"), &T::FillClicked);
    m_closeButton
        = AddButton("closeButton", QStringLiteral("host_close"), tr("Close"), &T::CloseClicked);
}

QToolButton* FloatingTitleBar::AddButton(
    const char* name, const QString& icon, const QString& tip, void (FloatingTitleBar::*clicked)())
{
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setAutoRaise(true);
    button->setFixedSize(BUTTON, BUTTON);
    button->setIconSize({ICON, ICON});
    button->setIcon(HostIcon(icon));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this, clicked);
    layout()->addWidget(button);
    return button;
}

void FloatingTitleBar::SetCollapsed(bool collapsed)
{
    m_collapseButton->setToolTip(collapsed ? tr("Expand") : tr("Collapse"));
    m_collapseButton->setAccessibleName(m_collapseButton->toolTip());
}

void FloatingTitleBar::SetFilling(bool filling)
{
    m_fillButton->setToolTip(filling ? tr("Restore Size") : tr("Maximize"));
    m_fillButton->setAccessibleName(m_fillButton->toolTip());
}

void FloatingTitleBar::StartDrag(const QPoint& offset)
{
    m_offset = offset;
    m_drag = Drag::Moving;
    grabMouse();
}

void FloatingTitleBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), colors::CHROME);
    int left = TEXT_LEFT;
    const QIcon icon = window()->windowIcon();
    if (icon.isNull())
        left = ICON_LEFT;
    else
        icon.paint(&painter, ICON_LEFT, (HEIGHT - ICON) / 2, ICON, ICON);
    const QRect textRect(left, 0, m_collapseButton->x() - left - 8, HEIGHT);
    painter.setPen(colors::TEXT);
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
        fontMetrics().elidedText(window()->windowTitle(), Qt::ElideMiddle, textRect.width()));
}

void FloatingTitleBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_drag = Drag::Pressed;
    m_pressPosition = event->globalPos();
    m_offset = event->globalPos() - window()->pos();
    window()->raise();
}

void FloatingTitleBar::mouseMoveEvent(QMouseEvent* event)
{
    if (m_drag == Drag::None)
        return;
    const int moved = (event->globalPos() - m_pressPosition).manhattanLength();
    if (m_drag == Drag::Pressed && moved < QApplication::startDragDistance())
        return;
    m_drag = Drag::Moving;
    Q_EMIT Dragged(event->globalPos(), m_offset, false);
}

void FloatingTitleBar::mouseReleaseEvent(QMouseEvent* event)
{
    const bool wasMoving = m_drag == Drag::Moving;
    m_drag = Drag::None;
    if (mouseGrabber() == this)
        releaseMouse();
    if (wasMoving)
        Q_EMIT Dragged(event->globalPos(), m_offset, true);
}

void FloatingTitleBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_drag = Drag::None;
    if (event->button() == Qt::LeftButton)
        Q_EMIT DoubleClicked();
}

void FloatingTitleBar::contextMenuEvent(QContextMenuEvent* event)
{
    Q_EMIT MenuRequested(event->globalPos());
}

} // namespace host::ui
