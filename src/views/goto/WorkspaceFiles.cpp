#include "views/goto/WorkspaceFiles.h"

#include "settings/Settings.h"
#include "views/goto/GoToEntries.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int SLICE = 5; // ms
constexpr int LEAST_SHARE = 10; // files of one folder that are listed before those of the next
constexpr int MAXIMUM_AGE = 10000; // ms after which the list is renewed

bool IsCompiledPython(const QString& name)
{
    return name.endsWith(QLatin1String(".pyc"), Qt::CaseInsensitive)
        || name.endsWith(QLatin1String(".pyo"), Qt::CaseInsensitive);
}

bool IsLeftOut(const QString& folderName)
{
    return folderName.startsWith(QLatin1Char('.')) || folderName == QLatin1String("__pycache__");
}

QString Join(const QString& folder, const QString& name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

bool SameTarget(const GoToEntry& left, const GoToEntry& right)
{
    return left.target == right.target;
}

} // namespace

WorkspaceFiles::WorkspaceFiles(QObject* parent, int maximum)
    : QObject(parent)
    , m_maximum(maximum)
{
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &WorkspaceFiles::GatherSlice);
}

void WorkspaceFiles::Start()
{
    const bool areOthers = m_folders != Settings::workspaceFolders
        || m_hidesCompiled != Settings::pythonHideCompiledFiles;
    if (areOthers || m_isOutdated || (!m_isGathering && m_age.hasExpired(MAXIMUM_AGE)))
        Begin();
    if (m_isGathering)
        m_timer.start();
}

void WorkspaceFiles::Stop()
{
    m_timer.stop();
}

void WorkspaceFiles::Begin()
{
    // Files of folders that are gone are not to be offered any more.
    if (m_folders != Settings::workspaceFolders)
        m_entries.clear();
    m_folders = Settings::workspaceFolders;
    m_hidesCompiled = Settings::pythonHideCompiledFiles;
    m_isOutdated = false;
    m_isGathering = true;
    m_isRenewing = !m_entries.isEmpty();
    m_found.clear();
    m_foundMore = false;
    m_links.clear();
    m_rests.clear();
    m_visited.clear();
    m_iterator.reset();
    m_files.clear();
    m_subfolders.clear();
    m_nextFile = 0;
    m_waiting.clear();
    for (const QString& folder : qAsConst(m_folders))
        m_waiting.enqueue({folder, QFileInfo(folder).canonicalFilePath()});
}

void WorkspaceFiles::GatherSlice()
{
    QElapsedTimer clock;
    clock.start();
    const int before = m_entries.size();
    bool goesOn = true;
    while (goesOn && clock.elapsed() < SLICE)
        goesOn = TakeStep();
    if (!goesOn)
        Finish();
    else if (m_entries.size() > before)
        Q_EMIT Grown();
}

/// A small piece of the work; false when all is done.
bool WorkspaceFiles::TakeStep()
{
    if (m_iterator && m_iterator->hasNext()) {
        ReadEntry();
    } else if (m_iterator) {
        SortNames();
    } else if (m_nextFile < m_files.size()) {
        AppendFile();
        return !m_foundMore;
    } else {
        return OpenNextFolder();
    }
    return true;
}

bool WorkspaceFiles::OpenNextFolder()
{
    Folder next;
    if (!m_waiting.isEmpty()) {
        next = m_waiting.dequeue();
    } else if (!m_links.isEmpty()) {
        next.path = m_links.dequeue();
        next.canonicalPath = QFileInfo(next.path).canonicalFilePath();
    } else {
        return TakeRest();
    }
    if (next.canonicalPath.isEmpty() || m_visited.contains(next.canonicalPath))
        return true;
    m_visited.insert(next.canonicalPath);
    m_folder = next;
    m_files.clear();
    m_subfolders.clear();
    m_nextFile = 0;
    m_iterator = std::make_unique<QDirIterator>(
        next.path, QDir::Dirs | QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    return true;
}

bool WorkspaceFiles::TakeRest()
{
    if (m_rests.isEmpty())
        return false;
    Rest rest = m_rests.dequeue();
    m_folder = rest.folder;
    m_files = std::move(rest.files);
    m_nextFile = 0;
    return true;
}

void WorkspaceFiles::ReadEntry()
{
    m_iterator->next();
    const QString name = m_iterator->fileName();
    const QFileInfo info = m_iterator->fileInfo();
    if (!info.isDir()) {
        if (!m_hidesCompiled || !IsCompiledPython(name))
            m_files.append({name.toCaseFolded(), name});
    } else if (IsLeftOut(name)) {
        return;
    } else if (info.isSymLink()) {
        m_links.append(m_iterator->filePath());
    } else {
        m_subfolders.append({name.toCaseFolded(), name});
    }
    // Of a folder with more than can be listed the rest need not be read.
    if (m_files.size() + m_subfolders.size() > m_maximum)
        SortNames();
}

void WorkspaceFiles::SortNames()
{
    m_iterator.reset();
    const auto isLess = [](const Name& left, const Name& right) {
        return left.key != right.key ? left.key < right.key : left.name < right.name;
    };
    std::sort(m_files.begin(), m_files.end(), isLess);
    std::sort(m_subfolders.begin(), m_subfolders.end(), isLess);
    for (const Name& name : qAsConst(m_subfolders)) {
        m_waiting.enqueue(
            {Join(m_folder.path, name.name), Join(m_folder.canonicalPath, name.name)});
    }
    const int share = qMax(m_maximum / 10, LEAST_SHARE);
    if (m_files.size() > share) {
        m_rests.enqueue({m_folder, m_files.mid(share)});
        m_files.resize(share);
    }
}

void WorkspaceFiles::AppendFile()
{
    QVector<GoToEntry>& entries = m_isRenewing ? m_found : m_entries;
    if (entries.size() >= m_maximum) {
        m_foundMore = true;
        return;
    }
    const QString& name = m_files[m_nextFile++].name;
    entries.append(GoToEntries::OfFile(Join(m_folder.path, name), m_folders));
}

void WorkspaceFiles::Finish()
{
    m_timer.stop();
    m_isGathering = false;
    m_isCut = m_foundMore;
    m_age.start();
    bool changed = true;
    if (m_isRenewing) {
        changed = m_found.size() != m_entries.size()
            || !std::equal(m_found.cbegin(), m_found.cend(), m_entries.cbegin(), SameTarget);
        m_entries = std::exchange(m_found, {});
    }
    m_isRenewing = false;
    Q_EMIT Finished(changed);
}
