#pragma once

#include "search/SearchResult.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QVector>

#include <memory>
#include <vector>

/// The hits of a search under their files, in the order in which they were found. Owned by the
/// results view. Made for hundreds of thousands of hits: what is appended waits until it is
/// flushed, and an index of a hit knows its file.
class SearchResultsModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    struct File
    {
        QString path;
        QString name;
        QString detail; ///< where it is, for people
        QVector<SearchResult> hits;
        int row = 0;
    };

    explicit SearchResultsModel(QObject* parent);
    ~SearchResultsModel() override;

    /// The hits of one file, which is not in the model yet. Seen after Flush.
    void Append(const QString& detail, const QVector<SearchResult>& hits);
    void Flush();
    /// Puts these in place of the file's hits; rows whose lines stay are the same rows afterwards.
    /// Nothing for a file that is not in the model.
    void Update(const QString& path, const QVector<SearchResult>& hits);
    /// A file with all its hits, or one hit, and its file with the last one.
    void Remove(const QModelIndex& index);
    void Clear();

    bool Contains(const QString& path) const { return m_filesByPath.contains(path); }
    int GetFileCount() const { return static_cast<int>(m_files.size()); }
    int GetHitCount() const { return m_hitCount; }
    bool IsHit(const QModelIndex& index) const { return index.internalPointer() != nullptr; }
    /// Of a hit's index as well.
    const File& GetFile(const QModelIndex& index) const;
    /// Of a hit's index alone.
    const SearchResult& GetHit(const QModelIndex& index) const;
    const File& GetFileAt(int row) const { return *m_files[static_cast<size_t>(row)]; }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;

Q_SIGNALS:
    /// Files or hits came or went.
    void CountChanged();

private:
    QModelIndex IndexOf(const File& file) const;
    void ReplaceHits(File& file, const QVector<SearchResult>& hits);

    std::vector<std::unique_ptr<File>> m_files;
    std::vector<std::unique_ptr<File>> m_pending;
    QHash<QString, File*> m_filesByPath;
    int m_hitCount = 0;
};
