// Widgets, layout and mini tool bar of a code editor group, and what its tab bar asks for.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/CodeEditorGroupTabBar.h"
#include "editor/EmptyGroupHint.h"
#include "editor/FindReplaceWidget.h"
#include "plugin/MayaUtil.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/OverlayWidget.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolSeparator.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QMenu>
#include <QStackedWidget>
#include <QTimer>

#include <utility>

namespace {

// Design pixels.
constexpr int BUTTON_EXTENT = 26;
constexpr int TOOLBAR_MARGIN = 6;
constexpr int MINIMUM_EXTENT = 100; // pixels, of the whole group
constexpr int SCROLL_INTERVAL = 40; // ms between steps while a scroll button is held

} // namespace

/// An execute button: what it shows, and the option that hides it.
struct CodeEditorGroup::MiniButton
{
    FlatButton* CodeEditorGroup::*button;
    const char* label;
    int binding;
    bool* shown;
};

const CodeEditorGroup::MiniButton* CodeEditorGroup::MiniButtons()
{
    using G = CodeEditorGroup;
    using K = KeyBindings;
    static const MiniButton BUTTONS[] = {
        {&G::m_executeButton, QT_TR_NOOP("Execute"), K::Execute,
            &Settings::showCodeEditorExecuteBtn},
        {&G::m_executeAllButton, QT_TR_NOOP("Execute All"), K::ExecuteAll,
            &Settings::showCodeEditorExecuteAllBtn},
        {&G::m_executeLineButton, QT_TR_NOOP("Execute Line"), K::ExecuteLine,
            &Settings::showCodeEditorExecuteLineBtn},
        {nullptr, nullptr, 0, nullptr},
    };
    return BUTTONS;
}

void CodeEditorGroup::CreateWidgets()
{
    setMinimumSize(MINIMUM_EXTENT, MINIMUM_EXTENT);
    auto* row = new QWidget(this);
    row->setObjectName(QStringLiteral("tabRow"));
    m_tabBar = new CodeEditorGroupTabBar(row);
    m_tabBar->setObjectName(QStringLiteral("m_tabBar"));
    m_tabBar->setAccessibleName(tr("Tabs of editor group %1").arg(m_id + 1));
    m_tabBar->SetGroupId(m_id);
    m_stack = new QStackedWidget(this);
    m_emptyHint = new EmptyGroupHint(m_keyBindings, m_stack);
    m_emptyHint->setObjectName(QStringLiteral("m_emptyHint"));
    m_emptyHint->setContextMenuPolicy(Qt::CustomContextMenu);
    m_emptyDropOverlay = new OverlayWidget(m_stack);
    setAcceptDrops(true);
    m_miniToolbar = new QWidget(row);
    m_miniToolbar->setObjectName(QStringLiteral("m_miniToolbar"));
    m_miniToolbar->setContextMenuPolicy(Qt::CustomContextMenu);

    const auto own = FlatButton::Tint::Own;
    const auto computed = FlatButton::Tint::Computed;
    m_scrollLeftButton = new FlatButton(
        QStringLiteral("scroll_left"), tr("Scroll Tabs Left"), computed, m_miniToolbar);
    m_scrollRightButton = new FlatButton(
        QStringLiteral("scroll_right"), tr("Scroll Tabs Right"), computed, m_miniToolbar);
    m_executeButton = new FlatButton(QStringLiteral("execute"), tr("Execute"), own, m_miniToolbar);
    m_executeAllButton
        = new FlatButton(QStringLiteral("execute_all"), tr("Execute All"), own, m_miniToolbar);
    m_executeLineButton
        = new FlatButton(QStringLiteral("execute_line"), tr("Execute Line"), own, m_miniToolbar);
    m_openEditorsButton = new FlatButton(
        QStringLiteral("list_code_editors"), tr("Open Editors"), computed, m_miniToolbar);
    m_scrollLeftButton->setObjectName(QStringLiteral("m_scrollLeftButton"));
    m_scrollRightButton->setObjectName(QStringLiteral("m_scrollRightButton"));
    m_executeButton->setObjectName(QStringLiteral("m_executeButton"));
    m_executeAllButton->setObjectName(QStringLiteral("m_executeAllButton"));
    m_executeLineButton->setObjectName(QStringLiteral("m_executeLineButton"));
    m_openEditorsButton->setObjectName(QStringLiteral("m_openEditorsButton"));
    for (FlatButton* button : m_miniToolbar->findChildren<FlatButton*>())
        button->SetExtent(BUTTON_EXTENT);
    m_scrollTimer = new QTimer(this);
    m_scrollTimer->setInterval(SCROLL_INTERVAL);
}

void CodeEditorGroup::CreateLayout()
{
    auto* tools = new QHBoxLayout(m_miniToolbar);
    tools->addWidget(m_scrollLeftButton);
    tools->addWidget(m_scrollRightButton);
    tools->addWidget(new ToolSeparator(m_miniToolbar));
    tools->addWidget(m_executeButton);
    tools->addWidget(m_executeAllButton);
    tools->addWidget(m_executeLineButton);
    tools->addWidget(new ToolSeparator(m_miniToolbar));
    tools->addWidget(m_openEditorsButton);
    UpdateMiniToolbarSpacing();

    QWidget* row = m_tabBar->parentWidget();
    auto* rowLayout = new QHBoxLayout(row);
    rowLayout->setContentsMargins(0, 0, 0, 0);
    rowLayout->setSpacing(0);
    rowLayout->addWidget(m_tabBar, 1);
    rowLayout->addWidget(m_miniToolbar);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(row);
    layout->addWidget(m_stack, 1);
}

void CodeEditorGroup::UpdateMiniToolbarSpacing()
{
    QLayout* tools = m_miniToolbar->layout();
    tools->setContentsMargins(Theme::Dp(TOOLBAR_MARGIN), 0, Theme::Dp(TOOLBAR_MARGIN), 0);
    tools->setSpacing(Theme::Hairline());
}

void CodeEditorGroup::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::StyleChange)
        return;
    // The interface scale may be another one.
    UpdateMiniToolbarSpacing();
    UpdateMiniToolbar();
    UpdateFindReplacePosition();
}

void CodeEditorGroup::CreateConnections()
{
    using G = CodeEditorGroup;
    connect(m_tabBar, &CustomTabBar::CurrentChanged, this, &G::OnCurrentTabChanged);
    connect(m_tabBar, &CustomTabBar::Activated, this, &G::FocusCurrentCodeEditor);
    connect(m_tabBar, &CustomTabBar::ScrollRangeChanged, this, &G::UpdateMiniToolbar);
    ConnectTabBarRequests();
    // What is executed is the editor with the focus, and a button does not take it there.
    for (const MiniButton* row = MiniButtons(); row->label; ++row)
        connect(this->*row->button, &QAbstractButton::clicked, this, &G::FocusCurrentCodeEditor);
    connect(m_executeButton, &QAbstractButton::clicked, this, &G::ExecutePressed);
    connect(m_executeAllButton, &QAbstractButton::clicked, this, &G::ExecuteAllPressed);
    connect(m_executeLineButton, &QAbstractButton::clicked, this, &G::ExecuteLinePressed);
    connect(
        m_openEditorsButton, &QAbstractButton::clicked, this, &G::ShowOpenCodeEditorContextMenu);
    connect(m_miniToolbar, &QWidget::customContextMenuRequested, this, [this](const QPoint& point) {
        ShowMiniToolbarContextMenu(m_miniToolbar->mapToGlobal(point));
    });
    connect(m_emptyHint, &QWidget::customContextMenuRequested, this, &G::ShowEmptyContextMenu);
    connect(m_scrollTimer, &QTimer::timeout, this, &G::ScrollTabs);
    connect(m_scrollLeftButton, &QAbstractButton::pressed, this, [this] { BeginScroll(-1); });
    connect(m_scrollRightButton, &QAbstractButton::pressed, this, [this] { BeginScroll(1); });
    connect(m_scrollLeftButton, &QAbstractButton::released, m_scrollTimer, &QTimer::stop);
    connect(m_scrollRightButton, &QAbstractButton::released, m_scrollTimer, &QTimer::stop);
}

/// What the user wants done with tabs is the window's to decide.
void CodeEditorGroup::ConnectTabBarRequests()
{
    using B = CodeEditorGroupTabBar;
    using G = CodeEditorGroup;
    static const std::pair<void (B::*)(int), void (G::*)(CodeEditorGroup*, int)> REQUESTS[] = {
        {&B::CloseRequested, &G::CloseTabRequested},
        {&B::CloseOthersRequested, &G::CloseOtherTabsRequested},
        {&B::CloseToRightRequested, &G::CloseTabsToRightRequested},
        {&B::RenameRequested, &G::RenameRequested},
    };
    for (const auto& row : REQUESTS)
        connect(m_tabBar, row.first, this,
            [this, request = row.second](int index) { (this->*request)(this, index); });
    connect(m_tabBar, &B::NewTabRequested, this, &G::NewTabRequested);
    connect(m_emptyHint, &EmptyGroupHint::NewTabRequested, this, &G::NewTabRequested);
    connect(m_tabBar, &B::MoveRequested, this, &G::OnMoveRequested);
    connect(m_tabBar, &B::OpenFilesRequested, this, &G::RequestOpenFiles);
    connect(m_tabBar, &B::CopyPathRequested, this, &G::CopyPath);
    connect(m_tabBar, &B::ShowInFolderRequested, this, &G::OnShowInFolder);
    connect(m_tabBar, &B::ShowInSideBarRequested, this,
        [this](int index) { Q_EMIT ShowInSideBarRequested(GetFilePath(index)); });
    connect(m_tabBar, &B::EmptyZoneContextMenuSelected, this, &G::ShowMiniToolbarContextMenu);
}

void CodeEditorGroup::ShowTabContextMenu(int index, const QPoint& globalPoint)
{
    if (GetCodeEditor(index))
        m_tabBar->ShowContextMenu(index, globalPoint);
}

void CodeEditorGroup::OnMoveRequested(int sourceGroupId, int sourceIndex, int target)
{
    Q_EMIT MoveTabRequested(sourceGroupId, sourceIndex, m_id, target);
}

void CodeEditorGroup::RequestOpenFiles(int index, const QStringList& paths)
{
    int place = index;
    for (const QString& path : paths) {
        const int before = GetCount();
        Q_EMIT OpenFileRequested(m_id, place, path);
        place += qMax(0, GetCount() - before);
    }
}

void CodeEditorGroup::CopyPath(int index)
{
    const QString path = GetFilePath(index);
    if (!path.isEmpty())
        QApplication::clipboard()->setText(path);
}

void CodeEditorGroup::OnShowInFolder(int index)
{
    MayaUtil::RevealInFolder(GetFilePath(index));
}

void CodeEditorGroup::BeginScroll(int direction)
{
    m_scrollDirection = direction;
    ScrollTabs();
    m_scrollTimer->start();
}

void CodeEditorGroup::ScrollTabs()
{
    m_tabBar->ScrollBy(m_scrollDirection);
}

void CodeEditorGroup::UpdateKeyBindings()
{
    for (const MiniButton* row = MiniButtons(); row->label; ++row)
        (this->*row->button)->SetToolTip(m_keyBindings->GetToolTip(row->binding, tr(row->label)));
    m_emptyHint->UpdateKeyBindings();
    m_findReplace->UpdateKeyBindings(m_keyBindings);
}

void CodeEditorGroup::SetMiniToolbarVisible(bool visible)
{
    m_miniToolbarVisible = visible;
    UpdateMiniToolbar();
}

/// A group too narrow for the tool bar keeps its tabs.
bool CodeEditorGroup::HasRoomForMiniToolbar() const
{
    return width() >= m_miniToolbar->sizeHint().width() + m_tabBar->minimumSizeHint().width();
}

void CodeEditorGroup::UpdateMiniToolbar()
{
    m_scrollLeftButton->setEnabled(m_tabBar->CanScroll(-1));
    m_scrollRightButton->setEnabled(m_tabBar->CanScroll(1));
    const bool hasEditors = GetCount() > 0;
    for (const MiniButton* row = MiniButtons(); row->label; ++row) {
        (this->*row->button)->setVisible(*row->shown);
        (this->*row->button)->setEnabled(hasEditors);
    }
    m_openEditorsButton->setEnabled(hasEditors);
    m_miniToolbar->setVisible(m_miniToolbarVisible && HasRoomForMiniToolbar());
}

void CodeEditorGroup::SetActive(bool active)
{
    m_tabBar->SetActive(active);
    for (FlatButton* button : m_miniToolbar->findChildren<FlatButton*>())
        button->SetDimmed(!active);
}

void CodeEditorGroup::ShowOpenCodeEditorContextMenu()
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int i = 0; i < GetCount(); ++i) {
        // An ampersand in a name is no mnemonic.
        QString label = m_tabBar->GetTabDescription(i);
        QAction* const action
            = menu->addAction(label.replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setData(i);
        action->setCheckable(true);
        action->setChecked(i == GetCurrentIndex());
        connect(action, &QAction::triggered, this, &CodeEditorGroup::SetCurrentTabFromAction);
    }
    // The button stands at the group's right end, so the menu ends there, too.
    const QPoint corner(
        m_openEditorsButton->width() - menu->sizeHint().width(), m_openEditorsButton->height());
    menu->popup(m_openEditorsButton->mapToGlobal(corner));
}

void CodeEditorGroup::SetCurrentTabFromAction()
{
    const auto* const action = qobject_cast<const QAction*>(sender());
    if (!action)
        return;
    SetCurrentIndex(action->data().toInt());
    FocusCurrentCodeEditor();
}

void CodeEditorGroup::ShowEmptyContextMenu(const QPoint& point)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(m_emptyHint->actions());
    menu->popup(m_emptyHint->mapToGlobal(point));
}

void CodeEditorGroup::ShowMiniToolbarContextMenu(const QPoint& point)
{
    if (!Settings::showTabBarMiniToolbar || !m_miniToolbar->isVisible())
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MiniButton* row = MiniButtons(); row->label; ++row) {
        QAction* const action = menu->addAction(tr(row->label));
        action->setCheckable(true);
        action->setChecked(*row->shown);
        connect(action, &QAction::triggered, this, [this, row] { ToggleMiniToolbarDisplay(*row); });
    }
    menu->popup(point);
}

void CodeEditorGroup::ToggleMiniToolbarDisplay(const MiniButton& row)
{
    *row.shown = !*row.shown;
    Q_EMIT MiniToolbarDisplayModified();
    UpdateMiniToolbar();
}
