#include "search/SearchRun.h"

#include "search/FolderEntries.h"

#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace {

constexpr int POLL_INTERVAL = 30; // ms

/// An open folder of the operating system, closed with the object.
class OpenFolder
{
public:
    OpenFolder(const QString& path, int flags)
        : m_descriptor(open(QFile::encodeName(path).constData(),
            O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK | flags))
    { }
    ~OpenFolder()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;

    int GetDescriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

QString PathBelow(const QString& root, const QString& relative)
{
    if (relative.isEmpty())
        return root;
    return root.endsWith(QLatin1Char('/')) ? root + relative : root + QLatin1Char('/') + relative;
}

} // namespace

SearchRun::SearchRun(const QRegularExpression& expression, const SearchFilter& filter,
    const QTextCodec* codec, Owner& owner)
    : m_search(expression, codec)
    , m_filter(filter)
    , m_owner(owner)
{
    m_search.SetPoll([this] { return Poll(); });
    m_clock.start();
}

void SearchRun::SetOpenPaths(const QStringList& paths)
{
    m_openPaths = QSet<QString>(paths.begin(), paths.end());
}

bool SearchRun::Poll()
{
    if (!m_isCancelled && m_clock.elapsed() >= POLL_INTERVAL) {
        m_isCancelled = !m_owner.KeepGoing();
        m_clock.start();
    }
    return !m_isCancelled;
}

void SearchRun::Report(
    const QString& root, const QString& relative, const QString& path, QVector<SearchResult> hits)
{
    ++m_files;
    if (m_search.HasGivenUp())
        m_givenUpFiles.append(path);
    if (hits.isEmpty() || m_reported.contains(path))
        return;
    m_reported.insert(path);
    const QString name = QFileInfo(path).fileName();
    for (SearchResult& hit : hits) {
        hit.filePath = path;
        if (hit.fileName.isEmpty())
            hit.fileName = name;
    }
    m_owner.OnHits(root, relative, hits);
}

void SearchRun::SearchText(
    const QString& folder, const QString& path, const QString& name, const QString& text)
{
    if (!Poll())
        return;
    QVector<SearchResult> hits = m_search.SearchText(text);
    for (SearchResult& hit : hits)
        hit.fileName = name;
    Report(folder, QFileInfo(path).fileName(), path, hits);
}

void SearchRun::SearchFile(const QString& path)
{
    const QFileInfo info(path);
    if (info.isFile() && Poll())
        SearchFileAt(info.path(), info.fileName(), path, QFile::encodeName(path), AT_FDCWD, 0);
}

void SearchRun::SearchFileAt(const QString& root, const QString& relative, const QString& path,
    const QByteArray& name, int folderDescriptor, int flags)
{
    if (m_openPaths.contains(path))
        Report(root, relative, path, m_search.SearchText(m_owner.GetOpenText(path)));
    else if (m_bytes.Read(name, folderDescriptor, flags))
        Report(root, relative, path, m_search.SearchBytes(m_bytes.GetBegin(), m_bytes.GetEnd()));
}

void SearchRun::SearchFolder(const QString& root, const QString& relative)
{
    SearchFolderAt(root, relative, 0);
}

void SearchRun::SearchFolderAt(const QString& root, const QString& relative, int flags)
{
    // With a "/" at its end a link would be followed.
    const QString path = PathBelow(root, relative.chopped(relative.isEmpty() ? 0 : 1));
    if (!Poll() || m_filter.IsExcluded(path))
        return;
    FolderEntries entries;
    {
        // Closed before going further down, or deep trees would take all descriptors.
        const OpenFolder folder(path, flags);
        if (folder.GetDescriptor() < 0 || !entries.Read(folder.GetDescriptor())) {
            m_unreadableFolders.append(path);
            return;
        }
        for (const FolderEntries::Entry& file : qAsConst(entries.files)) {
            const QString relativePath = relative + file.text;
            const QString filePath = PathBelow(root, relativePath);
            if (!Poll())
                return;
            if (m_filter.IncludesFile(filePath) && !m_filter.IsExcluded(filePath))
                SearchFileAt(
                    root, relativePath, filePath, file.name, folder.GetDescriptor(), O_NOFOLLOW);
        }
    }
    entries.files.clear();
    for (const FolderEntries::Entry& folder : qAsConst(entries.folders))
        SearchFolderAt(root, relative + folder.text + QLatin1Char('/'), O_NOFOLLOW);
}
