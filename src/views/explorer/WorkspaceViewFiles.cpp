// What is done to the files of the workspace on the disk.

#include "files/FileTasks.h"
#include "files/Trash.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "views/explorer/WorkspacePaths.h"
#include "views/explorer/WorkspaceTree.h"
#include "views/explorer/WorkspaceView.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

using namespace WorkspacePaths;

namespace {

/// The safe answer is the default one.
bool Confirm(QWidget* parent, const QString& title, const QString& text)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

QString NameOf(const QString& path)
{
    const QString name = QFileInfo(path).fileName();
    return name.isEmpty() ? path : name;
}

/// What people write scripts in.
bool IsScriptName(const QString& name)
{
    return name.endsWith(QLatin1String(".py"), Qt::CaseInsensitive)
        || name.endsWith(QLatin1String(".mel"), Qt::CaseInsensitive);
}

} // namespace

void WorkspaceView::Create(const QString& folder, const QString& name, bool isFolder)
{
    const QString path = ChildPath(folder, name);
    QString reason;
    if (isFolder ? !FileTasks::CreateFolder(path, reason) : !FileTasks::CreateFile(path, reason)) {
        Logger::Error(QStringLiteral("Failed to create: %1 (%2)").arg(path, reason));
        return;
    }
    m_tree->NoteMade(path, isFolder);
    m_tree->SelectPath(path);
    if (!isFolder && IsScriptName(name))
        Q_EMIT OpenFileRequested(path);
}

void WorkspaceView::Rename(const QString& path, const QString& name)
{
    MoveOne(path, ChildPath(ParentPath(path), name));
}

void WorkspaceView::Move(const QStringList& paths, const QString& folder)
{
    const QPointer<WorkspaceView> guard(this);
    const QString text = paths.size() == 1
        ? tr("Move '%1' to '%2'?").arg(NameOf(paths.first()), NameOf(folder))
        : tr("Move %n items to '%1'?", nullptr, paths.size()).arg(NameOf(folder));
    if (!Confirm(this, tr("Move"), text) || !guard)
        return;
    for (const QString& path : paths)
        MoveOne(path, ChildPath(folder, QFileInfo(path).fileName()));
}

/// First on the disk, then everybody who knows the path is told.
void WorkspaceView::MoveOne(const QString& from, const QString& to)
{
    QString reason;
    // Also a file that is gone but for its editor keeps its path.
    if (QFileInfo::exists(to) || IsOpen(to)) {
        Logger::Error(QStringLiteral("File already exists: %1").arg(to));
        return;
    }
    if (!FileTasks::Move(from, to, reason)) {
        Logger::Error(QStringLiteral("Failed to move: %1 -> %2 (%3)").arg(from, to, reason));
        m_tree->RefreshFolder(ParentPath(from));
        return;
    }
    m_tree->MoveExpanded(from, to);
    QStringList folders = Settings::workspaceFolders;
    for (QString& folder : folders)
        folder = Moved(folder, from, to);
    if (folders != Settings::workspaceFolders)
        SetFolders(folders);
    m_tree->NoteGone(from);
    m_tree->NoteMade(to, QFileInfo(to).isDir());
    Q_EMIT PathMoved(from, to);
    m_tree->SelectPath(to);
}

bool WorkspaceView::IsOpen(const QString& path) const
{
    for (auto file = m_openFiles.begin(); file != m_openFiles.end(); ++file) {
        if (IsBelow(file.key(), path))
            return true;
    }
    return false;
}

void WorkspaceView::Delete(const QStringList& paths)
{
    const QPointer<WorkspaceView> guard(this);
    const QString text = paths.size() == 1
        ? tr("Delete '%1'?\n\nIt is moved to the trash.").arg(NameOf(paths.first()))
        : tr("Delete %n items?\n\nThey are moved to the trash.", nullptr, paths.size());
    if (paths.isEmpty() || !Confirm(this, tr("Delete"), text) || !guard)
        return;
    QStringList deleted;
    QStringList kept;
    for (const QString& path : paths) {
        if (Trash::Take(path))
            deleted.append(path);
        else
            kept.append(path);
    }
    FinishDeleting(deleted);
    if (!kept.isEmpty())
        DeleteForGood(kept);
}

void WorkspaceView::DeleteForGood(const QStringList& paths)
{
    const QPointer<WorkspaceView> guard(this);
    const QString text = paths.size() == 1
        ? tr("'%1' cannot be moved to the trash.\n\nDelete it for good?").arg(NameOf(paths.first()))
        : tr("%n items cannot be moved to the trash.\n\nDelete them for good?", nullptr,
            paths.size());
    if (!Confirm(this, tr("Delete"), text) || !guard)
        return;
    QStringList deleted;
    for (const QString& path : paths) {
        QString reason;
        if (FileTasks::Remove(path, reason))
            deleted.append(path);
        else
            Logger::Error(QStringLiteral("Failed to delete file: %1 (%2)").arg(path, reason));
    }
    FinishDeleting(deleted);
    for (const QString& path : paths)
        m_tree->RefreshFolder(ParentPath(path));
}

void WorkspaceView::FinishDeleting(const QStringList& paths)
{
    for (const QString& path : paths) {
        m_tree->NoteGone(path);
        Q_EMIT PathDeleted(path);
    }
}
