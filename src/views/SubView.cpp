#include "views/SubView.h"

#include "views/SubViewHeader.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int PAGE_TOP = 1;
constexpr int PAGE_BOTTOM = 2;

} // namespace

SubView::SubView(const QString& title, bool* expanded, QWidget* parent)
    : QWidget(parent)
    , m_expanded(expanded)
    , m_header(new SubViewHeader(title, this))
{
    m_header->setObjectName(QStringLiteral("m_header"));
    m_header->setContextMenuPolicy(Qt::CustomContextMenu);
    m_header->SetExpanded(*m_expanded);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    connect(m_header, &SubViewHeader::Toggled, this, [this] { SetExpanded(!IsExpanded()); });
    connect(m_header, &SubViewHeader::ExpandRequested, this, &SubView::SetExpanded);
    connect(m_header, &QWidget::customContextMenuRequested, this,
        [this](const QPoint& point) { Q_EMIT HeaderMenuRequested(m_header->mapToGlobal(point)); });
    connect(qApp, &QApplication::focusChanged, this,
        [this](QWidget*, QWidget* now) { UpdateRevealed(now); });
}

/// The focus may be in a child that goes with this.
SubView::~SubView()
{
    qApp->disconnect(this);
}

QWidget* SubView::CreatePage(QWidget* main)
{
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(main);
    page->setFocusProxy(main);
    FollowLook(page, [layout] {
        layout->setContentsMargins(0, Theme::Dp(PAGE_TOP), 0, Theme::Dp(PAGE_BOTTOM));
    });
    return page;
}

int SubView::PageMargins()
{
    return Theme::Dp(PAGE_TOP) + Theme::Dp(PAGE_BOTTOM);
}

void SubView::SetContent(QWidget* content)
{
    m_content = content;
    m_content->setVisible(*m_expanded);
    static_cast<QVBoxLayout*>(layout())->addWidget(content, 1);
}

FlatButton* SubView::AddTool(const QString& icon, const QString& label, const QString& name)
{
    auto* button = new FlatButton(icon, label, FlatButton::Tint::Computed, this);
    button->setObjectName(name);
    m_header->AddTool(button);
    // The content is there already, but Tab comes by the tools first.
    setTabOrder(m_lastTool ? m_lastTool : static_cast<QWidget*>(m_header), button);
    m_lastTool = button;
    return button;
}

void SubView::SetExpanded(bool expanded)
{
    if (*m_expanded == expanded)
        return;
    // Rows that go must not take the focus with them.
    const QWidget* const focus = QApplication::focusWidget();
    if (!expanded && (focus == m_content || m_content->isAncestorOf(focus)))
        m_header->setFocus(Qt::OtherFocusReason);
    *m_expanded = expanded;
    m_header->SetExpanded(expanded);
    m_content->setVisible(expanded);
    Q_EMIT ExpandedChanged();
    RefreshIfSeen();
}

void SubView::FocusContent(Qt::FocusReason reason)
{
    QWidget* const target = IsExpanded() ? m_content : m_header;
    target->setFocus(reason);
}

bool SubView::IsContentSeen() const
{
    return isVisible() && IsExpanded();
}

void SubView::MarkStale()
{
    m_stale = true;
    RefreshIfSeen();
}

void SubView::RefreshIfSeen()
{
    if (!m_stale || !IsContentSeen())
        return;
    m_stale = false;
    Refresh();
}

bool SubView::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::Leave:
        m_hovered = event->type() == QEvent::Enter;
        UpdateRevealed(QApplication::focusWidget());
        break;
    case QEvent::Show: RefreshIfSeen(); break;
    default: break;
    }
    return QWidget::event(event);
}

void SubView::UpdateRevealed(const QWidget* focus)
{
    m_header->SetToolsRevealed(m_hovered || (focus && isAncestorOf(focus)));
}
