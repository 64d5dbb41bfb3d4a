#include "ui/workspace/DockTabBar.h"

#include "ui/window/HostColors.h"
#include "ui/window/HostIcons.h"
#include "ui/workspace/WorkspacePanel.h"

#include <QContextMenuEvent>
#include <QPainter>
#include <QPainterPath>

namespace host::ui {

namespace {

constexpr int GAP = 2; ///< between two tabs
constexpr int TOP = 3;
constexpr int PADDING = 10;
constexpr int ICON = 14;
constexpr int ICON_GAP = 7;
constexpr int CLOSE_BOX = 20;
constexpr int CLOSE_GAP = 4;
constexpr int MAXIMUM_TEXT_WIDTH = 260;
/// How far outside of the strip a tab is taken out of it.
constexpr int DRAG_OUT_DISTANCE = 16;
constexpr int RADIUS = 4;

} // namespace

DockTabBar::DockTabBar(QWidget* parent)
    : QTabBar(parent)
{
    setObjectName(QStringLiteral("dockTabBar"));
    setAccessibleName(tr("Panels"));
    setDrawBase(false);
    setExpanding(false);
    setMovable(true);
    setMouseTracking(true);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideRight);
    setFixedHeight(HEIGHT);
}

WorkspacePanel* DockTabBar::PanelAt(int index) const
{
    return tabData(index).value<WorkspacePanel*>();
}

QSize DockTabBar::tabSizeHint(int index) const
{
    const WorkspacePanel* panel = PanelAt(index);
    const int text = qMin(fontMetrics().horizontalAdvance(tabText(index)), MAXIMUM_TEXT_WIDTH);
    int width = GAP + PADDING + text + PADDING;
    if (!tabIcon(index).isNull())
        width += ICON + ICON_GAP;
    if (panel && !panel->IsFixed())
        width += CLOSE_GAP + CLOSE_BOX - PADDING / 2;
    return {width, HEIGHT};
}

QSize DockTabBar::minimumTabSizeHint(int index) const
{
    return {qMin(tabSizeHint(index).width(), 80), HEIGHT};
}

QRect DockTabBar::CloseRect(int index) const
{
    const WorkspacePanel* panel = PanelAt(index);
    if (!panel || panel->IsFixed())
        return {};
    const QRect tab = tabRect(index);
    return {tab.right() - CLOSE_BOX - 2, tab.top() + TOP + 1, CLOSE_BOX, CLOSE_BOX};
}

int DockTabBar::CloseIndexAt(const QPoint& position) const
{
    const int index = tabAt(position);
    return index >= 0 && CloseRect(index).contains(position) ? index : -1;
}

void DockTabBar::PaintTab(QPainter& painter, int index) const
{
    const WorkspacePanel* panel = PanelAt(index);
    if (!panel)
        return;
    const bool current = index == currentIndex();
    const bool hovered = index == m_hovered;
    const QRect tab = tabRect(index).adjusted(GAP, TOP, 0, 0);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(tab.adjusted(0, 0, 0, RADIUS)), RADIUS, RADIUS);
    painter.setClipRect(tab);
    painter.fillPath(shape,
        current       ? panel->TabColor()
            : hovered ? colors::SHELF
                      : colors::DOCK_TAB);
    if (current && m_keyboardFocus) {
        painter.setPen(colors::LAKE);
        painter.drawPath(shape);
    }
    painter.setClipping(false);
    int left = tab.left() + PADDING;
    const int middle = tab.center().y() + 1;
    if (!tabIcon(index).isNull()) {
        painter.setOpacity(current ? 1 : 0.7);
        tabIcon(index).paint(&painter, left, middle - ICON / 2, ICON, ICON);
        painter.setOpacity(1);
        left += ICON + ICON_GAP;
    }
    const QRect close = CloseRect(index);
    const int right = close.isValid() ? close.left() - 2 : tab.right() - PADDING + 2;
    painter.setPen(current ? colors::TEXT_STRONG : hovered ? colors::TEXT : colors::TEXT_SOFT);
    const QRect textRect(left, tab.top(), right - left, tab.height());
    painter.drawText(textRect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
        fontMetrics().elidedText(tabText(index), Qt::ElideRight, textRect.width()));
    if (close.isValid() && (current || hovered)) {
        if (close.contains(mapFromGlobal(QCursor::pos())) && hovered) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colors::BUTTON);
            painter.drawRoundedRect(close, RADIUS, RADIUS);
        }
        HostIcon(QStringLiteral("host_close")).paint(&painter, close.adjusted(4, 4, -4, -4));
    }
}

void DockTabBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < count(); ++i)
        PaintTab(painter, i);
}

void DockTabBar::mousePressEvent(QMouseEvent* event)
{
    m_pressedClose = event->button() == Qt::LeftButton ? CloseIndexAt(event->pos()) : -1;
    m_dragging
        = event->button() == Qt::LeftButton && m_pressedClose < 0 && tabAt(event->pos()) >= 0;
    if (m_pressedClose < 0)
        QTabBar::mousePressEvent(event);
}

void DockTabBar::mouseMoveEvent(QMouseEvent* event)
{
    m_hovered = tabAt(event->pos());
    update();
    if (m_pressedClose >= 0)
        return;
    const bool outside
        = event->pos().y() < -DRAG_OUT_DISTANCE || event->pos().y() > height() + DRAG_OUT_DISTANCE;
    WorkspacePanel* panel = PanelAt(currentIndex());
    if (m_dragging && outside && panel && !panel->IsFixed()) {
        m_dragging = false;
        // The base class would go on moving the tab that is about to leave.
        QMouseEvent release(QEvent::MouseButtonRelease, event->localPos(), Qt::LeftButton,
            Qt::NoButton, event->modifiers());
        QTabBar::mouseReleaseEvent(&release);
        Q_EMIT DraggedOut(panel, event->globalPos());
        return;
    }
    QTabBar::mouseMoveEvent(event);
}

void DockTabBar::mouseReleaseEvent(QMouseEvent* event)
{
    m_dragging = false;
    const int pressed = m_pressedClose;
    m_pressedClose = -1;
    if (pressed >= 0) {
        if (CloseIndexAt(event->pos()) == pressed)
            Q_EMIT CloseRequested(PanelAt(pressed));
        return;
    }
    if (event->button() == Qt::MiddleButton && tabAt(event->pos()) >= 0) {
        WorkspacePanel* panel = PanelAt(tabAt(event->pos()));
        if (panel && !panel->IsFixed())
            Q_EMIT CloseRequested(panel);
        return;
    }
    QTabBar::mouseReleaseEvent(event);
}

void DockTabBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    WorkspacePanel* panel = PanelAt(tabAt(event->pos()));
    if (event->button() == Qt::LeftButton && panel && CloseIndexAt(event->pos()) < 0)
        Q_EMIT DoubleClicked(panel);
}

void DockTabBar::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKeys = event->reason() == QContextMenuEvent::Keyboard;
    const int index = byKeys ? currentIndex() : tabAt(event->pos());
    WorkspacePanel* panel = PanelAt(index);
    if (!panel)
        return;
    const QPoint place = byKeys ? mapToGlobal(tabRect(index).bottomLeft()) : event->globalPos();
    Q_EMIT MenuRequested(panel, place);
}

void DockTabBar::focusInEvent(QFocusEvent* event)
{
    m_keyboardFocus = event->reason() == Qt::TabFocusReason
        || event->reason() == Qt::BacktabFocusReason || event->reason() == Qt::ShortcutFocusReason;
    QTabBar::focusInEvent(event);
}

void DockTabBar::focusOutEvent(QFocusEvent* event)
{
    m_keyboardFocus = false;
    QTabBar::focusOutEvent(event);
}

void DockTabBar::leaveEvent(QEvent* event)
{
    m_hovered = -1;
    update();
    QTabBar::leaveEvent(event);
}

} // namespace host::ui
