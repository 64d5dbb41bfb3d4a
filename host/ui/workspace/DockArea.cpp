#include "ui/workspace/DockArea.h"

#include "ui/window/HostColors.h"
#include "ui/workspace/DockTabBar.h"
#include "ui/workspace/WorkspacePanel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStackedWidget>
#include <QVariant>

namespace host::ui {

namespace {

constexpr int STRIP_LEFT = 4;

} // namespace

DockArea::DockArea(QWidget* parent)
    : QWidget(parent)
    , m_tabs(new DockTabBar(this))
    , m_strip(new QWidget(this))
    , m_stack(new QStackedWidget(this))
{
    m_strip->setFixedHeight(DockTabBar::HEIGHT);
    auto* stripLayout = new QHBoxLayout(m_strip);
    stripLayout->setContentsMargins(STRIP_LEFT, 0, 0, 0);
    stripLayout->addWidget(m_tabs);
    stripLayout->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_strip);
    layout->addWidget(m_stack, 1);
    connect(m_tabs, &QTabBar::tabMoved, this, &DockArea::OnTabMoved);
    connect(m_tabs, &QTabBar::currentChanged, this, &DockArea::OnCurrentChanged);
    connect(m_tabs, &DockTabBar::CloseRequested, this, &DockArea::CloseRequested);
    connect(m_tabs, &DockTabBar::DraggedOut, this, &DockArea::DraggedOut);
    connect(m_tabs, &DockTabBar::DoubleClicked, this, &DockArea::DoubleClicked);
    connect(m_tabs, &DockTabBar::MenuRequested, this, &DockArea::MenuRequested);
}

DockArea::~DockArea()
{
    // The panels die after the tabs that they would be forgotten from.
    const QVector<WorkspacePanel*> panels = Panels();
    for (WorkspacePanel* panel : panels)
        panel->disconnect(this);
}

int DockArea::Count() const
{
    return m_stack->count();
}

WorkspacePanel* DockArea::PanelAt(int index) const
{
    return qobject_cast<WorkspacePanel*>(m_stack->widget(index));
}

WorkspacePanel* DockArea::CurrentPanel() const
{
    return qobject_cast<WorkspacePanel*>(m_stack->currentWidget());
}

int DockArea::IndexOf(const WorkspacePanel* panel) const
{
    return m_stack->indexOf(const_cast<WorkspacePanel*>(panel));
}

QVector<WorkspacePanel*> DockArea::Panels() const
{
    QVector<WorkspacePanel*> panels;
    for (int i = 0; i < Count(); ++i)
        panels.append(PanelAt(i));
    return panels;
}

void DockArea::Insert(int index, WorkspacePanel* panel)
{
    const int place = index < 0 || index > Count() ? Count() : index;
    {
        const QSignalBlocker blocker(m_tabs);
        m_stack->insertWidget(place, panel);
        m_tabs->insertTab(place, panel->GetIcon(), panel->GetLabel());
        m_tabs->setTabData(place, QVariant::fromValue(panel));
    }
    connect(panel, &WorkspacePanel::LabelChanged, this, [this, panel] { UpdateTab(panel); });
    connect(panel, &QObject::destroyed, this, [this, panel] { ForgetTab(panel); });
    OnCurrentChanged(m_tabs->currentIndex());
    UpdateStrip();
}

void DockArea::Take(WorkspacePanel* panel, QWidget* newParent)
{
    const int index = IndexOf(panel);
    if (index < 0)
        return;
    panel->disconnect(this);
    {
        const QSignalBlocker blocker(m_tabs);
        m_stack->removeWidget(panel);
        m_tabs->removeTab(index);
    }
    panel->hide();
    panel->setParent(newParent);
    OnCurrentChanged(m_tabs->currentIndex());
    UpdateStrip();
}

void DockArea::SetCurrentPanel(WorkspacePanel* panel)
{
    m_tabs->setCurrentIndex(IndexOf(panel));
}

void DockArea::SetCollapsed(bool collapsed)
{
    m_collapsed = collapsed;
    m_stack->setVisible(!collapsed);
    setMaximumHeight(collapsed ? DockTabBar::HEIGHT : QWIDGETSIZE_MAX);
    Q_EMIT Changed();
}

void DockArea::SetTabsHiddenForOne(bool hidden)
{
    m_tabsHiddenForOne = hidden;
    UpdateStrip();
}

QRect DockArea::StripRect() const
{
    return {m_strip->mapToGlobal(QPoint()), m_strip->size()};
}

DockArea* DockArea::Of(const WorkspacePanel* panel)
{
    QWidget* stack = panel->parentWidget();
    auto* area = stack ? qobject_cast<DockArea*>(stack->parentWidget()) : nullptr;
    return area && area->IndexOf(panel) >= 0 ? area : nullptr;
}

void DockArea::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), colors::DOCK_STRIP);
}

void DockArea::OnTabMoved(int from, int to)
{
    const QSignalBlocker blocker(m_stack);
    QWidget* panel = m_stack->widget(from);
    m_stack->removeWidget(panel);
    m_stack->insertWidget(to, panel);
    m_stack->setCurrentIndex(m_tabs->currentIndex());
    Q_EMIT Changed();
}

void DockArea::OnCurrentChanged(int index)
{
    m_stack->setCurrentIndex(index);
    Q_EMIT Changed();
}

void DockArea::UpdateTab(WorkspacePanel* panel)
{
    const int index = IndexOf(panel);
    m_tabs->setTabText(index, panel->GetLabel());
    m_tabs->setTabIcon(index, panel->GetIcon());
    UpdateStrip();
}

void DockArea::ForgetTab(const WorkspacePanel* panel)
{
    const QSignalBlocker blocker(m_tabs);
    for (int i = m_tabs->count() - 1; i >= 0; --i) {
        // By now it is but a widget, so that PanelAt would not know it.
        if (m_tabs->tabData(i).value<QObject*>() == panel)
            m_tabs->removeTab(i);
    }
    // The stack lets go of the panel only when its destructor has ended.
    QMetaObject::invokeMethod(
        this,
        [this] {
            OnCurrentChanged(m_tabs->currentIndex());
            UpdateStrip();
        },
        Qt::QueuedConnection);
}

void DockArea::UpdateStrip()
{
    m_strip->setVisible(!m_tabsHiddenForOne || Count() > 1);
    Q_EMIT Changed();
}

} // namespace host::ui
