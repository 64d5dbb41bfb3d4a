#include "ui/workspace/WorkspaceControls.h"

#include "engine/Engine.h"
#include "ui/window/HostIcons.h"
#include "ui/workspace/DockArea.h"
#include "ui/workspace/FloatingWindow.h"
#include "ui/workspace/Workspace.h"
#include "ui/workspace/WorkspacePanel.h"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>

#include <algorithm>

namespace host::ui {

namespace {

WorkspaceControls* current = nullptr;

/// Share of the main window that a floating panel takes when nobody said how large it should be.
constexpr double DEFAULT_WIDTH = 0.625;
constexpr double DEFAULT_HEIGHT = 0.72;
constexpr int LEAST_VISIBLE = 60; ///< pixels of a title that must stay on some screen

/// Moves a window whose title would be on no screen back to where it can be reached.
QRect OnScreen(QRect geometry)
{
    const QRect title(geometry.topLeft(), QSize(geometry.width(), 30));
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect seen = screen->availableGeometry() & title;
        if (seen.width() >= LEAST_VISIBLE && seen.height() >= title.height() / 2)
            return geometry;
    }
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    geometry.setSize(geometry.size().boundedTo(screen.size()));
    geometry.moveCenter(screen.center());
    return geometry;
}

} // namespace

WorkspaceControls::WorkspaceControls(
    Engine& engine, InterfaceModel& model, Workspace& workspace, QObject* parent)
    : QObject(parent)
    , m_engine(engine)
    , m_model(model)
    , m_workspace(workspace)
{
    current = this;
    connect(&workspace, &Workspace::CloseRequested, this, [this](WorkspacePanel* panel) {
        if (WorkspaceControl* control = FindByPanel(panel))
            Close(*control);
    });
    connect(&workspace, &Workspace::ToggleRequested, this, &WorkspaceControls::OnToggleRequested);
    connect(&workspace, &Workspace::DraggedOut, this, &WorkspaceControls::OnDraggedOut);
    connect(&workspace, &Workspace::MenuRequested, this, &WorkspaceControls::ShowMenu);
    connect(&workspace, &Workspace::LayoutChanged, this, &WorkspaceControls::NoteChange);
    connect(&model, &InterfaceModel::ElementRemoved, this, &WorkspaceControls::OnElementRemoved);
    connect(&workspace, &Workspace::FrameChanged, this, &WorkspaceControls::OnFrameChanged);
}

WorkspaceControls::~WorkspaceControls()
{
    current = nullptr;
}

WorkspaceControls* WorkspaceControls::Current()
{
    return current;
}

void WorkspaceControls::NoteChange()
{
    if (!m_frozen)
        Q_EMIT Changed();
}

// Controls by name

WorkspaceControl* WorkspaceControls::Find(const QString& name)
{
    const auto found = m_controls.find(name);
    return found == m_controls.end() ? nullptr : &found->second;
}

QStringList WorkspaceControls::Names() const
{
    QStringList names;
    for (const auto& entry : m_controls)
        names += entry.first;
    return names;
}

WorkspaceControl* WorkspaceControls::FindByPanel(const WorkspacePanel* panel)
{
    return panel ? Find(panel->objectName()) : nullptr;
}

WorkspaceControl* WorkspaceControls::Create(const ControlRecord& record)
{
    if (Contains(record.name))
        return nullptr;
    Element* element
        = m_model.Create(LayoutKind, QStringLiteral("workspaceControl"), record.name, nullptr);
    if (!element)
        return nullptr;
    const QString name = element->GetName();
    auto* panel = new WorkspacePanel(name, &m_workspace);
    element->SetWidget(panel, panel);
    m_unbuilt.erase(std::remove_if(m_unbuilt.begin(), m_unbuilt.end(),
                        [&](const ControlRecord& saved) { return saved.name == name; }),
        m_unbuilt.end());
    WorkspaceControl& control = m_controls[name];
    control = {record, panel, element};
    control.record.name = name;
    if (record.label.isEmpty())
        control.record.label = name;
    panel->SetLabel(control.record.label);
    SetMinimumSize(control, record.minimumSize);
    SetRequiredPlugins(control, record.requiredPlugins);
    // Running a script in the middle of showing a widget would be asking for trouble.
    connect(panel, &WorkspacePanel::Shown, this,
        [this, name] { m_engine.idle.Post([this, name] { Fill(name); }, IdlePriority::High); });
    m_model.SetCurrentParent(element);
    NoteChange();
    return &control;
}

void WorkspaceControls::OnElementRemoved(const Element* element)
{
    const auto found = m_controls.find(element->GetName());
    if (found == m_controls.end() || found->second.element != element)
        return;
    // An element that goes because its widget does has no widget any more; then the panel is half
    // destroyed already and must not be touched.
    const QPointer<WorkspacePanel> panel = element->GetWidget() ? found->second.panel : nullptr;
    m_controls.erase(found);
    if (panel)
        m_workspace.Hide(panel);
    NoteChange();
}

void WorkspaceControls::Show(WorkspaceControl& control)
{
    const ControlRecord record = control.record;
    control.record.visible = true;
    if (m_workspace.IsOpen(control.panel))
        return;
    if (record.floating)
        m_workspace.Float(control.panel, FrameGeometry(control));
    else
        m_workspace.Dock(control.panel, record.side, record.tabIndex);
    if (record.collapsed)
        m_workspace.SetCollapsed(control.panel, true);
    if (record.floating && m_frames.value(record.name).maximized)
        m_workspace.WindowOf(control.panel)->SetFilling(true);
}

void WorkspaceControls::Hide(WorkspaceControl& control)
{
    control.record = Place(control);
    control.record.visible = false;
    m_workspace.Hide(control.panel);
}

void WorkspaceControls::Restore(WorkspaceControl& control)
{
    control.record.collapsed = false;
    Show(control);
    m_workspace.SetCollapsed(control.panel, false);
    m_workspace.Raise(control.panel);
}

void WorkspaceControls::Close(WorkspaceControl& control)
{
    const QString name = control.record.name;
    const Script closeCommand = control.record.closeCommand;
    if (control.record.visible)
        closeCommand.Run();
    WorkspaceControl* still = Find(name);
    if (!still)
        return;
    Hide(*still);
    if (!still->record.retain)
        m_model.Delete(still->element);
}

void WorkspaceControls::Fill(const QString& name)
{
    const WorkspaceControl* control = Find(name);
    if (!control || control->record.uiScript.IsEmpty() || m_filling == name
        || !control->panel->IsEmpty() || !m_workspace.IsOpen(control->panel)) {
        return;
    }
    const QString outer = m_filling;
    m_filling = name;
    const Script script = control->record.uiScript;
    {
        const ParentScope scope(m_model);
        m_model.SetCurrentParent(control->element);
        script.Run();
    }
    m_filling = outer;
}

void WorkspaceControls::SetLabel(WorkspaceControl& control, const QString& label)
{
    control.record.label = label;
    control.panel->SetLabel(label);
    NoteChange();
}

void WorkspaceControls::SetRequiredPlugins(WorkspaceControl& control, const QStringList& plugins)
{
    control.record.requiredPlugins = plugins;
    // Panels that plug-ins fill are told apart from those that scripts made.
    control.panel->SetIcon(plugins.isEmpty() ? QIcon() : HostIcon(QStringLiteral("host_plugin")));
    NoteChange();
}

void WorkspaceControls::SetFloating(WorkspaceControl& control, bool floating)
{
    if (Place(control).floating == floating)
        return;
    control.record = Place(control);
    control.record.floating = floating;
    control.record.tabIndex = -1;
    if (!m_workspace.IsOpen(control.panel))
        return;
    if (floating)
        m_workspace.Float(control.panel, FrameGeometry(control));
    else
        m_workspace.Dock(control.panel, control.record.side);
}

void WorkspaceControls::SetCollapsed(WorkspaceControl& control, bool collapsed)
{
    control.record.collapsed = collapsed;
    m_workspace.SetCollapsed(control.panel, collapsed);
    NoteChange();
}

void WorkspaceControls::Dock(WorkspaceControl& control, DockSide side, int index)
{
    control.record.floating = false;
    control.record.side = side;
    control.record.tabIndex = index;
    if (m_workspace.IsOpen(control.panel))
        m_workspace.Dock(control.panel, side, index);
}

void WorkspaceControls::TabTo(WorkspaceControl& control, WorkspaceControl& other, int index)
{
    const ControlRecord place = Place(other);
    if (m_workspace.IsOpen(control.panel) && m_workspace.TabTo(control.panel, other.panel, index)) {
        return;
    }
    control.record.floating = place.floating;
    control.record.side = place.side;
    control.record.tabIndex = index;
}

void WorkspaceControls::SetMinimumSize(WorkspaceControl& control, const QSize& size)
{
    control.record.minimumSize = size;
    control.panel->setMinimumSize(size.expandedTo({0, 0}));
}

void WorkspaceControls::SetPanelSize(WorkspaceControl& control, const QSize& size)
{
    if (m_workspace.IsOpen(control.panel)) {
        m_workspace.ResizePanel(control.panel, size);
        return;
    }
    FrameRecord frame = m_frames.value(control.record.name);
    QSize wanted = frame.hasSize ? frame.geometry.size() : FrameGeometry(control).size();
    if (size.width() > 0)
        wanted.setWidth(size.width());
    if (size.height() > 0)
        wanted.setHeight(size.height());
    frame.geometry.setSize(wanted);
    frame.hasSize = true;
    SetFrame(control.record.name, frame);
}

ControlRecord WorkspaceControls::Place(const WorkspaceControl& control) const
{
    ControlRecord record = control.record;
    record.visible = m_workspace.IsOpen(control.panel);
    if (!record.visible)
        return record;
    record.floating = m_workspace.IsFloating(control.panel);
    record.collapsed = m_workspace.IsCollapsed(control.panel);
    record.current = m_workspace.IsCurrent(control.panel);
    if (const auto side = m_workspace.SideOf(control.panel)) {
        record.side = *side;
        record.tabIndex = m_workspace.GetArea(*side)->IndexOf(control.panel);
    }
    return record;
}

bool WorkspaceControls::IsInFront(const WorkspaceControl& control) const
{
    return m_workspace.IsCurrent(control.panel) && !m_workspace.IsCollapsed(control.panel);
}

// Remembered places of floating windows

QRect WorkspaceControls::FrameGeometry(const WorkspaceControl& control) const
{
    const FrameRecord frame = m_frames.value(control.record.name);
    const QRect window = m_workspace.window()->geometry();
    QSize size(qRound(window.width() * DEFAULT_WIDTH), qRound(window.height() * DEFAULT_HEIGHT));
    for (const QSize& wish : {frame.defaultSize, control.record.initialSize}) {
        size.setWidth(wish.width() > 0 ? wish.width() : size.width());
        size.setHeight(wish.height() > 0 ? wish.height() : size.height());
    }
    QRect geometry(QPoint(), frame.hasSize ? frame.geometry.size() : size);
    geometry.moveCenter(window.center());
    if (frame.hasPosition)
        geometry.moveTopLeft(frame.geometry.topLeft());
    else if (!frame.defaultTopLeft.isNull())
        geometry.moveTopLeft(frame.defaultTopLeft);
    return OnScreen(geometry);
}

void WorkspaceControls::SetFrame(const QString& name, const FrameRecord& frame)
{
    m_frames.insert(name, frame);
    const WorkspaceControl* control = Find(name);
    FloatingWindow* window = control ? m_workspace.WindowOf(control->panel) : nullptr;
    if (window) {
        const QRect wanted = FrameGeometry(*control);
        if (window->NormalGeometry() != wanted)
            window->SetNormalGeometry(wanted);
        window->SetFilling(frame.maximized);
    }
    NoteChange();
}

void WorkspaceControls::RemoveFrame(const QString& name)
{
    m_frames.remove(name);
    NoteChange();
}

void WorkspaceControls::OnFrameChanged(WorkspacePanel* panel)
{
    const FloatingWindow* window = m_workspace.WindowOf(panel);
    if (m_frozen || !window || !window->isVisible())
        return;
    FrameRecord& frame = m_frames[panel->objectName()];
    frame.geometry = window->NormalGeometry();
    frame.hasPosition = true;
    frame.hasSize = true;
    frame.maximized = window->IsFilling();
    NoteChange();
}

// What the person does

void WorkspaceControls::OnToggleRequested(WorkspacePanel* panel)
{
    WorkspaceControl* control = FindByPanel(panel);
    if (control)
        SetFloating(*control, !m_workspace.IsFloating(panel));
}

void WorkspaceControls::OnDraggedOut(WorkspacePanel* panel, const QPoint& pointer)
{
    if (const WorkspaceControl* control = FindByPanel(panel))
        m_workspace.FloatUnderPointer(panel, FrameGeometry(*control).size(), pointer);
}

void WorkspaceControls::ShowMenu(WorkspacePanel* panel, const QPoint& place)
{
    const WorkspaceControl* control = FindByPanel(panel);
    if (!control)
        return;
    const QString name = control->record.name;
    const auto act = [this, name](const std::function<void(WorkspaceControl&)>& change) {
        if (WorkspaceControl* target = Find(name))
            change(*target);
    };
    QMenu menu(panel->window());
    const bool floating = m_workspace.IsFloating(panel);
    menu.addAction(floating ? tr("Dock") : tr("Float"), this,
        [=] { act([=](WorkspaceControl& target) { SetFloating(target, !floating); }); });
    QMenu* sides = menu.addMenu(tr("Dock to"));
    const std::pair<QString, DockSide> SIDES[] = {{tr("Viewport"), DockSide::Center},
        {tr("Left"), DockSide::Left}, {tr("Right"), DockSide::Right}, {tr("Top"), DockSide::Top},
        {tr("Bottom"), DockSide::Bottom}};
    for (const auto& row : SIDES) {
        const DockSide side = row.second;
        QAction* action = sides->addAction(row.first, this,
            [=] { act([=](WorkspaceControl& target) { Dock(target, side, -1); }); });
        action->setEnabled(m_workspace.SideOf(panel) != side);
    }
    if (floating || m_workspace.SideOf(panel) != DockSide::Center) {
        const bool collapsed = m_workspace.IsCollapsed(panel);
        menu.addAction(collapsed ? tr("Expand") : tr("Collapse"), this,
            [=] { act([=](WorkspaceControl& target) { SetCollapsed(target, !collapsed); }); });
    }
    menu.addSeparator();
    menu.addAction(
        tr("Close"), this, [=] { act([=](WorkspaceControl& target) { Close(target); }); });
    menu.exec(place);
}

// Keeping

SavedWorkspace WorkspaceControls::Capture() const
{
    SavedWorkspace saved;
    for (const auto& entry : m_controls) {
        const ControlRecord record = Place(entry.second);
        if (record.retain || record.visible)
            saved.controls.append(record);
    }
    // Tabs are put back one after the other, so the leftmost has to come first.
    std::stable_sort(saved.controls.begin(), saved.controls.end(),
        [](const ControlRecord& a, const ControlRecord& b) { return a.tabIndex < b.tabIndex; });
    saved.controls += m_unbuilt;
    saved.frames = m_frames;
    saved.sideSizes = m_workspace.SideSizes();
    return saved;
}

void WorkspaceControls::SetSaved(const SavedWorkspace& saved)
{
    m_frames = saved.frames;
    m_unbuilt = saved.controls;
    m_workspace.SetSideSizes(saved.sideSizes);
}

bool WorkspaceControls::CanBuild(const ControlRecord& record) const
{
    const auto isLoaded
        = [this](const QString& name) { return m_engine.plugins.Find(name) != nullptr; };
    const auto exists = [this](const QString& name) { return Contains(name); };
    return std::all_of(record.requiredPlugins.begin(), record.requiredPlugins.end(), isLoaded)
        && std::all_of(record.requiredControls.begin(), record.requiredControls.end(), exists);
}

void WorkspaceControls::Build(const ControlRecord& record)
{
    const ParentScope scope(m_model);
    WorkspaceControl* control = Create(record);
    if (!control) {
        m_engine.output.Warning(
            QStringLiteral("The saved panel \"%1\" could not be restored.").arg(record.name));
        return;
    }
    if (record.visible)
        Show(*control);
    record.initCallback.Run({record.name});
}

void WorkspaceControls::BuildSaved()
{
    QStringList front;
    for (bool progress = true; progress;) {
        progress = false;
        const QVector<ControlRecord> waiting = m_unbuilt;
        for (const ControlRecord& record : waiting) {
            if (!CanBuild(record))
                continue;
            m_unbuilt.erase(
                std::remove_if(m_unbuilt.begin(), m_unbuilt.end(),
                    [&](const ControlRecord& saved) { return saved.name == record.name; }),
                m_unbuilt.end());
            Build(record);
            progress = true;
            if (record.current)
                front += record.name;
        }
    }
    for (const QString& name : qAsConst(front)) {
        const WorkspaceControl* control = Find(name);
        if (control && !control->record.collapsed)
            m_workspace.Raise(control->panel);
    }
}

} // namespace host::ui
