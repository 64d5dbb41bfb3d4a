#include "views/explorer/FolderListing.h"

#include "views/explorer/NaturalOrder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <memory>
#include <vector>

namespace {

using FolderListing::Entry;

struct CloseFolder
{
    void operator()(DIR* folder) const { closedir(folder); }
};

/// An entry on its way to its place, with what it is ordered by.
struct Sortable
{
    Entry entry;
    QString folded;
};

bool LeadsUpwards(const QFileInfo& link)
{
    const QString target = link.canonicalFilePath();
    const QString here = QFileInfo(link.path()).canonicalFilePath();
    return here == target || here.startsWith(target + QLatin1Char('/'))
        || target == QLatin1String("/");
}

/// Only links, and what the file system tells nothing of, are looked at themselves.
Entry EntryOf(const QString& path, const dirent& found)
{
    const QString name = QFile::decodeName(found.d_name);
    if (found.d_type != DT_LNK && found.d_type != DT_UNKNOWN)
        return {name, found.d_type == DT_DIR, found.d_type == DT_DIR};
    const QFileInfo info(path + QLatin1Char('/') + name);
    const bool folder = info.isDir();
    return {name, folder, folder && !(info.isSymLink() && LeadsUpwards(info))};
}

bool IsDots(const char* name)
{
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

QVector<Entry> Sorted(std::vector<Sortable>& found)
{
    std::sort(found.begin(), found.end(), [](const Sortable& left, const Sortable& right) {
        return left.entry.folder != right.entry.folder
            ? left.entry.folder
            : NaturalLess(left.entry.name, left.folded, right.entry.name, right.folded);
    });
    QVector<Entry> entries;
    entries.reserve(static_cast<int>(found.size()));
    for (Sortable& item : found)
        entries.append(std::move(item.entry));
    return entries;
}

} // namespace

FolderListing::Listing FolderListing::Read(
    const QString& path, bool hideCompiledPython, const std::atomic<bool>* cancelled)
{
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(QFile::encodeName(path).constData()));
    if (!folder) {
        const bool absent = errno == ENOENT || errno == ENOTDIR;
        return {{}, absent, qt_error_string(errno)};
    }
    std::vector<Sortable> found;
    while (const dirent* const next = readdir(folder.get())) {
        if (cancelled && *cancelled)
            break;
        if (IsDots(next->d_name))
            continue;
        Entry entry = EntryOf(path, *next);
        if (hideCompiledPython && IsCompiledPython(entry.name, entry.folder))
            continue;
        QString folded = entry.name.toCaseFolded();
        found.push_back({std::move(entry), std::move(folded)});
    }
    return {Sorted(found), false, QString()};
}

bool FolderListing::IsCompiledPython(const QString& name, bool folder)
{
    if (folder)
        return name == QLatin1String("__pycache__");
    return name.endsWith(QLatin1String(".pyc"), Qt::CaseInsensitive)
        || name.endsWith(QLatin1String(".pyo"), Qt::CaseInsensitive);
}

bool FolderListing::Less(const Entry& left, const Entry& right)
{
    return left.folder != right.folder ? left.folder : NaturalLess(left.name, right.name);
}

QByteArray FolderListing::Hash(const QString& path)
{
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    return QCryptographicHash::hash(absolute.toUtf8(), QCryptographicHash::Md5);
}
