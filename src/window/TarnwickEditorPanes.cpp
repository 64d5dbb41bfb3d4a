// Showing, hiding and moving the panes of the editor window.

#include "editor/CodeEditor.h"
#include "output/OutputTextEdit.h"
#include "settings/Settings.h"
#include "views/SideBar.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"
#include "window/chrome/ActivityBar.h"
#include "window/chrome/GrooveSplitter.h"
#include "window/chrome/SplitterState.h"
#include "window/chrome/StatusBar.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QSplitter>
#include <QStyle>
#include <QVariantAnimation>

namespace {

/// The pages of the side bar and their entries in the activity bar.
struct PageRow
{
    SideBar::Page page;
    ActivityBar::Item item;
    int binding;
};

constexpr PageRow PAGES[] = {
    {SideBar::Page::Explorer, ActivityBar::Item::Explorer, KeyBindings::Explorer},
    {SideBar::Page::Search, ActivityBar::Item::Search, KeyBindings::FindInFiles},
    {SideBar::Page::QuickHelp, ActivityBar::Item::QuickHelp, KeyBindings::QuickHelp},
};

/// Whether hiding `pane` would leave the window without the focus.
bool HasFocusInside(const QWidget* pane)
{
    const QWidget* const focus = QApplication::focusWidget();
    return focus && (focus == pane || pane->isAncestorOf(focus));
}

} // namespace

void TarnwickEditor::ToggleCodeEditor()
{
    // One of the two is always shown.
    const bool visible = !Settings::codeEditorVisible;
    SetPanesVisible(visible, Settings::outputVisible || !visible);
}

void TarnwickEditor::ToggleOutput()
{
    const bool visible = !Settings::outputVisible;
    SetPanesVisible(Settings::codeEditorVisible || !visible, visible);
}

void TarnwickEditor::SetPanesVisible(bool codeEditor, bool output)
{
    SaveSplitterState();
    const bool focusGoes = (!codeEditor && HasFocusInside(m_codeEditorSplitter))
        || (!output && HasFocusInside(m_outputPanel));
    const bool appears = codeEditor && !Settings::codeEditorVisible;
    Settings::codeEditorVisible = codeEditor;
    Settings::outputVisible = output;
    ShowPanes();
    SetOutputExtent(StoredOutputExtent());
    // Editors that come back are what the user means to work in.
    if (focusGoes || appears)
        FocusShownPane();
}

/// As the settings have it. With both off the editors are shown.
void TarnwickEditor::ShowPanes()
{
    if (!Settings::outputVisible)
        Settings::codeEditorVisible = true;
    m_codeEditorSplitter->show();
    m_outputPanel->show();
    if (!Settings::outputVisible)
        m_outputPanel->hide();
    else if (!Settings::codeEditorVisible)
        m_codeEditorSplitter->hide();
}

/// Where the focus goes when the pane that has it is hidden.
void TarnwickEditor::FocusShownPane()
{
    if (Settings::codeEditorVisible && GetActiveCodeEditor())
        FocusActiveCodeEditor();
    else if (Settings::outputVisible)
        m_outputPanel->GetOutput()->setFocus(Qt::OtherFocusReason);
}

void TarnwickEditor::ToggleSideBar()
{
    SetSideBarVisible(!Settings::sideBarVisible, true);
}

bool TarnwickEditor::IsSideBarShown() const
{
    const bool slides = m_sideBarSlide->state() == QAbstractAnimation::Running;
    return !m_sideBar->isHidden() && !slides && SideBarExtent() > 0;
}

void TarnwickEditor::SetSideBarVisible(bool visible, bool animated)
{
    SaveSplitterState();
    const bool focusGoes = !visible && HasFocusInside(m_sideBar);
    Settings::sideBarVisible = visible;
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    m_sideBarSlide->stop();
    if (animated && duration > 0 && isVisible())
        SlideSideBar();
    else
        FinishSideBarSlide();
    UpdateActivityBar();
    UpdateSearchMarks();
    if (focusGoes)
        FocusShownPane();
}

/// Towards the visibility that the settings have, from wherever an earlier slide left it.
void TarnwickEditor::SlideSideBar()
{
    const int from = m_sideBar->isHidden() ? 1 : m_sideBar->width();
    m_sideBar->setMinimumWidth(1);
    m_sideBar->show();
    m_sideBarSlide->setStartValue(from);
    m_sideBarSlide->setEndValue(Settings::sideBarVisible ? StoredSideBarExtent() : 1);
    m_sideBarSlide->start();
}

void TarnwickEditor::FinishSideBarSlide()
{
    m_sideBar->setVisible(Settings::sideBarVisible);
    m_sideBar->setMinimumWidth(SideBarMinimumWidth());
    SetSideBarExtent(StoredSideBarExtent());
}

void TarnwickEditor::ToggleSideBarPosition()
{
    SaveSplitterState();
    Settings::sideBarState = SplitterState::Reversed(Settings::sideBarState);
    Settings::sideBarLeft = !Settings::sideBarLeft;
    ArrangeSideBarSplitter();
    m_middleRow->removeWidget(m_activityBar);
    PlaceActivityBar();
    SetSideBarExtent(StoredSideBarExtent());
    UpdatePaneActions();
}

void TarnwickEditor::ToggleCodeEditorLayout()
{
    Settings::codeEditorOrientVertical = !Settings::codeEditorOrientVertical;
    m_codeEditorSplitter->setOrientation(
        Settings::codeEditorOrientVertical ? Qt::Vertical : Qt::Horizontal);
    SetEqualGroupSizes();
}

void TarnwickEditor::SetOutputPosition(bool vertical, bool topLeft)
{
    SaveSplitterState();
    // A height says nothing about a width.
    if (vertical != Settings::outputOrientVertical)
        Settings::outputState.clear();
    else if (topLeft != Settings::outputTopLeft)
        Settings::outputState = SplitterState::Reversed(Settings::outputState);
    Settings::outputOrientVertical = vertical;
    Settings::outputTopLeft = topLeft;
    ArrangeOutputSplitter();
    SetOutputExtent(StoredOutputExtent());
    SaveSplitterState();
}

/// The page, and the side bar with it.
void TarnwickEditor::ShowSideBarPage(SideBar::Page page)
{
    m_sideBar->ShowPage(page);
    if (!Settings::sideBarVisible)
        SetSideBarVisible(true, true);
    UpdateActivityBar();
}

void TarnwickEditor::ShowExplorer()
{
    ShowSideBarPage(SideBar::Page::Explorer);
    m_sideBar->FocusPage(Qt::ShortcutFocusReason);
}

/// A press on the page that is shown hides the side bar.
void TarnwickEditor::OnActivityPressed(ActivityBar::Item item)
{
    for (const PageRow& row : PAGES) {
        if (row.item != item)
            continue;
        if (m_activityBar->IsCurrent(item)) {
            SetSideBarVisible(false, true);
            continue;
        }
        ShowSideBarPage(row.page);
        m_sideBar->FocusPage(Qt::MouseFocusReason);
    }
    if (item == ActivityBar::Item::Preferences)
        ShowPreferencesDialog();
}

void TarnwickEditor::UpdateActivityItems()
{
    for (const PageRow& row : PAGES)
        m_activityBar->SetItemShown(row.item, m_sideBar->HasPage(row.page));
    m_activityBar->SetItemShown(ActivityBar::Item::Preferences, true);
}

void TarnwickEditor::UpdateActivityBar()
{
    m_activityBar->ClearCurrent();
    for (const PageRow& row : PAGES) {
        if (Settings::sideBarVisible && row.page == m_sideBar->GetPage())
            m_activityBar->SetCurrent(row.item);
    }
}

void TarnwickEditor::UpdateActivityToolTips()
{
    for (const PageRow& row : PAGES) {
        m_activityBar->SetToolTip(
            row.item, m_keyBindings.GetToolTip(row.binding, ActivityBar::GetLabel(row.item)));
    }
    constexpr auto PREFERENCES = ActivityBar::Item::Preferences;
    m_activityBar->SetToolTip(PREFERENCES,
        m_keyBindings.GetToolTip(KeyBindings::Preferences, ActivityBar::GetLabel(PREFERENCES)));
}

void TarnwickEditor::ShowActivityContextMenu(const QPoint& point)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addAction(Settings::sideBarVisible ? tr("Hide Side Bar") : tr("Show Side Bar")),
        &QAction::triggered, this, &TarnwickEditor::ToggleSideBar);
    connect(menu->addAction(tr("Hide Activity Bar")), &QAction::triggered, this,
        &TarnwickEditor::ToggleActivityBar);
    menu->addSeparator();
    for (const bool left : {true, false}) {
        QAction* const action
            = menu->addAction(left ? tr("Side Bar at the Left") : tr("Side Bar at the Right"));
        action->setCheckable(true);
        action->setChecked(left == Settings::sideBarLeft);
        if (!action->isChecked())
            connect(action, &QAction::triggered, this, &TarnwickEditor::ToggleSideBarPosition);
    }
    menu->popup(m_activityBar->mapToGlobal(point));
}

void TarnwickEditor::ToggleActivityBar()
{
    Settings::activityBarVisible = !Settings::activityBarVisible;
    const bool focusGoes = !Settings::activityBarVisible && HasFocusInside(m_activityBar);
    m_activityBar->setVisible(Settings::activityBarVisible);
    UpdatePaneActions();
    if (focusGoes)
        FocusShownPane();
}

void TarnwickEditor::ToggleStatusBar()
{
    Settings::statusBarVisible = !Settings::statusBarVisible;
    const bool focusGoes = !Settings::statusBarVisible && HasFocusInside(m_statusBar);
    m_statusBar->setVisible(Settings::statusBarVisible);
    UpdatePaneActions();
    if (focusGoes)
        FocusShownPane();
}

/// The texts of entries that say what they would do.
void TarnwickEditor::UpdatePaneActions()
{
    const auto rename = [](QAction* action, const QString& text) {
        action->setText(text);
        action->setStatusTip(text);
    };
    rename(m_actions.toggleActivityBar,
        Settings::activityBarVisible ? tr("Hide Activity Bar") : tr("Show Activity Bar"));
    rename(m_actions.toggleStatusBar,
        Settings::statusBarVisible ? tr("Hide Status Bar") : tr("Show Status Bar"));
    rename(m_actions.toggleSideBarPosition,
        Settings::sideBarLeft ? tr("Move Side Bar Right") : tr("Move Side Bar Left"));
}
