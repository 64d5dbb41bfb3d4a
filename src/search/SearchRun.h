#pragma once

#include "search/FileBytes.h"
#include "search/SearchFilter.h"
#include "search/TextSearch.h"

#include <QElapsedTimer>
#include <QSet>

/// One search over folders, files and open texts, and what came of it. The owner is told of hits as
/// they are found and is asked every now and then whether to go on. Used by one thread.
class SearchRun
{
public:
    struct Owner
    {
        virtual ~Owner() = default;
        /// Hits of one file: `folder` is the one that is searched, `relative` the file's path below
        /// it.
        virtual void OnHits(
            const QString& folder, const QString& relative, const QVector<SearchResult>& hits)
            = 0;
        /// Asked some thirty times a second; false ends the search.
        virtual bool KeepGoing() = 0;
        /// The text of a path of the open ones.
        virtual QString GetOpenText(const QString& path) = 0;
    };

    /// `owner` outlives the run.
    SearchRun(const QRegularExpression& expression, const SearchFilter& filter,
        const QTextCodec* codec, Owner& owner);

    /// Files whose texts the owner has; theirs are searched instead of what is on the disk.
    void SetOpenPaths(const QStringList& paths);

    void SearchText(
        const QString& folder, const QString& path, const QString& name, const QString& text);
    void SearchFile(const QString& path);
    /// The folder and all below it, without following links. `relative` is its path below `root`,
    /// empty or ending in "/".
    void SearchFolder(const QString& root, const QString& relative);

    bool IsCancelled() const { return m_isCancelled; }
    int GetFileCount() const { return m_files; }
    const QStringList& GetUnreadableFolders() const { return m_unreadableFolders; }
    /// Where matching took too many steps.
    const QStringList& GetGivenUpFiles() const { return m_givenUpFiles; }

private:
    bool Poll();
    void SearchFolderAt(const QString& root, const QString& relative, int flags);
    void SearchFileAt(const QString& root, const QString& relative, const QString& path,
        const QByteArray& name, int folderDescriptor, int flags);
    void Report(const QString& root, const QString& relative, const QString& path,
        QVector<SearchResult> hits);

    TextSearch m_search;
    SearchFilter m_filter;
    Owner& m_owner;
    QSet<QString> m_openPaths;
    QSet<QString> m_reported; ///< a file may be in two of the folders
    FileBytes m_bytes;
    QElapsedTimer m_clock;
    bool m_isCancelled = false;
    int m_files = 0;
    QStringList m_unreadableFolders;
    QStringList m_givenUpFiles;
};
