#include "views/search/SearchResultsModel.h"

SearchResultsModel::SearchResultsModel(QObject* parent)
    : QAbstractItemModel(parent)
{ }

SearchResultsModel::~SearchResultsModel() = default;

void SearchResultsModel::Append(const QString& detail, const QVector<SearchResult>& hits)
{
    if (hits.isEmpty() || Contains(hits.first().filePath))
        return;
    auto file = std::make_unique<File>();
    file->path = hits.first().filePath;
    file->name = hits.first().fileName;
    file->detail = detail;
    file->hits = hits;
    m_filesByPath.insert(file->path, file.get());
    m_pending.push_back(std::move(file));
}

void SearchResultsModel::Flush()
{
    if (m_pending.empty())
        return;
    const int first = GetFileCount();
    beginInsertRows({}, first, first + static_cast<int>(m_pending.size()) - 1);
    for (std::unique_ptr<File>& file : m_pending) {
        file->row = GetFileCount();
        m_hitCount += file->hits.size();
        m_files.push_back(std::move(file));
    }
    m_pending.clear();
    endInsertRows();
    Q_EMIT CountChanged();
}

void SearchResultsModel::Update(const QString& path, const QVector<SearchResult>& hits)
{
    Flush();
    File* const file = m_filesByPath.value(path);
    if (!file)
        return;
    if (hits.isEmpty())
        Remove(IndexOf(*file));
    else
        ReplaceHits(*file, hits);
}

/// Only rows between the first and the last line that changed come or go.
void SearchResultsModel::ReplaceHits(File& file, const QVector<SearchResult>& hits)
{
    const QModelIndex parent = IndexOf(file);
    const int old = file.hits.size();
    const int most = qMin(old, hits.size());
    const auto isSame = [&](int oldPlace, int newPlace) {
        return file.hits[oldPlace].lineText == hits[newPlace].lineText
            && file.hits[oldPlace].column == hits[newPlace].column;
    };
    int before = 0;
    while (before < most && isSame(before, before))
        ++before;
    int behind = 0;
    while (behind < most - before && isSame(old - 1 - behind, hits.size() - 1 - behind))
        ++behind;
    const int difference = hits.size() - old;
    const int changed = most - behind; // those before it stand in both, in their places
    if (difference > 0)
        beginInsertRows(parent, changed, changed + difference - 1);
    else if (difference < 0)
        beginRemoveRows(parent, changed, changed - difference - 1);
    file.hits = hits;
    file.name = hits.first().fileName;
    m_hitCount += difference;
    if (difference > 0)
        endInsertRows();
    else if (difference < 0)
        endRemoveRows();
    Q_EMIT dataChanged(index(0, 0, parent), index(hits.size() - 1, 0, parent));
    Q_EMIT dataChanged(parent, parent);
    if (difference != 0)
        Q_EMIT CountChanged();
}

void SearchResultsModel::Remove(const QModelIndex& index)
{
    if (!index.isValid())
        return;
    auto* const file = const_cast<File*>(&GetFile(index));
    if (IsHit(index) && file->hits.size() > 1) {
        beginRemoveRows(index.parent(), index.row(), index.row());
        file->hits.remove(index.row());
        --m_hitCount;
        endRemoveRows();
    } else {
        const int row = file->row;
        beginRemoveRows({}, row, row);
        m_hitCount -= file->hits.size();
        m_filesByPath.remove(file->path);
        m_files.erase(m_files.begin() + row);
        for (int i = row; i < GetFileCount(); ++i)
            m_files[static_cast<size_t>(i)]->row = i;
        endRemoveRows();
    }
    Q_EMIT CountChanged();
}

void SearchResultsModel::Clear()
{
    beginResetModel();
    m_pending.clear();
    m_files.clear();
    m_filesByPath.clear();
    m_hitCount = 0;
    endResetModel();
    Q_EMIT CountChanged();
}

const SearchResultsModel::File& SearchResultsModel::GetFile(const QModelIndex& index) const
{
    const auto* const file = static_cast<const File*>(index.internalPointer());
    return file ? *file : GetFileAt(index.row());
}

const SearchResult& SearchResultsModel::GetHit(const QModelIndex& index) const
{
    return GetFile(index).hits.at(index.row());
}

QModelIndex SearchResultsModel::IndexOf(const File& file) const
{
    return createIndex(file.row, 0, nullptr);
}

QModelIndex SearchResultsModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    return createIndex(
        row, column, parent.isValid() ? const_cast<File*>(&GetFile(parent)) : nullptr);
}

QModelIndex SearchResultsModel::parent(const QModelIndex& index) const
{
    return index.isValid() && IsHit(index) ? IndexOf(GetFile(index)) : QModelIndex();
}

int SearchResultsModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return GetFileCount();
    return IsHit(parent) ? 0 : GetFile(parent).hits.size();
}

int SearchResultsModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

bool SearchResultsModel::hasChildren(const QModelIndex& parent) const
{
    return parent.isValid() ? !IsHit(parent) : !m_files.empty();
}

QVariant SearchResultsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return IsHit(index) ? GetHit(index).lineText : GetFile(index).name;
    if (role == Qt::AccessibleDescriptionRole && !IsHit(index))
        return GetFile(index).hits.size() == 1 ? tr("1 result")
                                               : tr("%1 results").arg(GetFile(index).hits.size());
    return {};
}
