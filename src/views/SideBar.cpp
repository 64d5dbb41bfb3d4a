#include "views/SideBar.h"

#include "settings/Settings.h"
#include "views/ExplorerView.h"
#include "views/OpenEditorsView.h"
#include "views/WorkspaceView.h"
#include "window/chrome/Theme.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int TITLE_HEIGHT = 34;
constexpr int TITLE_MARGIN = 14;

} // namespace

SideBar::SideBar(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(this))
    , m_stack(new QStackedWidget(this))
    , m_explorer(new ExplorerView(this))
{
    setAttribute(Qt::WA_StyledBackground);
    m_title->setObjectName(QStringLiteral("m_title"));
    m_title->setFixedHeight(Theme::Dp(TITLE_HEIGHT));
    m_title->setContextMenuPolicy(Qt::CustomContextMenu);
    m_stack->setObjectName(QStringLiteral("m_stack"));
    m_stack->addWidget(m_explorer);
    m_explorer->setObjectName(QStringLiteral("m_explorer"));
    CreateLayout();
    UpdateTitle();
    connect(m_title, &QWidget::customContextMenuRequested, this, &SideBar::ShowTitleMenu);
    connect(m_explorer, &ExplorerView::HideRequested, this, &SideBar::HideRequested);
}

void SideBar::CreateLayout()
{
    m_title->setContentsMargins(Theme::Dp(TITLE_MARGIN), 0, 0, 0);
    auto* groove = new QWidget(this);
    groove->setFixedHeight(Theme::Hairline());
    groove->setAutoFillBackground(true);
    QPalette palette = groove->palette();
    palette.setColor(QPalette::Window, Theme::Color(Theme::Role::Groove));
    groove->setPalette(palette);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addWidget(groove);
    layout->addWidget(m_stack, 1);
}

bool SideBar::HasPage(Page page) const
{
    return page == Page::Explorer;
}

void SideBar::ShowPage(Page page)
{
    if (page == m_page || !HasPage(page))
        return;
    m_page = page;
    UpdateTitle();
    Q_EMIT PageChanged();
}

void SideBar::FocusPage(Qt::FocusReason reason)
{
    m_explorer->setFocus(reason);
}

OpenEditorsView* SideBar::GetOpenEditors() const
{
    return m_explorer->GetOpenEditors();
}

WorkspaceView* SideBar::GetWorkspace() const
{
    return m_explorer->GetWorkspace();
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

bool SideBar::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        UpdateTitle();
    return QWidget::event(event);
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
    m_title->setText(tr("EXPLORER"));
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
