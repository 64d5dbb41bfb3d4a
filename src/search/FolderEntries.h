#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// What a search walks over in one folder: neither links nor hidden entries nor special files, by
/// name without case. Any thread.
struct FolderEntries
{
    struct Entry
    {
        QByteArray name; ///< as the system has it
        QString text;
        QString key; ///< what it is sorted by
    };

    QVector<Entry> files;
    QVector<Entry> folders;

    /// False for a folder that cannot be read.
    bool Read(int folderDescriptor);
};
