// What the user does with the tab bar: mouse, keys, and what is dragged from and over it.

#include "settings/Settings.h"
#include "window/chrome/CustomTabBar.h"
#include "window/chrome/Theme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QPointer>
#include <QTimer>

namespace {

constexpr int DRAG_SCROLL_MARGIN = 24; // design pixels from the bar's edges
constexpr int DRAG_SCROLL_INTERVAL = 40; // ms between steps

} // namespace

int CustomTabBar::CloseMarkAt(const QPoint& position) const
{
    const int index = GetTabAt(position);
    const bool hit = Settings::showCloseButtonOnTabs && GetCloseRect(index).contains(position);
    return hit ? index : -1;
}

void CustomTabBar::SetHovered(const QPoint& position)
{
    const int index = GetTabAt(position);
    const bool close = CloseMarkAt(position) >= 0;
    if (m_hoveredIndex == index && m_closeHovered == close)
        return;
    m_hoveredIndex = index;
    m_closeHovered = close;
    viewport()->update();
}

void CustomTabBar::ClearHovered()
{
    m_hoveredIndex = -1;
    m_closeHovered = false;
    viewport()->update();
}

void CustomTabBar::RefreshHovered()
{
    if (viewport()->underMouse())
        SetHovered(viewport()->mapFromGlobal(QCursor::pos()));
    else
        ClearHovered();
}

void CustomTabBar::mousePressEvent(QMouseEvent* event)
{
    const int index = GetTabAt(event->pos());
    m_pressedIndex = m_pressedCloseIndex = m_middlePressedIndex = -1;
    m_pressedEmptyZone = event->button() == Qt::LeftButton && index < 0;
    if (event->button() == Qt::MiddleButton) {
        m_middlePressedIndex = index;
        return;
    }
    if (event->button() != Qt::LeftButton || index < 0) {
        event->ignore();
        return;
    }
    m_pressedCloseIndex = CloseMarkAt(event->pos());
    if (m_pressedCloseIndex >= 0) {
        viewport()->update();
        return;
    }
    m_pressedIndex = index;
    m_pressPosition = event->pos();
    SetCurrentIndex(index);
    Q_EMIT Activated();
}

void CustomTabBar::mouseMoveEvent(QMouseEvent* event)
{
    SetHovered(event->pos());
    const bool dragging = (event->buttons() & Qt::LeftButton) && IsValid(m_pressedIndex)
        && (event->pos() - m_pressPosition).manhattanLength() >= QApplication::startDragDistance();
    if (dragging && m_groupId >= 0)
        StartDrag(m_pressedIndex);
}

void CustomTabBar::mouseReleaseEvent(QMouseEvent* event)
{
    const int closed = CloseMarkAt(event->pos());
    const bool byCross
        = event->button() == Qt::LeftButton && closed >= 0 && closed == m_pressedCloseIndex;
    const int index = GetTabAt(event->pos());
    const bool byMiddle
        = event->button() == Qt::MiddleButton && index >= 0 && index == m_middlePressedIndex;
    m_pressedIndex = m_pressedCloseIndex = m_middlePressedIndex = -1;
    viewport()->update();
    if (byCross || byMiddle)
        Q_EMIT CloseRequested(index);
}

void CustomTabBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The first click may have closed the tab that was here.
    const bool twiceEmpty = m_pressedEmptyZone && GetTabAt(event->pos()) < 0;
    if (event->button() == Qt::LeftButton && twiceEmpty)
        Q_EMIT NewTabRequested();
    else
        mousePressEvent(event);
}

void CustomTabBar::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const int index = byKey ? m_currentIndex : GetTabAt(event->pos());
    const QPoint below = viewport()->mapToGlobal(GetTabRect(index).bottomLeft());
    if (index >= 0)
        ShowContextMenu(index, byKey ? below : event->globalPos());
    else
        Q_EMIT EmptyZoneContextMenuSelected(event->globalPos());
}

void CustomTabBar::ShowContextMenu(int, const QPoint&) { }

// Whether and how the wheel acts is the business of derived bars.
void CustomTabBar::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

void CustomTabBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left: SetCurrentIndex(m_currentIndex - 1); break;
    case Qt::Key_Right: SetCurrentIndex(m_currentIndex + 1); break;
    case Qt::Key_Home: SetCurrentIndex(0); break;
    case Qt::Key_End: SetCurrentIndex(m_tabs.size() - 1); break;
    case Qt::Key_Return:
    case Qt::Key_Space:
    case Qt::Key_Escape: Q_EMIT Activated(); break;
    case Qt::Key_F2:
        if (IsValid(m_currentIndex))
            Q_EMIT RenameRequested(m_currentIndex);
        break;
    default: event->ignore();
    }
}

void CustomTabBar::focusInEvent(QFocusEvent* event)
{
    m_focusByKey = event->reason() == Qt::TabFocusReason
        || event->reason() == Qt::BacktabFocusReason || event->reason() == Qt::ShortcutFocusReason;
    viewport()->update();
    QAbstractScrollArea::focusInEvent(event);
}

void CustomTabBar::focusOutEvent(QFocusEvent* event)
{
    viewport()->update();
    QAbstractScrollArea::focusOutEvent(event);
}

void CustomTabBar::StartDrag(int index)
{
    const QPixmap picture = DragPicture(index);
    auto* const drag = new QDrag(this);
    drag->setMimeData(new TabDragData({m_groupId, index}));
    drag->setPixmap(picture);
    drag->setHotSpot({picture.width() / 2, picture.height() / 2});
    m_pressedIndex = -1;
    m_draggedIndex = index;
    viewport()->update();
    // The window, and the bar with it, may be closed while the drag lasts.
    const QPointer<CustomTabBar> alive(this);
    drag->exec(Qt::MoveAction);
    if (!alive)
        return;
    m_draggedIndex = -1;
    RefreshHovered();
    viewport()->update();
}

bool CustomTabBar::IsTakingDrag(const QMimeData* payload) const
{
    const auto tab = TabDragData::Read(payload);
    if (!tab)
        return !TabDragData::LocalFiles(payload).isEmpty();
    return TabExists(*tab) && (tab->groupId != m_groupId || !Settings::lockTabPositions);
}

int CustomTabBar::InsertionIndexAt(int x) const
{
    int index = 0;
    while (index < m_tabs.size() && x >= GetTabRect(index).center().x())
        ++index;
    return index;
}

void CustomTabBar::SetInsertionIndex(int index)
{
    if (m_insertionIndex == index)
        return;
    m_insertionIndex = index;
    viewport()->update();
}

void CustomTabBar::UpdateDragScroll(int x)
{
    const int margin = Theme::Dp(DRAG_SCROLL_MARGIN);
    m_dragX = x;
    m_dragScrollDirection = x < margin ? -1 : x >= viewport()->width() - margin ? 1 : 0;
    if (m_dragScrollDirection == 0 || !CanScroll(m_dragScrollDirection))
        m_dragScrollTimer->stop();
    else if (!m_dragScrollTimer->isActive())
        m_dragScrollTimer->start(DRAG_SCROLL_INTERVAL);
}

void CustomTabBar::ScrollWhileDragging()
{
    ScrollBy(m_dragScrollDirection);
    SetInsertionIndex(InsertionIndexAt(m_dragX));
    UpdateDragScroll(m_dragX);
}

void CustomTabBar::EndDragOver()
{
    m_dragScrollTimer->stop();
    SetInsertionIndex(-1);
}

void CustomTabBar::dragEnterEvent(QDragEnterEvent* event)
{
    // A drag that is not taken stays with the bar all the same: whatever is behind it is hidden.
    dragMoveEvent(event);
}

void CustomTabBar::dragMoveEvent(QDragMoveEvent* event)
{
    if (!IsTakingDrag(event->mimeData())) {
        EndDragOver();
        event->ignore();
        return;
    }
    SetInsertionIndex(InsertionIndexAt(event->pos().x()));
    UpdateDragScroll(event->pos().x());
    event->acceptProposedAction();
}

void CustomTabBar::dragLeaveEvent(QDragLeaveEvent*)
{
    EndDragOver();
}

void CustomTabBar::dropEvent(QDropEvent* event)
{
    EndDragOver();
    if (!IsTakingDrag(event->mimeData())) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    const int place = InsertionIndexAt(event->pos().x());
    const auto tab = TabDragData::Read(event->mimeData());
    if (!tab) {
        // A file manager that moves files would take them away.
        event->setDropAction(Qt::CopyAction);
        Q_EMIT OpenFilesRequested(place, TabDragData::LocalFiles(event->mimeData()));
        return;
    }
    // Taken out of this bar, a tab leaves its place to those behind it.
    const bool forward = tab->groupId == m_groupId && tab->index < place;
    const int target = forward ? place - 1 : place;
    if (tab->groupId != m_groupId || tab->index != target)
        Q_EMIT MoveRequested(tab->groupId, tab->index, target);
}
