#include "views/SideBar.h"

#include "settings/Settings.h"
#include "views/explorer/ExplorerView.h"
#include "views/explorer/OpenEditorsView.h"
#include "views/explorer/WorkspaceView.h"
#include "views/outline/OutlineView.h"
#include "views/quickhelp/QuickHelpView.h"
#include "views/search/SearchView.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

// Design pixels.
constexpr int TITLE_HEIGHT = 34;
constexpr int TITLE_MARGIN = 14;
constexpr int TOOLS_MARGIN = 6;

/// What the Tab key stops at inside `page`, in its order.
QWidgetList TabStops(const QWidget* page)
{
    QWidgetList stops;
    for (QWidget* next = page->nextInFocusChain(); page->isAncestorOf(next);
         next = next->nextInFocusChain()) {
        if (next->focusPolicy() & Qt::TabFocus)
            stops.append(next);
    }
    return stops;
}

} // namespace

struct SideBar::PageRow
{
    Page page;
    const char* title;
};

SideBar::SideBar(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_stack(new QStackedWidget(this))
    , m_explorer(new ExplorerView(this))
    , m_search(new SearchView(this))
{
    setAttribute(Qt::WA_StyledBackground);
    m_title->setObjectName(QStringLiteral("m_title"));
    m_title->setContextMenuPolicy(Qt::CustomContextMenu);
    m_stack->setObjectName(QStringLiteral("m_stack"));
    m_stack->addWidget(m_explorer);
    m_explorer->setObjectName(QStringLiteral("m_explorer"));
    CreateSearch();
    CreateLayout();
    // What another window left behind.
    Settings::searchViewActive = false;
    connect(m_title, &QWidget::customContextMenuRequested, this, &SideBar::ShowTitleMenu);
    connect(GetOutline(), &OutlineView::EditorRequested, this, &SideBar::FocusEditorRequested);
    connect(m_explorer, &ExplorerView::HideRequested, this, &SideBar::HideRequested);
}

void SideBar::CreateLayout()
{
    m_groove = new QWidget(this);
    m_groove->setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* titleRow = new QHBoxLayout;
    titleRow->setSpacing(0);
    titleRow->addWidget(m_title, 1);
    titleRow->addWidget(m_search->GetTitleTools());
    layout->addLayout(titleRow);
    layout->addWidget(m_groove);
    layout->addWidget(m_stack, 1);
    FollowLook(this, [this, titleRow] {
        m_groove->setFixedHeight(Theme::Hairline());
        QPalette palette = m_groove->palette();
        palette.setColor(QPalette::Window, Theme::Color(Theme::Role::Groove));
        m_groove->setPalette(palette);
        m_title->setFixedHeight(Theme::Dp(TITLE_HEIGHT));
        m_title->setContentsMargins(Theme::Dp(TITLE_MARGIN), 0, 0, 0);
        titleRow->setContentsMargins(0, 0, Theme::Dp(TOOLS_MARGIN), 0);
        UpdateTitle();
    });
}

const SideBar::PageRow* SideBar::RowOf(Page page)
{
    static const PageRow ROWS[] = {
        {Page::Explorer, QT_TR_NOOP("EXPLORER")},
        {Page::Search, QT_TR_NOOP("SEARCH")},
        {Page::QuickHelp, QT_TR_NOOP("QUICK HELP")},
    };
    const auto* const found = std::find_if(
        std::begin(ROWS), std::end(ROWS), [page](const PageRow& row) { return row.page == page; });
    return found == std::end(ROWS) ? nullptr : found;
}

bool SideBar::HasPage(Page page)
{
    return RowOf(page) != nullptr;
}

void SideBar::ShowPage(Page page)
{
    if (page == m_page || !HasPage(page))
        return;
    m_page = page;
    m_stack->setCurrentWidget(page == Page::QuickHelp ? CreateQuickHelp()
            : page == Page::Search                    ? static_cast<QWidget*>(m_search)
                                                      : m_explorer);
    m_search->GetTitleTools()->setVisible(page == Page::Search);
    // There the fields begin right below the title.
    m_groove->setVisible(page != Page::Search);
    Settings::searchViewActive = page == Page::Search;
    UpdateTitle();
    Q_EMIT PageChanged();
}

void SideBar::CreateSearch()
{
    m_search->setObjectName(QStringLiteral("m_search"));
    m_stack->addWidget(m_search);
    m_search->GetTitleTools()->hide();
    connect(m_search, &SearchView::HideRequested, this, &SideBar::HideRequested);
}

/// The one there is, if there is one.
QWidget* SideBar::CreateQuickHelp()
{
    if (m_quickHelp)
        return m_quickHelp;
    m_quickHelp = new QuickHelpView(this);
    m_quickHelp->setObjectName(QStringLiteral("m_quickHelp"));
    m_stack->addWidget(m_quickHelp);
    m_quickHelp->SetScriptSource(m_quickHelpScript);
    if (m_keyBindings)
        m_quickHelp->UpdateKeyBindings(m_keyBindings);
    // The Tab key reaches the page from the side bar, not from all that is older than the page.
    QWidget* last = TabStops(m_explorer).last();
    const QWidgetList stops = TabStops(m_quickHelp);
    for (QWidget* stop : stops) {
        setTabOrder(last, stop);
        last = stop;
    }
    connect(m_quickHelp, &QuickHelpView::FlagChosen, this, &SideBar::FlagChosen);
    connect(m_quickHelp, &QuickHelpView::CommandReferenceRequested, this,
        &SideBar::CommandReferenceRequested);
    connect(m_quickHelp, &QuickHelpView::HideRequested, this, &SideBar::HideRequested);
    connect(m_quickHelp, &QuickHelpView::FileRequested, this, &SideBar::FileRequested);
    return m_quickHelp;
}

void SideBar::FocusPage(Qt::FocusReason reason)
{
    if (m_page == Page::QuickHelp)
        m_quickHelp->FocusSearch(reason);
    else if (m_page == Page::Search)
        m_search->FocusSearch(reason);
    else
        GetWorkspace()->FocusContent(reason);
}

void SideBar::UpdateKeyBindings(const KeyBindings* keyBindings)
{
    m_keyBindings = keyBindings;
    m_search->UpdateKeyBindings(keyBindings);
    GetOpenEditors()->UpdateKeyBindings(keyBindings);
    GetWorkspace()->UpdateKeyBindings(keyBindings);
    if (m_quickHelp)
        m_quickHelp->UpdateKeyBindings(keyBindings);
}

void SideBar::SetQuickHelpScript(std::function<QuickHelpTopics::Script()> source)
{
    m_quickHelpScript = std::move(source);
}

void SideBar::UpdateQuickHelp(const QString& text, bool isRequested)
{
    if (isRequested)
        ShowPage(Page::QuickHelp);
    if (isRequested || (m_quickHelp && m_quickHelp->isVisible()))
        m_quickHelp->Show(text, isRequested);
}

OpenEditorsView* SideBar::GetOpenEditors() const
{
    return m_explorer->GetOpenEditors();
}

WorkspaceView* SideBar::GetWorkspace() const
{
    return m_explorer->GetWorkspace();
}

OutlineView* SideBar::GetOutline() const
{
    return m_explorer->GetOutline();
}

void SideBar::UpdateOutline(BaseParser* parser)
{
    GetOutline()->Update(parser);
}

void SideBar::SaveOutline()
{
    GetOutline()->Save();
}

void SideBar::ClearInvalidDetailsFromOutline(const QStringList& openFilePaths)
{
    GetOutline()->ClearInvalidDetails(openFilePaths);
}

void SideBar::SaveWorkspace()
{
    GetWorkspace()->SaveWorkspace();
}

void SideBar::SaveWorkspaceAs(const QString& path)
{
    GetWorkspace()->SaveWorkspaceAs(path);
}

void SideBar::OpenWorkspace(const QString& path)
{
    GetWorkspace()->OpenWorkspace(path);
}

void SideBar::UpdatePreferences()
{
    m_explorer->UpdateVisibility();
    GetWorkspace()->UpdateAll();
}

void SideBar::SaveState()
{
    m_explorer->SaveState();
}

void SideBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        Q_EMIT FocusEditorRequested();
    else
        QWidget::keyPressEvent(event);
}

void SideBar::UpdateTitle()
{
    m_title->setText(tr(RowOf(m_page)->title));
    m_title->setFont(Theme::CaptionFont(font()));
    QPalette palette = m_title->palette();
    palette.setColor(QPalette::WindowText, Theme::Color(Theme::Role::Soft));
    m_title->setPalette(palette);
}

void SideBar::ShowTitleMenu(const QPoint& point)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Hide Side Bar"), this, &SideBar::HideRequested);
    menu->popup(m_title->mapToGlobal(point));
}
