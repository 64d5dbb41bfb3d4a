// The context menus of the workspace.

#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "views/explorer/WorkspaceTree.h"
#include "views/explorer/WorkspaceView.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>

namespace {

void CopyText(const QStringList& lines)
{
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

} // namespace

/// From the innermost folder of the workspace that it is in.
QString WorkspaceView::RelativePath(const QString& path) const
{
    const WorkspaceModel* const model = m_tree->GetModel();
    const QString root = model->PathOf(model->RootOf(path));
    return root.isEmpty() || root == path ? path : path.mid(root.size() + 1);
}

void WorkspaceView::ShowContextMenu(const QPoint& point)
{
    const QModelIndex index = m_tree->indexAt(point);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!index.isValid())
        AddSpaceEntries(menu);
    else if (m_tree->GetSelectedPaths().size() > 1)
        AddSelectionEntries(menu);
    else if (m_tree->GetModel()->IsFolder(index))
        AddFolderEntries(menu, index);
    else
        AddFileEntries(menu, m_tree->GetModel()->PathOf(index));
    menu->popup(m_tree->viewport()->mapToGlobal(point));
}

void WorkspaceView::AddFileEntries(QMenu* menu, const QString& path)
{
    menu->addAction(tr("Open"), this, [this, path] { Q_EMIT OpenFileRequested(path); });
    menu->addAction(
        tr("Open in Next Group"), this, [this, path] { Q_EMIT OpenInNextGroupRequested(path); });
    menu->addSeparator();
    AddChangeEntries(menu, path);
    menu->addAction(tr("Copy Path"), this, [path] { CopyText({path}); });
    menu->addAction(
        tr("Copy Relative Path"), this, [this, path] { CopyText({RelativePath(path)}); });
    menu->addAction(tr("Insert Path"), this, [this, path] { Q_EMIT InsertPathRequested(path); });
    menu->addAction(tr("Reveal in Folder"), this, [path] { MayaUtil::RevealInFolder(path); });
}

void WorkspaceView::AddFolderEntries(QMenu* menu, const QModelIndex& index)
{
    const QString path = m_tree->GetModel()->PathOf(index);
    // Where nothing is there is nothing to be done but to take it out.
    if (index.data(SideBarRows::AbsentRole).toBool()) {
        menu->addAction(tr("Copy Path"), this, [path] { CopyText({path}); });
        menu->addAction(tr("Refresh"), this, &WorkspaceView::UpdateAll);
    } else {
        menu->addAction(tr("New File..."), this, [this, path] { m_tree->BeginNew(path, false); });
        menu->addAction(tr("New Folder..."), this, [this, path] { m_tree->BeginNew(path, true); });
        menu->addSeparator();
        menu->addAction(
            tr("Find in Folder..."), this, [this, path] { Q_EMIT FindInFolderRequested(path); });
        menu->addSeparator();
        AddChangeEntries(menu, path);
        menu->addAction(tr("Copy Path"), this, [path] { CopyText({path}); });
        menu->addAction(tr("Reveal in Folder"), this, [path] { MayaUtil::RevealInFolder(path); });
    }
    if (m_tree->GetModel()->KindOf(index) == WorkspaceTree::Kind::Root)
        AddRootEntries(menu, path);
}

/// Their keys are the tree's own, told here for those who look for them.
void WorkspaceView::AddChangeEntries(QMenu* menu, const QString& path)
{
    QAction* const rename
        = menu->addAction(tr("Rename..."), this, [this, path] { m_tree->BeginRename(path); });
    QAction* const remove = menu->addAction(tr("Delete"), this, [this, path] { Delete({path}); });
    rename->setShortcut(Qt::Key_F2);
    remove->setShortcut(Qt::Key_Delete);
    menu->addSeparator();
}

void WorkspaceView::AddSelectionEntries(QMenu* menu)
{
    const QStringList paths = m_tree->GetSelectedPaths();
    QStringList files;
    for (const QString& path : paths) {
        if (!m_tree->GetModel()->IsFolder(m_tree->GetModel()->IndexOf(path)))
            files.append(path);
    }
    if (!files.isEmpty()) {
        menu->addAction(tr("Open"), this, [this, files] { OpenFiles(files); });
        menu->addSeparator();
    }
    QAction* const remove = menu->addAction(tr("Delete"), this, [this, paths] { Delete(paths); });
    remove->setShortcut(Qt::Key_Delete);
    menu->addSeparator();
    menu->addAction(tr("Copy Paths"), this, [paths] { CopyText(paths); });
    menu->addAction(tr("Copy Relative Paths"), this, [this, paths] {
        QStringList relative;
        for (const QString& path : paths)
            relative.append(RelativePath(path));
        CopyText(relative);
    });
}

void WorkspaceView::AddRootEntries(QMenu* menu, const QString& path)
{
    menu->addSeparator();
    menu->addAction(tr("Remove Folder from Workspace"), this, [this, path] { RemoveFolder(path); });
    QAction* const up
        = menu->addAction(tr("Move Up"), this, [this, path] { MoveFolder(path, -1); });
    QAction* const down
        = menu->addAction(tr("Move Down"), this, [this, path] { MoveFolder(path, 1); });
    up->setEnabled(Settings::workspaceFolders.first() != path);
    down->setEnabled(Settings::workspaceFolders.last() != path);
}

void WorkspaceView::AddSpaceEntries(QMenu* menu)
{
    using W = WorkspaceView;
    menu->addAction(tr("Add Folder to Workspace..."), this, &W::ShowAddFolderDialog);
    menu->addAction(tr("Open Workspace..."), this, &W::OpenWorkspaceRequested);
    menu->addAction(tr("Save Workspace As..."), this, &W::SaveWorkspaceAsRequested);
    menu->addSeparator();
    menu->addAction(tr("Refresh"), this, &W::UpdateAll);
    menu->addAction(tr("Collapse All"), m_tree, &WorkspaceTree::CollapseFolders);
    menu->addSeparator();
    menu->addAction(tr("Hide Side Bar"), this, &W::HideRequested);
}
