#include "search/FolderEntries.h"

#include <QFile>

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct CloseFolder
{
    void operator()(DIR* folder) const { closedir(folder); }
};

/// Some file systems do not tell with the name.
unsigned char TypeOf(const dirent& entry, int folderDescriptor)
{
    if (entry.d_type != DT_UNKNOWN)
        return entry.d_type;
    struct stat status;
    if (fstatat(folderDescriptor, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return DT_UNKNOWN;
    return S_ISREG(status.st_mode) ? DT_REG : S_ISDIR(status.st_mode) ? DT_DIR : DT_UNKNOWN;
}

void Sort(QVector<FolderEntries::Entry>& entries)
{
    using Entry = FolderEntries::Entry;
    std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        const int order = left.key.compare(right.key);
        return order != 0 ? order < 0 : left.text < right.text;
    });
}

} // namespace

bool FolderEntries::Read(int folderDescriptor)
{
    files.clear();
    folders.clear();
    const int own = fcntl(folderDescriptor, F_DUPFD_CLOEXEC, 0);
    const std::unique_ptr<DIR, CloseFolder> folder(own < 0 ? nullptr : fdopendir(own));
    if (!folder) {
        if (own >= 0)
            close(own);
        return false;
    }
    while (const dirent* const entry = readdir(folder.get())) {
        if (entry->d_name[0] == '.')
            continue;
        const unsigned char type = TypeOf(*entry, folderDescriptor);
        if (type != DT_REG && type != DT_DIR)
            continue;
        const QByteArray name(entry->d_name);
        const QString text = QFile::decodeName(name);
        // A name that the toolkit has no characters for cannot be opened by anybody else either.
        if (QFile::encodeName(text) == name)
            (type == DT_REG ? files : folders).append({name, text, text.toLower()});
    }
    Sort(files);
    Sort(folders);
    return true;
}
