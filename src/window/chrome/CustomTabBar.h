#pragma once

#include "window/chrome/TabDragData.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QVector>

class QTimer;

/// A row of tabs that scrolls sideways instead of shrinking its tabs, painted by itself. Base of
/// the code editor groups' tab bars, owned by its parent. It changes its tabs only when it is told
/// to; what the user wants done with them is told by signals. The current index is -1 only while
/// there is no tab; making a tab current brings it fully into view.
class CustomTabBar : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit CustomTabBar(QWidget* parent);
    ~CustomTabBar() override;

    /// Which group dragged tabs come from; -1: they cannot be dragged.
    void SetGroupId(int id);
    int GetGroupId() const { return m_groupId; }

    int GetCount() const { return m_tabs.size(); }
    int GetCurrentIndex() const { return m_currentIndex; }
    /// Ignored when out of range. Emits CurrentChanged when the current tab is another one.
    void SetCurrentIndex(int index);

    /// At the end when `index` is out of range; returns the place. The first tab becomes current.
    int InsertTab(int index, const QString& label);
    /// The tab after a removed current one becomes current, else the one before it.
    void RemoveTab(int index);
    void MoveTab(int from, int to);

    QString GetTabText(int index) const;
    void SetTabText(int index, const QString& text);
    void SetTabIcon(int index, const QString& iconName);
    void SetTabToolTip(int index, const QString& toolTip);
    QString GetTabToolTip(int index) const;
    /// What tells the tab from another one with the same text, as the name of its folder.
    void SetTabDetail(int index, const QString& detail);
    /// The text, with the detail when another tab has the same text.
    QString GetTabDescription(int index) const;
    /// The text, and "modified" when it is.
    QString GetTabAccessibleName(int index) const;
    void SetTabData(int index, int value);
    int GetTabData(int index) const;
    /// Shows the dot of a tab with unsaved changes.
    void SetTabModified(int index, bool modified);
    /// Whether the line under the current tab has the accent colour (the group that has the focus).
    void SetActive(bool active);

    int GetScrollValue() const;
    void SetScrollValue(int value);
    /// Whether tabs are hidden at that side (-1 left, 1 right).
    bool CanScroll(int direction) const;
    void ScrollBy(int direction);

    /// In the viewport.
    QRect GetTabRect(int index) const;
    /// Where the tab's cross is, or its dot; also while neither is shown.
    QRect GetCloseRect(int index) const;
    /// The tab at a point of the viewport, -1 where none is.
    int GetTabAt(const QPoint& position) const;
    /// Whether that tab is in any bar of this process.
    static bool TabExists(const DraggedTab& tab);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void CurrentChanged(int index);
    /// A click on any tab, also on the current one.
    void Activated();
    void ScrollRangeChanged();
    void NewTabRequested();
    void CloseRequested(int index);
    void RenameRequested(int index);
    /// `target` is the place that the tab has afterwards.
    void MoveRequested(int sourceGroupId, int sourceIndex, int target);
    void OpenFilesRequested(int index, const QStringList& paths);
    /// At a global point where no tab is.
    void EmptyZoneContextMenuSelected(const QPoint& point);

protected:
    /// Nothing by default; `point` is global.
    virtual void ShowContextMenu(int index, const QPoint& point);

    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    struct Tab
    {
        QString text;
        QString iconName;
        QString toolTip;
        QString detail;
        int data = 0;
        bool modified = false;
        int left = 0; ///< pixels from the first tab's edge
        int width = 0; ///< pixels
    };

    bool IsValid(int index) const { return index >= 0 && index < m_tabs.size(); }
    void UpdateWidth(Tab& tab) const;
    void UpdateGeometry();
    void UpdateScrollStep();
    void EnsureVisible(int index);
    void ReplaceCurrent(int place);
    void UpdateAccessibleDescription();
    /// Tells screen readers about a tab.
    void NotifyAccessibility(QAccessible::Event event, int index);

    // Mouse
    void SetHovered(const QPoint& position);
    void ClearHovered();
    /// After tabs moved under the pointer.
    void RefreshHovered();
    /// The tab whose cross is at that point, -1 where none is.
    int CloseMarkAt(const QPoint& position) const;

    // Dragging
    void StartDrag(int index);
    QPixmap DragPicture(int index) const;
    bool IsTakingDrag(const QMimeData* payload) const;
    /// How many tabs are left of that place.
    int InsertionIndexAt(int x) const;
    void SetInsertionIndex(int index);
    void UpdateDragScroll(int x);
    void ScrollWhileDragging();
    void EndDragOver();

    // Painting
    void PaintTab(QPainter& painter, int index) const;
    void PaintLabel(QPainter& painter, int index) const;
    void PaintMark(QPainter& painter, int index) const;
    void PaintWaterline(QPainter& painter, const QRect& label) const;
    void PaintInsertionLine(QPainter& painter) const;

    QVector<Tab> m_tabs;
    int m_groupId = -1;
    int m_currentIndex = -1;
    int m_hoveredIndex = -1;
    bool m_closeHovered = false; ///< the pointer is over the hovered tab's cross
    bool m_active = false;
    bool m_focusByKey = false;
    int m_pressedIndex = -1; ///< the tab under the left button
    int m_pressedCloseIndex = -1;
    int m_middlePressedIndex = -1;
    bool m_pressedEmptyZone = false;
    QPoint m_pressPosition;
    int m_draggedIndex = -1;
    /// Asked for before the bar was shown, kept until the tabs are scrolled again; -1: none.
    int m_restoredScrollValue = -1;
    int m_insertionIndex = -1; ///< where a drag over the bar would drop
    int m_dragX = 0; ///< of the pointer, while something is dragged over the bar
    int m_dragScrollDirection = 0;
    QTimer* m_dragScrollTimer;
};
