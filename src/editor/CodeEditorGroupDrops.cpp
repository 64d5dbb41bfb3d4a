// What is dropped onto the editors of a code editor group.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/CodeEditorGroupTabBar.h"
#include "editor/DropZones.h"
#include "settings/Settings.h"
#include "window/chrome/OverlayWidget.h"
#include "window/chrome/TabDragData.h"

#include <QDropEvent>
#include <QStackedWidget>

namespace {

/// A tab that is not there any more, or a web address, is nothing to drop.
bool CanBeDropped(const QMimeData* payload)
{
    const auto tab = TabDragData::Read(payload);
    return tab ? CustomTabBar::TabExists(*tab) : !TabDragData::LocalFiles(payload).isEmpty();
}

} // namespace

void CodeEditorGroup::dragEnterEvent(QDragEnterEvent* event)
{
    UpdateDropZone(event->pos(), event->mimeData());
    // Also outside the editors, as otherwise nothing would tell of the way back to them.
    if (CanBeDropped(event->mimeData()))
        event->acceptProposedAction();
    else
        event->ignore();
}

void CodeEditorGroup::dragMoveEvent(QDragMoveEvent* event)
{
    UpdateDropZone(event->pos(), event->mimeData());
    if (m_dropZone == TabDropZone::NoZone)
        event->ignore();
    else
        event->acceptProposedAction();
}

void CodeEditorGroup::dragLeaveEvent(QDragLeaveEvent*)
{
    ClearDropZone();
}

void CodeEditorGroup::dropEvent(QDropEvent* event)
{
    const TabDropZone zone = m_dropZone;
    ClearDropZone();
    if (zone == TabDropZone::NoZone) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    if (const auto tab = TabDragData::Read(event->mimeData())) {
        if (CustomTabBar::TabExists(*tab))
            Q_EMIT MoveTabToZoneRequested(tab->groupId, tab->index, m_id, zone);
        return;
    }
    // A file manager that moves files would take them away.
    event->setDropAction(Qt::CopyAction);
    const QStringList paths = TabDragData::LocalFiles(event->mimeData());
    if (zone == TabDropZone::Center)
        RequestOpenFiles(GetCurrentIndex() + 1, paths);
    else
        Q_EMIT OpenFilesRequested(m_id, zone, paths);
}

void CodeEditorGroup::UpdateDropZone(const QPoint& point, const QMimeData* payload)
{
    if (!CanBeDropped(payload)) {
        ClearDropZone();
        return;
    }
    const Qt::Orientation axis = Settings::codeEditorOrientVertical ? Qt::Vertical : Qt::Horizontal;
    // Beside a group without editors there is nothing to split off from.
    const bool edges = m_tabDropOtherGroupsEnabled && GetCount() > 0;
    const DropTarget target
        = FindDropTarget(m_stack->mapFrom(this, point), m_stack->size(), axis, edges);
    SetDropZone(target.zone, target.overlay);
}

void CodeEditorGroup::SetDropZone(TabDropZone zone, const QRect& rectangle)
{
    CodeEditor* const editor = GetCurrent();
    if (m_dropEditor && m_dropEditor != editor)
        m_dropEditor->SetDropOverlayRect(QRect());
    m_dropEditor = editor;
    if (editor)
        editor->SetDropOverlayRect(rectangle);
    m_emptyDropOverlay->SetRect(editor ? QRect() : rectangle);
    m_dropZone = zone;
}

void CodeEditorGroup::ClearDropZone()
{
    SetDropZone(TabDropZone::NoZone, QRect());
}
