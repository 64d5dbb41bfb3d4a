#pragma once

#include "files/TemporaryFile.h"

#include <QByteArray>
#include <QStringList>

#include <memory>

class QString;

/// Lives while a file is written over, which a sudden end can leave torn. The old and the new
/// content are kept in a file of their own meanwhile, by which the next start finishes what was
/// begun. Without a folder, or where there is no room, nothing is kept. Any thread.
class InterruptedSave
{
public:
    InterruptedSave(const QByteArray& target, const QByteArray& before, const QByteArray& after);
    ~InterruptedSave();

    /// The file was left torn: the next start shall try again.
    void Keep() { m_isKept = true; }

    /// Where to keep the contents; the folder is made when it is needed.
    static void SetFolder(const QString& folder);
    /// Writes the new content of every save that was cut off in the middle. A file that has become
    /// something else since stays as it is. The files that were mended; what cannot be written now
    /// waits for another time.
    static QStringList FinishAll();

private:
    QByteArray m_path; ///< of the kept contents; empty when there are none
    std::unique_ptr<TemporaryFile> m_file; ///< locked: nobody takes the save for a dead one
    bool m_isKept = false;
};
