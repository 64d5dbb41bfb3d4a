#pragma once

#include "views/SideBarRows.h"

#include <QTreeWidget>

#include <functional>

/// A tree of the side bar with the rows that all of them have. Owned by its section. While it has
/// the focus, plain keys belong to it and not to the host's shortcuts.
class SideBarTree : public QTreeWidget, public SideBarRows
{
    Q_OBJECT

public:
    explicit SideBarTree(QWidget* parent);

    /// The height of all rows that can be scrolled to, in pixels.
    int GetRowsHeight() const;
    /// Lets rows be dragged. `carry` makes what a row carries, which the drag owns; null for a row
    /// that stays.
    void SetDragging(std::function<QMimeData*(const QTreeWidgetItem&)> carry);

Q_SIGNALS:
    void CloseRequested(QTreeWidgetItem* item);

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void startDrag(Qt::DropActions actions) override;

private:
    void CopyItem(const QTreeWidgetItem& item) const;

    QPersistentModelIndex m_pressedMark;
    std::function<QMimeData*(const QTreeWidgetItem&)> m_carry;
};
