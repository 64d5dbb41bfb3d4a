#include "ui/workspace/Workspace.h"

#include "ui/window/HostColors.h"
#include "ui/workspace/DockArea.h"
#include "ui/workspace/DockTabBar.h"
#include "ui/workspace/FloatingWindow.h"
#include "ui/workspace/WorkspacePanel.h"

#include <QPainter>
#include <QSplitter>
#include <QVBoxLayout>

namespace host::ui {

namespace {

constexpr int DEFAULT_SIDE_SIZE = 320;
/// How near to an edge of the workspace the pointer has to come to dock at that side.
constexpr int EDGE_ZONE = 24;
const DockSide SIDES[]
    = {DockSide::Center, DockSide::Left, DockSide::Right, DockSide::Top, DockSide::Bottom};

bool IsColumn(DockSide side)
{
    return side == DockSide::Left || side == DockSide::Right;
}

/// Shows where a dragged window would go.
class DropMark : public QWidget
{
public:
    explicit DropMark(QWidget* parent)
        : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor fill = colors::LAKE;
        fill.setAlphaF(0.17);
        QColor edge = colors::LAKE;
        edge.setAlphaF(0.75);
        painter.setBrush(fill);
        painter.setPen(QPen(edge, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
    }
};

} // namespace

Workspace::Workspace(QWidget* parent)
    : QWidget(parent)
    , m_columns(new QSplitter(Qt::Horizontal, this))
    , m_rows(new QSplitter(Qt::Vertical))
    , m_dropMark(new DropMark(this))
{
    setObjectName(QStringLiteral("workspace"));
    for (const DockSide side : SIDES)
        AddArea(side);
    for (const DockSide side : {DockSide::Top, DockSide::Center, DockSide::Bottom})
        m_rows->addWidget(m_areas.value(side));
    m_columns->addWidget(m_areas.value(DockSide::Left));
    m_columns->addWidget(m_rows);
    m_columns->addWidget(m_areas.value(DockSide::Right));
    for (QSplitter* splitter : {m_columns, m_rows}) {
        splitter->setChildrenCollapsible(false);
        splitter->setStretchFactor(0, 0);
        splitter->setStretchFactor(1, 1);
        splitter->setStretchFactor(2, 0);
        connect(splitter, &QSplitter::splitterMoved, this, &Workspace::LayoutChanged);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_columns);
    UpdateSides();
}

void Workspace::AddArea(DockSide side)
{
    auto* area = new DockArea(this);
    area->setObjectName(DockSideName(side) + QLatin1String("DockArea"));
    m_areas.insert(side, area);
    ConnectArea(area);
}

void Workspace::ConnectArea(DockArea* area)
{
    connect(area, &DockArea::CloseRequested, this, &Workspace::CloseRequested);
    connect(area, &DockArea::DoubleClicked, this, &Workspace::ToggleRequested);
    connect(area, &DockArea::MenuRequested, this, &Workspace::MenuRequested);
    connect(area, &DockArea::DraggedOut, this, &Workspace::DraggedOut);
    connect(area, &DockArea::Changed, this, &Workspace::LayoutChanged);
}

void Workspace::SetFixedPanel(WorkspacePanel* panel)
{
    m_fixedPanel = panel;
    panel->SetFixed(true);
    m_areas.value(DockSide::Center)->Insert(0, panel);
}

void Workspace::TakeOut(WorkspacePanel* panel)
{
    if (DockArea* area = DockArea::Of(panel)) {
        if (area->Count() == 1)
            area->SetCollapsed(false);
        area->Take(panel, this);
    }
}

void Workspace::Dock(WorkspacePanel* panel, DockSide side, int index)
{
    TakeOut(panel);
    // The viewport stays the first.
    const int place = side == DockSide::Center && index == 0 ? 1 : index;
    m_areas.value(side)->Insert(place, panel);
    UpdateSides();
    m_areas.value(side)->SetCurrentPanel(panel);
    Q_EMIT LayoutChanged();
}

FloatingWindow* Workspace::AddFloatingWindow()
{
    auto* window = new FloatingWindow(this->window());
    ConnectArea(window->GetArea());
    connect(window, &FloatingWindow::CloseRequested, this, [this, window] { CloseAll(window); });
    connect(window, &FloatingWindow::DockRequested, this, [this, window] {
        for (WorkspacePanel* panel : window->GetArea()->Panels())
            Q_EMIT ToggleRequested(panel);
    });
    connect(window, &FloatingWindow::MenuRequested, this, [this, window](const QPoint& place) {
        Q_EMIT MenuRequested(window->GetArea()->CurrentPanel(), place);
    });
    connect(window, &FloatingWindow::Dragged, this,
        [this, window](
            const QPoint& pointer, bool dropped) { OnWindowDragged(window, pointer, dropped); });
    connect(window, &FloatingWindow::GeometryChanged, this, [this, window] {
        for (WorkspacePanel* panel : window->GetArea()->Panels())
            Q_EMIT FrameChanged(panel);
    });
    return window;
}

void Workspace::Float(WorkspacePanel* panel, const QRect& geometry)
{
    TakeOut(panel);
    UpdateSides();
    FloatingWindow* window = AddFloatingWindow();
    window->SetNormalGeometry(geometry);
    window->GetArea()->Insert(0, panel);
    window->show();
    window->activateWindow();
    Q_EMIT LayoutChanged();
}

void Workspace::FloatUnderPointer(WorkspacePanel* panel, const QSize& size, const QPoint& pointer)
{
    Float(panel, QRect(pointer, size));
    WindowOf(panel)->StartMove(pointer);
}

bool Workspace::TabTo(WorkspacePanel* panel, WorkspacePanel* other, int index)
{
    DockArea* area = DockArea::Of(other);
    if (!area || other == panel)
        return false;
    TakeOut(panel);
    const bool behindViewport = area == m_areas.value(DockSide::Center) && index == 0;
    area->Insert(behindViewport ? 1 : index, panel);
    UpdateSides();
    Q_EMIT LayoutChanged();
    return true;
}

void Workspace::Hide(WorkspacePanel* panel)
{
    TakeOut(panel);
    UpdateSides();
    Q_EMIT LayoutChanged();
}

void Workspace::Raise(WorkspacePanel* panel)
{
    DockArea* area = DockArea::Of(panel);
    if (!area)
        return;
    area->SetCurrentPanel(panel);
    if (FloatingWindow* window = FloatingWindow::Of(area)) {
        window->show();
        window->raise();
        window->activateWindow();
    }
}

bool Workspace::IsOpen(const WorkspacePanel* panel) const
{
    return DockArea::Of(panel) != nullptr;
}

bool Workspace::IsFloating(const WorkspacePanel* panel) const
{
    return WindowOf(panel) != nullptr;
}

bool Workspace::IsCurrent(const WorkspacePanel* panel) const
{
    const DockArea* area = DockArea::Of(panel);
    return area && area->CurrentPanel() == panel;
}

std::optional<DockSide> Workspace::SideOf(const WorkspacePanel* panel) const
{
    const DockArea* area = DockArea::Of(panel);
    for (const DockSide side : SIDES) {
        if (area && m_areas.value(side) == area)
            return side;
    }
    return std::nullopt;
}

FloatingWindow* Workspace::WindowOf(const WorkspacePanel* panel) const
{
    return FloatingWindow::Of(DockArea::Of(panel));
}

bool Workspace::IsCollapsed(const WorkspacePanel* panel) const
{
    if (const FloatingWindow* window = WindowOf(panel))
        return window->IsCollapsed();
    const DockArea* area = DockArea::Of(panel);
    return area && area->IsCollapsed();
}

void Workspace::SetCollapsed(WorkspacePanel* panel, bool collapsed)
{
    DockArea* area = DockArea::Of(panel);
    if (!area)
        return;
    if (FloatingWindow* window = FloatingWindow::Of(area))
        window->SetCollapsed(collapsed);
    else if (area != m_areas.value(DockSide::Center))
        area->SetCollapsed(collapsed);
    else if (collapsed && m_fixedPanel)
        area->SetCurrentPanel(m_fixedPanel);
}

void Workspace::ResizePanel(WorkspacePanel* panel, const QSize& size)
{
    if (FloatingWindow* window = WindowOf(panel)) {
        QRect geometry = window->NormalGeometry();
        geometry.setSize({size.width() > 0 ? size.width() : geometry.width(),
            size.height() > 0 ? size.height() : geometry.height()});
        window->SetNormalGeometry(geometry);
        return;
    }
    const std::optional<DockSide> side = SideOf(panel);
    if (!side || *side == DockSide::Center)
        return;
    const int length = IsColumn(*side) ? size.width() : size.height();
    if (length > 0)
        SetSideSizes({{*side, length}});
}

QMap<DockSide, int> Workspace::SideSizes() const
{
    QMap<DockSide, int> sizes = m_sizes;
    for (const DockSide side : SIDES) {
        const DockArea* area = m_areas.value(side);
        if (side != DockSide::Center && area->isVisible() && !area->IsCollapsed())
            sizes.insert(side, IsColumn(side) ? area->width() : area->height());
    }
    return sizes;
}

void Workspace::SetSideSizes(const QMap<DockSide, int>& sizes)
{
    for (auto entry = sizes.begin(); entry != sizes.end(); ++entry)
        m_sizes.insert(entry.key(), *entry);
    const auto apply = [this](QSplitter* splitter, DockSide first, DockSide last) {
        const int all
            = splitter->orientation() == Qt::Horizontal ? splitter->width() : splitter->height();
        const int before = m_sizes.value(first, DEFAULT_SIDE_SIZE);
        const int after = m_sizes.value(last, DEFAULT_SIDE_SIZE);
        splitter->setSizes({before, qMax(1, all - before - after), after});
    };
    apply(m_columns, DockSide::Left, DockSide::Right);
    apply(m_rows, DockSide::Top, DockSide::Bottom);
}

void Workspace::UpdateSides()
{
    const QMap<DockSide, int> sizes = SideSizes();
    bool changed = false;
    for (const DockSide side : SIDES) {
        DockArea* area = m_areas.value(side);
        const bool wanted = side == DockSide::Center || area->Count() > 0;
        changed = changed || wanted == area->isHidden();
        area->setVisible(wanted);
    }
    if (changed)
        SetSideSizes(sizes);
}

void Workspace::CloseAll(FloatingWindow* window)
{
    for (WorkspacePanel* panel : window->GetArea()->Panels())
        Q_EMIT CloseRequested(panel);
}

QRect Workspace::DropRect(DockSide side) const
{
    const DockArea* area = m_areas.value(side);
    if (area->isVisible())
        return {area->mapTo(this, QPoint()), area->size()};
    QRect place = rect();
    const int length = m_sizes.value(side, DEFAULT_SIDE_SIZE);
    if (side == DockSide::Left)
        place.setWidth(length);
    else if (side == DockSide::Right)
        place.setLeft(place.right() - length);
    else if (side == DockSide::Top)
        place.setHeight(length);
    else
        place.setTop(place.bottom() - length);
    return place;
}

std::optional<DockSide> Workspace::SideAt(const QPoint& pointer) const
{
    for (const DockSide side : SIDES) {
        const DockArea* area = m_areas.value(side);
        if (area->isVisible() && area->StripRect().contains(pointer))
            return side;
    }
    const QPoint place = mapFromGlobal(pointer);
    if (!rect().contains(place))
        return std::nullopt;
    if (place.x() < EDGE_ZONE)
        return DockSide::Left;
    if (place.x() >= width() - EDGE_ZONE)
        return DockSide::Right;
    if (place.y() >= height() - EDGE_ZONE)
        return DockSide::Bottom;
    return std::nullopt;
}

void Workspace::OnWindowDragged(FloatingWindow* window, const QPoint& pointer, bool dropped)
{
    const std::optional<DockSide> side = SideAt(pointer);
    m_dropMark->setVisible(side && !dropped);
    if (!side)
        return;
    if (!dropped) {
        m_dropMark->setGeometry(DropRect(*side));
        m_dropMark->raise();
        return;
    }
    int index = m_areas.value(*side)->TabBar()->tabAt(
        m_areas.value(*side)->TabBar()->mapFromGlobal(pointer));
    for (WorkspacePanel* panel : window->GetArea()->Panels())
        Dock(panel, *side, index < 0 ? -1 : index++);
}

} // namespace host::ui
