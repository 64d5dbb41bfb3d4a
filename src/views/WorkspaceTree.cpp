#include "views/WorkspaceTree.h"

#include "settings/Settings.h"
#include "views/FolderListing.h"
#include "window/chrome/Theme.h"

#include <QDir>
#include <QFileSystemWatcher>
#include <QTimer>

namespace {

constexpr int GATHER_TIME = 300; // ms

constexpr int PATH_ROLE = Qt::UserRole;
constexpr int KIND_ROLE = Qt::UserRole + 1;

QString ChildPath(const QString& folder, const QString& name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

/// Where to wait for a folder to come or go: beside it, or as near as there is anything.
QString NearestFolderAbove(const QString& path)
{
    QString above = QFileInfo(path).path();
    while (above != QLatin1String("/") && !QFileInfo::exists(above))
        above = QFileInfo(above).path();
    return above;
}

bool IsBelow(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(ChildPath(folder, QString()));
}

} // namespace

WorkspaceTree::WorkspaceTree(QWidget* parent)
    : SideBarTree(parent)
    , m_watcher(new QFileSystemWatcher(this))
    , m_gatherTimer(new QTimer(this))
    , m_folderIcon(Theme::Icon(QStringLiteral("folder")))
    , m_folderOpenIcon(Theme::Icon(QStringLiteral("folder_open")))
    , m_pythonIcon(Theme::Icon(QStringLiteral("lang_python")))
    , m_melIcon(Theme::Icon(QStringLiteral("lang_mel")))
    , m_textIcon(Theme::Icon(QStringLiteral("lang_text")))
{
    // Folders are toggled by what activates them, a key or a double click.
    setExpandsOnDoubleClick(false);
    m_gatherTimer->setSingleShot(true);
    m_gatherTimer->setInterval(GATHER_TIME);
    const QList<QByteArray> hashes = Settings::workspaceExpandedFolderHashes;
    m_expandedHashes = QSet<QByteArray>(hashes.begin(), hashes.end());
    connect(this, &QTreeWidget::itemExpanded, this, &WorkspaceTree::OnExpanded);
    connect(this, &QTreeWidget::itemCollapsed, this, &WorkspaceTree::OnCollapsed);
    connect(this, &QTreeWidget::itemActivated, this, &WorkspaceTree::OnActivated);
    connect(
        m_watcher, &QFileSystemWatcher::directoryChanged, this, &WorkspaceTree::OnDirectoryChanged);
    connect(m_gatherTimer, &QTimer::timeout, this, &WorkspaceTree::ChangesFound);
}

QString WorkspaceTree::GetPath(const QTreeWidgetItem* item)
{
    return item->data(0, PATH_ROLE).toString();
}

WorkspaceTree::Kind WorkspaceTree::GetKind(const QTreeWidgetItem* item)
{
    return static_cast<Kind>(item->data(0, KIND_ROLE).toInt());
}

QTreeWidgetItem* WorkspaceTree::CreateItem(const QString& path, Kind kind, bool expandable) const
{
    auto* item = new QTreeWidgetItem;
    const QFileInfo info(path);
    item->setText(0, info.fileName().isEmpty() ? path : info.fileName());
    item->setData(0, PATH_ROLE, path);
    item->setData(0, KIND_ROLE, static_cast<int>(kind));
    item->setData(0, CopyRole, path);
    item->setChildIndicatorPolicy(
        expandable ? QTreeWidgetItem::ShowIndicator : QTreeWidgetItem::DontShowIndicator);
    if (kind != Kind::File) {
        item->setIcon(0, m_folderIcon);
        if (kind == Kind::Root)
            item->setToolTip(0, path);
        return item;
    }
    const QString suffix = info.suffix().toLower();
    const bool python = suffix == QLatin1String("py") || suffix == QLatin1String("pyw");
    item->setIcon(0,
        python                               ? m_pythonIcon
            : suffix == QLatin1String("mel") ? m_melIcon
                                             : m_textIcon);
    item->setData(0, LanguageIconRole, true);
    ShowOpenState(item);
    return item;
}

void WorkspaceTree::SetRoots(const QStringList& folders)
{
    for (int i = topLevelItemCount() - 1; i >= 0; --i) {
        if (!folders.contains(GetPath(topLevelItem(i))))
            delete takeTopLevelItem(i);
    }
    for (int i = 0; i < folders.size(); ++i) {
        QTreeWidgetItem* root = nullptr;
        for (int j = i; j < topLevelItemCount() && !root; ++j)
            root = GetPath(topLevelItem(j)) == folders[i] ? topLevelItem(j) : nullptr;
        if (root && topLevelItem(i) == root)
            continue;
        if (root)
            takeTopLevelItem(indexOfTopLevelItem(root));
        else
            root = CreateItem(folders[i], Kind::Root, true);
        insertTopLevelItem(i, root);
        SetAbsent(root, !QFileInfo(folders[i]).isDir());
        // Taken out and put back, everything is collapsed.
        RestoreExpanded(root);
    }
    UpdateWatches();
}

void WorkspaceTree::SetOpenFiles(const QHash<QString, bool>& modifiedByPath)
{
    const QHash<QString, bool> before = m_openFiles;
    m_openFiles = modifiedByPath;
    const auto update = [this](const QString& path) {
        if (QTreeWidgetItem* item = ItemOf(path, false))
            ShowOpenState(item);
    };
    for (auto file = before.begin(); file != before.end(); ++file) {
        if (!m_openFiles.contains(file.key()))
            update(file.key());
    }
    for (auto file = m_openFiles.constBegin(); file != m_openFiles.constEnd(); ++file) {
        if (before.value(file.key()) != file.value() || !before.contains(file.key()))
            update(file.key());
    }
}

void WorkspaceTree::ShowOpenState(QTreeWidgetItem* file) const
{
    const QString path = GetPath(file);
    QFont font;
    font.setBold(m_openFiles.contains(path));
    file->setData(0, Qt::FontRole, font.bold() ? QVariant(font) : QVariant());
    file->setData(0, ModifiedRole, m_openFiles.value(path));
}

/// Null for what is not shown. With `read` the folders on the way are read and expanded.
QTreeWidgetItem* WorkspaceTree::ItemOf(const QString& path, bool read)
{
    QTreeWidgetItem* item = nullptr;
    for (int i = 0; i < topLevelItemCount() && !item; ++i) {
        if (IsBelow(path, GetPath(topLevelItem(i))))
            item = topLevelItem(i);
    }
    while (item && GetPath(item) != path) {
        if (read)
            item->setExpanded(true);
        QTreeWidgetItem* next = nullptr;
        for (int i = 0; i < item->childCount() && !next; ++i) {
            if (IsBelow(path, GetPath(item->child(i))))
                next = item->child(i);
        }
        item = next;
    }
    return item;
}

bool WorkspaceTree::SelectPath(const QString& path)
{
    QTreeWidgetItem* const item = ItemOf(path, true);
    if (!item)
        return false;
    setCurrentItem(item);
    scrollToItem(item, PositionAtCenter);
    return true;
}

void WorkspaceTree::ReadFolder(QTreeWidgetItem* folder)
{
    const bool absent = !QFileInfo(GetPath(folder)).isDir();
    SetAbsent(folder, absent);
    if (absent)
        qDeleteAll(folder->takeChildren());
    else
        MergeEntries(folder);
}

void WorkspaceTree::SetAbsent(QTreeWidgetItem* folder, bool absent)
{
    folder->setData(0, AbsentRole, absent);
    folder->setToolTip(0,
        absent                              ? tr("not found")
            : GetKind(folder) == Kind::Root ? GetPath(folder)
                                            : QString());
}

/// Both lists are in the same order, so that what stays is met in passing and keeps its selection,
/// expansion and place.
void WorkspaceTree::MergeEntries(QTreeWidgetItem* folder)
{
    const QString path = GetPath(folder);
    const QVector<FolderListing::Entry> entries
        = FolderListing::Read(path, Settings::pythonHideCompiledFiles);
    QHash<QString, bool> wanted;
    for (const FolderListing::Entry& entry : entries)
        wanted.insert(entry.name, entry.folder);
    for (int i = folder->childCount() - 1; i >= 0; --i) {
        const auto found = wanted.constFind(folder->child(i)->text(0));
        const bool isFolder = GetKind(folder->child(i)) == Kind::Folder;
        if (found == wanted.constEnd() || *found != isFolder)
            delete folder->takeChild(i);
    }
    const bool bulk = folder->childCount() == 0;
    QList<QTreeWidgetItem*> added;
    for (int i = 0; i < entries.size(); ++i) {
        if (!bulk && i < folder->childCount() && folder->child(i)->text(0) == entries[i].name)
            continue;
        const Kind kind = entries[i].folder ? Kind::Folder : Kind::File;
        QTreeWidgetItem* const item
            = CreateItem(ChildPath(path, entries[i].name), kind, entries[i].expandable);
        added.append(item);
        if (!bulk)
            folder->insertChild(i, item);
    }
    // One by one a large folder would take seconds.
    if (bulk)
        folder->addChildren(added);
    for (int i = 0; i < folder->childCount() && GetKind(folder->child(i)) == Kind::Folder; ++i)
        RestoreExpanded(folder->child(i));
}

/// A folder that was expanded before is so again; one that is gets read again.
void WorkspaceTree::RestoreExpanded(QTreeWidgetItem* folder)
{
    if (folder->childIndicatorPolicy() != QTreeWidgetItem::ShowIndicator)
        return;
    if (folder->isExpanded())
        ReadFolder(folder);
    else if (m_expandedHashes.contains(FolderListing::Hash(GetPath(folder))))
        folder->setExpanded(true);
}

void WorkspaceTree::OnExpanded(QTreeWidgetItem* folder)
{
    const QByteArray hash = FolderListing::Hash(GetPath(folder));
    if (!m_expandedHashes.contains(hash)) {
        m_expandedHashes.insert(hash);
        Settings::workspaceExpandedFolderHashes.append(hash);
    }
    folder->setIcon(0, m_folderOpenIcon);
    ReadFolder(folder);
    UpdateWatches();
}

void WorkspaceTree::OnCollapsed(QTreeWidgetItem* folder)
{
    const QByteArray hash = FolderListing::Hash(GetPath(folder));
    m_expandedHashes.remove(hash);
    Settings::workspaceExpandedFolderHashes.removeAll(hash);
    folder->setIcon(0, m_folderIcon);
    UpdateWatches();
}

void WorkspaceTree::OnActivated(QTreeWidgetItem* item)
{
    if (GetKind(item) == Kind::File)
        Q_EMIT OpenRequested(GetPath(item));
    else if (item->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator)
        item->setExpanded(!item->isExpanded());
}

void WorkspaceTree::CollapseFolders()
{
    // Innermost ones as well: what is expanded again shows nothing that was not asked for. One
    // answer for all of them.
    const QSignalBlocker blocker(this);
    for (QTreeWidgetItemIterator it(this); *it; ++it) {
        if ((*it)->isExpanded()) {
            (*it)->setExpanded(false);
            (*it)->setIcon(0, m_folderIcon);
        }
    }
    m_expandedHashes.clear();
    Settings::workspaceExpandedFolderHashes.clear();
    UpdateWatches();
}

void WorkspaceTree::RefreshAll()
{
    m_changed.clear();
    for (int i = 0; i < topLevelItemCount(); ++i) {
        SetAbsent(topLevelItem(i), !QFileInfo(GetPath(topLevelItem(i))).isDir());
        RestoreExpanded(topLevelItem(i));
    }
    UpdateWatches();
}

void WorkspaceTree::RefreshChanged()
{
    const QSet<QString> changed = m_changed;
    m_changed.clear();
    for (const QString& path : changed) {
        QTreeWidgetItem* const item = ItemOf(path, false);
        if (item && item->isExpanded())
            ReadFolder(item);
        // A root may have come or gone in a folder that is not shown itself.
        for (int i = 0; i < topLevelItemCount(); ++i) {
            QTreeWidgetItem* const root = topLevelItem(i);
            const bool absent = !QFileInfo(GetPath(root)).isDir();
            if (!IsBelow(GetPath(root), path) || absent == root->data(0, AbsentRole).toBool())
                continue;
            SetAbsent(root, absent);
            if (root->isExpanded())
                ReadFolder(root);
        }
    }
    UpdateWatches();
}

void WorkspaceTree::OnDirectoryChanged(const QString& path)
{
    m_changed.insert(path);
    if (!m_gatherTimer->isActive())
        m_gatherTimer->start();
}

void WorkspaceTree::CollectExpanded(const QTreeWidgetItem* parent, QSet<QString>& paths) const
{
    for (int i = 0; i < parent->childCount(); ++i) {
        const QTreeWidgetItem* const item = parent->child(i);
        if (GetKind(item) == Kind::File)
            return; // folders come first
        if (!item->isExpanded())
            continue;
        paths.insert(GetPath(item));
        CollectExpanded(item, paths);
    }
}

void WorkspaceTree::UpdateWatches()
{
    QSet<QString> wanted;
    CollectExpanded(invisibleRootItem(), wanted);
    for (int i = 0; i < topLevelItemCount(); ++i)
        wanted.insert(NearestFolderAbove(GetPath(topLevelItem(i))));
    const QStringList directories = m_watcher->directories();
    const QSet<QString> watched(directories.begin(), directories.end());
    const QStringList gone = (watched - wanted).values();
    QStringList added = (wanted - watched).values();
    if (!gone.isEmpty())
        m_watcher->removePaths(gone);
    // The watcher complains of what is not there.
    added.erase(std::remove_if(added.begin(), added.end(),
                    [](const QString& path) { return !QFileInfo(path).isDir(); }),
        added.end());
    if (!added.isEmpty())
        m_watcher->addPaths(added);
}
