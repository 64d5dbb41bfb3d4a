#include "views/explorer/WorkspaceModel.h"

#include "settings/Settings.h"
#include "views/SideBarRows.h"
#include "views/explorer/FolderReader.h"
#include "views/explorer/WorkspaceFolder.h"
#include "views/explorer/WorkspacePaths.h"
#include "window/chrome/Theme.h"

#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

using FolderListing::Entry;
using namespace WorkspacePaths;

WorkspaceModel::WorkspaceModel(QObject* parent)
    : QAbstractItemModel(parent)
    , m_top(std::make_unique<Folder>())
    , m_reader(new FolderReader(this))
    , m_folderIcon(Theme::Icon(QStringLiteral("folder")))
    , m_folderOpenIcon(Theme::Icon(QStringLiteral("folder_open")))
    , m_pythonIcon(Theme::Icon(QStringLiteral("lang_python")))
    , m_melIcon(Theme::Icon(QStringLiteral("lang_mel")))
    , m_textIcon(Theme::Icon(QStringLiteral("lang_text")))
{
    connect(m_reader, &FolderReader::Finished, this, &WorkspaceModel::OnRead);
}

WorkspaceModel::~WorkspaceModel() = default;

// Finding one's way

WorkspaceModel::Folder* WorkspaceModel::ParentOf(const QModelIndex& index) const
{
    return static_cast<Folder*>(index.internalPointer());
}

const Entry& WorkspaceModel::EntryOf(const QModelIndex& index) const
{
    return ParentOf(index)->entries[index.row()];
}

/// Null for one that nobody has looked into.
const WorkspaceModel::Folder* WorkspaceModel::KnownFolderOf(const QModelIndex& index) const
{
    if (!index.isValid())
        return m_top.get();
    const Folder& parent = *ParentOf(index);
    return index.row() < static_cast<int>(parent.folders.size()) ? parent.folders[index.row()].get()
                                                                 : nullptr;
}

/// Null for a file.
WorkspaceModel::Folder* WorkspaceModel::FolderOf(const QModelIndex& index) const
{
    if (!index.isValid())
        return m_top.get();
    Folder& parent = *ParentOf(index);
    if (index.row() >= static_cast<int>(parent.folders.size()))
        return nullptr;
    std::unique_ptr<Folder>& folder = parent.folders[index.row()];
    if (!folder) {
        folder = std::make_unique<Folder>();
        folder->parent = &parent;
        folder->row = index.row();
    }
    return folder.get();
}

QModelIndex WorkspaceModel::IndexOf(const Folder& folder) const
{
    return folder.parent ? createIndex(folder.row, 0, folder.parent) : QModelIndex();
}

QString WorkspaceModel::PathOf(const Folder& folder) const
{
    if (!folder.rootPath.isEmpty() || !folder.parent)
        return folder.rootPath;
    return ChildPath(PathOf(*folder.parent), folder.parent->entries[folder.row].name);
}

QString WorkspaceModel::PathOf(const QModelIndex& index) const
{
    if (!index.isValid())
        return QString();
    if (KindOf(index) == Kind::Root)
        return PathOf(*FolderOf(index));
    return ChildPath(PathOf(*ParentOf(index)), EntryOf(index).name);
}

WorkspaceModel::Kind WorkspaceModel::KindOf(const QModelIndex& index) const
{
    if (ParentOf(index) == m_top.get())
        return Kind::Root;
    return EntryOf(index).folder ? Kind::Folder : Kind::File;
}

bool WorkspaceModel::IsFolder(const QModelIndex& index) const
{
    return index.isValid() && EntryOf(index).folder;
}

bool WorkspaceModel::IsExpandable(const QModelIndex& index) const
{
    return index.isValid() && EntryOf(index).expandable;
}

bool WorkspaceModel::IsRead(const QModelIndex& folder) const
{
    const Folder* const known = KnownFolderOf(folder);
    return known && known->isRead && !known->isAwaited;
}

QModelIndex WorkspaceModel::IndexBelow(QModelIndex root, const QString& path) const
{
    while (root.isValid() && PathOf(root) != path) {
        const QString name
            = path.mid(ChildPath(PathOf(root), QString()).size()).section(QLatin1Char('/'), 0, 0);
        const Folder* const folder = KnownFolderOf(root);
        const int count = folder ? folder->entries.size() : 0;
        int row = 0;
        while (row < count && folder->entries[row].name != name)
            ++row;
        root = row < count ? createIndex(row, 0, const_cast<Folder*>(folder)) : QModelIndex();
    }
    return root;
}

QModelIndex WorkspaceModel::RootOf(const QString& path) const
{
    QModelIndex innermost;
    for (int row = 0; row < rowCount(); ++row) {
        const QModelIndex root = index(row, 0);
        if (IsBelow(path, PathOf(root)) && PathOf(root).size() >= PathOf(innermost).size())
            innermost = root;
    }
    return innermost;
}

QModelIndex WorkspaceModel::IndexOf(const QString& path) const
{
    return IndexBelow(RootOf(path), path);
}

/// One for each root that the path is in.
QModelIndexList WorkspaceModel::IndexesOf(const QString& path) const
{
    QModelIndexList indexes;
    for (int row = 0; row < rowCount(); ++row) {
        const QModelIndex root = index(row, 0);
        const QModelIndex found
            = IsBelow(path, PathOf(root)) ? IndexBelow(root, path) : QModelIndex();
        if (found.isValid())
            indexes.append(found);
    }
    return indexes;
}

// The toolkit's questions

QModelIndex WorkspaceModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || column != 0 || row >= rowCount(parent))
        return QModelIndex();
    return createIndex(row, column, FolderOf(parent));
}

QModelIndex WorkspaceModel::parent(const QModelIndex& child) const
{
    return child.isValid() ? IndexOf(*ParentOf(child)) : QModelIndex();
}

int WorkspaceModel::rowCount(const QModelIndex& parent) const
{
    const Folder* const folder = KnownFolderOf(parent);
    return folder ? folder->entries.size() : 0;
}

int WorkspaceModel::columnCount(const QModelIndex&) const
{
    return 1;
}

/// Also of a folder that is not read, or turned out to be empty: it can be looked into.
bool WorkspaceModel::hasChildren(const QModelIndex& parent) const
{
    return parent.isValid() ? EntryOf(parent).expandable : rowCount() > 0;
}

Qt::ItemFlags WorkspaceModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled;
    Qt::ItemFlags flags
        = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    flags.setFlag(Qt::ItemNeverHasChildren, !EntryOf(index).folder);
    flags.setFlag(Qt::ItemIsEditable, m_editable == index);
    return flags;
}

QVariant WorkspaceModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const Entry& entry = EntryOf(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return entry.name;
    case Qt::DecorationRole: return IconOf(index);
    case Qt::ToolTipRole: return ToolTipOf(index);
    case Qt::AccessibleTextRole: return AccessibleTextOf(index);
    case SideBarRows::CopyRole: return PathOf(index);
    case SideBarRows::LanguageIconRole: return !entry.folder;
    case SideBarRows::AbsentRole:
        return KnownFolderOf(index) && !KnownFolderOf(index)->fault.isEmpty();
    case SideBarRows::ModifiedRole: return !entry.folder && m_openFiles.value(PathOf(index));
    case Qt::FontRole: {
        QFont font;
        font.setBold(!entry.folder && m_openFiles.contains(PathOf(index)));
        return font.bold() ? QVariant(font) : QVariant();
    }
    default: return QVariant();
    }
}

QIcon WorkspaceModel::IconOf(const QModelIndex& index) const
{
    const Entry& entry = EntryOf(index);
    if (entry.folder) {
        const Folder* const folder = KnownFolderOf(index);
        return folder && folder->isOpen ? m_folderOpenIcon : m_folderIcon;
    }
    const auto endsWith = [&entry](const char* end) {
        return entry.name.endsWith(QLatin1String(end), Qt::CaseInsensitive);
    };
    if (endsWith(".py") || endsWith(".pyw"))
        return m_pythonIcon;
    return endsWith(".mel") ? m_melIcon : m_textIcon;
}

QString WorkspaceModel::ToolTipOf(const QModelIndex& index) const
{
    const Folder* const folder = KnownFolderOf(index);
    if (folder && !folder->fault.isEmpty())
        return folder->fault;
    return KindOf(index) == Kind::Root ? PathOf(index) : QString();
}

/// What is told by looks alone.
QString WorkspaceModel::AccessibleTextOf(const QModelIndex& index) const
{
    const QString name = EntryOf(index).name;
    const Folder* const folder = KnownFolderOf(index);
    if (folder && !folder->fault.isEmpty())
        return QStringLiteral("%1, %2").arg(name, folder->fault);
    const QString path = PathOf(index);
    if (EntryOf(index).folder || !m_openFiles.contains(path))
        return name;
    return m_openFiles.value(path) ? tr("%1, open, modified").arg(name) : tr("%1, open").arg(name);
}

// Dragging

QStringList WorkspaceModel::mimeTypes() const
{
    return {QStringLiteral("text/uri-list")};
}

QMimeData* WorkspaceModel::mimeData(const QModelIndexList& indexes) const
{
    QList<QUrl> urls;
    for (const QModelIndex& index : indexes)
        urls.append(QUrl::fromLocalFile(PathOf(index)));
    auto* const data = new QMimeData;
    data->setUrls(urls);
    return data;
}

Qt::DropActions WorkspaceModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

/// The tree knows better what may go where.
bool WorkspaceModel::canDropMimeData(
    const QMimeData* data, Qt::DropAction, int, int, const QModelIndex&) const
{
    return data->hasUrls();
}
