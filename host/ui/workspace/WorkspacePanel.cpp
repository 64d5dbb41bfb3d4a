#include "ui/workspace/WorkspacePanel.h"

#include "ui/window/HostColors.h"

#include <QVBoxLayout>

namespace host::ui {

WorkspacePanel::WorkspacePanel(const QString& name, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(name);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    hide();
}

void WorkspacePanel::SetLabel(const QString& label)
{
    setWindowTitle(label);
    setAccessibleName(label);
    Q_EMIT LabelChanged();
}

void WorkspacePanel::SetIcon(const QIcon& icon)
{
    m_icon = icon;
    Q_EMIT LabelChanged();
}

bool WorkspacePanel::IsEmpty() const
{
    return layout()->isEmpty()
        && findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly).isEmpty();
}

QColor WorkspacePanel::TabColor() const
{
    return m_fixed ? colors::VIEWPORT_TOP : colors::PANEL;
}

QSize WorkspacePanel::sizeHint() const
{
    // A panel takes the place it is given; its content must not push the others away.
    return minimumSize().expandedTo({260, 200});
}

void WorkspacePanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Q_EMIT Shown();
}

} // namespace host::ui
