#pragma once

#include "ui/workspace/ControlRecord.h"

#include <QWidget>

class QStackedWidget;

namespace host::ui {

class DockTabBar;
class WorkspacePanel;

/// A strip of tabs over a stack of panels: the middle or a side of the main window, or the inside
/// of a floating window. Invariant: tab i shows panel i of the stack.
class DockArea : public QWidget
{
    Q_OBJECT
public:
    explicit DockArea(QWidget* parent);
    ~DockArea() override;

    int Count() const;
    WorkspacePanel* PanelAt(int index) const;
    WorkspacePanel* CurrentPanel() const;
    int IndexOf(const WorkspacePanel* panel) const;
    QVector<WorkspacePanel*> Panels() const;

    /// -1 or too large: at the end.
    void Insert(int index, WorkspacePanel* panel);
    /// Takes the panel out; it is hidden and belongs to `newParent` then.
    void Take(WorkspacePanel* panel, QWidget* newParent);
    void SetCurrentPanel(WorkspacePanel* panel);

    /// Collapsed, only the strip is left.
    bool IsCollapsed() const { return m_collapsed; }
    void SetCollapsed(bool collapsed);
    /// Without tabs while there is only one panel: in floating windows.
    void SetTabsHiddenForOne(bool hidden);
    DockTabBar* TabBar() const { return m_tabs; }
    /// The strip's place on the screen.
    QRect StripRect() const;

    /// The area that shows the panel; null when it is in none.
    static DockArea* Of(const WorkspacePanel* panel);

Q_SIGNALS:
    void CloseRequested(WorkspacePanel* panel);
    void DraggedOut(WorkspacePanel* panel, const QPoint& place);
    void DoubleClicked(WorkspacePanel* panel);
    void MenuRequested(WorkspacePanel* panel, const QPoint& place);
    /// Panels came, went, changed places or labels, or another one is current.
    void Changed();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void OnTabMoved(int from, int to);
    void OnCurrentChanged(int index);
    void UpdateTab(WorkspacePanel* panel);
    void ForgetTab(const WorkspacePanel* panel);
    void UpdateStrip();

    DockTabBar* m_tabs = nullptr;
    QWidget* m_strip = nullptr;
    QStackedWidget* m_stack = nullptr;
    bool m_collapsed = false;
    bool m_tabsHiddenForOne = false;
};

} // namespace host::ui
