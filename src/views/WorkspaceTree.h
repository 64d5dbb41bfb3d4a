#pragma once

#include "views/SideBarTree.h"

#include <QHash>
#include <QSet>

class QFileSystemWatcher;
class QTimer;

/// The folders of the workspace with what is in them, read when they are expanded. Owned by its
/// section, which decides when changes are shown. Only expanded folders are watched. Which folders
/// are expanded is kept in the settings at once.
class WorkspaceTree : public SideBarTree
{
    Q_OBJECT

public:
    enum class Kind { Root, Folder, File };

    explicit WorkspaceTree(QWidget* parent);

    /// Absolute paths. Roots that stay keep what is shown below them.
    void SetRoots(const QStringList& folders);
    /// Their names are bold; those with `true` have a dot.
    void SetOpenFiles(const QHash<QString, bool>& modifiedByPath);
    /// Reads everything again that is expanded.
    void RefreshAll();
    /// Reads again what the watcher has told of.
    void RefreshChanged();
    void CollapseFolders();
    /// Expands down to the path, selects and centres it. False for what is not below a root.
    bool SelectPath(const QString& path);

    static QString GetPath(const QTreeWidgetItem* item);
    static Kind GetKind(const QTreeWidgetItem* item);

Q_SIGNALS:
    void OpenRequested(const QString& path);
    /// Something changed on disk; comes at most every 300 ms.
    void ChangesFound();

private:
    QTreeWidgetItem* CreateItem(const QString& path, Kind kind, bool expandable) const;
    QTreeWidgetItem* ItemOf(const QString& path, bool read);
    void ReadFolder(QTreeWidgetItem* folder);
    void MergeEntries(QTreeWidgetItem* folder);
    void RestoreExpanded(QTreeWidgetItem* folder);
    void SetAbsent(QTreeWidgetItem* folder, bool absent);
    void ShowOpenState(QTreeWidgetItem* file) const;
    void OnExpanded(QTreeWidgetItem* folder);
    void OnCollapsed(QTreeWidgetItem* folder);
    void OnActivated(QTreeWidgetItem* item);
    void OnDirectoryChanged(const QString& path);
    void UpdateWatches();
    void CollectExpanded(const QTreeWidgetItem* parent, QSet<QString>& paths) const;

    QFileSystemWatcher* m_watcher;
    QTimer* m_gatherTimer;
    QSet<QString> m_changed;
    QSet<QByteArray> m_expandedHashes; ///< those of the settings, for look-up
    QHash<QString, bool> m_openFiles;
    QIcon m_folderIcon;
    QIcon m_folderOpenIcon;
    QIcon m_pythonIcon;
    QIcon m_melIcon;
    QIcon m_textIcon;
};
