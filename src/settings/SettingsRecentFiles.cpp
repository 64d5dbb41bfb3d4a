// The files that were used last: one list for all hosts that share the preferences. Each of them
// writes the whole list, so what others have added meanwhile is taken in before.

#include "settings/Settings.h"

#include <optional>

namespace {

/// What this process has done to the list since the file was last read or written.
struct Changes
{
    std::optional<QStringList> stored; ///< the file's list then; none before it was read
    QStringList added; ///< the latest first
    bool isCleared = false;
};

Changes changes;

QStringList Without(QStringList list, const QStringList& unwanted)
{
    for (const QString& entry : unwanted)
        list.removeAll(entry);
    return list;
}

} // namespace

void Settings::AddRecentFile(const QString& path)
{
    if (path.isEmpty())
        return;
    for (QStringList* list : {&recentFiles, &changes.added}) {
        list->removeOne(path);
        list->prepend(path);
    }
    UpdateRecentFiles(numRecentFiles);
    WriteUserConfig();
}

void Settings::UpdateRecentFiles(int count)
{
    const bool inRange = count >= MINIMUM_RECENT_FILES && count <= MAXIMUM_RECENT_FILES;
    numRecentFiles = inRange ? count : DEFAULT_NUM_RECENT_FILES;
    while (recentFiles.size() > numRecentFiles)
        recentFiles.removeLast();
}

void Settings::ClearRecentFiles()
{
    recentFiles.clear();
    changes.added.clear();
    changes.isCleared = true;
}

void Settings::TakeOtherRecentFiles(const QStringList& stored)
{
    if (!changes.stored || stored == *changes.stored)
        return;
    // Clearing was meant for what was seen.
    const QStringList others = changes.isCleared ? Without(stored, *changes.stored) : stored;
    recentFiles = changes.added + Without(others, changes.added);
    UpdateRecentFiles(numRecentFiles);
}

void Settings::NoteStoredRecentFiles(const QStringList& stored)
{
    changes = Changes{stored, {}, false};
}

void Settings::ForgetStoredRecentFiles()
{
    changes = Changes();
}
