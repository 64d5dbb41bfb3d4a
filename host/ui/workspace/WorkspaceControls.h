#pragma once

#include "ui/model/InterfaceModel.h"
#include "ui/workspace/WorkspaceFile.h"

#include <map>

namespace host {
class Engine;
}

namespace host::ui {

class Workspace;
class WorkspacePanel;

/// One workspace control: what is known about it, and its panel.
struct WorkspaceControl
{
    /// Its place is up to date while the panel is hidden; see WorkspaceControls::Place.
    ControlRecord record;
    QPointer<WorkspacePanel> panel;
    QPointer<Element> element;
};

/// The named dockable panels: made by scripts and plug-ins, moved by the person, remembered in the
/// preferences. Owned by the main window; main thread only.
/// Invariant: every control listed has a panel and an element; a saved one that cannot be built yet
/// is kept apart and saved again as it was.
class WorkspaceControls : public QObject
{
    Q_OBJECT
public:
    WorkspaceControls(Engine& engine, InterfaceModel& model, Workspace& workspace, QObject* parent);
    ~WorkspaceControls() override;

    /// Null in batch mode and before the main window exists.
    static WorkspaceControls* Current();

    // Controls by name

    WorkspaceControl* Find(const QString& name);
    bool Contains(const QString& name) const { return m_controls.count(name) > 0; }
    QStringList Names() const;
    /// A new control and current parent, not shown yet. An empty name gives a new one; null when
    /// the name is taken.
    WorkspaceControl* Create(const ControlRecord& record);
    /// Opens it where it belongs, with its content.
    void Show(WorkspaceControl& control);
    void Hide(WorkspaceControl& control);
    /// Shows it, un-collapses it and brings it to the front.
    void Restore(WorkspaceControl& control);
    /// Runs the close command, then hides it, or deletes it unless it is retained.
    void Close(WorkspaceControl& control);
    /// Runs the ui script when nothing is in the panel.
    void Fill(const QString& name);

    void SetLabel(WorkspaceControl& control, const QString& label);
    void SetRequiredPlugins(WorkspaceControl& control, const QStringList& plugins);
    void SetFloating(WorkspaceControl& control, bool floating);
    void SetCollapsed(WorkspaceControl& control, bool collapsed);
    void Dock(WorkspaceControl& control, DockSide side, int index);
    void TabTo(WorkspaceControl& control, WorkspaceControl& other, int index);
    void SetMinimumSize(WorkspaceControl& control, const QSize& size);
    void SetPanelSize(WorkspaceControl& control, const QSize& size);
    /// The record with the place where the panel is now.
    ControlRecord Place(const WorkspaceControl& control) const;
    bool IsInFront(const WorkspaceControl& control) const;

    // Remembered places of floating windows

    bool HasFrame(const QString& name) const { return m_frames.contains(name); }
    FrameRecord GetFrame(const QString& name) const { return m_frames.value(name); }
    /// Moves the window too when the control floats.
    void SetFrame(const QString& name, const FrameRecord& frame);
    void RemoveFrame(const QString& name);

    // Keeping

    /// Everything as it is now; the window's own place is left empty.
    SavedWorkspace Capture() const;
    /// Takes over what was saved. Nothing is built before BuildSaved.
    void SetSaved(const SavedWorkspace& saved);
    /// Builds the saved controls whose plug-ins are loaded by now. Safe to call again.
    void BuildSaved();
    /// From now on nothing is reported as changed: for the end of the process.
    void Freeze() { m_frozen = true; }

Q_SIGNALS:
    /// Something that is saved has changed.
    void Changed();

private:
    bool CanBuild(const ControlRecord& record) const;
    void Build(const ControlRecord& record);
    QRect FrameGeometry(const WorkspaceControl& control) const;
    WorkspaceControl* FindByPanel(const WorkspacePanel* panel);
    void OnElementRemoved(const Element* element);
    void OnFrameChanged(WorkspacePanel* panel);
    void OnToggleRequested(WorkspacePanel* panel);
    void OnDraggedOut(WorkspacePanel* panel, const QPoint& pointer);
    void ShowMenu(WorkspacePanel* panel, const QPoint& place);
    void NoteChange();

    Engine& m_engine;
    InterfaceModel& m_model;
    Workspace& m_workspace;
    std::map<QString, WorkspaceControl> m_controls;
    QVector<ControlRecord> m_unbuilt;
    QMap<QString, FrameRecord> m_frames;
    QString m_filling; ///< name of the control whose ui script runs
    bool m_frozen = false;
};

} // namespace host::ui
