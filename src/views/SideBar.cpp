#include "views/SideBar.h"

#include "window/chrome/Theme.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int TITLE_HEIGHT = 34;
constexpr int TITLE_MARGIN = 14;

} // namespace

SideBar::SideBar(QWidget* parent)
    : QWidget(parent)
    , m_title(new QLabel(tr("EXPLORER"), this))
{
    setAttribute(Qt::WA_StyledBackground);
    m_title->setObjectName(QStringLiteral("m_title"));
    m_title->setFixedHeight(Theme::Dp(TITLE_HEIGHT));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Theme::Dp(TITLE_MARGIN), 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    layout->addStretch(1);
    UpdateFonts();
}

void SideBar::ShowPage(Page page)
{
    if (page == m_page)
        return;
    m_page = page;
    Q_EMIT PageChanged();
}

bool SideBar::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        UpdateFonts();
    return QWidget::event(event);
}

void SideBar::UpdateFonts()
{
    m_title->setFont(Theme::CaptionFont(font()));
    QPalette palette = m_title->palette();
    palette.setColor(QPalette::WindowText, Theme::Color(Theme::Role::Soft));
    m_title->setPalette(palette);
}
