#include "ui/commands/layouts/FrameBox.h"

#include <QPointer>
#include <QToolButton>
#include <QVBoxLayout>

namespace host::ui {

FrameBox::FrameBox(QWidget* parent)
    : QWidget(parent)
    , m_header(new QToolButton(this))
    , m_content(new QWidget(this))
{
    m_header->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_header->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_header->setAutoRaise(true);
    QFont bold = m_header->font();
    bold.setBold(true);
    m_header->setFont(bold);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(m_header);
    rows->addWidget(m_content, 1);
    rows->addStretch(0);
    auto* fill = new QVBoxLayout(m_content);
    fill->setContentsMargins(0, 0, 0, 0);
    connect(m_header, &QToolButton::clicked, this, &FrameBox::OnHeaderClicked);
    UpdateArrow();
}

QString FrameBox::GetLabel() const
{
    return m_header->text();
}

void FrameBox::SetLabel(const QString& label)
{
    m_header->setText(label);
}

void FrameBox::SetLabelVisible(bool visible)
{
    m_header->setVisible(visible);
}

bool FrameBox::IsLabelVisible() const
{
    return !m_header->isHidden();
}

void FrameBox::SetCollapsable(bool collapsable)
{
    m_collapsable = collapsable;
    UpdateArrow();
}

void FrameBox::SetCollapsed(bool collapsed)
{
    m_collapsed = collapsed;
    m_content->setVisible(!collapsed);
    UpdateArrow();
}

void FrameBox::SetMargins(int width, int height)
{
    m_content->layout()->setContentsMargins(width, height, width, height);
}

int FrameBox::MarginWidth() const
{
    return m_content->layout()->contentsMargins().left();
}

int FrameBox::MarginHeight() const
{
    return m_content->layout()->contentsMargins().top();
}

void FrameBox::OnHeaderClicked()
{
    if (!m_collapsable)
        return;
    const QPointer<FrameBox> alive(this);
    Q_EMIT AboutToToggle(!m_collapsed);
    if (!alive)
        return;
    SetCollapsed(!m_collapsed);
    Q_EMIT Toggled(m_collapsed);
}

void FrameBox::UpdateArrow()
{
    if (!m_collapsable)
        m_header->setArrowType(Qt::NoArrow);
    else
        m_header->setArrowType(m_collapsed ? Qt::RightArrow : Qt::DownArrow);
}

} // namespace host::ui
