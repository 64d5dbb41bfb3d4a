#include "views/explorer/ExplorerView.h"

#include "settings/Settings.h"
#include "views/SideBarTree.h"
#include "views/SubViewHeader.h"
#include "views/explorer/OpenEditorsView.h"
#include "views/explorer/WorkspaceView.h"
#include "views/outline/OutlineView.h"
#include "window/chrome/GrooveSplitter.h"
#include "window/chrome/SplitterState.h"

#include <QMenu>
#include <QSplitterHandle>

#include <numeric>

namespace {

constexpr int MINIMUM_ROWS = 3;
// At first.
constexpr double WORKSPACE_WEIGHT = 2.0;
constexpr double OUTLINE_WEIGHT = 3.0;
constexpr int NO_LIMIT = QWIDGETSIZE_MAX;

} // namespace

ExplorerView::ExplorerView(QWidget* parent)
    : QWidget(parent)
    , m_splitter(new GrooveSplitter(Qt::Vertical, this))
    , m_openEditors(new OpenEditorsView(this))
    , m_workspace(new WorkspaceView(this))
    , m_outline(new OutlineView(this))
{
    m_splitter->setObjectName(QStringLiteral("m_explorerSplitter"));
    m_splitter->setChildrenCollapsible(false);
    m_openEditors->setObjectName(QStringLiteral("m_openEditors"));
    m_workspace->setObjectName(QStringLiteral("m_workspace"));
    AddSection(m_openEditors, 1.0);
    AddSection(m_workspace, WORKSPACE_WEIGHT);
    m_outline->setObjectName(QStringLiteral("m_outline"));
    AddSection(m_outline, OUTLINE_WEIGHT);
    connect(m_workspace, &WorkspaceView::HideRequested, this, &ExplorerView::HideRequested);
    connect(m_splitter, &QSplitter::splitterMoved, this, &ExplorerView::OnSplitterMoved);
    RestoreWeights();
    UpdateVisibility();
}

void ExplorerView::AddSection(SubView* section, double weight)
{
    m_sections.append(section);
    m_weights.insert(section, weight);
    m_splitter->addWidget(section);
    connect(section, &SubView::ExpandedChanged, this, &ExplorerView::UpdateHeights);
    connect(section, &SubView::NaturalHeightChanged, this, &ExplorerView::UpdateHeights);
    connect(section, &SubView::HeaderMenuRequested, this,
        [this, section](const QPoint& point) { ShowSectionMenu(*section, point); });
    connect(section->GetHeader(), &SubViewHeader::StepRequested, this,
        [this, section](int step) { OnStep(section, step); });
}

QVector<SubView*> ExplorerView::ShownSections() const
{
    QVector<SubView*> shown;
    for (SubView* section : m_sections) {
        if (!section->isHidden())
            shown.append(section);
    }
    return shown;
}

void ExplorerView::UpdateVisibility()
{
    m_openEditors->setVisible(Settings::openEditorsVisible);
    m_outline->setVisible(Settings::outlineVisible);
    UpdateHeights();
}

void ExplorerView::SaveState()
{
    if (testAttribute(Qt::WA_WState_Polished))
        Settings::explorerState = m_splitter->saveState();
}

/// The stored sizes are the weights; a section that was collapsed tells nothing.
void ExplorerView::RestoreWeights()
{
    const QList<int> sizes
        = SplitterState::Sizes(Settings::explorerState, Qt::Vertical, m_sections.size());
    for (int i = 0; i < sizes.size(); ++i) {
        if (sizes[i] > SubViewHeader::Height())
            m_weights[m_sections[i]] = sizes[i] - SubViewHeader::Height();
    }
}

void ExplorerView::UpdateHeights()
{
    const QVector<SubView*> shown = ShownSections();
    QVector<SectionHeights::Section> sections;
    for (const SubView* section : shown) {
        const int natural = section->GetNaturalHeight();
        sections.append({section->IsExpanded(), qMin(natural, m_dragged.value(section, natural)),
            m_weights.value(section)});
    }
    const int header = SubViewHeader::Height();
    const int grooves = m_splitter->handleWidth() * qMax(0, shown.size() - 1);
    const QVector<int> heights = SectionHeights::Distribute(
        height() - grooves, header, MINIMUM_ROWS * SideBarTree::RowHeight(), sections);
    QList<int> sizes;
    for (SubView* section : qAsConst(m_sections)) {
        const int i = shown.indexOf(section);
        const int natural = section->GetNaturalHeight();
        const int most = !section->IsExpanded() ? header
            : natural > 0                       ? header + natural
                                                : NO_LIMIT;
        section->setMinimumHeight(header);
        section->setMaximumHeight(most);
        sizes.append(i < 0 ? 0 : heights[i]);
    }
    // The new limits count from now on, not when the next event tells of them.
    m_splitter->refresh();
    // With everything collapsed the headers stay at the top.
    const int total = std::accumulate(heights.begin(), heights.end(), grooves);
    m_splitter->setGeometry(0, 0, width(), total);
    m_splitter->setSizes(sizes);
    UpdateHandles();
}

/// A handle moves something only between a section that is open and an open one above it.
void ExplorerView::UpdateHandles()
{
    bool openAbove = false;
    for (int i = 0; i < m_sections.size(); ++i) {
        const bool open = !m_sections[i]->isHidden() && m_sections[i]->IsExpanded();
        QSplitterHandle* const handle = m_splitter->handle(i);
        handle->setEnabled(open && openAbove);
        handle->setCursor(handle->isEnabled() ? Qt::SplitVCursor : Qt::ArrowCursor);
        openAbove = openAbove || open;
    }
}

void ExplorerView::OnSplitterMoved()
{
    const QList<int> sizes = m_splitter->sizes();
    for (int i = 0; i < m_sections.size(); ++i) {
        const SubView* const section = m_sections[i];
        if (section->isHidden() || !section->IsExpanded())
            continue;
        const int content = sizes[i] - SubViewHeader::Height();
        m_weights[section] = content;
        const int natural = section->GetNaturalHeight();
        if (natural > 0 && content < natural)
            m_dragged[section] = content;
        else
            m_dragged.remove(section);
    }
    SaveState();
}

void ExplorerView::OnStep(const SubView* section, int step)
{
    const QVector<SubView*> shown = ShownSections();
    const int next = shown.indexOf(const_cast<SubView*>(section)) + step;
    if (next >= 0 && next < shown.size())
        shown[next]->GetHeader()->setFocus(Qt::TabFocusReason);
}

void ExplorerView::ShowSectionMenu(SubView& section, const QPoint& globalPoint)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    section.AddMenuEntries(*menu);
    menu->addSeparator();
    const auto addCheck = [&](const QString& text, bool& option) {
        QAction* const action = menu->addAction(text);
        action->setCheckable(true);
        action->setChecked(option);
        connect(action, &QAction::toggled, this, [this, &option](bool checked) {
            option = checked;
            UpdateVisibility();
        });
    };
    addCheck(tr("Open Editors"), Settings::openEditorsVisible);
    addCheck(tr("Outline"), Settings::outlineVisible);
    menu->addSeparator();
    menu->addAction(tr("Hide Side Bar"), this, &ExplorerView::HideRequested);
    menu->popup(globalPoint);
}

void ExplorerView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    UpdateHeights();
}
