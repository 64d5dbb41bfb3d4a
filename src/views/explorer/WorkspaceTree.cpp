// What the workspace's tree shows: reading, refreshing and watching folders.

#include "views/explorer/WorkspaceTree.h"

#include "files/FileTasks.h"
#include "plugin/Logger.h"
#include "settings/Settings.h"
#include "views/explorer/WorkspaceNameDelegate.h"
#include "views/explorer/WorkspacePaths.h"

#include <QDir>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

using namespace WorkspacePaths;

namespace {

constexpr int GATHER_TIME = 300; // ms
constexpr int DRAG_EXPAND_TIME = 700; // ms

} // namespace

WorkspaceTree::WorkspaceTree(QWidget* parent)
    : QTreeView(parent)
    , SideBarRows(static_cast<QTreeView&>(*this))
    , m_model(new WorkspaceModel(this))
    , m_watcher(new QFileSystemWatcher(this))
    , m_gatherTimer(new QTimer(this))
{
    using M = WorkspaceModel;
    using T = WorkspaceTree;
    m_names = new WorkspaceNameDelegate(
        [this](const QModelIndex& index, const QString& name) {
            const QString path = m_model->PathOf(index);
            return FileTasks::FaultOfName(
                QFileInfo(path).path(), name, m_model->IsNew(index) ? QString() : path);
        },
        &SideBarRows::LabelLeft, this);
    setItemDelegate(m_names);
    // Why a name cannot be stands beside it; only what is there already is somebody else's too.
    connect(m_names, &WorkspaceNameDelegate::Refused, this,
        [this](const QModelIndex& index, const QString& name) {
            const QString folder = m_model->PathOf(index.parent());
            const QString path = QDir::cleanPath(ChildPath(folder, name));
            if (ParentPath(path) == folder && QFileInfo::exists(path))
                Logger::Error(QStringLiteral("File already exists: %1").arg(path));
        });
    setModel(m_model);
    FollowModel();
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    // Folders are toggled by what activates them, a key or a double click.
    setExpandsOnDoubleClick(false);
    setDragDropMode(DragDrop);
    setDropIndicatorShown(false);
    setAutoExpandDelay(DRAG_EXPAND_TIME);
    m_gatherTimer->setSingleShot(true);
    m_gatherTimer->setInterval(GATHER_TIME);
    const QList<QByteArray> hashes = Settings::workspaceExpandedFolderHashes;
    m_expandedHashes = QSet<QByteArray>(hashes.begin(), hashes.end());
    connect(this, &QTreeView::expanded, this, &T::OnExpanded);
    connect(this, &QTreeView::collapsed, this, &T::OnCollapsed);
    connect(m_model, &M::FolderRead, this, &T::OnFolderRead);
    connect(m_model, &M::rowsAboutToBeInserted, this, &T::KeepTop);
    connect(m_model, &M::rowsAboutToBeRemoved, this, &T::KeepTop);
    connect(m_model, &M::layoutAboutToBeChanged, this, &T::KeepTop);
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, this, &T::OnDirectoryChanged);
    connect(m_gatherTimer, &QTimer::timeout, this, &T::ChangesFound);
}

void WorkspaceTree::SetRoots(const QStringList& folders)
{
    m_model->SetRoots(folders);
    RestoreExpanded(QModelIndex());
    UpdateWatches();
}

void WorkspaceTree::SetOpenFiles(const QHash<QString, bool>& modifiedByPath)
{
    m_model->SetOpenFiles(modifiedByPath);
}

// Reading

/// Folders that were expanded before are so again.
void WorkspaceTree::RestoreExpanded(const QModelIndex& folder)
{
    if (m_expandedHashes.isEmpty())
        return;
    // Expanding reads, and what is read moves rows.
    const QPersistentModelIndex parent = folder;
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex inner = m_model->index(row, 0, parent);
        if (!m_model->IsFolder(inner) || parent.isValid() != folder.isValid())
            return; // folders come first
        // One that could not be read may have been opened up.
        if (isExpanded(inner) && inner.data(AbsentRole).toBool())
            m_model->Read(inner);
        else if (m_model->IsExpandable(inner) && !isExpanded(inner)
            && m_expandedHashes.contains(FolderListing::Hash(m_model->PathOf(inner))))
            expand(inner);
    }
}

void WorkspaceTree::OnExpanded(const QModelIndex& folder)
{
    const QByteArray hash = FolderListing::Hash(m_model->PathOf(folder));
    if (!m_expandedHashes.contains(hash)) {
        m_expandedHashes.insert(hash);
        Settings::workspaceExpandedFolderHashes.append(hash);
    }
    m_model->SetFolderOpen(folder, true);
    // Watched first: nothing that happens from now on is missed.
    UpdateWatches();
    m_model->Read(folder);
}

void WorkspaceTree::OnCollapsed(const QModelIndex& folder)
{
    const QByteArray hash = FolderListing::Hash(m_model->PathOf(folder));
    m_expandedHashes.remove(hash);
    Settings::workspaceExpandedFolderHashes.removeAll(hash);
    m_model->SetFolderOpen(folder, false);
    UpdateWatches();
}

void WorkspaceTree::OnFolderRead(const QModelIndex& folder)
{
    const QPersistentModelIndex kept = folder;
    RestoreExpanded(folder);
    RestoreTop();
    if (kept.isValid())
        UpdateWatches();
    GoOn();
}

/// With what waited for a folder to be read.
void WorkspaceTree::GoOn()
{
    if (!m_newFolder.isEmpty())
        StartNew();
    if (!m_revealedPath.isEmpty())
        Reveal();
}

void WorkspaceTree::SelectPath(const QString& path)
{
    m_revealedPath = path;
    Reveal();
}

/// As far down as everything is read; what is not comes back here.
void WorkspaceTree::Reveal()
{
    const QString path = m_revealedPath;
    QPersistentModelIndex above = m_model->RootOf(path);
    while (above.isValid() && m_model->PathOf(above) != path) {
        expand(above);
        const QString name = path.mid(ChildPath(m_model->PathOf(above), QString()).size())
                                 .section(QLatin1Char('/'), 0, 0);
        const QModelIndex next = m_model->IndexOf(ChildPath(m_model->PathOf(above), name));
        if (!next.isValid() && !m_model->IsRead(above))
            return;
        above = next;
    }
    // Reading may have come here again and be through with it.
    if (m_revealedPath != path)
        return;
    m_revealedPath.clear();
    if (!above.isValid())
        return;
    setCurrentIndex(above);
    scrollTo(above, PositionAtCenter);
}

void WorkspaceTree::RefreshAll()
{
    m_changed.clear();
    for (int row = 0; row < m_model->rowCount(); ++row)
        m_model->CheckPresence(m_model->index(row, 0));
    RestoreExpanded(QModelIndex());
    const QModelIndexList expanded = GetExpanded();
    QList<QPersistentModelIndex> folders(expanded.begin(), expanded.end());
    for (const QPersistentModelIndex& folder : qAsConst(folders)) {
        if (folder.isValid())
            m_model->Read(folder);
    }
    UpdateWatches();
}

void WorkspaceTree::RefreshChanged()
{
    const QSet<QString> changed = m_changed;
    m_changed.clear();
    for (const QString& path : changed)
        RefreshFolder(path);
    UpdateWatches();
}

void WorkspaceTree::RefreshFolder(const QString& path)
{
    const QModelIndexList expanded = GetExpanded();
    QList<QPersistentModelIndex> folders;
    for (const QModelIndex& folder : expanded) {
        if (m_model->PathOf(folder) == path)
            folders.append(folder);
    }
    // A root may have come or gone in a folder that is not shown itself.
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex root = m_model->index(row, 0);
        if (!IsBelow(m_model->PathOf(root), path))
            continue;
        m_model->CheckPresence(root);
        if (isExpanded(root) && !folders.contains(root))
            folders.append(root);
    }
    for (const QPersistentModelIndex& folder : qAsConst(folders)) {
        if (folder.isValid())
            m_model->Read(folder);
    }
}

void WorkspaceTree::NoteMade(const QString& path, bool isFolder)
{
    m_model->NoteMade(path, isFolder);
    RestoreExpanded(m_model->IndexOf(ParentPath(path)));
    RestoreTop();
    RefreshFolder(ParentPath(path));
}

void WorkspaceTree::NoteGone(const QString& path)
{
    m_model->NoteGone(path);
    RestoreTop();
    RefreshFolder(ParentPath(path));
}

void WorkspaceTree::CollapseFolders()
{
    // Innermost ones as well: what is expanded again shows nothing that was not asked for. One
    // answer for all of them.
    const QModelIndexList folders = GetExpanded();
    {
        const QSignalBlocker blocker(this);
        collapseAll();
    }
    for (const QModelIndex& folder : folders)
        m_model->SetFolderOpen(folder, false);
    m_expandedHashes.clear();
    Settings::workspaceExpandedFolderHashes.clear();
    UpdateWatches();
}

void WorkspaceTree::MoveExpanded(const QString& from, const QString& to)
{
    const QModelIndexList folders = GetExpanded();
    for (const QModelIndex& folder : folders) {
        const QString path = m_model->PathOf(folder);
        if (!IsBelow(path, from))
            continue;
        const QByteArray before = FolderListing::Hash(path);
        const QByteArray now = FolderListing::Hash(Moved(path, from, to));
        m_expandedHashes.remove(before);
        m_expandedHashes.insert(now);
        Settings::workspaceExpandedFolderHashes.removeAll(before);
        Settings::workspaceExpandedFolderHashes.append(now);
    }
}

// The place in view

void WorkspaceTree::KeepTop()
{
    if (m_top.isValid() || verticalScrollBar()->value() == 0)
        return;
    m_top = indexAt(QPoint(0, 0));
    m_topOffset = visualRect(m_top).top();
}

/// Rows that came or went above do not push what somebody looks at.
void WorkspaceTree::RestoreTop()
{
    if (!m_top.isValid())
        return;
    executeDelayedItemsLayout();
    const QRect row = visualRect(m_top);
    m_top = QPersistentModelIndex();
    if (row.isValid())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + row.top() - m_topOffset);
}

// Watching

void WorkspaceTree::OnDirectoryChanged(const QString& path)
{
    m_changed.insert(path);
    if (!m_gatherTimer->isActive())
        m_gatherTimer->start();
}

/// Those that can be seen, an outer one before those in it.
QModelIndexList WorkspaceTree::GetExpanded() const
{
    QModelIndexList folders;
    CollectExpanded(QModelIndex(), folders);
    return folders;
}

void WorkspaceTree::CollectExpanded(const QModelIndex& parent, QModelIndexList& folders) const
{
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex folder = m_model->index(row, 0, parent);
        if (!m_model->IsFolder(folder))
            return; // folders come first
        if (!isExpanded(folder))
            continue;
        folders.append(folder);
        CollectExpanded(folder, folders);
    }
}

void WorkspaceTree::UpdateWatches()
{
    QSet<QString> wanted;
    const QModelIndexList expanded = GetExpanded();
    for (const QModelIndex& folder : expanded)
        wanted.insert(m_model->PathOf(folder));
    for (int row = 0; row < m_model->rowCount(); ++row)
        wanted.insert(NearestFolderAbove(m_model->PathOf(m_model->index(row, 0))));
    const QStringList directories = m_watcher->directories();
    const QSet<QString> watched(directories.begin(), directories.end());
    const QStringList gone = (watched - wanted).values();
    QStringList added = (wanted - watched).values();
    if (!gone.isEmpty())
        m_watcher->removePaths(gone);
    // The watcher complains of what is not there or closed.
    added.erase(std::remove_if(added.begin(), added.end(),
                    [](const QString& path) {
                        const QFileInfo info(path);
                        return !info.isDir() || !info.isReadable();
                    }),
        added.end());
    if (!added.isEmpty())
        m_watcher->addPaths(added);
}
