// Construction and geometry of the editor window's layout; showing and hiding its panes is in
// TarnwickEditorPanes.cpp.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "views/SideBar.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"
#include "window/chrome/ActivityBar.h"
#include "window/chrome/GrooveSplitter.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/SplitterState.h"
#include "window/chrome/StatusBar.h"
#include "window/chrome/Theme.h"

#include <QMenuBar>
#include <QMouseEvent>
#include <QSplitter>
#include <QSplitterHandle>
#include <QVBoxLayout>
#include <QVariantAnimation>

namespace {

// Design pixels.
constexpr int MENU_BAR_HEIGHT = 28;
constexpr int GROUP_MINIMUM = 100;
constexpr int OUTPUT_MINIMUM_HEIGHT = 100;
constexpr int SIDE_BAR_MINIMUM_WIDTH = 180;
constexpr int SIDE_BAR_WIDTH = 288; ///< at first, its groove included

constexpr int SLIDE_DURATION = 120; // ms
constexpr int PANES = 2; // of the output and the side-bar splitter

/// The share that `part` of `part + rest` has of an extent.
int Share(int extent, int part, int rest)
{
    return extent * part / qMax(1, part + rest);
}

} // namespace

/// Tab goes through the parts in the order in which they are made.
void TarnwickEditor::CreateWidgets()
{
    m_activityBar = new ActivityBar(this);
    m_activityBar->setObjectName(QStringLiteral("m_activityBar"));
    m_activityBar->setContextMenuPolicy(Qt::CustomContextMenu);
    m_sideBar = new SideBar(this);
    m_sideBar->setObjectName(QStringLiteral("m_sideBar"));
    UpdateActivityItems();
    CreateCodeEditorGroups();
    m_outputPanel = new PanelGroup(&m_keyBindings, this);
    m_outputPanel->setObjectName(QStringLiteral("m_outputPanel"));
    m_statusBar = new StatusBar(this);
    m_statusBar->setObjectName(QStringLiteral("m_statusBar"));
    CreateSplitters();
    CreateGoTo();
}

void TarnwickEditor::CreateSplitters()
{
    m_outputSplitter = new QSplitter(this);
    m_outputSplitter->setObjectName(QStringLiteral("m_outputSplitter"));
    m_outputSplitter->setChildrenCollapsible(false);
    ArrangeOutputSplitter();
    m_sideBarSplitter = new GrooveSplitter(Qt::Horizontal, this);
    m_sideBarSplitter->setObjectName(QStringLiteral("m_sideBarSplitter"));
    ArrangeSideBarSplitter();
    for (int i = 0; i < PANES; ++i) {
        m_outputSplitter->handle(i)->installEventFilter(this);
        m_sideBarSplitter->handle(i)->installEventFilter(this);
    }
    m_sideBarSlide = new QVariantAnimation(this);
    m_sideBarSlide->setDuration(SLIDE_DURATION);
    m_sideBarSlide->setEasingCurve(QEasingCurve::OutCubic);
}

void TarnwickEditor::CreateCodeEditorGroups()
{
    m_codeEditorSplitter
        = new QSplitter(Settings::codeEditorOrientVertical ? Qt::Vertical : Qt::Horizontal, this);
    m_codeEditorSplitter->setObjectName(QStringLiteral("m_codeEditorSplitter"));
    m_codeEditorSplitter->setChildrenCollapsible(false);
    for (int i = 0; i < Settings::NUM_CODE_EDITOR_GROUPS; ++i) {
        auto* const group
            = new CodeEditorGroup(i, &m_keyBindings, m_actions.newBuffer, m_codeEditorSplitter);
        m_groups.append(group);
        m_codeEditorSplitter->addWidget(group);
    }
    // An index stored by hand.
    if (!GetActiveCodeEditorGroup())
        Settings::activeTabViewIndex = 0;
}

void TarnwickEditor::ArrangeOutputSplitter()
{
    m_outputSplitter->setOrientation(
        Settings::outputOrientVertical ? Qt::Vertical : Qt::Horizontal);
    m_outputSplitter->insertWidget(0, m_codeEditorSplitter);
    m_outputSplitter->insertWidget(Settings::outputTopLeft ? 0 : 1, m_outputPanel);
    m_outputSplitter->setStretchFactor(m_outputSplitter->indexOf(m_codeEditorSplitter), 1);
    m_outputSplitter->setStretchFactor(m_outputSplitter->indexOf(m_outputPanel), 0);
}

void TarnwickEditor::ArrangeSideBarSplitter()
{
    m_sideBarSplitter->insertWidget(0, m_outputSplitter);
    m_sideBarSplitter->insertWidget(Settings::sideBarLeft ? 0 : 1, m_sideBar);
    const int sideBar = m_sideBarSplitter->indexOf(m_sideBar);
    const int editors = m_sideBarSplitter->indexOf(m_outputSplitter);
    m_sideBarSplitter->setCollapsible(sideBar, true);
    m_sideBarSplitter->setStretchFactor(sideBar, 0);
    m_sideBarSplitter->setCollapsible(editors, false);
    m_sideBarSplitter->setStretchFactor(editors, 1);
    // Over the side bar, whose rim has nothing to click.
    m_sideBarSplitter->SetGrabsBefore(Settings::sideBarLeft);
}

void TarnwickEditor::CreateLayout()
{
    m_middleRow = new QHBoxLayout;
    m_middleRow->setSpacing(0);
    m_middleRow->addWidget(m_sideBarSplitter, 1);
    PlaceActivityBar();

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setMenuBar(m_menuBar);
    layout->addLayout(m_middleRow, 1);
    layout->addWidget(m_statusBar);
    FollowLook(this, [this] {
        m_menuBar->setFixedHeight(Theme::Dp(MENU_BAR_HEIGHT));
        m_sideBar->setMinimumWidth(SideBarMinimumWidth());
        m_outputPanel->setMinimumHeight(Theme::Dp(OUTPUT_MINIMUM_HEIGHT));
        for (CodeEditorGroup* group : qAsConst(m_groups))
            group->setMinimumSize(Theme::Dp(GROUP_MINIMUM), Theme::Dp(GROUP_MINIMUM));
    });
}

/// At the window's edge, on the side of the side bar.
void TarnwickEditor::PlaceActivityBar()
{
    m_middleRow->insertWidget(Settings::sideBarLeft ? 0 : m_middleRow->count(), m_activityBar);
    m_activityBar->SetLeft(Settings::sideBarLeft);
}

/// A group without editors is hidden, but for the active one when all are empty.
void TarnwickEditor::RefreshCodeEditorGroups(bool focus)
{
    CodeEditorGroup* const active = GetActiveCodeEditorGroup();
    const bool allEmpty = GetCodeEditorCount() == 0;
    bool changed = false;
    // A place for one more group there is only while one of them is empty.
    const bool allInUse = !CountTabs().contains(0);
    for (CodeEditorGroup* group : qAsConst(m_groups)) {
        group->SetTabDropOtherGroupsEnabled(!allInUse);
        const bool shown = group->GetCount() > 0 || (allEmpty && group == active);
        changed = changed || shown == group->isHidden();
        group->setVisible(shown);
        group->SetActive(group == active);
    }
    if (changed)
        SetEqualGroupSizes();
    if (focus && active)
        active->FocusCurrentCodeEditor();
}

void TarnwickEditor::SetEqualGroupSizes()
{
    QList<int> sizes;
    for (int i = 0; i < m_groups.size(); ++i)
        sizes.append(qMax(m_codeEditorSplitter->width(), m_codeEditorSplitter->height()));
    m_codeEditorSplitter->setSizes(sizes);
}

void TarnwickEditor::RestoreSplitterState()
{
    if (size() != m_sizeWhenHidden)
        ForgetUnchosenSizes();
    // The default ratios need the extents that the window has now.
    layout()->activate();
    SetSideBarExtent(StoredSideBarExtent());
    SetOutputExtent(StoredOutputExtent());
}

/// What nobody chose is the default of the window as large as it was, not of one of another size.
void TarnwickEditor::ForgetUnchosenSizes()
{
    if (StoredSideBarExtent() == m_defaultSideBarExtent)
        Settings::sideBarState.clear();
    if (StoredOutputExtent() == m_defaultOutputExtent)
        Settings::outputState.clear();
}

int TarnwickEditor::StoredSideBarExtent()
{
    const QList<int> sizes
        = SplitterState::Sizes(Settings::sideBarState, m_sideBarSplitter->orientation(), PANES);
    return sizes.isEmpty() ? TakeDefaultSideBarExtent() : sizes[!Settings::sideBarLeft];
}

int TarnwickEditor::StoredOutputExtent()
{
    const QList<int> sizes
        = SplitterState::Sizes(Settings::outputState, m_outputSplitter->orientation(), PANES);
    return sizes.isEmpty() ? TakeDefaultOutputExtent() : sizes[!Settings::outputTopLeft];
}

int TarnwickEditor::SideBarMinimumWidth()
{
    return Theme::Dp(SIDE_BAR_MINIMUM_WIDTH);
}

int TarnwickEditor::SideBarExtent() const
{
    return m_sideBarSplitter->sizes().value(m_sideBarSplitter->indexOf(m_sideBar));
}

int TarnwickEditor::TakeDefaultSideBarExtent()
{
    const int share
        = Share(m_sideBarSplitter->width(), Settings::sideBarSize, Settings::mainWindowSize);
    const int widest = Theme::Dp(SIDE_BAR_WIDTH) - m_sideBarSplitter->handleWidth();
    m_defaultSideBarExtent = qBound(SideBarMinimumWidth(), share, widest);
    return m_defaultSideBarExtent;
}

int TarnwickEditor::TakeDefaultOutputExtent()
{
    const bool vertical = Settings::outputOrientVertical;
    const QSize least = m_outputPanel->minimumSizeHint().expandedTo(m_outputPanel->minimumSize());
    const int extent = vertical ? m_outputSplitter->height() : m_outputSplitter->width();
    const int share = Share(
        extent - m_outputSplitter->handleWidth(), Settings::outputSize, Settings::codeEditorSize);
    m_defaultOutputExtent = qMax(vertical ? least.height() : least.width(), share);
    return m_defaultOutputExtent;
}

/// The editors take the rest.
void TarnwickEditor::SetSideBarExtent(int extent)
{
    const int rest
        = qMax(1, m_sideBarSplitter->width() - m_sideBarSplitter->handleWidth() - extent);
    m_sideBarSplitter->setSizes(
        Settings::sideBarLeft ? QList<int>{extent, rest} : QList<int>{rest, extent});
}

void TarnwickEditor::SetOutputExtent(int extent)
{
    const int whole
        = Settings::outputOrientVertical ? m_outputSplitter->height() : m_outputSplitter->width();
    const int rest = qMax(1, whole - m_outputSplitter->handleWidth() - extent);
    m_outputSplitter->setSizes(
        Settings::outputTopLeft ? QList<int>{extent, rest} : QList<int>{rest, extent});
}

/// Only of panes that are shown: a hidden pane keeps the size it will come back with.
void TarnwickEditor::SaveSplitterState()
{
    // Before the first show nothing has a size.
    if (!testAttribute(Qt::WA_WState_Polished))
        return;
    if (IsSideBarShown())
        Settings::sideBarState = m_sideBarSplitter->saveState();
    if (!m_outputPanel->isHidden() && !m_codeEditorSplitter->isHidden())
        Settings::outputState = m_outputSplitter->saveState();
    m_sideBar->SaveState();
}

/// Keeps the place of the floating panel; docked, or not in a panel at all, the stored one stays.
void TarnwickEditor::SaveWindowGeometry(bool hiding)
{
    const QWidget* const top = window();
    if (top == this || top == m_mainWindow || (!hiding && !isVisible()))
        return;
    Settings::windowGeometry = top->geometry();
}

/// Drags and double clicks on the handles of the output and the side-bar splitter.
void TarnwickEditor::OnSplitterHandleEvent(const QSplitter* splitter, const QEvent& event)
{
    // While the whole application is watched there are others' handles, too.
    if (splitter != m_sideBarSplitter && splitter != m_outputSplitter)
        return;
    switch (event.type()) {
    case QEvent::MouseButtonDblClick:
        if (splitter == m_sideBarSplitter)
            SetSideBarExtent(TakeDefaultSideBarExtent());
        else
            SetOutputExtent(TakeDefaultOutputExtent());
        break;
    case QEvent::MouseButtonPress:
        // What a side bar that is dragged away comes back with.
        SaveSplitterState();
        break;
    case QEvent::MouseButtonRelease:
        // Not now: hiding the side bar takes the handle away that handles this very event.
        QMetaObject::invokeMethod(this, &TarnwickEditor::OnSplitterDragged, Qt::QueuedConnection);
        break;
    default: break;
    }
}

void TarnwickEditor::OnSplitterDragged()
{
    if (!m_sideBar->isHidden() && SideBarExtent() == 0)
        SetSideBarVisible(false, false);
    SaveSplitterState();
}
