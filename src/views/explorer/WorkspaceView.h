#pragma once

#include "views/SubView.h"
#include "views/explorer/WorkspaceFile.h"

#include <QHash>

class FlatButton;
class KeyBindings;
class QMenu;
class QModelIndex;
class QStackedWidget;
class WorkspaceTree;

/// The section with the folders of the workspace, which it reads from its file and writes back.
/// Settings::workspaceFolders and workspacePath always are those of the workspace that is shown.
class WorkspaceView : public SubView
{
    Q_OBJECT

public:
    explicit WorkspaceView(QWidget* parent);

    /// Writes the workspace when it has changed.
    void SaveWorkspace();
    /// Writes the workspace there and goes on with that file.
    void SaveWorkspaceAs(const QString& path);
    /// Saves the present workspace, then loads the other one. One that cannot be read changes
    /// nothing but a line in the output.
    void OpenWorkspace(const QString& path);

    /// A folder that is there already is only selected.
    void AddFolder(const QString& path);
    void AddFolders(const QStringList& paths);
    void RemoveFolder(const QString& path);
    void MoveFolder(const QString& path, int step);
    void ShowAddFolderDialog();
    /// Shows and selects what lies in the workspace; false for anything else.
    bool SelectPath(const QString& path);
    /// Which files are open; true: modified.
    void SetOpenFiles(const QHash<QString, bool>& modifiedByPath);
    /// Reads again everything that is shown.
    void UpdateAll();
    void UpdateKeyBindings(const KeyBindings* keyBindings);

Q_SIGNALS:
    void OpenFileRequested(const QString& path);
    void OpenInNextGroupRequested(const QString& path);
    void InsertPathRequested(const QString& path);
    void FindInFolderRequested(const QString& folder);
    /// A file or a folder is somewhere else now.
    void PathMoved(const QString& from, const QString& to);
    void PathDeleted(const QString& path);
    void OpenWorkspaceRequested();
    void SaveWorkspaceAsRequested();
    void HideRequested();
    /// The folders are others than before.
    void WorkspaceModified();

protected:
    void Refresh() override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* CreateEmptyState();
    void LoadAtStart();
    bool Load(const QString& path);
    bool Write(const QString& path);
    void SetFolders(const QStringList& folders);
    void ShowFolders();
    void UpdateTitle();
    void ConnectTree();
    void OpenFiles(const QStringList& paths);

    // Files on the disk
    void Create(const QString& folder, const QString& name, bool isFolder);
    void Rename(const QString& path, const QString& name);
    void Move(const QStringList& paths, const QString& folder);
    void MoveOne(const QString& from, const QString& to);
    void Delete(const QStringList& paths);
    void DeleteForGood(const QStringList& paths);
    void FinishDeleting(const QStringList& paths);
    bool IsOpen(const QString& path) const;

    // Context menus
    void ShowContextMenu(const QPoint& point);
    void AddFileEntries(QMenu* menu, const QString& path);
    void AddFolderEntries(QMenu* menu, const QModelIndex& index);
    void AddChangeEntries(QMenu* menu, const QString& path);
    void AddSelectionEntries(QMenu* menu);
    void AddRootEntries(QMenu* menu, const QString& path);
    void AddSpaceEntries(QMenu* menu);
    QString RelativePath(const QString& path) const;

    QStackedWidget* m_stack;
    WorkspaceTree* m_tree;
    FlatButton* m_addButton = nullptr;
    QWidget* m_emptyAddButton = nullptr;
    WorkspaceFile m_file;
    QHash<QString, bool> m_openFiles;
    bool m_modified = false;
    bool m_isChosenHere = false; ///< the file was named by the user of this very window
    bool m_keepsUnreadable = false; ///< the file at the path is none of ours to write over
    bool m_readsAll = true; ///< on the next refresh
};
