// How the rows of the workspace's model come and go.

#include "settings/Settings.h"
#include "views/SideBarRows.h"
#include "views/explorer/FolderReader.h"
#include "views/explorer/WorkspaceFolder.h"
#include "views/explorer/WorkspaceModel.h"
#include "views/explorer/WorkspacePaths.h"

#include <QFileInfo>

#include <algorithm>

using FolderListing::Entry;

namespace {

/// From there on the views are better told once that everything has changed places.
constexpr int MOST_CHANGES = 32;

bool SameEntry(const Entry& left, const Entry& right)
{
    return left.name == right.name && left.folder == right.folder;
}

/// For each new entry where it was before; -1 for one that was not there. Both are in order.
std::vector<int> FindOldRows(const QVector<Entry>& before, const QVector<Entry>& now)
{
    std::vector<int> rows(now.size(), -1);
    int old = 0;
    for (int i = 0; i < now.size();) {
        if (old < before.size() && SameEntry(before[old], now[i]))
            rows[i++] = old++;
        else if (old < before.size() && FolderListing::Less(before[old], now[i]))
            ++old;
        else
            ++i;
    }
    return rows;
}

/// How many stretches of rows come or go.
int CountChanges(const std::vector<int>& oldRows, int oldCount)
{
    int changes = 0;
    int expected = 0;
    bool inserting = false;
    for (const int row : oldRows) {
        if (row < 0) {
            changes += inserting ? 0 : 1;
            inserting = true;
            continue;
        }
        inserting = false;
        changes += row == expected ? 0 : 1;
        expected = row + 1;
    }
    return changes + (expected < oldCount ? 1 : 0);
}

int CountFolders(const QVector<Entry>& entries)
{
    return static_cast<int>(std::count_if(
        entries.begin(), entries.end(), [](const Entry& entry) { return entry.folder; }));
}

} // namespace

void WorkspaceModel::SetRoots(const QStringList& paths)
{
    QVector<Entry> entries;
    std::vector<int> oldRows;
    for (const QString& path : paths) {
        const QString name = QFileInfo(path).fileName();
        entries.append({name.isEmpty() ? path : name, true, true});
        int old = -1;
        for (int row = 0; row < rowCount() && old < 0; ++row)
            old = PathOf(index(row, 0)) == path ? row : -1;
        oldRows.push_back(old);
    }
    if (CountChanges(oldRows, rowCount()) > 0)
        MergeAtOnce(*m_top, entries, oldRows);
    for (int row = 0; row < paths.size(); ++row) {
        FolderOf(index(row, 0))->rootPath = paths[row];
        if (oldRows[row] < 0)
            CheckPresence(index(row, 0));
    }
}

void WorkspaceModel::CheckPresence(const QModelIndex& root)
{
    Folder& folder = *FolderOf(root);
    const bool absent = !QFileInfo(PathOf(folder)).isDir();
    if (absent != (folder.fault == tr("not found")))
        SetAbsent(folder, absent, QString());
}

void WorkspaceModel::Read(const QModelIndex& folder)
{
    Folder* const known = FolderOf(folder);
    if (!known || !IsExpandable(folder))
        return;
    if (known->isAwaited)
        known->isStale = true;
    else
        RequestRead(*known);
    m_reader->WaitBriefly();
}

void WorkspaceModel::RequestRead(Folder& folder)
{
    folder.isAwaited = true;
    folder.isStale = false;
    m_awaited.insert(++m_lastTicket, &folder);
    m_reader->Read(m_lastTicket, PathOf(folder), Settings::pythonHideCompiledFiles);
}

void WorkspaceModel::OnRead(int ticket, const FolderListing::Listing& listing)
{
    if (m_isHeld) {
        m_held.append({ticket, listing});
        return;
    }
    Folder* const folder = m_awaited.take(ticket);
    if (!folder)
        return;
    folder->isAwaited = false;
    // It may have changed while it was read.
    if (folder->isStale)
        RequestRead(*folder);
    SetAbsent(*folder, listing.absent, listing.fault);
    Merge(*folder, listing.entries);
    folder->isRead = true;
    Q_EMIT FolderRead(IndexOf(*folder));
}

void WorkspaceModel::SetAbsent(Folder& folder, bool absent, const QString& fault)
{
    const QString text = absent ? tr("not found")
        : fault.isEmpty()       ? QString()
                                : tr("cannot be read: %1").arg(fault);
    if (folder.fault == text)
        return;
    folder.fault = text;
    TellChanged(IndexOf(folder));
}

void WorkspaceModel::TellChanged(const QModelIndex& index)
{
    Q_EMIT dataChanged(index, index);
}

void WorkspaceModel::SetFolderOpen(const QModelIndex& folder, bool open)
{
    if (Folder* const known = FolderOf(folder))
        known->isOpen = open;
    TellChanged(folder);
}

void WorkspaceModel::SetOpenFiles(const QHash<QString, bool>& modifiedByPath)
{
    const QHash<QString, bool> before = m_openFiles;
    m_openFiles = modifiedByPath;
    const auto tell = [this](const QString& path) {
        const QModelIndexList indexes = IndexesOf(path);
        for (const QModelIndex& index : indexes)
            TellChanged(index);
    };
    for (auto file = before.begin(); file != before.end(); ++file) {
        if (!m_openFiles.contains(file.key()))
            tell(file.key());
    }
    for (auto file = m_openFiles.constBegin(); file != m_openFiles.constEnd(); ++file) {
        if (before.value(file.key()) != file.value() || !before.contains(file.key()))
            tell(file.key());
    }
}

// Rows

void WorkspaceModel::Merge(Folder& folder, const QVector<Entry>& entries)
{
    const std::vector<int> oldRows = FindOldRows(folder.entries, entries);
    const int changes = CountChanges(oldRows, folder.entries.size());
    if (changes > MOST_CHANGES)
        MergeAtOnce(folder, entries, oldRows);
    else if (changes > 0)
        MergeByRows(folder, entries, oldRows);
    // A link may lead somewhere else now.
    for (int row = 0; row < static_cast<int>(folder.folders.size()); ++row) {
        if (folder.entries[row].expandable == entries[row].expandable)
            continue;
        folder.entries[row].expandable = entries[row].expandable;
        TellChanged(createIndex(row, 0, &folder));
    }
}

void WorkspaceModel::MergeByRows(
    Folder& folder, const QVector<Entry>& entries, const std::vector<int>& oldRows)
{
    std::vector<bool> stays(folder.entries.size(), false);
    for (const int row : oldRows) {
        if (row >= 0)
            stays[row] = true;
    }
    for (int end = folder.entries.size(); end > 0;) {
        int first = end;
        while (first > 0 && !stays[first - 1])
            --first;
        if (first < end)
            RemoveRows(folder, first, end - first);
        end = first - 1;
    }
    for (int first = 0; first < entries.size();) {
        int end = first;
        while (end < entries.size() && oldRows[end] < 0)
            ++end;
        if (first < end)
            InsertRows(folder, first, entries.mid(first, end - first));
        first = end + 1;
    }
}

void WorkspaceModel::RemoveRows(Folder& folder, int first, int count)
{
    beginRemoveRows(IndexOf(folder), first, first + count - 1);
    const int folders = static_cast<int>(folder.folders.size());
    const auto from = folder.folders.begin() + qMin(first, folders);
    const auto to = folder.folders.begin() + qMin(first + count, folders);
    std::for_each(from, to, [this](const auto& gone) { Forget(gone.get(), nullptr); });
    folder.folders.erase(from, to);
    folder.entries.remove(first, count);
    folder.Renumber();
    endRemoveRows();
}

void WorkspaceModel::InsertRows(Folder& folder, int first, const QVector<Entry>& entries)
{
    beginInsertRows(IndexOf(folder), first, first + entries.size() - 1);
    std::vector<std::unique_ptr<Folder>> added(CountFolders(entries));
    const int place = qMin(first, static_cast<int>(folder.folders.size()));
    folder.folders.insert(folder.folders.begin() + place, std::make_move_iterator(added.begin()),
        std::make_move_iterator(added.end()));
    folder.entries = folder.entries.mid(0, first) + entries + folder.entries.mid(first);
    folder.Renumber();
    endInsertRows();
}

void WorkspaceModel::NoteGone(const QString& path)
{
    const QModelIndexList indexes = IndexesOf(path);
    for (const QModelIndex& index : indexes) {
        if (KindOf(index) != Kind::Root)
            RemoveRows(*ParentOf(index), index.row(), 1);
    }
}

void WorkspaceModel::NoteMade(const QString& path, bool isFolder)
{
    const QFileInfo info(path);
    const Entry entry{info.fileName(), isFolder, isFolder};
    const bool isHidden = Settings::pythonHideCompiledFiles
        && FolderListing::IsCompiledPython(entry.name, isFolder);
    const QModelIndexList parents = isHidden ? QModelIndexList() : IndexesOf(info.path());
    for (const QModelIndex& parent : parents) {
        Folder* const folder = FolderOf(parent);
        if (!folder || !folder->isRead)
            continue;
        const auto place = std::lower_bound(
            folder->entries.cbegin(), folder->entries.cend(), entry, &FolderListing::Less);
        if (place == folder->entries.cend() || !SameEntry(*place, entry))
            InsertRows(*folder, static_cast<int>(place - folder->entries.cbegin()), {entry});
    }
}

/// All rows change places in one step, however many there are.
void WorkspaceModel::MergeAtOnce(
    Folder& folder, const QVector<Entry>& entries, const std::vector<int>& oldRows)
{
    Q_EMIT layoutAboutToBeChanged();
    std::vector<int> newRows(folder.entries.size(), -1);
    std::vector<std::unique_ptr<Folder>> folders(CountFolders(entries));
    for (int row = 0; row < entries.size(); ++row) {
        const int old = oldRows[row];
        if (old < 0)
            continue;
        newRows[old] = row;
        if (entries[row].folder)
            folders[row] = std::move(folder.folders[old]);
    }
    QSet<const void*> forgotten;
    for (const std::unique_ptr<Folder>& gone : folder.folders)
        Forget(gone.get(), &forgotten);
    const QModelIndexList indexes = persistentIndexList();
    for (const QModelIndex& index : indexes) {
        if (forgotten.contains(index.internalPointer()))
            changePersistentIndex(index, QModelIndex());
        else if (index.internalPointer() == &folder)
            changePersistentIndex(index,
                newRows[index.row()] < 0 ? QModelIndex()
                                         : createIndex(newRows[index.row()], 0, &folder));
    }
    folder.folders = std::move(folders);
    folder.entries = entries;
    folder.Renumber();
    Q_EMIT layoutChanged();
}

/// Before the folder goes, and what is below it.
void WorkspaceModel::Forget(Folder* folder, QSet<const void*>* forgotten)
{
    if (!folder)
        return;
    for (auto awaited = m_awaited.begin(); awaited != m_awaited.end();)
        awaited = awaited.value() == folder ? m_awaited.erase(awaited) : std::next(awaited);
    if (forgotten)
        forgotten->insert(folder);
    for (const std::unique_ptr<Folder>& inner : folder->folders)
        Forget(inner.get(), forgotten);
}

// The row that waits for a name

QModelIndex WorkspaceModel::BeginNew(const QModelIndex& folder, bool isFolder)
{
    EndNew();
    Folder& known = *FolderOf(folder);
    const int row = isFolder ? 0 : static_cast<int>(known.folders.size());
    InsertRows(known, row, {{QString(), isFolder, false}});
    m_new = index(row, 0, folder);
    SetHeld(true);
    SetEditable(m_new);
    return m_new;
}

void WorkspaceModel::EndNew()
{
    const QModelIndex gone = m_new;
    m_new = QPersistentModelIndex();
    m_editable = QPersistentModelIndex();
    if (gone.isValid())
        RemoveRows(*ParentOf(gone), gone.row(), 1);
    SetHeld(false);
}

bool WorkspaceModel::IsNew(const QModelIndex& index) const
{
    return m_new.isValid() && m_new == index;
}

void WorkspaceModel::SetEditable(const QModelIndex& index)
{
    m_editable = index;
}

void WorkspaceModel::SetHeld(bool held)
{
    m_isHeld = held;
    if (held)
        return;
    const QVector<Held> waiting = m_held;
    m_held.clear();
    for (const Held& result : waiting)
        OnRead(result.ticket, result.listing);
}
