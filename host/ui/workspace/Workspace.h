#pragma once

#include "ui/workspace/ControlRecord.h"

#include <QMap>
#include <QPointer>
#include <QWidget>

#include <optional>

class QSplitter;

namespace host::ui {

class DockArea;
class FloatingWindow;
class WorkspacePanel;

/// The middle of the main window: the viewport's area with four sides around it, and the windows
/// that float over it. Knows where panels are, not what they stand for.
class Workspace : public QWidget
{
    Q_OBJECT
public:
    explicit Workspace(QWidget* parent);

    /// The panel of the viewport is always the centre's and cannot be moved.
    void SetFixedPanel(WorkspacePanel* panel);

    // Placing; a panel that is somewhere else is taken from there.
    void Dock(WorkspacePanel* panel, DockSide side, int index = -1);
    void Float(WorkspacePanel* panel, const QRect& geometry);
    /// Floats it under the pointer, which goes on moving it: the mouse button is down already.
    void FloatUnderPointer(WorkspacePanel* panel, const QSize& size, const QPoint& pointer);
    /// As another tab beside `other`, wherever that is. False when `other` is hidden.
    bool TabTo(WorkspacePanel* panel, WorkspacePanel* other, int index);
    void Hide(WorkspacePanel* panel);
    void Raise(WorkspacePanel* panel);

    // Asking
    bool IsOpen(const WorkspacePanel* panel) const;
    bool IsFloating(const WorkspacePanel* panel) const;
    /// The front tab of where it is.
    bool IsCurrent(const WorkspacePanel* panel) const;
    /// Nothing when it floats or is hidden.
    std::optional<DockSide> SideOf(const WorkspacePanel* panel) const;
    FloatingWindow* WindowOf(const WorkspacePanel* panel) const;
    DockArea* GetArea(DockSide side) const { return m_areas.value(side); }

    bool IsCollapsed(const WorkspacePanel* panel) const;
    /// In the centre there is nothing to collapse to: the viewport comes to the front instead.
    void SetCollapsed(WorkspacePanel* panel, bool collapsed);
    /// The room a floating window takes, or a side's width or height, pixels.
    void ResizePanel(WorkspacePanel* panel, const QSize& size);

    QMap<DockSide, int> SideSizes() const;
    void SetSideSizes(const QMap<DockSide, int>& sizes);

Q_SIGNALS:
    void CloseRequested(WorkspacePanel* panel);
    /// Between floating and docked.
    void ToggleRequested(WorkspacePanel* panel);
    void MenuRequested(WorkspacePanel* panel, const QPoint& place);
    /// Its tab was dragged out; the mouse button is still down.
    void DraggedOut(WorkspacePanel* panel, const QPoint& pointer);
    /// A panel was dragged to another place by hand, or tabs were sorted.
    void LayoutChanged();
    void FrameChanged(WorkspacePanel* panel);

private:
    void AddArea(DockSide side);
    void ConnectArea(DockArea* area);
    FloatingWindow* AddFloatingWindow();
    void TakeOut(WorkspacePanel* panel);
    void UpdateSides();
    void OnWindowDragged(FloatingWindow* window, const QPoint& pointer, bool dropped);
    void CloseAll(FloatingWindow* window);
    /// The side onto which a window dropped there is docked.
    std::optional<DockSide> SideAt(const QPoint& pointer) const;
    QRect DropRect(DockSide side) const;

    QMap<DockSide, DockArea*> m_areas;
    QMap<DockSide, int> m_sizes;
    QSplitter* m_columns = nullptr;
    QSplitter* m_rows = nullptr;
    QWidget* m_dropMark = nullptr;
    WorkspacePanel* m_fixedPanel = nullptr;
};

} // namespace host::ui
