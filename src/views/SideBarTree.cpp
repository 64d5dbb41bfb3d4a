#include "views/SideBarTree.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>

namespace {

int CountRows(const QTreeWidgetItem& parent)
{
    int rows = 0;
    for (int i = 0; i < parent.childCount(); ++i) {
        const QTreeWidgetItem* const item = parent.child(i);
        if (!item->isHidden())
            rows += 1 + (item->isExpanded() ? CountRows(*item) : 0);
    }
    return rows;
}

} // namespace

SideBarTree::SideBarTree(QWidget* parent)
    : QTreeWidget(parent)
    , SideBarRows(static_cast<QTreeView&>(*this))
{
    FollowModel();
}

void SideBarTree::SetDragging(std::function<QMimeData*(const QTreeWidgetItem&)> carry)
{
    m_carry = std::move(carry);
    setDragEnabled(true);
}

void SideBarTree::startDrag(Qt::DropActions)
{
    const QTreeWidgetItem* const item = currentItem();
    QMimeData* const payload = item && m_carry ? m_carry(*item) : nullptr;
    if (!payload)
        return;
    auto* const drag = new QDrag(this);
    drag->setMimeData(payload);
    drag->setPixmap(DragPicture(item->text(0)));
    drag->exec(Qt::MoveAction);
}

int SideBarTree::GetRowsHeight() const
{
    return CountRows(*invisibleRootItem()) * RowHeight();
}

void SideBarTree::drawRow(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    DrawRow(painter, option.rect, index);
}

bool SideBarTree::event(QEvent* event)
{
    return HandleEvent(event) || QTreeWidget::event(event);
}

bool SideBarTree::viewportEvent(QEvent* event)
{
    return HandleViewportEvent(event) || QTreeWidget::viewportEvent(event);
}

void SideBarTree::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    m_pressedMark = QModelIndex();
    const bool closes = event->button() == Qt::MiddleButton
        || (event->button() == Qt::LeftButton && IsAtMark(event->pos()));
    if (index.data(ClosableRole).toBool() && closes)
        m_pressedMark = index;
    else if (!HandleArrowPress(*event))
        QTreeWidget::mousePressEvent(event);
}

void SideBarTree::mouseReleaseEvent(QMouseEvent* event)
{
    const QPersistentModelIndex pressed = m_pressedMark;
    m_pressedMark = QModelIndex();
    if (!pressed.isValid()) {
        QTreeWidget::mouseReleaseEvent(event);
        return;
    }
    if (indexAt(event->pos()) == pressed)
        Q_EMIT CloseRequested(itemFromIndex(pressed));
}

void SideBarTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!HandleArrowPress(*event))
        QTreeWidget::mouseDoubleClickEvent(event);
}

void SideBarTree::keyPressEvent(QKeyEvent* event)
{
    QTreeWidgetItem* const item = currentItem();
    const bool deletes = event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier;
    if (deletes && item && item->data(0, ClosableRole).toBool())
        Q_EMIT CloseRequested(item);
    else if (event->matches(QKeySequence::Copy) && item)
        CopyItem(*item);
    else
        QTreeWidget::keyPressEvent(event);
}

void SideBarTree::CopyItem(const QTreeWidgetItem& item) const
{
    const QString text = item.data(0, CopyRole).toString();
    QApplication::clipboard()->setText(text.isEmpty() ? item.text(0) : text);
}

void SideBarTree::focusInEvent(QFocusEvent* event)
{
    NoteFocus(*event);
    QTreeWidget::focusInEvent(event);
}

void SideBarTree::focusOutEvent(QFocusEvent* event)
{
    QTreeWidget::focusOutEvent(event);
    NoteFocus(*event);
}
