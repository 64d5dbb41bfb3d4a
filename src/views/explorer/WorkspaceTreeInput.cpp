// What a person does in the workspace's tree: keys, names typed into rows, and dragging.

#include "views/explorer/WorkspaceNameDelegate.h"
#include "views/explorer/WorkspacePaths.h"
#include "views/explorer/WorkspaceTree.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QKeyEvent>
#include <QMimeData>

using namespace WorkspacePaths;

namespace {

/// Keys with a meaning of their own here, which the window's shortcuts would take.
bool IsTreeKey(const QEvent& event)
{
    if (event.type() != QEvent::ShortcutOverride)
        return false;
    const auto& press = static_cast<const QKeyEvent&>(event);
    const bool isEnter = press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter;
    return press.matches(QKeySequence::SelectAll)
        || (press.key() == Qt::Key_F2 && press.modifiers() == Qt::NoModifier)
        || (isEnter && !(press.modifiers() & ~(Qt::ControlModifier | Qt::KeypadModifier)));
}

} // namespace

void WorkspaceTree::drawRow(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    DrawRow(painter, option.rect, index);
}

bool WorkspaceTree::event(QEvent* event)
{
    if (IsTreeKey(*event)) {
        event->accept();
        return true;
    }
    return HandleEvent(event) || QTreeView::event(event);
}

bool WorkspaceTree::viewportEvent(QEvent* event)
{
    return HandleViewportEvent(event) || QTreeView::viewportEvent(event);
}

void WorkspaceTree::mousePressEvent(QMouseEvent* event)
{
    if (!HandleArrowPress(*event))
        QTreeView::mousePressEvent(event);
}

void WorkspaceTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (HandleArrowPress(*event) || event->button() != Qt::LeftButton)
        return;
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && event->modifiers() == Qt::NoModifier)
        Activate(index);
}

void WorkspaceTree::focusInEvent(QFocusEvent* event)
{
    NoteFocus(*event);
    // The toolkit would make a row current without selecting it.
    if (!currentIndex().isValid() && m_model->rowCount() > 0)
        setCurrentIndex(m_model->index(0, 0));
    QTreeView::focusInEvent(event);
}

void WorkspaceTree::focusOutEvent(QFocusEvent* event)
{
    QTreeView::focusOutEvent(event);
    NoteFocus(*event);
}

void WorkspaceTree::keyPressEvent(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    const QModelIndex current = currentIndex();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy)) {
        CopyPaths();
    } else if (!current.isValid() || state() == EditingState) {
        QTreeView::keyPressEvent(event);
    } else if (isEnter && control) {
        if (!m_model->IsFolder(current))
            Q_EMIT OpenInNextGroupRequested(GetCurrentPath());
    } else if (isEnter) {
        Activate(current);
    } else if (event->key() == Qt::Key_F2) {
        BeginRename(GetCurrentPath());
    } else if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier) {
        Q_EMIT DeleteRequested(GetSelectedPaths());
    } else {
        QTreeView::keyPressEvent(event);
    }
}

/// All selected files at once, or the folder to look into.
void WorkspaceTree::Activate(const QModelIndex& index)
{
    if (m_model->IsFolder(index)) {
        if (m_model->IsExpandable(index))
            setExpanded(index, !isExpanded(index));
        return;
    }
    QStringList files;
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    for (const QModelIndex& row : selected) {
        if (!m_model->IsFolder(row))
            files.append(m_model->PathOf(row));
    }
    const QString path = m_model->PathOf(index);
    Q_EMIT OpenRequested(files.contains(path) ? files : QStringList(path));
}

void WorkspaceTree::CopyPaths() const
{
    const QStringList paths = GetSelectedPaths();
    if (!paths.isEmpty())
        QApplication::clipboard()->setText(paths.join(QLatin1Char('\n')));
}

QString WorkspaceTree::GetCurrentPath() const
{
    return m_model->PathOf(currentIndex());
}

QString WorkspaceTree::GetCurrentFolder() const
{
    const QModelIndex current = currentIndex();
    return m_model->PathOf(m_model->IsFolder(current) ? current : current.parent());
}

QStringList WorkspaceTree::GetSelectedPaths() const
{
    QModelIndexList rows = selectionModel()->selectedIndexes();
    QStringList paths;
    for (const QModelIndex& row : qAsConst(rows)) {
        bool isCovered = false;
        for (QModelIndex above = row.parent(); above.isValid(); above = above.parent())
            isCovered = isCovered || selectionModel()->isSelected(above);
        if (!isCovered)
            paths.append(m_model->PathOf(row));
    }
    return paths;
}

// Names

void WorkspaceTree::BeginNew(const QString& folder, bool isFolder)
{
    m_newFolder = folder;
    m_newIsFolder = isFolder;
    SelectPath(folder);
    const QModelIndex index = m_model->IndexOf(folder);
    if (index.isValid())
        expand(index);
    StartNew();
}

/// Once the folder can be seen with all that is in it.
void WorkspaceTree::StartNew()
{
    const QModelIndex folder = m_model->IndexOf(m_newFolder);
    if (!folder.isValid() || !m_model->IsRead(folder))
        return;
    m_newFolder.clear();
    const QModelIndex row = m_model->BeginNew(folder, m_newIsFolder);
    executeDelayedItemsLayout();
    m_edited = row;
    setCurrentIndex(row);
    scrollTo(row);
    edit(row);
}

void WorkspaceTree::BeginRename(const QString& path)
{
    const QModelIndex index = m_model->IndexOf(path);
    if (!index.isValid())
        return;
    m_edited = index;
    m_model->SetEditable(index);
    m_model->SetHeld(true);
    setCurrentIndex(index);
    scrollTo(index);
    edit(index);
}

void WorkspaceTree::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const QPersistentModelIndex row = m_edited;
    QTreeView::closeEditor(editor, hint);
    const QString name = m_names->TakeName();
    const bool isNew = m_model->IsNew(row);
    const bool isFolder = m_model->IsFolder(row);
    const QString path = m_model->PathOf(row);
    const QString folder = m_model->PathOf(row.parent());
    if (isNew)
        setCurrentIndex(row.parent());
    // Also takes the new row away, which a real one takes the place of.
    m_model->EndNew();
    if (isNew && !name.isEmpty())
        Q_EMIT CreateRequested(folder, name, isFolder);
    else if (!isNew && !name.isEmpty() && row.isValid() && name != row.data().toString())
        Q_EMIT RenameRequested(path, name);
}

// Dragging

void WorkspaceTree::startDrag(Qt::DropActions)
{
    const QModelIndexList rows = selectionModel()->selectedIndexes();
    if (rows.isEmpty())
        return;
    const QString label
        = rows.size() == 1 ? rows.first().data().toString() : tr("%n items", nullptr, rows.size());
    auto* const drag = new QDrag(this);
    drag->setMimeData(m_model->mimeData(rows));
    drag->setPixmap(DragPicture(label));
    // Others may take copies; what is moved is moved by this program, which asks.
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

/// The folder under the pointer, or the one that the file there is in.
QModelIndex WorkspaceTree::DropFolderAt(const QDropEvent& event) const
{
    const QModelIndex index = indexAt(event.pos());
    return m_model->IsFolder(index) ? index : index.parent();
}

bool WorkspaceTree::IsTaking(const QDropEvent& event) const
{
    if (event.source() != this)
        return !DroppedFolders(event.mimeData()).isEmpty();
    const QModelIndex target = DropFolderAt(event);
    const QString folder = m_model->PathOf(target);
    const QStringList paths = GetSelectedPaths();
    for (const QString& path : paths) {
        // Neither into itself nor to where it is; roots belong to the workspace.
        const bool isRoot = m_model->KindOf(m_model->IndexOf(path)) == Kind::Root;
        if (folder.isEmpty() || isRoot || IsBelow(folder, path) || ParentPath(path) == folder)
            return false;
    }
    return !paths.isEmpty();
}

void WorkspaceTree::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->source() == this || !DroppedFolders(event->mimeData()).isEmpty())
        event->accept();
    else
        event->ignore();
}

void WorkspaceTree::dragMoveEvent(QDragMoveEvent* event)
{
    // Scrolls at the edges, and expands what the pointer rests on.
    QTreeView::dragMoveEvent(event);
    const bool taken = IsTaking(*event);
    SetDropTarget(taken && event->source() == this ? DropFolderAt(*event) : QModelIndex());
    if (taken) {
        event->setDropAction(event->source() == this ? Qt::MoveAction : Qt::CopyAction);
        event->accept();
    } else {
        event->ignore();
    }
}

void WorkspaceTree::dragLeaveEvent(QDragLeaveEvent* event)
{
    QTreeView::dragLeaveEvent(event);
    SetDropTarget(QModelIndex());
}

void WorkspaceTree::dropEvent(QDropEvent* event)
{
    SetDropTarget(QModelIndex());
    setState(NoState);
    stopAutoScroll();
    if (!IsTaking(*event)) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (event->source() != this)
        Q_EMIT FoldersDropped(DroppedFolders(event->mimeData()));
    else
        Q_EMIT MoveRequested(GetSelectedPaths(), m_model->PathOf(DropFolderAt(*event)));
}
