#pragma once

#include <QAbstractScrollArea>
#include <QVector>

/// A row of tabs that scrolls sideways instead of shrinking its tabs, painted by itself. Base of
/// the code editor groups' tab bars, owned by its parent. The current index is -1 only while there
/// is no tab; making a tab current brings it fully into view.
class CustomTabBar : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit CustomTabBar(QWidget* parent);

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

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void CurrentChanged(int index);
    /// A click on any tab, also on the current one.
    void Activated();
    void ScrollRangeChanged();

protected:
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    struct Tab
    {
        QString text;
        QString iconName;
        QString toolTip;
        int data = 0;
        bool modified = false;
        int width = 0; ///< pixels
    };

    bool IsValid(int index) const { return index >= 0 && index < m_tabs.size(); }
    QRect TabRect(int index) const;
    int TabAt(const QPoint& position) const;
    void UpdateWidth(Tab& tab) const;
    void UpdateScrollRange();
    void EnsureVisible(int index);
    void SetHovered(int index);
    void PaintTab(QPainter& painter, int index) const;
    void PaintWaterline(QPainter& painter, const QRect& label) const;

    QVector<Tab> m_tabs;
    int m_currentIndex = -1;
    int m_hoveredIndex = -1;
    bool m_active = false;
};
