#pragma once

#include "views/explorer/FolderListing.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>
#include <QSet>

#include <memory>
#include <vector>

class FolderReader;

/// The folders of a workspace and what is in them, as far as anybody asked for it: a folder has no
/// rows until Read. Rows of a folder stay the same ones while others come and go. Files are kept as
/// bare names, so that a folder may hold very many. Owned by the tree; interface thread.
class WorkspaceModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum class Kind { Root, Folder, File };

    explicit WorkspaceModel(QObject* parent);
    ~WorkspaceModel() override;

    /// Absolute paths. Roots that stay keep what is below them.
    void SetRoots(const QStringList& paths);
    /// Reads the folder, again if need be; FolderRead tells when it is done, often at once.
    void Read(const QModelIndex& folder);
    /// Looks whether the root is there, without reading it.
    void CheckPresence(const QModelIndex& root);
    /// Their names are bold; those with `true` have a dot.
    void SetOpenFiles(const QHash<QString, bool>& modifiedByPath);
    /// What this program itself has done on the disk shows before anything is read again.
    void NoteMade(const QString& path, bool isFolder);
    void NoteGone(const QString& path);
    void SetFolderOpen(const QModelIndex& folder, bool open);

    QString PathOf(const QModelIndex& index) const;
    Kind KindOf(const QModelIndex& index) const;
    bool IsFolder(const QModelIndex& index) const;
    bool IsExpandable(const QModelIndex& index) const;
    /// And not being read again.
    bool IsRead(const QModelIndex& folder) const;
    /// Invalid for what is not read. Where roots lie within each other that of the innermost one.
    QModelIndex IndexOf(const QString& path) const;
    /// The innermost root that the path is in.
    QModelIndex RootOf(const QString& path) const;

    /// A row without a name at its kind's place in the folder, which waits for one. There is one at
    /// most; until it goes, nothing else changes.
    QModelIndex BeginNew(const QModelIndex& folder, bool isFolder);
    void EndNew();
    bool IsNew(const QModelIndex& index) const;
    /// While held, what is read waits.
    void SetHeld(bool held);
    /// Makes the row one whose name can be edited.
    void SetEditable(const QModelIndex& index);

    QModelIndex index(
        int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::DropActions supportedDropActions() const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
        const QModelIndex& parent) const override;

Q_SIGNALS:
    void FolderRead(const QModelIndex& folder);

private:
    struct Folder;
    struct Held
    {
        int ticket = 0;
        FolderListing::Listing listing;
    };

    Folder* ParentOf(const QModelIndex& index) const;
    const FolderListing::Entry& EntryOf(const QModelIndex& index) const;
    Folder* FolderOf(const QModelIndex& index) const;
    const Folder* KnownFolderOf(const QModelIndex& index) const;
    QModelIndex IndexOf(const Folder& folder) const;
    QString PathOf(const Folder& folder) const;
    QModelIndex IndexBelow(QModelIndex root, const QString& path) const;
    QModelIndexList IndexesOf(const QString& path) const;
    QIcon IconOf(const QModelIndex& index) const;
    QString ToolTipOf(const QModelIndex& index) const;
    QString AccessibleTextOf(const QModelIndex& index) const;
    void RequestRead(Folder& folder);
    void OnRead(int ticket, const FolderListing::Listing& listing);
    void SetAbsent(Folder& folder, bool absent, const QString& fault);
    void TellChanged(const QModelIndex& index);

    // Changing rows
    void Merge(Folder& folder, const QVector<FolderListing::Entry>& entries);
    void MergeByRows(Folder& folder, const QVector<FolderListing::Entry>& entries,
        const std::vector<int>& oldRows);
    void MergeAtOnce(Folder& folder, const QVector<FolderListing::Entry>& entries,
        const std::vector<int>& oldRows);
    void RemoveRows(Folder& folder, int first, int count);
    void InsertRows(Folder& folder, int first, const QVector<FolderListing::Entry>& entries);
    void Forget(Folder* folder, QSet<const void*>* forgotten);

    std::unique_ptr<Folder> m_top; ///< holds the roots
    FolderReader* m_reader;
    QHash<int, Folder*> m_awaited; ///< by ticket
    int m_lastTicket = 0;
    QHash<QString, bool> m_openFiles;
    QPersistentModelIndex m_new;
    QPersistentModelIndex m_editable;
    bool m_isHeld = false;
    QVector<Held> m_held;
    QIcon m_folderIcon;
    QIcon m_folderOpenIcon;
    QIcon m_pythonIcon;
    QIcon m_melIcon;
    QIcon m_textIcon;
};
