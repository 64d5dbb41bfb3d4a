#pragma once

#include <QTabBar>

namespace host::ui {

class WorkspacePanel;

/// The tabs of a DockArea. Tab i always stands for the panel in its tab data.
class DockTabBar : public QTabBar
{
    Q_OBJECT
public:
    explicit DockTabBar(QWidget* parent);

    static constexpr int HEIGHT = 26;

    WorkspacePanel* PanelAt(int index) const;
    QSize minimumSizeHint() const override { return {0, HEIGHT}; }

Q_SIGNALS:
    void CloseRequested(WorkspacePanel* panel);
    /// The tab was dragged away; the mouse button is still down at that place on the screen.
    void DraggedOut(WorkspacePanel* panel, const QPoint& place);
    void DoubleClicked(WorkspacePanel* panel);
    void MenuRequested(WorkspacePanel* panel, const QPoint& place);

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QRect CloseRect(int index) const;
    int CloseIndexAt(const QPoint& position) const;
    void PaintTab(QPainter& painter, int index) const;

    int m_pressedClose = -1;
    int m_hovered = -1;
    bool m_dragging = false;
    bool m_keyboardFocus = false; ///< it came here by keys: show it
};

} // namespace host::ui
