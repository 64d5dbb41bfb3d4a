#pragma once

#include "views/SideBarRows.h"
#include "views/explorer/WorkspaceModel.h"

#include <QSet>
#include <QTreeView>

class QFileSystemWatcher;
class QTimer;
class WorkspaceNameDelegate;

/// The folders of the workspace with what is in them, read when they are expanded. Owned by its
/// section, which decides when changes are shown and does what is asked for by signals: the tree
/// itself changes nothing on the disk. Only expanded folders are watched. Which folders are
/// expanded is kept in the settings at once. Interface thread.
class WorkspaceTree : public QTreeView, public SideBarRows
{
    Q_OBJECT

public:
    using Kind = WorkspaceModel::Kind;

    explicit WorkspaceTree(QWidget* parent);

    const WorkspaceModel* GetModel() const { return m_model; }
    /// Absolute paths. Roots that stay keep what is shown below them.
    void SetRoots(const QStringList& folders);
    /// Their names are bold; those with `true` have a dot.
    void SetOpenFiles(const QHash<QString, bool>& modifiedByPath);
    /// Reads everything again that is expanded.
    void RefreshAll();
    /// Reads again what the watcher has told of.
    void RefreshChanged();
    /// Reads this one again, where it is shown.
    void RefreshFolder(const QString& path);
    /// What has been done on the disk shows at once, however long reading takes.
    void NoteMade(const QString& path, bool isFolder);
    void NoteGone(const QString& path);
    void CollapseFolders();
    /// Expands down to the path, selects and centres it; also later, when folders on the way take
    /// long to read. Nothing happens for what is not there.
    void SelectPath(const QString& path);
    /// Expanded folders keep to be so under another name.
    void MoveExpanded(const QString& from, const QString& to);

    /// Without what is below another one of them.
    QStringList GetSelectedPaths() const;
    QString GetCurrentPath() const;
    /// The current folder, or the one that the current file is in; empty without any.
    QString GetCurrentFolder() const;

    // Names that are typed into a row
    void BeginNew(const QString& folder, bool isFolder);
    void BeginRename(const QString& path);

Q_SIGNALS:
    void OpenRequested(const QStringList& paths);
    void OpenInNextGroupRequested(const QString& path);
    void CreateRequested(const QString& folder, const QString& name, bool isFolder);
    void RenameRequested(const QString& path, const QString& name);
    void DeleteRequested(const QStringList& paths);
    void MoveRequested(const QStringList& paths, const QString& folder);
    void FoldersDropped(const QStringList& paths);
    /// Something changed on disk; comes at most every 300 ms.
    void ChangesFound();

protected:
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void OnFolderRead(const QModelIndex& folder);
    void RestoreExpanded(const QModelIndex& folder);
    void OnExpanded(const QModelIndex& folder);
    void OnCollapsed(const QModelIndex& folder);
    void OnDirectoryChanged(const QString& path);
    QModelIndexList GetExpanded() const;
    void CollectExpanded(const QModelIndex& parent, QModelIndexList& folders) const;
    void UpdateWatches();
    void GoOn();
    void Reveal();
    void KeepTop();
    void RestoreTop();
    void Activate(const QModelIndex& index);
    void CopyPaths() const;
    QModelIndex DropFolderAt(const QDropEvent& event) const;
    bool IsTaking(const QDropEvent& event) const;
    void StartNew();

    WorkspaceModel* m_model;
    WorkspaceNameDelegate* m_names;
    QFileSystemWatcher* m_watcher;
    QTimer* m_gatherTimer;
    QSet<QString> m_changed;
    QSet<QByteArray> m_expandedHashes; ///< those of the settings, for look-up
    QString m_revealedPath; ///< while it is on its way
    QPersistentModelIndex m_edited; ///< the row whose name is typed
    QString m_newFolder; ///< where a new row waits for the folder to be read
    bool m_newIsFolder = false;
    QPersistentModelIndex m_top; ///< while rows change: the first one in view
    int m_topOffset = 0; ///< pixels
};
