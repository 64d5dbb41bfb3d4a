#pragma once

#include "views/explorer/WorkspaceModel.h"

/// What the model knows of a folder that somebody looked into. The first rows are folders, each
/// with a place in `folders`.
struct WorkspaceModel::Folder
{
    Folder* parent = nullptr; ///< null: holds the roots
    int row = 0; ///< in the parent
    QString rootPath; ///< of roots only
    bool isRead = false;
    bool isAwaited = false; ///< being read
    bool isStale = false; ///< to be read once more after that
    bool isOpen = false;
    QString fault; ///< why there is nothing to see, for people
    QVector<FolderListing::Entry> entries;
    std::vector<std::unique_ptr<Folder>> folders; ///< null: nobody looked into it

    /// After rows have come or gone.
    void Renumber()
    {
        for (int i = 0; i < static_cast<int>(folders.size()); ++i) {
            if (folders[i])
                folders[i]->row = i;
        }
    }
};
