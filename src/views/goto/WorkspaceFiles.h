#pragma once

#include "views/goto/GoToEntry.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QQueue>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <memory>

/// The files in the folders of the workspace, for going to one of them: gathered in slices while
/// the event loop has nothing else to do, level by level, each folder in order of names. Hidden
/// folders and "__pycache__" are left out, compiled Python files too where the user hides them.
/// Every folder is read once, however many links lead to it. Interface thread.
class WorkspaceFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int MAXIMUM_FILES = 20000;

    explicit WorkspaceFiles(QObject* parent, int maximum = MAXIMUM_FILES);

    /// As far as they are known. While a list is renewed it is still the old one.
    const QVector<GoToEntry>& GetEntries() const { return m_entries; }
    /// There are more than are listed.
    bool IsCut() const { return m_isCut; }
    bool IsGathering() const { return m_isGathering; }

    /// Gathers, or goes on with it, unless what is known is the settings' folders and fresh.
    void Start();
    /// Until the next start.
    void Stop();
    /// The next start gathers again.
    void MarkOutdated() { m_isOutdated = true; }

Q_SIGNALS:
    /// Entries have been appended.
    void Grown();
    /// All entries are known; `changed`: others than were known before.
    void Finished(bool changed);

private:
    struct Folder
    {
        QString path;
        QString canonicalPath;
    };
    struct Name
    {
        QString key; ///< for sorting
        QString name;
    };

    struct Rest
    {
        Folder folder;
        QVector<Name> files;
    };

    void Begin();
    void GatherSlice();
    bool TakeStep();
    bool OpenNextFolder();
    bool TakeRest();
    void ReadEntry();
    void SortNames();
    void AppendFile();
    void Finish();

    int m_maximum; ///< number of files
    QTimer m_timer;
    QElapsedTimer m_age; ///< of what is known
    QStringList m_folders; ///< what is known is in these
    bool m_hidesCompiled = false;
    bool m_isOutdated = true;
    bool m_isGathering = false;
    bool m_isRenewing = false; ///< there is an old list to be shown meanwhile
    QVector<GoToEntry> m_entries;
    bool m_isCut = false;
    QVector<GoToEntry> m_found; ///< of the list that is to take the old one's place
    bool m_foundMore = false;
    QQueue<Folder> m_waiting;
    QQueue<QString> m_links; ///< to folders; followed last, so that files have their plain paths
    QSet<QString> m_visited; ///< by canonical path
    QQueue<Rest> m_rests; ///< of large folders, which do not take the place of all others
    Folder m_folder; ///< being read
    std::unique_ptr<QDirIterator> m_iterator;
    QVector<Name> m_files; ///< of that folder
    QVector<Name> m_subfolders;
    int m_nextFile = 0;
};
