#include "views/OutlineTreeWidget.h"

void OutlineTreeWidget::focusOutEvent(QFocusEvent* event)
{
    SideBarTree::focusOutEvent(event);
    Q_EMIT FocusOutClearSelection();
}
