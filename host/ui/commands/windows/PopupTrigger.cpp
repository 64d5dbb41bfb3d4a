#include "ui/commands/windows/PopupTrigger.h"

#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>

namespace host::ui {

PopupTrigger::PopupTrigger(QMenu* menu, QWidget* control)
    : QObject(menu)
    , m_menu(menu)
{
    control->installEventFilter(this);
    // The mouse never gets to a scroll area itself.
    if (auto* area = qobject_cast<QAbstractScrollArea*>(control))
        area->viewport()->installEventFilter(this);
}

bool PopupTrigger::eventFilter(QObject* watched, QEvent* event)
{
    const bool opensByRightClick = m_button == Qt::RightButton && !m_modifiers;
    if (event->type() == QEvent::ContextMenu && opensByRightClick) {
        m_menu->popup(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    if (event->type() != QEvent::MouseButtonPress || opensByRightClick)
        return QObject::eventFilter(watched, event);
    const auto* press = static_cast<QMouseEvent*>(event);
    if (press->button() != m_button || press->modifiers() != m_modifiers)
        return false;
    m_menu->popup(press->globalPos());
    return true;
}

} // namespace host::ui
